#include "stored_likeness.h"

#if __has_include(<orv_img/picture_likeness.h>)

#include "decode_equality.h"

#include <orv_img/picture_likeness.h>
#include <orv_img/picture_source.h>

#include <algorithm>
#include <cstddef>

namespace HarrowSupport::Comparators
{

namespace
{

using OrvImg::Likeness;
using OrvImg::PictureSource;

/// Of the buffer, which an indexed picture has with a single channel.
std::size_t ChannelCount(const PictureSource& source)
{
    return source.GetColorTable() != nullptr ? 1 : source.GetChannelInfos().size();
}

bool AreSame(const ChannelPair& pair)
{
    return pair.first == pair.second;
}

bool AreNearlySame(const ChannelPair& pair)
{
    return NameTheSameChannel(pair.first, pair.second);
}

/// Same samples under the same ranges give the same numbers. Under ranges that agree only nearly, samples are
/// compared as they are stored if all channels are paired, and as numbers otherwise.
bool DecodeAlike(const PictureSource& left, const std::vector<ChannelPair>& pairs)
{
    return std::all_of(pairs.begin(), pairs.end(), AreSame) ||
           (pairs.size() == ChannelCount(left) && std::all_of(pairs.begin(), pairs.end(), AreNearlySame));
}

bool WeighAlike(const SoftMaskWeighting& weighting)
{
    return weighting.left.channel == weighting.right.channel &&
           OrvImg::CompareStoredSamples(*weighting.left.source, *weighting.right.source) == Likeness::Alike;
}

} // namespace

bool AreSurelyDifferent(const PictureSource& left, const PictureSource& right)
{
    return OrvImg::CompareStoredSamples(left, right) == Likeness::Different;
}

boost::optional<bool> JudgeByStoredSamples(const PictureSource& left, const PictureSource& right,
                                           const std::vector<ChannelPair>& pairs,
                                           const SoftMaskWeighting& weighting)
{
    const Likeness likeness = OrvImg::CompareStoredSamples(left, right);
    if (likeness == Likeness::Different)
        return false;
    if (likeness == Likeness::Unknown)
        return boost::none;
    const bool areAlike = weighting.engaged
                              ? std::all_of(pairs.begin(), pairs.end(), AreSame) && WeighAlike(weighting)
                              : DecodeAlike(left, pairs);
    return boost::make_optional(areAlike, true);
}

} // namespace HarrowSupport::Comparators

#else

namespace HarrowSupport::Comparators
{

bool AreSurelyDifferent(const OrvImg::PictureSource&, const OrvImg::PictureSource&)
{
    return false;
}

boost::optional<bool> JudgeByStoredSamples(const OrvImg::PictureSource&, const OrvImg::PictureSource&,
                                           const std::vector<ChannelPair>&, const SoftMaskWeighting&)
{
    return boost::none;
}

} // namespace HarrowSupport::Comparators

#endif
