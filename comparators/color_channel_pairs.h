#pragma once

#include "difference_scope.h"
#include "mapping_comparison.h"

#include <boost/optional.hpp>

#include <vector>

namespace OrvImg
{
class PictureSource;
}

namespace HarrowSupport::Comparators
{

/// The channels of two pictures in device-independent spaces that SelectColorChannels gives, paired in their
/// order, by their positions in a pixel and their own decode ranges. Adds what does not fit: the number of
/// channels, and the names of two that are not converted. The result is absent then.
boost::optional<std::vector<ChannelPair>> PairColorChannels(const OrvImg::PictureSource& left,
                                                            const OrvImg::PictureSource& right,
                                                            const ChannelMapping& leftMapping,
                                                            const ChannelMapping& rightMapping,
                                                            DifferenceScope<OrvDoc::ContentObject>& scope);

} // namespace HarrowSupport::Comparators
