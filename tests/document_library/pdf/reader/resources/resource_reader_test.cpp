#include "pdf/reader/resources/resource_reader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include <orv_doc/document.h>
#include <orv_doc/layer_properties.h>

#include "document_library/pdf/reader/opened_file.h"
#include "pdf/reader/document/layers_reader.h"
#include "support/pdf_text.h"

namespace
{

using namespace HarrowSupport::Testing;
using OrvColor::ColorSpace;
using OrvDoc::LogicalLayerExpression;
using OrvSys::PdfObject;
using testing::HasSubstr;

/// The resources of a file with the layers "a", "b", "c" as objects 3 to 5; further objects are those from 6.
class Resources
{
public:
    explicit Resources(const std::string& entries, const std::vector<std::string>& more = {})
        : file(MakeFile(entries, more)),
          document(file.Get()),
          reader(document, file.GetObject(2).getKey("/Resources"))
    {
        OrvPdf::ErrorList errors(10);
        OrvPdf::ReadLayers(file.GetCatalogue(), document, model->GetLayers(), errors);
    }

    ColorSpace::Pointer Space(const std::string& name) { return reader.FindColorSpace(name, problem); }
    PdfObject State(const std::string& name) { return reader.FindGraphicsState(name, problem); }
    OrvPdf::ContentResources::SizedFont FontOfState(const std::string& name)
    {
        return reader.FindFontOfState(name, problem);
    }
    boost::optional<OrvPdf::ContentResources::PropertyList> List(const std::string& name)
    {
        return reader.FindPropertyList(name, problem);
    }

    /// Prints the expression that a membership dictionary gives.
    std::string Expression(const std::string& name)
    {
        const auto list = List(name);
        if (!list || !list->layer)
            return "none";
        std::ostringstream text;
        text << Text(boost::get<LogicalLayerExpression>(*list->layer));
        return text.str();
    }

    std::string problem;

private:
    static std::string Text(const LogicalLayerExpression& expression)
    {
        static const char* const names[] = {"Layer", "And",   "Or",     "Not",
                                            "AllOn", "AnyOn", "AnyOff", "AllOff"};
        if (expression.GetLayer())
            return expression.GetLayer()->GetName();
        std::string text = names[static_cast<std::size_t>(expression.GetOperation())];
        text += "(";
        for (const LogicalLayerExpression& operand : expression.GetOperands())
            text += (text.back() == '(' ? "" : " ") + Text(operand);
        return text + ")";
    }

    static std::string MakeFile(const std::string& entries, const std::vector<std::string>& more)
    {
        std::vector<std::string> objects = {
            "<< /Type /Catalog /Pages 2 0 R /OCProperties << /OCGs [3 0 R 4 0 R 5 0 R] /D << >> >> >>",
            "<< /Kids [] /Resources << " + entries + " >> >>", "<< /Type /OCG /Name (a) >>",
            "<< /Type /OCG /Name (b) >>", "<< /Type /OCG /Name (c) >>"};
        objects.insert(objects.end(), more.begin(), more.end());
        return PdfFile(objects);
    }

