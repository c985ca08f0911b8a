#pragma once

#include "held_buffers.h"
#include "mapping_comparison.h"
#include "soft_mask_weighting.h"

#include <orv_img/picture_source.h>

#include <memory>
#include <vector>

namespace HarrowSupport::Comparators
{

using PictureSourcePointer = std::shared_ptr<const OrvImg::PictureSource>;

/// Whether the paired channels of two pictures show the same. Each pair holds positions in a pixel and decode
/// ranges.
///
/// - Samples of the same depth in as many channels, all of them paired with themselves under ranges that are
///   2 to the power of -17 apart at most, have to be the same.
/// - Other samples are taken to numbers from 0 to 1 by their ranges. These may be half a step of the finer
///   depth and 1e-07 apart.
/// - Under a weighting, all samples become numbers and are multiplied by those of their masks; the products
///   may be two steps of the finest of the four depths and 1e-07 apart.
///
/// The rows and columns are those of the left buffer. A right one or a mask that has fewer makes a
/// difference, and what it has more of is not looked at. A channel that a buffer does not have can't be
/// compared: pictures with such pairs are equal only if these pairs are the same on both sides and all
/// samples are. Without pairs there is nothing to compare, and the pictures are equal.
///
/// No picture is decoded if its stored form already tells the outcome. One that can't be decoded differs from
/// all that is not stored alike.
bool CompareDecodedData(const PictureSourcePointer& left, const PictureSourcePointer& right,
                        const std::vector<ChannelPair>& pairs, const SoftMaskWeighting& weighting,
                        HeldBuffers& buffers);

/// Compares the first channels of two stencils, each under its own decode range; a source that tells of no
/// channel has the range (0, 1).
bool CompareMaskSources(const PictureSourcePointer& left, const PictureSourcePointer& right,
                        HeldBuffers& buffers);

} // namespace HarrowSupport::Comparators
