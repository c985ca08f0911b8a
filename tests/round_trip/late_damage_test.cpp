// A damaged picture whose damage nobody has met before the trip. Nothing changes on the way, so nothing may
// be told but what writing itself came upon.

#include <memory>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/damaged_pictures.h"
#include "support/error_texts.h"
#include "trip.h"

namespace HarrowSupport::Testing
{
namespace
{

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class LateDamageOnATrip : public TestRoundTripBothWays
{
protected:
    std::unique_ptr<OrvDoc::Document> Read(std::size_t pictures)
    {
        return OrvDoc::Document::Create(inputs.Write("in.pdf", FileOfDamagedPictures(pictures)),
                                        OrvDoc::ReadOptions());
    }

    // Not in the temporary directory, whose files the trips are asked about.
    TemporaryFolder inputs;
};

INSTANTIATE_TEST_SUITE_P(Overloads, LateDamageOnATrip, ::testing::Values(Way::ThroughFile, Way::InMemory),
                         NameOfWay);

TEST_P(LateDamageOnATrip, IsNoErrorOfWritingIfTheComparisonFindsIt)
{
    auto document = Read(2);
    const RoundTripResult result = Run(GetParam(), document);
    EXPECT_THAT(LinesOf(result), IsEmpty());
    EXPECT_THAT(TextsOf(result.documentErrors), IsEmpty());
    EXPECT_THAT(TextsOf(result.contentErrors), IsEmpty());
}

TEST_P(LateDamageOnATrip, IsNotNewIfItWasFoundBefore)
{
    auto document = Read(2);
    for (const auto& picture : PicturesOf(ContentOf(*document)))
        picture->GetPictureBuffer();
    const RoundTripResult result = Run(GetParam(), document);
    EXPECT_THAT(LinesOf(result), IsEmpty());
    EXPECT_THAT(TextsOf(result.documentErrors), IsEmpty());
}

TEST_P(LateDamageOnATrip, IsNewIfItIsFoundByWriting)
{
    auto document = Read(1);
    const auto picture = PicturesOf(ContentOf(*document)).front();
    auto path = std::make_unique<ActingPath>(GetParam());
    path->whenWritten = [&picture] { picture->GetPictureBuffer(); };
    Place(ContentOf(*document), std::move(path));
    const RoundTripResult result = Run(GetParam(), document);
    EXPECT_THAT(TextsOf(result.documentErrors), ElementsAre(DamageOf(FirstDamagedObject())));
    EXPECT_THAT(TextsOf(result.contentErrors), IsEmpty());
}

TEST(LateDamageAfterATrip, IsAnErrorOfTheReopenedDocument)
{
    const TemporaryFolder inputs;
    auto document =
        OrvDoc::Document::Create(inputs.Write("in.pdf", FileOfDamagedPictures(1)), OrvDoc::ReadOptions());
    SaveAndReopen(document, "late", OrvDoc::WriteOptions(OrvDoc::WriteOptions::Flavour::Full),
                  OrvDoc::ReadOptions());
    PicturesOf(ContentOf(*document)).at(0)->GetPictureBuffer();
    EXPECT_EQ(TextsOf(document->GetActiveErrors()).size(), 1u);
}

} // namespace
} // namespace HarrowSupport::Testing
