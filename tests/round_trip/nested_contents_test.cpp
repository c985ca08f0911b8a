// What a form, a pattern or a soft mask holds takes part in a trip: told by its own place, and as shared as
// it was.

#include <cstddef>
#include <memory>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <orv_doc/blend_color_space.h>
#include <orv_doc/transfer_function_set.h>

#include "support/paint_makers.h"
#include "trip.h"

namespace HarrowSupport::Testing
{
namespace
{

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::MatchesRegex;

/// Who holds the content.
enum class Holder
{
    Form,
    Pattern,
    Mask,
};

/// Two objects that share a holder with that object in its content.
void FillWithTwoUsers(OrvDoc::Document& document, Holder holder, std::unique_ptr<OrvDoc::Path> inside)
{
    OrvDoc::Content& content = ContentOf(document);
    const Box box(0.0, 0.0, 10000.0, 10000.0);
    if (holder == Holder::Form) {
        const PaintPointer form = FormOf(document, std::move(inside)).SetFormBBox(box).Get();
        Fill(content, Filled(form), Filled(form));
    } else if (holder == Holder::Pattern) {
        const PaintPointer pattern =
            PatternOf(document, std::move(inside)).SetCellClip(box).SetStep({8000.0, 9000.0}).Get();
        Fill(content, Filled(pattern), Filled(pattern));
    } else {
        const MaskPointer mask = MaskOf(document, std::move(inside)).SetBoundingBox(box).Get();
        Fill(content, Masked(mask), Masked(mask));
    }
}

/// The content that an object of such a document leads to.
const OrvDoc::Content& ContentInside(const OrvDoc::ContentObject& object)
{
    const auto& path = dynamic_cast<const OrvDoc::Path&>(object);
    const PaintPointer& paint = path.GetFillPaint();
    if (const auto* const form = dynamic_cast<const OrvPaint::FormPaint*>(paint.get()))
        return form->GetContent();
    if (const auto* const pattern = dynamic_cast<const OrvPaint::PatternPaint*>(paint.get()))
        return pattern->GetContent();
    return path.GetTransparency()->softMask->GetContent();
}

class TestRoundTripOfNestedContents : public TestRoundTrip,
                                      public ::testing::WithParamInterface<std::tuple<Way, Holder>>
{
protected:
    static RoundTripResult RunWay(DocumentPointer& document)
    {
        return Run(std::get<Way>(GetParam()), document);
    }

    static std::unique_ptr<ActingPath> NewActingPath()
    {
        return std::make_unique<ActingPath>(std::get<Way>(GetParam()));
    }

    static void Fill(OrvDoc::Document& document, std::unique_ptr<OrvDoc::Path> inside)
    {
        FillWithTwoUsers(document, std::get<Holder>(GetParam()), std::move(inside));
    }
};

std::string NameOfTrip(const ::testing::TestParamInfo<std::tuple<Way, Holder>>& trip)
{
    const char* const holders[] = {"OfAForm", "OfAPattern", "OfASoftMask"};
    return holders[static_cast<int>(std::get<Holder>(trip.param))] +
           std::string(std::get<Way>(trip.param) == Way::ThroughFile ? "ThroughFile" : "InMemory");
}

INSTANTIATE_TEST_SUITE_P(Overloads, TestRoundTripOfNestedContents,
                         ::testing::Combine(::testing::Values(Way::ThroughFile, Way::InMemory),
                                            ::testing::Values(Holder::Form, Holder::Pattern, Holder::Mask)),
                         NameOfTrip);

TEST_P(TestRoundTripOfNestedContents, TellsNothingIfNothingChanged)
{
    auto document = NewDocument();
    Fill(*document, Square("inside"));
    EXPECT_THAT(LinesOf(RunWay(document)), IsEmpty());
}

TEST_P(TestRoundTripOfNestedContents, TellsAnObjectInsideByItsOwnNumber)
{
    auto document = NewDocument();
    auto path = NewActingPath();
    path->SetName("after");
    std::vector<std::string> copies;
    path->whenCloned = [&copies](OrvDoc::Path& clone) {
        clone.SetName("before");
        copies.push_back(ObjectPlace(&clone));
    };
    Fill(*document, std::move(path));
    const RoundTripResult result = RunWay(document);
    ASSERT_EQ(copies.size(), 1u);
    const OrvDoc::Content& content = ContentOf(*document);
    const std::string back = ObjectPlace(ContentInside(*content.GetChildren().first).GetChildren().first);
    const std::string line =
        "ObjectName: Left " + copies[0] + " differs with Right " + back + ": 'before' vs 'after'";
    // A soft mask is compared for each object that is seen through it; a paint that was met on both sides is
    // told by that alone.
    const std::size_t times = std::get<Holder>(GetParam()) == Holder::Mask ? 2 : 1;
    EXPECT_EQ(LinesOf(result), std::vector<std::string>(times, line));
    EXPECT_EQ(&ContentInside(*content.GetChildren().first), &ContentInside(*content.GetChildren().last));
}

TEST_P(TestRoundTripOfNestedContents, TellsNewErrorsWhereTheyAreForThePage)
{
    auto document = NewDocument();
    auto path = NewActingPath();
    OrvDoc::Document* const raw = document.get();
    path->whenWritten = [raw] {
        ContentOf(*raw).GetActiveErrors().Add("of the page");
        const OrvDoc::ContentObject& user = *ContentOf(*raw).GetChildren().first;
        ContentInside(user).GetActiveErrors().Add("of what is inside");
    };
    Fill(*document, std::move(path));
    const RoundTripResult result = RunWay(document);
    EXPECT_THAT(TextsOf(result.contentErrors), ElementsAre("of the page"));
    EXPECT_THAT(result.documentErrors, IsEmpty());
}

TEST_P(TestRoundTripOfNestedContents, ComparesBlendColorSpaceAndTransferFunctionsInside)
{
    auto document = NewDocument();
    Fill(*document, Square());
    auto& inside = const_cast<OrvDoc::Content&>(ContentInside(*ContentOf(*document).GetChildren().first));
    inside.SetBlendColorSpace(OrvDoc::BlendColorSpace(OrvColor::ColorSpace::DeviceCMYK()));
    inside.SetTransferFunctionSet(OrvDoc::TransferFunctionSet(Ramp({0.0f}, {1.0f}, 2.0), {}));
    EXPECT_THAT(LinesOf(RunWay(document)), IsEmpty());
    const auto& back = ContentInside(*ContentOf(*document).GetChildren().first);
    EXPECT_TRUE(back.GetBlendColorSpace().GetColorSpace());
    EXPECT_TRUE(back.GetTransferFunctionSet());
}

class TestRoundTripInside : public TestRoundTrip
{};

TEST_F(TestRoundTripInside, TellsAContentInsideByItsNumber)
{
    auto document = NewDocument();
    FillWithTwoUsers(*document, Holder::Form, Square());
    ReadInstead(*document, [] {
        auto other = NewDocument();
        FillWithTwoUsers(*other, Holder::Form, Square());
        auto& inside = const_cast<OrvDoc::Content&>(ContentInside(*ContentOf(*other).GetChildren().first));
        inside.SetBlendColorSpace(OrvDoc::BlendColorSpace(OrvColor::ColorSpace::DeviceCMYK()));
        return other;
    });
    const std::vector<std::string> lines = LinesOf(TestRoundTripStructure(document, AllOptions()));
    const OrvDoc::Content& back = ContentInside(*ContentOf(*document).GetChildren().first);
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_THAT(lines[0], MatchesRegex("ContentBlendColorSpace: Left content CID[0-9]+ differs with Right "
                                       "content CID" +
                                       std::to_string(back.GetID()) + ": .*"));
}

TEST_F(TestRoundTripInside, TellsWhatIsAddedInsideWithOnePlace)
{
    auto document = NewDocument();
    FillWithTwoUsers(*document, Holder::Mask, Square());
    ReadInstead(*document, [] {
        auto other = NewDocument();
        FillWithTwoUsers(*other, Holder::Mask, Square());
        auto& inside = const_cast<OrvDoc::Content&>(ContentInside(*ContentOf(*other).GetChildren().first));
        Place(inside, Square("more"));
        return other;
    });
    const std::vector<std::string> lines = LinesOf(TestRoundTripStructure(document, AllOptions()));
    const OrvDoc::Content& back = ContentInside(*ContentOf(*document).GetChildren().first);
    EXPECT_THAT(lines, ::testing::Contains("ObjectAdded: Right " + ObjectPlace(back.GetChildren().last) +
                                           ": OrvDoc::Path"));
}

} // namespace
} // namespace HarrowSupport::Testing
