// Shadings and shading patterns of a file, as the resources give them to a content.

#include "pdf/reader/resources/shading_resource.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include <orv_doc/page.h>
#include <orv_doc/page_content.h>
#include <orv_doc/path.h>
#include <orv_paint/axial_shading_paint.h>
#include <orv_paint/exponential_function.h>
#include <orv_paint/form_paint.h>
#include <orv_paint/radial_shading_paint.h>
#include <orv_paint/whole_shading_paint.h>
#include <plexa/geometry.h>

#include "document_library/pdf/reader/opened_file.h"
#include "pdf/reader/resources/resource_reader.h"
#include "support/pdf_text.h"

namespace
{

using namespace HarrowSupport::Testing;
using OrvColor::ColorSpace;
using OrvPaint::Paint;
using OrvPdf::ShadingUse;
using testing::ElementsAre;
using testing::HasSubstr;

const std::string ramp = "<< /FunctionType 2 /Domain [0 1] /C0 [0] /C1 [1] /N 1 >>";

/// The resources of a file; further objects are those from 3.
class Resources
{
public:
    explicit Resources(const std::string& entries, const std::vector<std::string>& more = {})
        : file(MakeFile(entries, more)),
          document(file.Get()),
          reader(document, file.GetObject(2).getKey("/Resources"))
    {}

    std::shared_ptr<const OrvPdf::ShadingResource> Shading(const std::string& name)
    {
        problem.clear();
        return reader.FindShading(name, problem);
    }

    std::shared_ptr<const OrvPdf::ContentResources::Pattern> Pattern(const std::string& name)
    {
        problem.clear();
        return reader.FindPattern(name, problem);
    }

    std::string problem;

private:
    static std::string MakeFile(const std::string& entries, const std::vector<std::string>& more)
    {
        std::vector<std::string> objects = {"<< /Type /Catalog /Pages 2 0 R >>",
                                            "<< /Kids [] /Resources << " + entries + " >> >>"};
        objects.insert(objects.end(), more.begin(), more.end());
        return PdfFile(objects);
    }

