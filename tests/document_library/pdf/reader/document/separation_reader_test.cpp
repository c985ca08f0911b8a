#include "pdf/reader/document/separation_reader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include <orv_color/color_space.h>

#include "document_library/pdf/reader/opened_file.h"
#include "support/pdf_text.h"

namespace
{

using namespace HarrowSupport::Testing;
using testing::ElementsAre;
using testing::IsEmpty;

const std::string Transform = "<< /FunctionType 2 /Domain [0 1] /N 1 /C0 [0 0 0 0] /C1 [0 0.5 1 0] >>";

std::string Spot(const std::string& name)
{
    return "[/Separation /" + name + " /DeviceCMYK " + Transform + "]";
}

/// The separations of a file with the resources of its pages; further objects are those from 3.
std::vector<OrvDoc::Separation::Entry> Collect(const std::vector<std::string>& pageResources,
                                               const std::vector<std::string>& more = {},
                                               const std::string& catalogue = "")
{
    std::string array = "[";
    for (const std::string& resources : pageResources)
        array += "<< " + resources + " >> ";
    std::vector<std::string> objects = {"<< /Type /Catalog /Pages 2 0 R " + catalogue + " >>", array + "]"};
    objects.insert(objects.end(), more.begin(), more.end());
    const ReaderTests::OpenedFile file(PdfFile(objects));
    OrvPdf::DocumentResources document(file.Get());
    return OrvPdf::CollectSeparations(file.GetCatalogue(), file.GetObject(2).getArrayAsVector(), document);
}

std::vector<std::string> Names(const std::vector<OrvDoc::Separation::Entry>& entries)
{
    std::vector<std::string> names;
    for (const OrvDoc::Separation::Entry& entry : entries)
        names.push_back(entry.GetName());
    return names;
}

std::string Text(const OrvColor::Representation& representation)
{
    std::ostringstream text;
    text << representation;
    return text.str();
}

TEST(SeparationReader, TakesPagesInOrderAndSpacesInOrderOfTheirNames)
{
    EXPECT_THAT(Names(Collect({"/ColorSpace << /B " + Spot("Two") + " /A " + Spot("One") + " >>",
                               "/ColorSpace << /A " + Spot("Three") + " /B " + Spot("One") + " >>"})),
                ElementsAre("One", "Two", "Three"));
}

TEST(SeparationReader, GivesTheAlternateAtFullTintAndTheSpace)
{
    const auto entries = Collect({"/ColorSpace << /A " + Spot("Orange") + " >>"});
    ASSERT_EQ(entries.size(), 1u);
    EXPECT_EQ(Text(entries[0].GetAlternate()), "Cmyk(0, 0.5, 1, 0)");
    ASSERT_TRUE(entries[0].GetColorSpace());
    EXPECT_EQ(entries[0].GetColorSpace()->GetFamily(), OrvColor::ColorSpace::Family::Separation);
}

TEST(SeparationReader, TakesEachColorantOfDeviceNButAllAndNone)
{
    const std::string space =
        "[/DeviceN [/Cyan /None /Gold] /DeviceGray << /FunctionType 4 /Domain [0 1 0 1 0 1] /Range [0 1] >>]";
    const auto entries =
        Collect({"/ColorSpace << /A " + space + " /B " + Spot("All") + " /C " + Spot("None") + " >>"});
    EXPECT_THAT(Names(entries), ElementsAre("Cyan", "Gold"));
    EXPECT_FALSE(entries[0].GetColorSpace());
}

TEST(SeparationReader, LooksBelowIndexedAndPattern)
{
    EXPECT_THAT(Names(Collect({"/ColorSpace << /A [/Indexed " + Spot("One") + " 1 <00ff>] /B [/Pattern " +
                               Spot("Two") + "] >>"})),
                ElementsAre("One", "Two"));
}

TEST(SeparationReader, FindsWhatResourcesHold)
{
    const std::string form =
        PdfStream("", "/Subtype /Form /Resources << /ColorSpace << /A " + Spot("Form") + " >> >>");
    const std::string picture = PdfStream("", "/Subtype /Image /ColorSpace " + Spot("Picture"));
    const std::string tiling =
        PdfStream("", "/PatternType 1 /Resources << /ColorSpace << /A " + Spot("Tiling") + " >> >>");
    const std::string shading = "<< /ShadingType 2 /ColorSpace " + Spot("Shading") + " >>";
    const std::string shadingPattern =
        "<< /PatternType 2 /Shading << /ColorSpace " + Spot("Gradient") + " >> >>";
    const std::string mask =
        PdfStream("", "/Subtype /Form /Resources << /ColorSpace << /A " + Spot("Mask") + " >> >>");
    EXPECT_THAT(Names(Collect({"/XObject << /A 3 0 R /B 4 0 R >> /Pattern << /A 5 0 R /B 7 0 R >>"
                               " /Shading << /A 6 0 R >> /ExtGState << /A << /SMask << /G 8 0 R >> >> >>"},
                              {form, picture, tiling, shading, shadingPattern, mask})),
                ElementsAre("Mask", "Tiling", "Gradient", "Shading", "Form", "Picture"));
}

TEST(SeparationReader, SurvivesFormsThatDrawEachOther)
{
    const std::string first = PdfStream("", "/Subtype /Form /Resources << /XObject << /A 4 0 R >> >>");
    const std::string second =
        PdfStream("", "/Subtype /Form /Resources << /XObject << /A 3 0 R >> /ColorSpace << /A " + Spot("In") +
                          " >> >>");
    EXPECT_THAT(Names(Collect({"/XObject << /A 3 0 R >>"}, {first, second})), ElementsAre("In"));
}

TEST(SeparationReader, NamesSeparationsOfMalformedSpacesToo)
{
    const auto entries = Collect({"/ColorSpace << /A [/Separation /One 7] /B [/DeviceN [/Two /Three] 7] >>"});
    EXPECT_THAT(Names(entries), ElementsAre("One", "Two", "Three"));
    EXPECT_EQ(Text(entries[0].GetAlternate()), "None");
}

TEST(SeparationReader, TakesTheListOfTheCatalogueFirst)
{
    const auto entries =
        Collect({"/ColorSpace << /A " + Spot("Found") + " /B " + Spot("Listed") + " >>"}, {},
                "/OrvSeparations [<< /Name /Listed /Alternate [/DeviceCMYK 0.1 0.2 0.3 0.4] /Space " +
                    Spot("Listed") +
                    " >> << /Name /Gray /Alternate [/DeviceGray 0.5] >> << /Name /Rgb /Alternate [/DeviceRGB "
                    "1 0 0.25] >>"
                    " << /Name /Lab#20colour /Alternate [/Lab 50 -10 20.5] >> << /Name /Bare >>]");
    ASSERT_THAT(Names(entries), ElementsAre("Listed", "Gray", "Rgb", "Lab colour", "Bare", "Found"));
    EXPECT_EQ(Text(entries[0].GetAlternate()), "Cmyk(0.1, 0.2, 0.3, 0.4)");
    EXPECT_TRUE(entries[0].GetColorSpace());
    EXPECT_EQ(Text(entries[1].GetAlternate()), "Gray(0.5)");
    EXPECT_EQ(Text(entries[2].GetAlternate()), "Rgb(1, 0, 0.25)");
    EXPECT_EQ(Text(entries[3].GetAlternate()), "Lab(50, -10, 20.5)");
    EXPECT_EQ(Text(entries[4].GetAlternate()), "None");
}

TEST(SeparationReader, TakesAMalformedAlternateForNone)
{
    const auto entries = Collect({}, {},
                                 "/OrvSeparations [<< /Name /A /Alternate [/DeviceCMYK 1] >> << /No 1 >> 7"
                                 " << /Name /B /Alternate [/DeviceGray /x] >>]");
    ASSERT_THAT(Names(entries), ElementsAre("A", "B"));
    EXPECT_EQ(Text(entries[0].GetAlternate()), "None");
    EXPECT_EQ(Text(entries[1].GetAlternate()), "None");
}

TEST(SeparationReader, FindsNothingWhereThereIsNothing)
{
    EXPECT_THAT(Collect({"", "/ColorSpace 7 /XObject [1] /Font << /A 9 0 R >>"}), IsEmpty());
}

} // namespace