    std::unique_ptr<OrvDoc::Document> model = OrvDoc::Document::CreateNew();
    ReaderTests::OpenedFile file;
    OrvPdf::DocumentResources document;
    OrvPdf::ResourceReader reader;
};

const std::string CalRGB = "[/CalRGB << /WhitePoint [0.9 1 1.1] >>]";

TEST(ResourceReader, FindsAColourSpace)
{
    Resources resources("/ColorSpace << /Cs1 " + CalRGB + " >>");
    ASSERT_TRUE(resources.Space("Cs1"));
    EXPECT_EQ(resources.Space("Cs1")->GetFamily(), ColorSpace::Family::CalRGB);
    EXPECT_EQ(resources.problem, "");
}

TEST(ResourceReader, FindsNamesWithNumberSignsThatBeginNoEscape)
{
    Resources resources("/ColorSpace << /C#1 " + CalRGB + " /C#2342 /DeviceGray >>");
    EXPECT_TRUE(resources.Space("C#1"));
    EXPECT_EQ(resources.Space("C#42"), ColorSpace::DeviceGray());
    EXPECT_FALSE(resources.Space("C#2"));
    EXPECT_NE(resources.problem, "");
}

TEST(ResourceReader, GivesEqualColourSpacesAsOneObject)
{
    Resources resources("/ColorSpace << /Cs1 " + CalRGB + " /Cs2 " + CalRGB + " /Cs3 6 0 R /Cs4 7 0 R >>",
                        {CalRGB, CalRGB});
    EXPECT_EQ(resources.Space("Cs1"), resources.Space("Cs2"));
    EXPECT_EQ(resources.Space("Cs1"), resources.Space("Cs3"));
    EXPECT_EQ(resources.Space("Cs3"), resources.Space("Cs4"));
}

TEST(ResourceReader, FindsDeviceSpacesAndPattern)
{
    Resources resources("");
    EXPECT_EQ(resources.Space("DeviceGray"), ColorSpace::DeviceGray());
    EXPECT_EQ(resources.Space("DeviceRGB"), ColorSpace::DeviceRGB());
    EXPECT_EQ(resources.Space("DeviceCMYK"), ColorSpace::DeviceCMYK());
    EXPECT_EQ(resources.Space("Pattern")->GetFamily(), ColorSpace::Family::Pattern);
    EXPECT_EQ(resources.problem, "");
}

TEST(ResourceReader, LetsADefaultSpaceStandInForADeviceSpace)
{
    Resources resources("/ColorSpace << /DefaultRGB " + CalRGB + " /Alias /DeviceRGB >>");
    EXPECT_EQ(resources.Space("DeviceRGB")->GetFamily(), ColorSpace::Family::CalRGB);
    EXPECT_EQ(resources.Space("Alias")->GetFamily(), ColorSpace::Family::CalRGB);
    EXPECT_EQ(resources.Space("DeviceGray"), ColorSpace::DeviceGray());
    EXPECT_EQ(resources.problem, "");
}

TEST(ResourceReader, TakesADefaultSpaceThatIsTheDeviceSpaceItselfForThat)
{
    Resources resources("/ColorSpace << /DefaultRGB /DeviceRGB >>");
    EXPECT_EQ(resources.Space("DeviceRGB"), ColorSpace::DeviceRGB());
}

TEST(ResourceReader, LeavesOutADefaultSpaceThatDoesNotFit)
{
    Resources resources("/ColorSpace << /DefaultGray " + CalRGB + " >>");
    EXPECT_EQ(resources.Space("DeviceGray"), ColorSpace::DeviceGray());
    EXPECT_THAT(resources.problem, HasSubstr("DefaultGray is left out"));
}

TEST(ResourceReader, LeavesOutADefaultSpaceThatIsMalformed)
{
    Resources resources("/ColorSpace << /DefaultRGB [/CalRGB] >>");
    EXPECT_EQ(resources.Space("DeviceRGB"), ColorSpace::DeviceRGB());
    EXPECT_THAT(resources.problem, HasSubstr("DefaultRGB is left out"));
}

TEST(ResourceReader, TellsWhatIsMissing)
{
    Resources resources("/ColorSpace << >>");
    EXPECT_FALSE(resources.Space("Cs1"));
    EXPECT_THAT(resources.problem, HasSubstr("missing from ColorSpace"));
    EXPECT_TRUE(resources.State("GS1").IsNull());
    EXPECT_THAT(resources.problem, HasSubstr("missing from ExtGState"));
    EXPECT_FALSE(resources.List("MC1"));
    EXPECT_THAT(resources.problem, HasSubstr("missing from Properties"));
}

TEST(ResourceReader, TellsThatThereAreNoResources)
{
    const ReaderTests::OpenedFile file(PdfFileOfPages({""}));
    OrvPdf::DocumentResources document(file.Get());
    OrvPdf::ResourceReader reader(document, QPDFObjectHandle());
    std::string problem;
    EXPECT_FALSE(reader.FindColorSpace("Cs1", problem));
    EXPECT_THAT(problem, HasSubstr("no resources"));
    EXPECT_TRUE(reader.FindColorSpace("DeviceRGB", problem));
}

TEST(ResourceReader, TellsAMalformedColourSpaceEachTime)
{
    Resources resources("/ColorSpace << /Cs1 6 0 R >>", {"[/Indexed]"});
    EXPECT_FALSE(resources.Space("Cs1"));
    EXPECT_NE(resources.problem, "");
    resources.problem.clear();
    EXPECT_FALSE(resources.Space("Cs1"));
    EXPECT_NE(resources.problem, "");
}

TEST(ResourceReader, ResolvesAGraphicsState)
{
    Resources resources("/ExtGState << /GS1 6 0 R >>", {"<< /LW 7 0 R /BM /Multiply >>", "2.5"});
    EXPECT_EQ(resources.State("GS1"),
              PdfObject::Dictionary({{"LW", PdfObject::Real("2.5")}, {"BM", PdfObject::Name("Multiply")}}));
}

TEST(ResourceReader, ResolvesStreamsOfAGraphicsState)
{
    Resources resources("/ExtGState << /GS1 << /TR [6 0 R /Identity] /HT 6 0 R >> >>",
                        {PdfStream("7B7D>", "/Filter /ASCIIHexDecode /FunctionType 4")});
    const PdfObject stream =
        PdfObject::Stream(PdfObject::Dictionary({{"FunctionType", PdfObject::Integer(4)}}), "{}");
    EXPECT_EQ(resources.State("GS1"),
              PdfObject::Dictionary(
                  {{"TR", PdfObject::Array({stream, PdfObject::Name("Identity")})}, {"HT", stream}}));
    EXPECT_EQ(resources.problem, "");
}

TEST(ResourceReader, MarksWhatCannotStandInAGraphicsState)
{
    Resources resources("/ExtGState << /GS1 << /SMask << /G 6 0 R >> /Font [6 0 R 1] /HT 7 0 R /SM 0.1 >>"
                        " /GS2 << /SMask /None >> >>",
                        {"<< >>", "<< /Self 7 0 R >>"});
    const PdfObject unresolved = PdfObject::Name("Unresolved");
    EXPECT_EQ(resources.State("GS1"), PdfObject::Dictionary({{"SMask", unresolved},
                                                             {"Font", unresolved},
                                                             {"HT", unresolved},
                                                             {"SM", PdfObject::Real("0.1")}}));
    EXPECT_EQ(resources.State("GS2"), PdfObject::Dictionary({{"SMask", PdfObject::Name("None")}}));
}

TEST(ResourceReader, TellsAGraphicsStateThatIsNoDictionary)
{
    Resources resources("/ExtGState << /GS1 [1] >>");
    EXPECT_TRUE(resources.State("GS1").IsNull());
    EXPECT_THAT(resources.problem, HasSubstr("no dictionary"));
}

TEST(ResourceReader, FindsTheFontOfAState)
{
    Resources resources(
        "/Font << /F 6 0 R >> /ExtGState << /A << /Font [6 0 R 9.5] >> /B << /Font [6 0 R] >> "
        "/C << /Font [null 9] >> >>",
        {"<< /Type /Font /Subtype /Type1 /BaseFont /Courier >>"});
    const auto sized = resources.FontOfState("A");
    EXPECT_EQ(sized.size, 9.5);
    ASSERT_TRUE(sized.font);
    EXPECT_EQ(sized.font->GetName(), "Courier");
    for (const char* const state : {"B", "C"}) {
        resources.problem.clear();
        EXPECT_FALSE(resources.FontOfState(state).font);
        EXPECT_NE(resources.problem, "");
    }
}

TEST(ResourceReader, FindsAPropertyListWithItsObjectNumber)
{
    Resources resources("/Properties << /MC1 6 0 R /MC2 << /MCID 3 >> >>", {"<< /Lang (en) >>"});
    const auto indirect = resources.List("MC1");
    ASSERT_TRUE(indirect);
    EXPECT_EQ(indirect->objectNumber, 6);
    EXPECT_EQ(indirect->value, PdfObject::Dictionary({{"Lang", PdfObject::String("en")}}));
    EXPECT_FALSE(indirect->layer);
    EXPECT_EQ(resources.List("MC2")->objectNumber, 0);
    EXPECT_EQ(resources.problem, "");
}

TEST(ResourceReader, KnowsALayerByItsObject)
{
    Resources resources("/Properties << /OC1 4 0 R >>");
    const auto list = resources.List("OC1");
    ASSERT_TRUE(list && list->layer);
    EXPECT_EQ(boost::get<std::shared_ptr<OrvDoc::LayerProperties>>(*list->layer)->GetName(), "b");
}

TEST(ResourceReader, TellsALayerThatTheDocumentDoesNotHave)
{
    Resources resources("/Properties << /OC1 6 0 R >>", {"<< /Type /OCG /Name (x) >>"});
    const auto list = resources.List("OC1");
    ASSERT_TRUE(list);
    EXPECT_FALSE(list->layer);
    EXPECT_THAT(resources.problem, HasSubstr("object 6 0 is no layer of the document"));
}

TEST(ResourceReader, ReadsVisibilityPolicies)
{
    Resources resources("/Properties << /A << /Type /OCMD /OCGs 3 0 R >>"
                        " /B << /Type /OCMD /OCGs [3 0 R 4 0 R] /P /AllOn >>"
                        " /C << /Type /OCMD /OCGs [3 0 R] /P /AnyOff >>"
                        " /D << /Type /OCMD /OCGs [3 0 R] /P /AllOff >>"
                        " /E << /Type /OCMD /OCGs [5 0 R] /P /AnyOn >>"
                        " /F << /Type /OCMD >> >>");
    EXPECT_EQ(resources.Expression("A"), "AnyOn(a)");
    EXPECT_EQ(resources.Expression("B"), "AllOn(a b)");
    EXPECT_EQ(resources.Expression("C"), "AnyOff(a)");
    EXPECT_EQ(resources.Expression("D"), "AllOff(a)");
    EXPECT_EQ(resources.Expression("E"), "AnyOn(c)");
    EXPECT_EQ(resources.Expression("F"), "AnyOn()");
    EXPECT_EQ(resources.problem, "");
}

TEST(ResourceReader, ReadsVisibilityExpressions)
{
    Resources resources("/Properties << /A << /Type /OCMD /VE [/And 3 0 R [/Not 4 0 R] [/Or 3 0 R 5 0 R]]"
                        " /OCGs 3 0 R >> >>");
    EXPECT_EQ(resources.Expression("A"), "And(a Not(b) Or(a c))");
    EXPECT_EQ(resources.problem, "");
}

TEST(ResourceReader, FallsBackToThePolicyIfTheExpressionIsMalformed)
{
    for (const char* expression : {"[/Xor 3 0 R]", "[]", "7", "[/Not 3 0 R 4 0 R]", "[/And [/Not]]"}) {
        Resources resources(std::string("/Properties << /A << /Type /OCMD /OCGs 3 0 R /VE ") + expression +
                            " >> >>");
        EXPECT_EQ(resources.Expression("A"), "AnyOn(a)") << expression;
        EXPECT_THAT(resources.problem, HasSubstr("VE")) << expression;
    }
}

TEST(ResourceReader, TellsLayersThatAnExpressionLeavesOut)
{
    Resources unknown("/Properties << /A << /Type /OCMD /OCGs [6 0 R 3 0 R] >> >>", {"<< /Type /OCG >>"});
    EXPECT_EQ(unknown.Expression("A"), "AnyOn(a)");
    EXPECT_THAT(unknown.problem, HasSubstr("object 6 0 is no layer"));
    Resources missing("/Properties << /A << /Type /OCMD /OCGs [null 3 0 R] >> >>");
    EXPECT_EQ(missing.Expression("A"), "AnyOn(a)");
    EXPECT_THAT(missing.problem, HasSubstr("null"));
}

TEST(ResourceReader, BoundsAnExpressionThatIsItsOwnOperand)
{
    Resources resources("/Properties << /A << /Type /OCMD /VE 6 0 R >> >>", {"[/And 6 0 R 6 0 R]"});
    EXPECT_EQ(resources.Expression("A"), "AnyOn()");
    EXPECT_THAT(resources.problem, HasSubstr("nested too deeply or too large"));
}

TEST(ResourceReader, BoundsAnExpressionThatGrowsThroughReferences)
{
    std::vector<std::string> objects;
    for (int number = 7; number < 67; ++number)
        objects.push_back("[/And " + std::to_string(number) + " 0 R " + std::to_string(number) + " 0 R]");
    objects.push_back("[/Not 3 0 R]");
    Resources resources("/Properties << /A << /Type /OCMD /VE 6 0 R >> >>", objects);
    EXPECT_EQ(resources.Expression("A"), "AnyOn()");
    EXPECT_THAT(resources.problem, HasSubstr("nested too deeply or too large"));
}

} // namespace
