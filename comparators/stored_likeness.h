#pragma once

#include "mapping_comparison.h"
#include "soft_mask_weighting.h"

#include <boost/optional.hpp>

#include <memory>
#include <vector>

namespace OrvImg
{
class PictureSource;
}

namespace HarrowSupport::Comparators
{

/// Whether the document library can't decode one of two pictures, and the other one is not stored alike. The
/// blank samples that stand for such a picture say nothing.
bool AreSurelyDifferent(const OrvImg::PictureSource& left, const OrvImg::PictureSource& right);

/// What CompareDecodedData would give, if the document library can tell it without decoding either picture:
/// what is stored alike decodes alike, and what is surely different is different. Absent where the samples
/// have to be looked at.
boost::optional<bool> JudgeByStoredSamples(const OrvImg::PictureSource& left,
                                           const OrvImg::PictureSource& right,
                                           const std::vector<ChannelPair>& pairs,
                                           const SoftMaskWeighting& weighting);

} // namespace HarrowSupport::Comparators
