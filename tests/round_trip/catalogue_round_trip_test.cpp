// Every picture of the catalogue through both kinds of round trip, with every option of the comparison set
// and with each one cleared in turn. That is 19264 trips. The usual run makes all of those with every option
// set, and some of the others; with HARROW_EXHAUSTIVE=1 in the environment it makes them all. Below the
// sanitizers, where a trip takes longer, the usual run makes some of each.

#include <harrow_support/generate_image.h>

#include <cstddef>
#include <cstdlib>
#include <iterator>
#include <string>
#include <tuple>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <orv_doc/image.h>
#include <orv_doc/image_mask.h>

#include "trip.h"

namespace HarrowSupport::Testing
{
namespace
{

using GenerateImage::GetTestCases;
using GenerateImage::TestCase;
using ::testing::IsEmpty;
using ::testing::Not;

struct Setting
{
    const char* name;
    /// The option that is cleared; null for none.
    bool Comparators::Options::*cleared;
};

const Setting settings[] = {
    {"EveryOption", nullptr},
    {"StrictImageLinks", &Comparators::Options::looseImageLinks},
    {"NoImageData", &Comparators::Options::compareImageData},
    {"NoSeparationInfo", &Comparators::Options::compareSeparationInfo},
    {"NoSoftMaskAsChannel", &Comparators::Options::softMaskAsChannel},
    {"NoExpansion", &Comparators::Options::expandIndexedImages},
    {"NoPatternContentReuse", &Comparators::Options::comparePatternContentReuse},
};

// The catalogue is dealt out like cards, so that each slice has its share of the large pictures.
constexpr std::size_t sliceCount = 8;

#ifdef __SANITIZE_ADDRESS__
constexpr std::size_t stepWithEveryOption = 2;
constexpr std::size_t stepOtherwise = 24;
#else
constexpr std::size_t stepWithEveryOption = 1;
constexpr std::size_t stepOtherwise = 6;
#endif

bool IsExhaustive()
{
    const char* const value = std::getenv("HARROW_EXHAUSTIVE");
    return value != nullptr && std::string(value) == "1";
}

DocumentPointer MakeDocument(const TestCase& testCase)
{
    DocumentPointer document = NewDocument();
    std::unique_ptr<OrvDoc::Blendable> object;
    if (testCase.isImageMask)
        object = GenerateImage::CreateImageMask(*document, testCase);
    else
        object = GenerateImage::CreateImage(*document, testCase);
    object->SetName(testCase.name);
    object->SetTransformation(Matrix(90.0, 0.0, 0.0, 90.0, 5000.0, 5000.0));
    Fill(ContentOf(*document), std::move(object));
    return document;
}

using Parameter = std::tuple<Way, std::size_t, std::size_t>;

class CatalogueRoundTrip : public TestRoundTrip, public ::testing::WithParamInterface<Parameter>
{
protected:
    static Comparators::Options GetOptions()
    {
        Comparators::Options options = AllOptions();
        const Setting& setting = settings[std::get<1>(GetParam())];
        if (setting.cleared != nullptr)
            options.*setting.cleared = false;
        return options;
    }

    /// How many cases of its slice lie between one and the next.
    static std::size_t GetStep()
    {
        if (IsExhaustive())
            return 1;
        return settings[std::get<1>(GetParam())].cleared == nullptr ? stepWithEveryOption : stepOtherwise;
    }
};

TEST_P(CatalogueRoundTrip, ChangesNoPicture)
{
    const auto [way, setting, slice] = GetParam();
    // Each setting begins elsewhere, so that together they see more.
    const std::size_t begin = setting % GetStep() * sliceCount + slice;
    for (std::size_t position = begin; position < GetTestCases().size(); position += GetStep() * sliceCount) {
        const TestCase& testCase = GetTestCases()[position];
        DocumentPointer document = MakeDocument(testCase);
        const RoundTripResult result = Run(way, document, GetOptions());
        EXPECT_THAT(LinesOf(result), IsEmpty()) << testCase;
        EXPECT_THAT(TextsOf(result.documentErrors), IsEmpty()) << testCase;
        EXPECT_THAT(TextsOf(result.contentErrors), IsEmpty()) << testCase;
        EXPECT_THAT(TextsOf(document->GetActiveErrors().GetAllErrors()), IsEmpty()) << testCase;
        EXPECT_THAT(TextsOf(ContentOf(*document).GetActiveErrors().GetAllErrors()), IsEmpty()) << testCase;
    }
}

std::string NameOf(const ::testing::TestParamInfo<Parameter>& parameter)
{
    const auto [way, setting, slice] = parameter.param;
    return std::string(way == Way::ThroughFile ? "ThroughFile" : "InMemory") + settings[setting].name +
           "Slice" + std::to_string(slice);
}

INSTANTIATE_TEST_SUITE_P(Catalogue, CatalogueRoundTrip,
                         ::testing::Combine(::testing::Values(Way::ThroughFile, Way::InMemory),
                                            ::testing::Range(std::size_t{0}, std::size(settings)),
                                            ::testing::Range(std::size_t{0}, sliceCount)),
                         NameOf);

/// That nothing differs means something only if a wrong picture is seen.
class SwappedPicture : public TestRoundTrip
{
protected:
    /// What is reported if in place of the picture at one position that of another comes back, under its
    /// name.
    std::vector<std::string> Swap(std::size_t position, std::size_t other)
    {
        DocumentPointer document = MakeDocument(GetTestCases()[position]);
        ReadInstead(*document, [position, other] {
            TestCase testCase = GetTestCases()[other];
            testCase.name = GetTestCases()[position].name;
            return MakeDocument(testCase);
        });
        return LinesOf(Run(Way::ThroughFile, document));
    }
};

TEST_F(SwappedPicture, IsFound)
{
    EXPECT_THAT(Swap(0, 0), IsEmpty());
    // Another depth, range, colour space, mask depth, kind of mask and kind of object; another size of the
    // table. An inverted range would be made good by the inverted samples that go with it.
    for (const auto& [position, other] : {std::pair<std::size_t, std::size_t>{0, 3},
                                          {3, 13},
                                          {0, 27},
                                          {540, 541},
                                          {540, 1116},
                                          {0, 1212},
                                          {1374, 0},
                                          {15, 16}})
        EXPECT_THAT(Swap(position, other), Not(IsEmpty())) << position << " and " << other;
}

} // namespace
} // namespace HarrowSupport::Testing
