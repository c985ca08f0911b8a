#pragma once

#include "difference_scope.h"
#include "held_buffers.h"
#include "mapping_comparison.h"
#include "soft_mask_weighting.h"

#include <harrow_support/comparators.h>

#include <memory>
#include <vector>

namespace HarrowSupport::Comparators
{

/// Compares the samples of two pictures of one size, of which either may have a colour table, by pairs of
/// channels. Adds what differs and returns whether nothing does.
bool CompareIndexing(const std::shared_ptr<const OrvImg::PictureSource>& left,
                     const std::shared_ptr<const OrvImg::PictureSource>& right,
                     const std::vector<ChannelPair>& pairs, const SoftMaskWeighting& weighting,
                     DifferenceScope<OrvDoc::ContentObject>& scope, const Options& options,
                     HeldBuffers& buffers);

} // namespace HarrowSupport::Comparators