    ReaderTests::OpenedFile file;
    OrvPdf::DocumentResources document;
    OrvPdf::ResourceReader reader;
};

/// The paint of the shading /S of those entries, as a pattern paints it; null with a problem.
std::shared_ptr<const OrvPaint::ShadingPaint> PaintOf(const std::string& entries,
                                                      std::string* problem = nullptr)
{
    Resources resources("/Shading << /S << " + entries + " >> >>");
    const auto shading = resources.Shading("S");
    if (problem)
        *problem = resources.problem;
    else
        EXPECT_EQ(resources.problem, "");
    return shading ? shading->GetPaint(ShadingUse()) : nullptr;
}

std::string ProblemOf(const std::string& entries)
{
    std::string problem;
    EXPECT_FALSE(PaintOf(entries, &problem)) << entries;
    return problem;
}

/// The same for a mesh with those entries.
std::string ProblemOfMesh(const std::string& entries)
{
    Resources resources("/Shading << /S 3 0 R >>", {PdfStream("abc", entries)});
    EXPECT_FALSE(resources.Shading("S")) << entries;
    return resources.problem;
}

std::string Axial(const std::string& more = "", const std::string& space = "/DeviceGray")
{
    return "/ShadingType 2 /ColorSpace " + space + " /Coords [1 2.5 3 0.001] /Function " + ramp + " " + more;
}

template <typename Class>
const Class& As(const std::shared_ptr<const OrvPaint::ShadingPaint>& paint)
{
    return dynamic_cast<const Class&>(*paint);
}

TEST(ShadingReader, ReadsAnAxialShading)
{
    const auto paint = PaintOf(Axial("/Domain [0.25 0.75] /Extend [false true]"));
    ASSERT_EQ(paint->GetType(), Paint::Type::AxialShading);
    const auto& axial = As<OrvPaint::AxialShadingPaint>(paint);
    EXPECT_EQ(axial.GetPoints().first, OrvPaint::AxialShadingPaint::Point(1000.0, 2500.0));
    EXPECT_EQ(axial.GetPoints().second, OrvPaint::AxialShadingPaint::Point(3000.0, 1.0));
    EXPECT_EQ(axial.GetExtends(), std::make_pair(false, true));
    EXPECT_THAT(axial.GetParameterRange(), ElementsAre(0.25, 0.75));
    EXPECT_EQ(axial.GetFunction()->GetType(), OrvPaint::Function::Type::Exponential);
    EXPECT_EQ(axial.GetNativeSpace(), ColorSpace::DeviceGray());
    EXPECT_TRUE(axial.GetBoundingBox().isInitial);
    EXPECT_FALSE(axial.IsAntiAliased());
}

TEST(ShadingReader, TakesTheStandardsValuesForMissingKeys)
{
    const auto paint = PaintOf("/ShadingType 2 /ColorSpace /DeviceGray /Coords [0 0 1 1] /Function "
                               "<< /FunctionType 2 /Domain [-3 5] /N 1 >>");
    const auto& axial = As<OrvPaint::AxialShadingPaint>(paint);
    EXPECT_THAT(axial.GetParameterRange(), ElementsAre(0.0, 1.0));
    EXPECT_EQ(axial.GetExtends(), std::make_pair(false, false));
}

TEST(ShadingReader, ReadsARadialShading)
{
    const auto paint =
        PaintOf("/ShadingType 3 /ColorSpace /DeviceGray /Coords [1 2 0.5 4 5 6] /Function " + ramp);
    ASSERT_EQ(paint->GetType(), Paint::Type::RadialShading);
    const auto& radial = As<OrvPaint::RadialShadingPaint>(paint);
    EXPECT_EQ(radial.GetCenters().first, OrvPaint::RadialShadingPaint::Point(1000.0, 2000.0));
    EXPECT_EQ(radial.GetCenters().second, OrvPaint::RadialShadingPaint::Point(4000.0, 5000.0));
    EXPECT_EQ(radial.GetRadii().first.value, 500.0);
    EXPECT_EQ(radial.GetRadii().second.value, 6000.0);
}

TEST(ShadingReader, ReadsWhatAllShadingsHave)
{
    const auto paint = PaintOf(Axial("/Background [0.5] /BBox [10 20 1 2.125] /AntiAlias true"));
    ASSERT_TRUE(paint->GetBackground());
    EXPECT_THAT(*paint->GetBackground(), ElementsAre(0.5f));
    EXPECT_EQ(paint->GetBoundingBox(),
              Plexa::RectangleBase<Plexa::PdfCoordinateSystem>(1.0, 2.125, 9.0, 17.875));
    EXPECT_TRUE(paint->IsAntiAliased());
}

TEST(ShadingReader, JoinsAnArrayOfFunctions)
{
    const auto paint = PaintOf("/ShadingType 2 /ColorSpace /DeviceRGB /Coords [0 0 1 1] /Function [" + ramp +
                               ramp + ramp + "]");
    const auto& axial = As<OrvPaint::AxialShadingPaint>(paint);
    EXPECT_EQ(axial.GetFunction()->GetType(), OrvPaint::Function::Type::Exponential);
    EXPECT_EQ(axial.GetFunction()->GetRange().size(), 3u);
}

TEST(ShadingReader, KeepsAFunctionBasedShadingWhole)
{
    const std::string function =
        "<< /FunctionType 4 /Domain [0 1 0 1] /Range [0 1] /Length 7 >>\nstream\n{ mul }\nendstream";
    Resources resources("/Shading << /S << /ShadingType 1 /ColorSpace /DeviceGray /Matrix [2 0 0 2 0 0] "
                        "/Background [1] /BBox [0 0 1 1] /AntiAlias true /Function 3 0 R >> >>",
                        {function});
    const auto shading = resources.Shading("S");
    ASSERT_EQ(resources.problem, "");
    const auto paint = shading->GetPaint(ShadingUse());
    ASSERT_EQ(paint->GetType(), Paint::Type::OtherShading);
    const auto& definition = As<OrvPaint::WholeShadingPaint>(paint).GetDefinition();
    std::vector<std::string> keys;
    for (const auto& entry : definition.GetEntries())
        keys.push_back(entry.first);
    EXPECT_THAT(keys, ElementsAre("Function", "Matrix", "ShadingType"));
    EXPECT_EQ(definition.Find("Function").GetRawBytes(), "{ mul }");
}

TEST(ShadingReader, KeepsMeshesWhole)
{
    const std::string common =
        "/ColorSpace /DeviceGray /BitsPerCoordinate 8 /BitsPerComponent 8 /Decode [0 1 0 1 0 1] ";
    for (const char* const type :
         {"4 /BitsPerFlag 8", "5 /VerticesPerRow 2", "6 /BitsPerFlag 8", "7 /BitsPerFlag 8"}) {
        Resources resources("/Shading << /S 3 0 R >>", {PdfStream("abc", common + "/ShadingType " + type)});
        const auto shading = resources.Shading("S");
        ASSERT_EQ(resources.problem, "");
        const auto paint = shading->GetPaint(ShadingUse());
        EXPECT_EQ(paint->GetType(), Paint::Type::OtherShading);
        const auto& definition = As<OrvPaint::WholeShadingPaint>(paint).GetDefinition();
        EXPECT_EQ(definition.GetRawBytes(), "abc");
        EXPECT_TRUE(definition.Find("ColorSpace").IsNull());
        EXPECT_EQ(definition.Find("ShadingType").GetInteger(), type[0] - '0');
    }
}

TEST(ShadingReader, MapsTheSeparationsOfItsSpace)
{
    const std::string tint = "<< /FunctionType 2 /Domain [0 1] /C0 [0 0 0 0] /C1 [0 1 0 0] /N 1 >>";
    const auto paint = PaintOf(Axial("", "[/Separation /Gold /DeviceCMYK " + tint + "]"));
    const auto& mapping = paint->GetSeparationMapping();
    ASSERT_EQ(mapping.entries.size(), 1u);
    EXPECT_EQ(mapping.entries[0].name, "Gold");
    EXPECT_EQ(mapping.entries[0].value, 0u);
    const auto all = PaintOf(Axial("", "[/Separation /All /DeviceCMYK " + tint + "]"));
    EXPECT_TRUE(all->GetSeparationMapping().all);
}

TEST(ShadingReader, TakesTheDefaultSpaceOfTheResources)
{
    Resources resources("/ColorSpace << /DefaultGray [/CalGray << /WhitePoint [0.9 1 1.1] >>] >> "
                        "/Shading << /S << " +
                        Axial() + " >> >>");
    EXPECT_EQ(resources.Shading("S")->GetPaint(ShadingUse())->GetNativeSpace()->GetFamily(),
              ColorSpace::Family::CalGray);
}

TEST(ShadingReader, APrivateKeySaysAMappingThatTheSpaceCannot)
{
    const auto paint =
        PaintOf(Axial("/OrvMapping << /Entries [(Gold) 3 (Silver) -1] /ForAll -1 /All false >>"));
    const auto& mapping = paint->GetSeparationMapping();
    ASSERT_EQ(mapping.entries.size(), 2u);
    EXPECT_EQ(mapping.entries[0].name, "Gold");
    EXPECT_EQ(mapping.entries[0].value, 3u);
    EXPECT_EQ(mapping.entries[1].value, OrvColor::SeparationMappingPolicy::Default());
}

TEST(ShadingReader, NamesTheKeyThatIsMalformed)
{
    const std::string axial = "/ShadingType 2 /ColorSpace /DeviceGray ";
    const std::string coords = "/Coords [0 0 1 1] ";
    EXPECT_THAT(ProblemOf("/ShadingType 8 /ColorSpace /DeviceGray"), HasSubstr("ShadingType: '8'"));
    EXPECT_THAT(ProblemOf("/ShadingType 2"), HasSubstr("ColorSpace: it is missing"));
    EXPECT_THAT(ProblemOf("/ShadingType 2 /ColorSpace [/Nonsense]"), HasSubstr("ColorSpace: "));
    EXPECT_THAT(ProblemOf(axial + "/Function " + ramp), HasSubstr("Coords: it is no array of 4 numbers"));
    EXPECT_THAT(ProblemOf(axial + "/Coords [0 0 /A 1] /Function " + ramp), HasSubstr("Coords: '/A'"));
    EXPECT_THAT(ProblemOf(axial + coords), HasSubstr("Function: it is missing"));
    EXPECT_THAT(ProblemOf(axial + coords + "/Function << /FunctionType 9 >>"), HasSubstr("Function: "));
    EXPECT_THAT(ProblemOf(axial + coords + "/Function [" + ramp + ramp + "]"),
                HasSubstr("Function: it gives 2"));
    EXPECT_THAT(ProblemOf(Axial("/Domain [0]")), HasSubstr("Domain: "));
    EXPECT_THAT(ProblemOf(Axial("/Extend [true 1]")), HasSubstr("Extend: '1'"));
    EXPECT_THAT(ProblemOf(Axial("/Background [0 0]")), HasSubstr("Background: it is no array of 1 numbers"));
    EXPECT_THAT(ProblemOf(Axial("/BBox [0 0 1]")), HasSubstr("BBox: "));
    EXPECT_THAT(ProblemOf(Axial("/AntiAlias 1")), HasSubstr("AntiAlias: "));
    EXPECT_THAT(ProblemOf(Axial("/OrvMapping 1")), HasSubstr("OrvMapping: "));
    EXPECT_THAT(ProblemOf("/ShadingType 3 /ColorSpace /DeviceGray /Coords [0 0 -1 0 0 1] /Function " + ramp),
                HasSubstr("Coords: a radius is below zero"));
}

TEST(ShadingReader, NamesTheKeyOfAMeshThatIsMalformed)
{
    const std::string mesh = "/ShadingType 4 /ColorSpace /DeviceGray /BitsPerFlag 8 /BitsPerCoordinate 8 ";
    EXPECT_THAT(ProblemOf("/ShadingType 4 /ColorSpace /DeviceGray"),
                HasSubstr("ShadingType: a mesh that is no stream"));
    EXPECT_THAT(ProblemOfMesh(mesh + "/Decode [0 1 0 1 0 1]"), HasSubstr("BitsPerComponent: "));
    EXPECT_THAT(ProblemOfMesh(mesh + "/BitsPerComponent 8 /Decode [0 1 0 1]"), HasSubstr("Decode: "));
    EXPECT_THAT(
        ProblemOfMesh("/ShadingType 5 /ColorSpace /DeviceGray /BitsPerCoordinate 8 /BitsPerComponent 8"),
        HasSubstr("VerticesPerRow: "));
}

TEST(ShadingReader, TellsThatIndexedColorsAndPatternsAreNoColorsOfAShading)
{
    EXPECT_THAT(ProblemOf(Axial("", "[/Indexed /DeviceGray 1 <00FF>]")), HasSubstr("ColorSpace: "));
    EXPECT_THAT(ProblemOf(Axial("", "/Pattern")), HasSubstr("ColorSpace: "));
}

TEST(ShadingReader, AnObjectOfTheFileIsOneShading)
{
    Resources resources(
        "/Shading << /A 3 0 R /B 3 0 R /C 4 0 R >> /Pattern << /P << /PatternType 2 /Shading 3 0 R >> >>",
        {"<< " + Axial() + " >>", "<< " + Axial() + " >>"});
    EXPECT_EQ(resources.Shading("A"), resources.Shading("B"));
    EXPECT_EQ(resources.Shading("A"), resources.Pattern("P")->shading);
    EXPECT_NE(resources.Shading("A"), resources.Shading("C"));
}

TEST(ShadingReader, UsesOfAShadingThatDifferAreOtherPaints)
{
    Resources resources("/Shading << /S << " + Axial("/Background [1]") + " >> >>");
    const auto shading = resources.Shading("S");
    const ShadingUse plain;
    ShadingUse moved;
    moved.transformation.x = 1.0;
    ShadingUse bare;
    bare.paintsBackground = false;
    ShadingUse over;
    over.overprint = true;
    ShadingUse mode = over;
    mode.nonzeroOverprint = true;
    EXPECT_EQ(shading->GetPaint(plain), shading->GetPaint(ShadingUse()));
    for (const ShadingUse& use : {moved, bare, over, mode}) {
        EXPECT_NE(shading->GetPaint(plain), shading->GetPaint(use));
        EXPECT_EQ(shading->GetPaint(use), shading->GetPaint(use));
    }
    EXPECT_NE(shading->GetPaint(over), shading->GetPaint(mode));
}

TEST(ShadingReader, ReadsTheMatrixOfAPatternInMilliPoints)
{
    Resources resources("/Pattern << /P << /PatternType 2 /Matrix [1 2 3 4 5.5 6.25] /Shading << " + Axial() +
                        " >> >> >>");
    EXPECT_EQ(resources.Pattern("P")->matrix, OrvPdf::Matrix(1, 2, 3, 4, 5500.0, 6250.0));
    EXPECT_EQ(resources.problem, "");
}

TEST(ShadingReader, ReadsAPatternWithoutAMatrixThatIsNoneAndTellsSo)
{
    Resources resources("/Pattern << /P << /PatternType 2 /Matrix [1 2 3] /Shading << " + Axial() +
                        " >> >> >>");
    EXPECT_EQ(resources.Pattern("P")->matrix, OrvPdf::Matrix());
    EXPECT_THAT(resources.problem, HasSubstr("Matrix"));
}

TEST(ShadingReader, TellsPatternsThatAreNotModelled)
{
    Resources resources("/Pattern << /Tile << /PatternType 3 >> /Bad << /PatternType 2 /Shading 7 >> "
                        "/State << /PatternType 2 /Shading << " +
                        Axial() + " >> /ExtGState << /CA 0.5 >> >> /Neutral << /PatternType 2 /Shading << " +
                        Axial() + " >> /ExtGState << /Type /ExtGState >> >> >>");
    EXPECT_FALSE(resources.Pattern("Tile"));
    EXPECT_THAT(resources.problem, HasSubstr("PatternType: "));
    EXPECT_FALSE(resources.Pattern("Bad"));
    EXPECT_THAT(resources.problem, HasSubstr("Shading: it is no shading dictionary"));
    EXPECT_FALSE(resources.Pattern("None"));
    EXPECT_THAT(resources.problem, HasSubstr("missing from Pattern"));
    EXPECT_TRUE(resources.Pattern("State"));
    EXPECT_THAT(resources.problem, HasSubstr("ExtGState: parameter CA"));
    EXPECT_TRUE(resources.Pattern("Neutral"));
    EXPECT_EQ(resources.problem, "");
}

TEST(ShadingReader, PagesThatNameOneShadingShareItsPaint)
{
    const auto document = ReaderTests::ReadBytes(
        PdfFileOfPages({"/S sh", "q /S sh Q"}, "", "/Shading << /S 7 0 R >>", {"<< " + Axial() + " >>"}));
    std::vector<std::shared_ptr<const Paint>> paints;
    for (auto page = document->GetPagesBegin(); page != document->GetPagesEnd(); ++page) {
        EXPECT_THAT(ReaderTests::TextsOf(page->GetContent().GetActiveErrors()), ElementsAre());
        const auto* const path =
            dynamic_cast<const OrvDoc::Path*>(std::as_const(page->GetContent()).GetChildren().first);
        ASSERT_TRUE(path);
        EXPECT_EQ(Plexa::GetBoundingBox(*path->DefiningCompound()).size.width.value, 100000.0);
        paints.push_back(path->GetFillPaint());
    }
    ASSERT_EQ(paints.size(), 2u);
    EXPECT_EQ(paints[0], paints[1]);
}

/// The objects of the form /F of a page that first does `before`; the form's box is [10 20 30 50].
struct FormReading
{
    FormReading(const std::string& before, const std::string& form)
        : document(ReaderTests::ReadBytes(PdfFileOfPages(
              {before + " /F Do"}, "", resources + "/XObject << /F 5 0 R >>",
              {PdfStream(form, "/Type /XObject /Subtype /Form /BBox [10 20 30 50] /Resources << " +
                                   resources + " >>")})))
    {
        const OrvDoc::PageContent& page = document->GetPagesBegin()->GetContent();
        const auto* const placed = dynamic_cast<const OrvDoc::Path*>(page.GetChildren().first);
        if (placed && placed->GetFillPaint()->GetType() == Paint::Type::Form) {
            const auto& paint = static_cast<const OrvPaint::FormPaint&>(*placed->GetFillPaint());
            inside = dynamic_cast<const OrvDoc::Path*>(
                static_cast<const OrvDoc::Content&>(paint.GetContent()).GetChildren().first);
        }
        errors = ReaderTests::TextsOf(page.GetActiveErrors());
    }

