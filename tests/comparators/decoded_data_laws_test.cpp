// The verdict on two pictures is that of a loop over all samples in double arithmetic, which is restated here
// without tables, blocks or short cuts.

#include "comparators/decoded_data_comparison.h"

#include "support/picture_plan.h"
#include "support/random_documents.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

namespace HarrowSupport::Testing
{

namespace
{

using Comparators::ChannelPair;
using Comparators::SoftMaskWeighting;
using Pairs = std::vector<ChannelPair>;
using Random = std::mt19937;

unsigned SampleAt(const OrvImg::PictureBuffer& buffer, std::size_t row, std::size_t index)
{
    unsigned sample = 0;
    for (std::size_t bit = 0; bit < buffer.bitsPerChannel; ++bit) {
        const std::size_t place = index * buffer.bitsPerChannel + bit;
        sample = sample << 1 | (buffer.GetRowPtr(row)[place / 8] >> (7 - place % 8) & 1u);
    }
    return sample;
}

double Highest(std::size_t bits)
{
    return static_cast<double>((1u << bits) - 1u);
}

double NumberOf(unsigned sample, std::size_t bits, const Range& range)
{
    double number = sample / Highest(bits);
    number = range[0] + (range[1] - range[0]) * number;
    return std::min(std::max(number, 0.0), 1.0);
}

double NumberAt(const OrvImg::PictureBuffer& buffer, const ChannelPlace& channel, std::size_t row,
                std::size_t x)
{
    return NumberOf(SampleAt(buffer, row, channel.index + x * buffer.channels), buffer.bitsPerChannel,
                    channel.decode);
}

double ToleranceOf(std::size_t leftBits, std::size_t rightBits)
{
    return 1.0 / (2.0 * Highest(std::max(leftBits, rightBits))) + 1e-07;
}

/// What is compared, with its answer by the loop.
struct Case
{
    SourcePointer left;
    SourcePointer right;
    Pairs pairs;
    SoftMaskWeighting weighting;

    bool AreEqual() const
    {
        Comparators::HeldBuffers buffers;
        return Comparators::CompareDecodedData(left, right, pairs, weighting, buffers);
    }

    bool AreEqualByTheLoop() const
    {
        const BufferPointer one = left->GetPictureBuffer();
        const BufferPointer other = right->GetPictureBuffer();
        BufferPointer oneMask;
        BufferPointer otherMask;
        double tolerance = ToleranceOf(one->bitsPerChannel, other->bitsPerChannel);
        if (weighting.engaged) {
            oneMask = weighting.left.source->GetPictureBuffer();
            otherMask = weighting.right.source->GetPictureBuffer();
            tolerance = 2.0 / Highest(std::max({one->bitsPerChannel, other->bitsPerChannel,
                                                oneMask->bitsPerChannel, otherMask->bitsPerChannel})) +
                        1e-07;
        }
        for (std::size_t row = 0; row < one->height; ++row) {
            for (std::size_t x = 0; x < one->width; ++x) {
                for (const ChannelPair& pair : pairs) {
                    double number = NumberAt(*one, pair.first, row, x);
                    double otherNumber = NumberAt(*other, pair.second, row, x);
                    if (weighting.engaged) {
                        number *= NumberAt(*oneMask, weighting.left.channel, row, x);
                        otherNumber *= NumberAt(*otherMask, weighting.right.channel, row, x);
                    }
                    if (std::fabs(number - otherNumber) > tolerance)
                        return false;
                }
            }
        }
        return true;
    }
};

SourcePointer OneRow(std::size_t bits, const Samples& samples)
{
    PicturePlan plan = MaskPlan(samples);
    plan.width = samples.size();
    plan.height = 1;
    plan.bits = bits;
    return MakeSource(plan);
}

/// The right samples that matter for a left one: the numbers rise or fall with the samples, so that those
/// that are near enough lie side by side, and the two on either side of each end tell of all others.
class Neighbours
{
public:
    Neighbours(std::size_t bits, const Range& range)
    {
        for (unsigned sample = 0; sample < 1u << bits; ++sample)
            numbers.push_back(NumberOf(sample, bits, range));
        isFalling = numbers.back() < numbers.front();
    }

    double Number(unsigned sample) const { return numbers[sample]; }

