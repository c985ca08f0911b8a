#include <limits>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <orv_doc/image_mask.h>
#include <orv_doc/layer.h>
#include <orv_doc/layers.h>

#include "document_library/pdf/writer/writer_test_support.h"

namespace OrvPdf::Testing
{
namespace
{

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using M = HarrowSupport::Testing::Matrix;

constexpr const char* line = "0 0 m\n1 0 l\n";

const M scale(2.0, 0.0, 0.0, 2.0, 0.0, 0.0);
const M shift(1.0, 0.0, 0.0, 1.0, 5000.0, 0.0);

std::vector<std::string> ProblemsOf(const WrittenContent& content)
{
    return content.problems.GetTexts("page 1");
}

TEST(ContentWriter, WritesNothingForAnEmptyContent)
{
    EXPECT_EQ(BytesOf(), "");
}

TEST(ContentWriter, EndsAPathThatNothingPaints)
{
    EXPECT_EQ(BytesOf(Line()), std::string(line) + "n\n");
}

TEST(ContentWriter, LeavesTheInitialColorUnsaid)
{
    const auto black = Native(OrvColor::ColorSpace::DeviceGray(), {0.0f});
    EXPECT_EQ(BytesOf(FilledLine(black)), std::string(line) + "f\n");
}

TEST(ContentWriter, FillsAndStrokesByTheWindingRule)
{
    const auto black = Native(OrvColor::ColorSpace::DeviceGray(), {0.0f});
    const auto paint = [&black](Plexa::WindingRule rule, bool fill, bool stroke) {
        auto path = Line(1000.0, rule);
        path->SetFillPaint(fill ? black : nullptr);
        path->SetStrokePaint(stroke ? black : nullptr);
        return BytesOf(std::move(path));
    };
    EXPECT_EQ(paint(Plexa::WindingRule::EvenOdd, true, false), std::string(line) + "f*\n");
    EXPECT_EQ(paint(Plexa::WindingRule::NonZero, true, true), std::string(line) + "B\n");
    EXPECT_EQ(paint(Plexa::WindingRule::EvenOdd, true, true), std::string(line) + "B*\n");
    EXPECT_EQ(paint(Plexa::WindingRule::NonZero, false, true), std::string(line) + "S\n");
}

TEST(ContentWriter, SaysTheWindingRuleOfWhatNothingFills)
{
    EXPECT_EQ(BytesOf(Line(1000.0, Plexa::WindingRule::EvenOdd)),
              std::string("/OrvObject <</EvenOdd true>> BDC\n") + line + "n\nEMC\n");
}

TEST(ContentWriter, SaysTheNameOfAPath)
{
    EXPECT_EQ(BytesOf(Named(Line(), "a (b)")),
              std::string("/OrvObject <</Name (a \\(b\\))>> BDC\n") + line + "n\nEMC\n");
    EXPECT_EQ(BytesOf(Named(Line(1000.0, Plexa::WindingRule::EvenOdd), "x")),
              std::string("/OrvObject <</EvenOdd true /Name (x)>> BDC\n") + line + "n\nEMC\n");
}

TEST(ContentWriter, SaysAColorOnceForARunOfObjects)
{
    const auto red = Native(OrvColor::ColorSpace::DeviceRGB(), {1.0f, 0.0f, 0.0f});
    EXPECT_EQ(BytesOf(FilledLine(red), FilledLine(red)),
              std::string("1 0 0 rg\n") + line + "f\n" + line + "f\n");
}

TEST(ContentWriter, KeepsFillAndStrokeColorsApart)
{
    const auto red = Native(OrvColor::ColorSpace::DeviceRGB(), {1.0f, 0.0f, 0.0f});
    EXPECT_EQ(BytesOf(FilledLine(red), StrokedLine(red)),
              std::string("1 0 0 rg\n") + line + "f\n1 0 0 RG\n" + line + "S\n");
}

TEST(ContentWriter, SaysOnlyTheStrokePropertiesThatChange)
{
    const auto black = Native(OrvColor::ColorSpace::DeviceGray(), {0.0f});
    const auto stroked = [&black](OrvDoc::StrokeProperties properties) {
        auto path = StrokedLine(black);
        path->SetStrokeProperties(std::move(properties));
        return path;
    };
    OrvDoc::StrokeProperties wide;
    wide.width = 2500.0;
    OrvDoc::StrokeProperties dashed = wide;
    dashed.dashArray = {1000.0, 500.0};
    dashed.dashPhase = 250.0;
    OrvDoc::StrokeProperties round = dashed;
    round.cap = OrvDoc::LineCap::Round;
    round.join = OrvDoc::LineJoin::Bevel;
    round.miterLimit = 3.5;
    EXPECT_EQ(BytesOf(stroked(wide), stroked(wide), stroked(dashed), stroked(round), stroked({})),
              std::string("2.5 w\n") + line + "S\n" + line + "S\n[1 0.5] 0.25 d\n" + line +
                  "S\n1 J\n2 j\n3.5 M\n" + line + "S\n1 w\n0 J\n0 j\n10 M\n[] 0 d\n" + line + "S\n");
}

TEST(ContentWriter, SharesAMatrixAmongNeighbours)
{
    EXPECT_EQ(BytesOf(Transformed(Line(), scale), Transformed(Line(), scale), Line()),
              std::string("q\n2 0 0 2 0 0 cm\n") + line + "n\n" + line + "n\nQ\n" + line + "n\n");
}

TEST(ContentWriter, ForgetsWhatWasSaidUnderAMatrix)
{
    const auto red = Native(OrvColor::ColorSpace::DeviceRGB(), {1.0f, 0.0f, 0.0f});
    EXPECT_EQ(BytesOf(Transformed(Line(), scale), Transformed(FilledLine(red), scale), FilledLine(red)),
              std::string("q\n2 0 0 2 0 0 cm\n") + line + "n\n1 0 0 rg\n" + line + "f\nQ\n1 0 0 rg\n" + line +
                  "f\n");
}

TEST(ContentWriter, SaysAColorInFrontOfAMatrixSoThatItStays)
{
    const auto red = Native(OrvColor::ColorSpace::DeviceRGB(), {1.0f, 0.0f, 0.0f});
    EXPECT_EQ(BytesOf(Transformed(FilledLine(red), scale), FilledLine(red)),
              std::string("1 0 0 rg\nq\n2 0 0 2 0 0 cm\n") + line + "f\nQ\n" + line + "f\n");
}

TEST(ContentWriter, SaysAPlainGroup)
{
    EXPECT_EQ(BytesOf(With(ImplicitGroup(), Line())), std::string("/OrvGroup BMC\n") + line + "n\nEMC\n");
}

TEST(ContentWriter, SaysNameAndFlagsOfAGroup)
{
    EXPECT_EQ(BytesOf(Named(UserGroup(), "g")), "/OrvGroup <</Flags 1073742335 /Name (g)>> BDC\nEMC\n");
}

TEST(ContentWriter, SaysTheMatrixOfAGroupTwice)
{
    EXPECT_EQ(BytesOf(Transformed(With(ImplicitGroup(), Line(), Transformed(Line(), scale)), shift)),
              std::string("/OrvGroup <</Matrix [1 0 0 1 5 0]>> BDC\nq\n1 0 0 1 5 0 cm\n") + line +
                  "n\nq\n2 0 0 2 0 0 cm\n" + line + "n\nQ\nQ\nEMC\n");
}

TEST(ContentWriter, SaysATextGroup)
{
    auto group = std::make_unique<OrvDoc::TextGroup>();
    EXPECT_EQ(BytesOf(std::move(group)), "BT\nET\n");
    EXPECT_EQ(BytesOf(Named(std::make_unique<OrvDoc::TextGroup>(), "g")),
              "/OrvTextGroup <</Name (g)>> BDC\nEMC\n");
}

TEST(ContentWriter, SaysThatATextGroupClipsWhichHasNoText)
{
    auto group = std::make_unique<OrvDoc::TextGroup>();
    group->SetClippingObject(true);
    const WrittenContent written = WriteObjects(std::move(group));
    EXPECT_EQ(written.bytes, "/OrvTextGroup <</Clip true>> BDC\nEMC\n");
    EXPECT_TRUE(written.problems.IsEmpty());
}

TEST(ContentWriter, TellsThatATextGroupWithAPathDoesNotClipInTheFile)
{
    auto group = std::make_unique<OrvDoc::TextGroup>();
    group->AddOnTop(Line().release());
    group->SetClippingObject(true);
    const WrittenContent written = WriteObjects(std::move(group));
    EXPECT_EQ(written.bytes, std::string("/OrvTextGroup <</Clip true>> BDC\n") + line + "n\nEMC\n");
    EXPECT_FALSE(written.problems.IsEmpty());
}

TEST(ContentWriter, ClipsAnImplicitGroupInPlainOperators)
{
    EXPECT_EQ(BytesOf(With(ImplicitGroup(), ClipLine(), Line())),
              std::string("q\n") + line + "W n\n" + line + "n\nQ\n");
}

TEST(ContentWriter, StaysUnderTheMatrixOfAClip)
{
    EXPECT_EQ(BytesOf(With(ImplicitGroup(), Transformed(ClipLine(), scale), Transformed(Line(), scale))),
              std::string("q\n2 0 0 2 0 0 cm\n") + line + "W n\n" + line + "n\nQ\n");
}

TEST(ContentWriter, ResetsTheMatrixOfAClipForAnObjectWithoutIt)
{
    EXPECT_EQ(
        BytesOf(With(ImplicitGroup(), Transformed(ClipLine(), scale), Line(), Transformed(Line(), shift))),
        std::string("q\n2 0 0 2 0 0 cm\n") + line +
            "W n\n/OrvReset <</Matrix [2 0 0 2 0 0]>> DP\n0.5 0 0 0.5 0 0 cm\n" + line +
            "n\nq\n1 0 0 1 5 0 cm\n" + line + "n\nQ\nQ\n");
}

TEST(ContentWriter, ResetsAMatrixOfTenthsByOneOfTens)
{
    const M tenth(0.1, 0.0, 0.0, -0.1, 0.0, 200000.0);
    EXPECT_THAT(BytesOf(With(ImplicitGroup(), Transformed(ClipLine(), tenth), Line())),
                HasSubstr("DP\n10 0 0 -10 0 2000 cm\n"));
}

TEST(ContentWriter, LeavesOutWhatItCannotPlaceUnderAMatrixWithoutInverse)
{
    const M flat(0.0, 0.0, 0.0, 0.0, 0.0, 0.0);
    const WrittenContent written =
        WriteObjects(With(ImplicitGroup(), Transformed(ClipLine(), flat), Line(), Transformed(Line(), flat)));
    EXPECT_EQ(written.bytes, std::string("q\n0 0 0 0 0 0 cm\n") + line + "W n\n" + line + "n\nQ\n");
    EXPECT_THAT(ProblemsOf(written), ElementsAre(HasSubstr("cannot be placed: 1")));
}

TEST(ContentWriter, SharesNoMatrixWithoutInverseWithAGroup)
{
    const M flat(1.0, 0.0, 0.0, 0.0, 0.0, 0.0);
    const std::string flatLine = "q\n1 0 0 0 0 0 cm\n" + std::string(line) + "n\nQ\n";
    EXPECT_EQ(BytesOf(Transformed(Line(), flat),
                      With(std::make_unique<OrvDoc::Group>(OrvDoc::Group::Flags::Default),
                           Transformed(Line(), flat), Line())),
              flatLine + "/OrvGroup BMC\n" + flatLine + line + "n\nEMC\n");
}

TEST(ContentWriter, NestsAClipUnderASharedMatrix)
{
    EXPECT_EQ(BytesOf(Transformed(Line(), scale),
                      With(ImplicitGroup(), Transformed(ClipLine(), scale), Transformed(Line(), scale)),
                      Transformed(Line(), scale)),
              std::string("q\n2 0 0 2 0 0 cm\n") + line + "n\nq\n" + line + "W n\n" + line + "n\nQ\n" + line +
                  "n\nQ\n");
}

TEST(ContentWriter, SaysTheClipsOfANamedGroupInside)
{
    EXPECT_EQ(BytesOf(With(NamedGroup("g"), Line(), ClipLine(), ClipLine(2000.0))),
              std::string("/OrvGroup <</Name (g) /OwnClips 2>> BDC\nq\n") + line +
                  "W n\n0 0 m\n2 0 l\nW n\n" + line + "n\nQ\nEMC\n");
}

TEST(ContentWriter, KeepsTheNameOfAClip)
{
    EXPECT_EQ(BytesOf(With(ImplicitGroup(), Named(ClipLine(), "c"))),
              std::string("/OrvGroup <</OwnClips 1>> BDC\nq\n/OrvObject <</Name (c)>> BDC\n") + line +
                  "W n\nEMC\nQ\nEMC\n");
}

TEST(ContentWriter, ClipsAWholeContent)
{
    EXPECT_EQ(BytesOf(Line(), ClipLine()), std::string("q\n") + line + "W n\n" + line + "n\nQ\n");
}

TEST(ContentWriter, ClipsByTheEvenOddRule)
{
    auto clip = Line(1000.0, Plexa::WindingRule::EvenOdd);
    clip->SetClippingObject(true);
    EXPECT_EQ(BytesOf(std::move(clip)), std::string("q\n") + line + "W* n\nQ\n");
}

std::unique_ptr<OrvDoc::Group> Marked(OrvDoc::MarkedContent mark)
{
    auto group = ImplicitGroup();
    group->SetMarkedContent(std::make_shared<const OrvDoc::MarkedContent>(std::move(mark)));
    return group;
}

OrvDoc::MarkedContent Mark(const char* tag, OrvSys::PdfObject properties = {},
                           OrvSys::PdfObject resource = {}, bool isPoint = false)
{
    OrvDoc::MarkedContent mark;
    mark.tag = tag;
    mark.properties = std::move(properties);
    mark.resource = std::move(resource);
    mark.isPoint = isPoint;
    return mark;
}

OrvSys::PdfObject Numbered(int number)
{
    return OrvSys::PdfObject::Dictionary({{"MCID", OrvSys::PdfObject::Integer(number)}});
}

TEST(ContentWriter, WritesForeignMarkedContentBack)
{
    EXPECT_EQ(BytesOf(With(Marked(Mark("P", Numbered(3))), Line()), Marked(Mark("Artifact"))),
              std::string("/P <</MCID 3>> BDC\n") + line + "n\nEMC\n/Artifact BMC\nEMC\n");
}

TEST(ContentWriter, EndsTheTextForAGroupUnderTheMatrixOfWhatItStandsFor)
{
    const OrvSys::PdfObject list =
        OrvSys::PdfObject::Dictionary({{"ActualText", OrvSys::PdfObject::String("x")}});
    EXPECT_EQ(BytesOf(With(Marked(Mark("Span", list)), Transformed(Line(), scale)), Line()),
              std::string("q\n2 0 0 2 0 0 cm\n/Span <</ActualText (x)>> BDC\n") + line + "n\nEMC\nQ\n" +
                  line + "n\n");
    EXPECT_EQ(BytesOf(With(Marked(Mark("Span", list)), Transformed(Line(), scale), Line())),
              std::string("/Span <</ActualText (x)>> BDC\nq\n2 0 0 2 0 0 cm\n") + line + "n\nQ\n" + line +
                  "n\nEMC\n");
    EXPECT_EQ(BytesOf(With(Marked(Mark("P", Numbered(3))), Transformed(Line(), scale))),
              std::string("/P <</MCID 3>> BDC\nq\n2 0 0 2 0 0 cm\n") + line + "n\nQ\nEMC\n");
}

TEST(ContentWriter, WritesForeignPointsBack)
{
    EXPECT_EQ(BytesOf(Marked(Mark("A", {}, {}, true)), Marked(Mark("B", Numbered(1), {}, true))),
              "/A MP\n/B <</MCID 1>> DP\n");
}

TEST(ContentWriter, NamesPropertyListsOfTheResources)
{
    const auto name = OrvSys::PdfObject::Name("Old");
    const WrittenContent written =
        WriteObjects(Marked(Mark("A", name, Numbered(1))), Marked(Mark("B", name, Numbered(2))),
                     Marked(Mark("C", name, Numbered(1))));
    EXPECT_EQ(written.bytes, "/A /mc0 BDC\nEMC\n/B /mc1 BDC\nEMC\n/C /mc0 BDC\nEMC\n");
    EXPECT_EQ(written.propertyLists.size(), 2u);
}

TEST(ContentWriter, SaysWhatAForeignGroupHasBesideItsMark)
{
    EXPECT_EQ(BytesOf(Transformed(Named(With(Marked(Mark("P")), ClipLine()), "n"), shift)),
              std::string(
                  "/P BMC\n/OrvAttributes <</Matrix [1 0 0 1 5 0] /Name (n) /OwnClips 1>> DP\nq\n1 0 0 1 5 0 "
                  "cm\n") +
                  line + "W n\nQ\nEMC\n");
}

TEST(ContentWriter, SaysLayersByResources)
{
    const auto document = NewDocument(1);
    const auto first = document->GetLayers().AddLayer("One");
    const auto second = document->GetLayers().AddLayer("Two");
    using OrvDoc::LogicalLayerExpression;
    const LogicalLayerExpression no(LogicalLayerExpression::Operation::Not, {LogicalLayerExpression(second)});
    Fill(ContentOf(*document), With(std::make_unique<OrvDoc::Layer>(first), Line()),
         std::make_unique<OrvDoc::Layer>(no), std::make_unique<OrvDoc::Layer>(first),
         Named(std::make_unique<OrvDoc::Layer>(no), "not two"));
    SeparationSpaces separations({});
    const WrittenContent written = WriteContent(ContentOf(*document), separations, ContentStart::Page);
    EXPECT_EQ(written.bytes,
              std::string("/OC /oc0 BDC\n") + line +
                  "n\nEMC\n/OC /oc1 BDC\nEMC\n/OC /oc0 BDC\nEMC\n/OC /oc1 BDC\n/OrvAttributes <</Name "
                  "(not two)>> DP\nEMC\n");
    EXPECT_EQ(written.layers.size(), 2u);
}

TEST(ContentWriter, CountsWhatItCannotWriteByKind)
{
    const double infinity = std::numeric_limits<double>::infinity();
    const WrittenContent written =
        WriteObjects(Line(infinity), Line(-infinity), std::make_unique<OrvDoc::ImageMask>(nullptr));
    EXPECT_EQ(written.bytes, "");
    EXPECT_THAT(
        ProblemsOf(written),
        ElementsAre(HasSubstr("page 1: paths with infinite coordinates cannot be written: 2, the first is"),
                    HasSubstr("page 1: image masks without a picture cannot be written: 1, the first is")));
}

TEST(ContentWriter, LeavesOutAPathWithAnInfiniteMatrix)
{
    const WrittenContent written = WriteObjects(Moved(Line(), std::numeric_limits<double>::quiet_NaN(), 0.0));
    EXPECT_EQ(written.bytes, "");
    EXPECT_FALSE(written.problems.IsEmpty());
}

TEST(ContentWriter, WritesAHundredThousandNestedGroups)
{
    constexpr int depth = 100000;
    const auto document = NewDocument(1);
    OrvDoc::Group* innermost = &Place(ContentOf(*document), ImplicitGroup());
    for (int level = 1; level < depth; ++level) {
        innermost = &Place(*innermost, ImplicitGroup());
    }
    Place(*innermost, Line());
    SeparationSpaces separations({});
    const std::string bytes = WriteContent(ContentOf(*document), separations, ContentStart::Page).bytes;
    EXPECT_EQ(bytes.size(),
              depth * std::string("/OrvGroup BMC\nEMC\n").size() + std::string(line).size() + 2);
}

} // namespace
} // namespace OrvPdf::Testing
