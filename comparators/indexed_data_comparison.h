#pragma once

#include "held_buffers.h"
#include "mapping_comparison.h"

#include <memory>
#include <vector>

namespace HarrowSupport::Comparators
{

/// Whether the paired channels of two indexed pictures show the same colours, to within 2 to the power of
/// -17. Both tables must have as many channels.
///
/// Only the first sample of each row is looked at. Positions are limited to those that the samples' depth can
/// name; what is below 0, or no number, counts as 0. As for the decoded samples of other pictures, the rows
/// are those of the left buffer, a right one that has fewer rows or columns makes a difference, and pairs of
/// channels that the tables do not have need the same pair on both sides and the same colour in all channels.
bool CompareIndexedData(const std::shared_ptr<const OrvImg::PictureSource>& left,
                        const std::shared_ptr<const OrvImg::PictureSource>& right,
                        const std::vector<ChannelPair>& pairs, HeldBuffers& buffers);

} // namespace HarrowSupport::Comparators
