#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <orv_doc/halftone_set.h>

#include "document_library/pdf/writer/written_states.h"

namespace OrvPdf::Testing
{
namespace
{

using OrvDoc::HalftoneSet;
using OrvSys::PdfObject;
using ::testing::IsEmpty;
using ::testing::SizeIs;

using HalftonePointer = std::shared_ptr<HalftoneSet>;

constexpr const char* line = "0 0 m\n1 0 l\n";

PdfObject Screen(int frequency)
{
    return PdfObject::Dictionary({{"HalftoneType", PdfObject::Integer(1)},
                                  {"Frequency", PdfObject::Integer(frequency)},
                                  {"Angle", PdfObject::Integer(45)},
                                  {"SpotFunction", PdfObject::Name("Round")}});
}

PdfObject Threshold(int type)
{
    return PdfObject::Stream(PdfObject::Dictionary({{"HalftoneType", PdfObject::Integer(type)},
                                                    {"Width", PdfObject::Integer(2)},
                                                    {"Height", PdfObject::Integer(1)}}),
                             std::string("\0\x80", 2));
}

HalftonePointer Set(const PdfObject& definition, const std::string& name = {})
{
    return std::make_shared<HalftoneSet>(name, definition);
}

std::unique_ptr<OrvDoc::Path> Halftoned(HalftonePointer halftones)
{
    auto path = FilledLine(Native(OrvColor::ColorSpace::DeviceGray(), {0.0F}));
    path->SetHalftoneSet(std::move(halftones));
    return path;
}

TEST(ContentWriterHalftones, SaysWhatDiffersFromTheStateInForce)
{
    const WrittenContent written = WriteObjects(Halftoned(nullptr), Halftoned(Set(Screen(60))),
                                                Halftoned(Set(Screen(60))), Halftoned(nullptr));
    EXPECT_EQ(written.bytes,
              std::string(line) + "f\n/gs0 gs\n" + line + "f\n" + line + "f\n/gs1 gs\n" + line + "f\n");
    EXPECT_EQ(StatesOf(written), "<< /gs0 << /HT 3 0 R /Type /ExtGState >>"
                                 " /gs1 << /HT /Default /Type /ExtGState >> >>");
}

TEST(ContentWriterHalftones, EqualSetsOfOtherOwnersAreOneState)
{
    const WrittenContent written =
        WriteObjects(Halftoned(Set(Screen(60))), Halftoned(Set(Screen(90))), Halftoned(Set(Screen(60))));
    EXPECT_EQ(written.bytes,
              std::string("/gs0 gs\n") + line + "f\n/gs1 gs\n" + line + "f\n/gs0 gs\n" + line + "f\n");
    EXPECT_THAT(written.graphicsStates, SizeIs(2));
}

TEST(ContentWriterHalftones, PathsWithoutPaintLeaveThemAsTheyAre)
{
    EXPECT_EQ(BytesOf(Halftoned(Set(Screen(60))), Line(), Halftoned(Set(Screen(60)))),
              std::string("/gs0 gs\n") + line + "f\n" + line + "n\n" + line + "f\n");
}

TEST(ContentWriterHalftones, MarksPathsThatHaveThemWithoutPaint)
{
    auto path = Line();
    path->SetHalftoneSet(Set(Screen(60)));
    EXPECT_EQ(BytesOf(std::move(path)),
              std::string("/gs0 gs\n/OrvObject <</Halftones true>> BDC\n") + line + "n\nEMC\n");
}

TEST(ContentWriterHalftones, EachTypeReadsBackEqual)
{
    const PdfObject several = PdfObject::Dictionary(
        {{"HalftoneType", PdfObject::Integer(5)}, {"Default", Screen(60)}, {"Cyan", Threshold(6)}});
    for (const PdfObject& definition : {Screen(60), several, Threshold(6), Threshold(10), Threshold(16)}) {
        const PathFromFile back(Halftoned(Set(definition)));
        ASSERT_TRUE(back->GetHalftoneSet());
        EXPECT_EQ(*back->GetHalftoneSet(), *Set(definition));
    }
    EXPECT_EQ(PathFromFile(Halftoned(nullptr))->GetHalftoneSet(), nullptr);
}

TEST(ContentWriterHalftones, ANameReadsBackWhateverTheDictionarySays)
{
    PdfObject::Entries entries = Screen(60).GetEntries();
    entries["HalftoneName"] = PdfObject::String("Round");
    const PdfObject named = PdfObject::Dictionary(entries);
    for (const HalftonePointer& given :
         {Set(named, "Round"), Set(named, "Other"), Set(named), Set(Screen(60), "Fine")}) {
        const PathFromFile back(Halftoned(given));
        EXPECT_EQ(*back->GetHalftoneSet(), *given);
    }
}

TEST(ContentWriterHalftones, TellsDefinitionsThatAreNone)
{
    for (const PdfObject& definition :
         {PdfObject(), PdfObject::Name("Default"), Threshold(1), Threshold(7)}) {
        const WrittenContent written = WriteObjects(Halftoned(Set(definition)));
        EXPECT_THAT(written.graphicsStates, IsEmpty());
        EXPECT_FALSE(written.problems.IsEmpty());
    }
}

TEST(ContentWriterHalftones, TellsWhatAClippingPathCannotSay)
{
    auto clip = ClipLine();
    clip->SetHalftoneSet(Set(Screen(60)));
    EXPECT_FALSE(WriteObjects(With(ImplicitGroup(), std::move(clip), Line())).problems.IsEmpty());
}

} // namespace
} // namespace OrvPdf::Testing