    const std::string resources = "/Shading << /S << " + Axial() +
                                  " >> >> /Pattern << /P << /PatternType 2 /Shading << " + Axial() +
                                  " >> >> >> ";
    std::unique_ptr<OrvDoc::Document> document;
    const OrvDoc::Path* inside = nullptr;
    std::vector<std::string> errors;
};

TEST(ShadingReader, InAFormAShadingFillsTheBoxOfTheForm)
{
    const FormReading reading("2 0 0 2 0 0 cm", "3 0 0 3 0 0 cm /S sh");
    EXPECT_THAT(reading.errors, ElementsAre());
    ASSERT_TRUE(reading.inside);
    EXPECT_EQ(Plexa::GetBoundingBox(*reading.inside->DefiningCompound()),
              (Plexa::RectangleBase<Plexa::MilliPointCoordinateSystem>(10000.0, 20000.0, 20000.0, 30000.0)));
    EXPECT_EQ(
        dynamic_cast<const OrvPaint::ShadingPaint&>(*reading.inside->GetFillPaint()).GetTransformation(),
        OrvPdf::Matrix(3, 0, 0, 3, 0.0, 0.0));
}

TEST(ShadingReader, AFormThatIsPaintedInThePatternAroundItIsTold)
{
    const FormReading own("/Pattern cs /P scn", "/Pattern cs /P scn 10 20 5 5 re f");
    EXPECT_THAT(own.errors, ElementsAre());
    ASSERT_TRUE(own.inside);
    EXPECT_TRUE(own.inside->GetFillPaint());
    const FormReading inherited("/Pattern cs /P scn", "10 20 5 5 re f");
    ASSERT_EQ(inherited.errors.size(), 1u);
    EXPECT_THAT(inherited.errors[0], HasSubstr("a form that is painted in the pattern around it"));
}

} // namespace
