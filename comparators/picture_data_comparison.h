#pragma once

#include "difference_scope.h"
#include "held_buffers.h"
#include "mapping_comparison.h"
#include "soft_mask_weighting.h"

#include <harrow_support/comparators.h>

namespace OrvImg
{
class PictureData;
}

namespace HarrowSupport::Comparators
{

/// Compares two pictures as painted by their mappings: links, mappings, size, colour space and samples. Adds
/// what differs and returns whether the pictures are equal; a difference of links or colour spaces alone does
/// not make them unequal.
///
/// Of two pictures in device-independent spaces whose mappings are not the default ones, the one channel that
/// the first entry of each mapping names is compared. A mapping without an entry, and one that names an ink
/// that no sample holds, name no channel; CompareDecodedData tells when such pictures are equal. A channel
/// that the source does not tell of has the decode range (0, 1).
bool ComparePictureData(const OrvImg::PictureData& left, const OrvImg::PictureData& right,
                        const ChannelMapping& leftMapping, const ChannelMapping& rightMapping,
                        const SoftMaskWeighting& weighting, DifferenceScope<OrvDoc::ContentObject>& scope,
                        const Options& options, HeldBuffers& buffers);

} // namespace HarrowSupport::Comparators
