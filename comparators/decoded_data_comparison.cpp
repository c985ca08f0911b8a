// Order of steps: what the stored form tells; the plain case, byte by byte; numbers, with or without weights.
// Numbers are decoded by blocks of a row, first those of the left side and then those of the right one. A
// comparison of bytes where ranges or depths differ would be quicker and wrong both ways: an inverted picture
// under an inverted range is equal, and samples of 8 and of 16 bits are never the same bytes.

#include "decoded_data_comparison.h"

#include "channel_comparison.h"
#include "channel_decoding.h"
#include "decode_equality.h"
#include "stored_likeness.h"
#include "stored_rows_comparison.h"
#include "work_counters.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace HarrowSupport::Comparators
{

namespace
{

using OrvImg::PictureBuffer;
using ChannelValue = OrvColor::ChannelMappingPolicy::Value;

/// Added to the tolerances, so that a difference of just half a step is one whichever way it was rounded.
constexpr double sampleGuard = 1e-07;

bool HasSamples(const PictureBuffer& buffer)
{
    return buffer.height != 0 && buffer.width != 0;
}

bool IsAtLeastAsLarge(const PictureBuffer& buffer, const PictureBuffer& other)
{
    return buffer.height >= other.height && buffer.width >= other.width;
}

bool HaveSameShape(const PictureBuffer& left, const PictureBuffer& right)
{
    return left.bitsPerChannel == right.bitsPerChannel && left.channels == right.channels;
}

bool AllNameTheSame(const std::vector<ChannelPair>& pairs)
{
    return std::all_of(pairs.begin(), pairs.end(),
                       [](const ChannelPair& pair) { return NameTheSameChannel(pair.first, pair.second); });
}

bool IsPlain(const PictureBuffer& left, const PictureBuffer& right, const std::vector<ChannelPair>& pairs)
{
    return HaveSameShape(left, right) && pairs.size() == left.channels && AllNameTheSame(pairs);
}

/// The buffers of one side.
struct SideBuffers
{
    HeldBuffers::Buffer picture;
    HeldBuffers::Buffer mask; ///< Null without a weighting.
};

bool HasChannels(const SideBuffers& left, const SideBuffers& right, const std::vector<ChannelPair>& pairs,
                 const SoftMaskWeighting& weighting)
{
    const bool allPaired = std::all_of(pairs.begin(), pairs.end(), [&](const ChannelPair& pair) {
        return pair.first.index < left.picture->channels && pair.second.index < right.picture->channels;
    });
    return allPaired && (!weighting.engaged || (weighting.left.channel.index < left.mask->channels &&
                                                weighting.right.channel.index < right.mask->channels));
}

bool HaveSameSamples(const PictureBuffer& left, const PictureBuffer& right)
{
    return HaveSameShape(left, right) && StoredRowsAgree(left, right);
}

bool AreSameThroughout(const SideBuffers& left, const SideBuffers& right,
                       const std::vector<ChannelPair>& pairs, const SoftMaskWeighting& weighting)
{
    return AllNameTheSame(pairs) && HaveSameSamples(*left.picture, *right.picture) &&
           (!weighting.engaged || (NameTheSameChannel(weighting.left.channel, weighting.right.channel) &&
                                   HaveSameSamples(*left.mask, *right.mask)));
}

/// Walks over two pictures block by block.
class NumberComparison
{
public:
    NumberComparison(const SideBuffers& left, const SideBuffers& right, const std::vector<ChannelPair>& list,
                     const SoftMaskWeighting& weighting)
        : width(left.picture->width)
    {
        std::size_t finestBits = std::max(left.picture->bitsPerChannel, right.picture->bitsPerChannel);
        for (const ChannelPair& pair : list) {
            channels.emplace_back(DecodedChannel(*left.picture, pair.first, tables),
                                  DecodedChannel(*right.picture, pair.second, tables));
        }
        tolerance = 1.0 / (2.0 * HighestSample(finestBits)) + sampleGuard;
        if (weighting.engaged) {
            masks.emplace_back(DecodedChannel(*left.mask, weighting.left.channel, tables),
                               DecodedChannel(*right.mask, weighting.right.channel, tables));
            finestBits = std::max({finestBits, left.mask->bitsPerChannel, right.mask->bitsPerChannel});
            tolerance = 2.0 / HighestSample(finestBits) + sampleGuard;
        }
    }

    bool RowsAgree(std::size_t row)
    {
        for (std::size_t column = 0; column < width; column += blockSize) {
            if (!BlocksAgree({row, column, std::min(blockSize, width - column)}))
                return false;
        }
        return true;
    }

private:
    using Pair = std::pair<DecodedChannel, DecodedChannel>;

    bool BlocksAgree(const PixelRange& pixels)
    {
        for (const Pair& mask : masks) {
            mask.first.Decode(mask.first.Find(pixels.row, pixels.column, pixels.count), leftWeights.data());
            mask.second.Decode(mask.second.Find(pixels.row, pixels.column, pixels.count),
                               rightWeights.data());
        }
        return std::all_of(channels.begin(), channels.end(), [&](const Pair& channel) {
            workCounters.samplesDecoded += pixels.count;
            return masks.empty() ? ChannelsAgree(channel.first, channel.second, pixels, tolerance)
                                 : WeighedChannelsAgree(channel.first, channel.second, leftWeights,
                                                        rightWeights, pixels, tolerance);
        });
    }

    std::size_t width;
    double tolerance;
    DecodeTables tables;
    std::vector<Pair> channels;
    std::vector<Pair> masks; ///< One pair or none.
    Numbers leftWeights;
    Numbers rightWeights;
};

/// For buffers that have samples.
bool CompareBuffers(const SideBuffers& left, const SideBuffers& right, const std::vector<ChannelPair>& pairs,
                    const SoftMaskWeighting& weighting)
{
    if (!HasChannels(left, right, pairs, weighting))
        return AreSameThroughout(left, right, pairs, weighting);
    NumberComparison comparison(left, right, pairs, weighting);
    for (std::size_t row = 0; row < left.picture->height; ++row) {
        if (!comparison.RowsAgree(row))
            return false;
    }
    return true;
}

} // namespace

bool CompareDecodedData(const PictureSourcePointer& left, const PictureSourcePointer& right,
                        const std::vector<ChannelPair>& pairs, const SoftMaskWeighting& weighting,
                        HeldBuffers& buffers)
{
    if (pairs.empty())
        return true;
    if (const boost::optional<bool> judgement = JudgeByStoredSamples(*left, *right, pairs, weighting))
        return *judgement;

    SideBuffers leftBuffers{buffers.Get(left), nullptr};
    SideBuffers rightBuffers{buffers.Get(right), nullptr};
    const PictureBuffer& leftPicture = *leftBuffers.picture;
    if (!HasSamples(leftPicture))
        return true;
    if (!IsAtLeastAsLarge(*rightBuffers.picture, leftPicture))
        return false;
    if (!weighting.engaged && IsPlain(leftPicture, *rightBuffers.picture, pairs))
        return StoredRowsAgree(leftPicture, *rightBuffers.picture);
    if (weighting.engaged) {
        leftBuffers.mask = buffers.Get(weighting.left.source);
        rightBuffers.mask = buffers.Get(weighting.right.source);
        if (!IsAtLeastAsLarge(*leftBuffers.mask, leftPicture) ||
            !IsAtLeastAsLarge(*rightBuffers.mask, leftPicture))
            return false;
    }
    return CompareBuffers(leftBuffers, rightBuffers, pairs, weighting);
}

bool CompareMaskSources(const PictureSourcePointer& left, const PictureSourcePointer& right,
                        HeldBuffers& buffers)
{
    const auto firstChannel = [](const OrvImg::PictureSource& source) {
        ChannelValue channel;
        channel.index = 0;
        if (!source.GetChannelInfos().empty())
            channel.decode = source.GetChannelInfos().front().GetDecode();
        return channel;
    };
    return CompareDecodedData(left, right, {ChannelPair(firstChannel(*left), firstChannel(*right))},
                              SoftMaskWeighting(), buffers);
}

} // namespace HarrowSupport::Comparators