    Samples Around(double number, double tolerance) const
    {
        Samples result;
        for (const double end : {number - tolerance, number + tolerance}) {
            const auto first = std::partition_point(numbers.begin(), numbers.end(), [&](double other) {
                return isFalling ? other > end : other < end;
            });
            const auto place = static_cast<long>(first - numbers.begin());
            for (long near = place - 2; near <= place + 1; ++near) {
                if (near >= 0 && near < static_cast<long>(numbers.size()))
                    result.push_back(static_cast<unsigned>(near));
            }
        }
        return result;
    }

private:
    std::vector<double> numbers;
    bool isFalling;
};

struct DepthsAndRanges
{
    std::size_t leftBits;
    std::size_t rightBits;
    Range leftRange;
    Range rightRange;

    std::string GetText() const
    {
        std::ostringstream text;
        text.precision(17);
        text << leftBits << " bits in (" << leftRange[0] << ", " << leftRange[1] << ") against " << rightBits
             << " bits in (" << rightRange[0] << ", " << rightRange[1] << ")";
        return text.str();
    }
};

/// All left samples of up to 8 bits against all right samples of up to 8 bits; where a side has 16 bits, each
/// left sample against those right ones around the two ends of what it may be equal to, and a random one.
/// Pairs that are equal are put into one picture, which must be equal as a whole; of those that differ every
/// `stride`th is a picture of its own, which must differ.
void CheckAllSamples(const DepthsAndRanges& sides, std::size_t stride, Random& random)
{
    const Neighbours leftNumbers(sides.leftBits, sides.leftRange);
    const Neighbours rightNumbers(sides.rightBits, sides.rightRange);
    const double tolerance = ToleranceOf(sides.leftBits, sides.rightBits);
    const bool takeAll = sides.leftBits <= 8 && sides.rightBits <= 8;
    Samples allRight(std::size_t{1} << std::min<std::size_t>(sides.rightBits, 8));
    for (unsigned i = 0; i < allRight.size(); ++i)
        allRight[i] = i;

    Samples equalLeft;
    Samples equalRight;
    std::size_t differing = 0;
    Case single;
    single.pairs = {ChannelPair(ChannelAt(0, sides.leftRange), ChannelAt(0, sides.rightRange))};
    for (unsigned left = 0; left < 1u << sides.leftBits; ++left) {
        const double number = leftNumbers.Number(left);
        Samples candidates = takeAll ? allRight : rightNumbers.Around(number, tolerance);
        candidates.push_back(static_cast<unsigned>(random()) & ((1u << sides.rightBits) - 1u));
        for (const unsigned right : candidates) {
            if (!(std::fabs(number - rightNumbers.Number(right)) > tolerance)) {
                equalLeft.push_back(left);
                equalRight.push_back(right);
            } else if (takeAll || differing++ % stride == 0) {
                single.left = OneRow(sides.leftBits, {left});
                single.right = OneRow(sides.rightBits, {right});
                ASSERT_FALSE(single.AreEqual()) << left << " against " << right << ", " << sides.GetText();
            }
        }
    }
    if (equalLeft.empty())
        return;
    Case whole = single;
    whole.left = OneRow(sides.leftBits, equalLeft);
    whole.right = OneRow(sides.rightBits, equalRight);
    ASSERT_TRUE(whole.AreEqual()) << sides.GetText();
}

const std::vector<std::size_t> depths = {1, 2, 4, 8, 16};

/// A number of a range, by preference one of those that rounding is interesting for.
double RandomEnd(Random& random)
{
    const double simple[] = {0.0, 1.0, 0.1, 0.6, 0.5, 1.0 / 3.0, -0.25, 1.5};
    return random() % 3 == 0 ? std::uniform_real_distribution<double>(-0.5, 1.5)(random)
                             : simple[random() % 8];
}

Range RandomRange(Random& random)
{
    return {RandomEnd(random), RandomEnd(random)};
}

SourcePointer RandomPicture(std::size_t width, std::size_t height, Random& random)
{
    PicturePlan plan;
    plan.width = width;
    plan.height = height;
    plan.bits = depths[random() % depths.size()];
    plan.channels.assign(1 + random() % 4, ColorChannel("any"));
    plan.samples.resize(width * height * plan.channels.size());
    for (unsigned& sample : plan.samples)
        sample = static_cast<unsigned>(random());
    return MakeSource(plan);
}

ChannelPlace RandomChannel(const SourcePointer& source, Random& random)
{
    return ChannelAt(random() % source->GetChannelInfos().size(), RandomRange(random));
}

/// The same colours as those of a paired picture, as near as another depth and range can come, and now and
/// then a step beside.
SourcePointer Counterpart(const SourcePointer& left, Pairs& pairs, Random& random)
{
    const BufferPointer buffer = left->GetPictureBuffer();
    PicturePlan plan;
    plan.width = buffer->width;
    plan.height = buffer->height;
    plan.bits = depths[random() % depths.size()];
    plan.channels.assign(pairs.size() + random() % 2, ColorChannel("any"));
    const double highest = Highest(plan.bits);
    const bool isSame = random() % 2 == 0;
    std::size_t index = 0;
    for (ChannelPair& pair : pairs)
        pair.second = ChannelAt(index++, isSame ? pair.first.decode : RandomRange(random));
    plan.samples.clear();
    const unsigned rarity = 1u << random() % 12;
    for (std::size_t row = 0; row < plan.height; ++row) {
        for (std::size_t x = 0; x < plan.width; ++x) {
            for (std::size_t channel = 0; channel < plan.channels.size(); ++channel) {
                double sample = static_cast<double>(random() % 65536);
                if (channel < pairs.size()) {
                    const Range& range = pairs[channel].second.decode;
                    const double number = NumberAt(*buffer, pairs[channel].first, row, x);
                    sample = std::round((number - range[0]) / (range[1] - range[0]) * highest);
                    sample += random() % rarity == 0 && rarity > 1 ? 1.0 : 0.0;
                }
                sample = sample > 0.0 ? std::min(sample, highest) : 0.0;
                plan.samples.push_back(static_cast<unsigned>(sample));
            }
        }
    }
    return MakeSource(plan);
}

Case RandomCase(Random& random)
{
    // Wide enough for more than a block, large enough for tables, and often neither.
    const std::size_t width = random() % 4 == 0 ? 1 + random() % 700 : 1 + random() % 40;
    const std::size_t height = 1 + random() % 6;
    Case result;
    result.left = RandomPicture(width, height, random);
    for (std::size_t i = 1 + random() % 3; i > 0; --i)
        result.pairs.emplace_back(RandomChannel(result.left, random), ChannelPlace());
    result.right = Counterpart(result.left, result.pairs, random);
    if (random() % 2 == 0) {
        result.weighting.engaged = true;
        result.weighting.left.source = RandomPicture(width, height, random);
        result.weighting.left.channel = RandomChannel(result.weighting.left.source, random);
        Pairs masks = {ChannelPair(result.weighting.left.channel, ChannelPlace())};
        result.weighting.right.source = Counterpart(result.weighting.left.source, masks, random);
        result.weighting.right.channel = masks.front().second;
    }
    return result;
}

class AllSamples : public ::testing::TestWithParam<std::size_t>
{};

} // namespace

TEST_P(AllSamples, AreJudgedAsByTheLoopUnderTheRangesOfPictures)
{
    Random random(FirstSeed());
    const std::vector<Range> ranges = {identity, inverted, {0.1, 0.6}};
    for (const std::size_t rightBits : depths) {
        for (const Range& leftRange : ranges) {
            for (const Range& rightRange : ranges) {
                // Equal depths under equal ranges are not compared as numbers.
                if (GetParam() != rightBits || leftRange != rightRange)
                    CheckAllSamples({GetParam(), rightBits, leftRange, rightRange}, 11, random);
            }
        }
    }
}

TEST_P(AllSamples, AreJudgedAsByTheLoopUnderRandomRanges)
{
    SCOPED_TRACE("HARROW_SEED=" + std::to_string(FirstSeed()));
    Random random(FirstSeed() + static_cast<unsigned>(GetParam()));
    for (const std::size_t rightBits : depths) {
        for (int i = 0; i < 3; ++i)
            CheckAllSamples({GetParam(), rightBits, RandomRange(random), {RandomEnd(random), 0.7}}, 29,
                            random);
    }
}

INSTANTIATE_TEST_SUITE_P(Of, AllSamples, ::testing::ValuesIn(depths),
                         [](const auto& bits) { return std::to_string(bits.param) + "Bits"; });

TEST(RandomPictures, AreJudgedAsByTheLoop)
{
    int equal = 0;
    int different = 0;
    for (unsigned i = 0; i < 3000; ++i) {
        Random random(FirstSeed() + i);
        const Case both = RandomCase(random);
        const bool expected = both.AreEqualByTheLoop();
        ++(expected ? equal : different);
        // Which samples are plain is another matter, of which each test of its own knows.
        const BufferPointer left = both.left->GetPictureBuffer();
        const BufferPointer right = both.right->GetPictureBuffer();
        if (!both.weighting.engaged && left->channels == right->channels &&
            left->bitsPerChannel == right->bitsPerChannel && left->channels == both.pairs.size())
            continue;
        ASSERT_EQ(both.AreEqual(), expected) << "HARROW_SEED=" << FirstSeed() + i;
    }
    EXPECT_GT(equal, 300);
    EXPECT_GT(different, 300);
}

} // namespace HarrowSupport::Testing
