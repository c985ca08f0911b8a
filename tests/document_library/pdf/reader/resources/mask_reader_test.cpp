// Soft mask dictionaries of small files, as graphics states of pages name them.

#include "pdf/reader/resources/mask_reader.h"

#include <stdexcept>
#include <string>

#include <gmock/gmock.h>

#include <orv_color/color_space.h>
#include <orv_paint/exponential_function.h>
#include <orv_paint/flat_paint.h>

#include "document_library/pdf/reader/nested_files.h"

namespace ReaderTests
{
namespace
{

using HarrowSupport::Testing::PdfStream;
using OrvBlend::SoftMask;
using OrvColor::ColorSpace;
using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

using FunctionPointer = std::shared_ptr<const OrvPaint::Function>;

const std::string square = "0 0 10 10 re f\n";

std::string Group(const std::string& entries = "", const std::string& groupEntries = "/CS /DeviceRGB",
                  const std::string& drawing = "0 0 5 5 re f")
{
    return PdfStream(drawing, "/Subtype /Form /BBox [0 0 50 50] /Group << /S /Transparency " + groupEntries +
                                  " >> " + entries);
}

/// A page with a masked square: the mask is the object 5, its form the object 6.
std::unique_ptr<OrvDoc::Document> PageWith(const std::string& mask, const std::string& form = Group(),
                                           const std::string& content = "/G gs " + square)
{
    return ReadPages({content}, "/ExtGState << /G << /SMask 5 0 R >> /N << /SMask /None >> >>", {mask, form});
}

std::shared_ptr<const SoftMask> MaskWith(const std::string& entries, const std::string& form = Group())
{
    const auto document = PageWith("<< /S /Luminosity /G 6 0 R " + entries + " >>", form);
    for (const std::string& text : ErrorsOfPage(*document))
        ADD_FAILURE() << text;
    // Its drawing isn't looked at, so that the document may go.
    return MaskOf(PathOfPage(*document));
}

std::vector<std::string> ErrorsWith(const std::string& mask, const std::string& form = Group())
{
    const auto document = PageWith(mask, form);
    EXPECT_FALSE(MaskOf(PathOfPage(*document))) << mask;
    return ErrorsOfPage(*document);
}

/// A document as it is saved, and the objects of its file.
class SavedFile
{
public:
    explicit SavedFile(OrvDoc::Document& document)
    {
        const std::string name = folder.NameOf("saved.pdf");
        document.Save(name, OrvDoc::WriteOptions(OrvDoc::WriteOptions::Flavour::Full));
        file.processFile(name.c_str());
    }

    /// The form of the luminosity mask that its page names.
    QPDFObjectHandle FindMaskForm()
    {
        QPDFObjectHandle page = file.getAllPages().at(0);
        QPDFObjectHandle states = page.getKey("/Resources").getKey("/ExtGState");
        for (const std::string& name : states.getKeys()) {
            QPDFObjectHandle mask = states.getKey(name).getKey("/SMask");
            if (mask.isDictionary() && mask.getKey("/S").isNameAndEquals("/Luminosity"))
                return mask.getKey("/G");
        }
        throw std::logic_error("No graphics state has a luminosity mask.");
    }

private:
    HarrowSupport::Testing::TemporaryFolder folder;
    QPDF file;
};

TEST(MaskReader, TellsAlphaFromLuminosity)
{
    const auto alpha = PageWith("<< /S /Alpha /G 6 0 R >>");
    EXPECT_TRUE(MaskOf(PathOfPage(*alpha))->IsAlpha());
    EXPECT_FALSE(MaskWith("")->IsAlpha());
}

TEST(MaskReader, ReadsTheDrawing)
{
    const auto document = PageWith("<< /S /Alpha /G 6 0 R >>");
    const OrvDoc::Content& drawing = MaskOf(PathOfPage(*document))->GetContent();
    EXPECT_EQ(drawing.GetType(), OrvDoc::Content::Type::SoftMaskContent);
    EXPECT_EQ(drawing.GetChildren().first->next, nullptr);
    EXPECT_EQ(*drawing.GetBlendColorSpace().GetColorSpace(), *ColorSpace::DeviceRGB());
    EXPECT_THAT(ErrorsOfPage(*document), IsEmpty());
}

TEST(MaskReader, ReadsBoxAndKnockoutOfTheGroup)
{
    const auto mask = MaskWith("", Group("", "/K true"));
    EXPECT_EQ(mask->GetBoundingBox(), MilliPointBox(0.0, 0.0, 50000.0, 50000.0));
    EXPECT_TRUE(mask->IsKnockout());
    EXPECT_FALSE(MaskWith("", Group())->IsKnockout());
}

TEST(MaskReader, ReadsABackdropInTheColorSpaceOfTheGroup)
{
    const auto mask = MaskWith("/BC [0 0.5 1]");
    ASSERT_TRUE(mask->GetNativeBackdrop());
    EXPECT_EQ(*mask->GetNativeBackdrop()->GetNativeSpace(), *ColorSpace::DeviceRGB());
    EXPECT_EQ(mask->GetNativeBackdrop()->GetNativeComponents(), (std::vector<float>{0.0f, 0.5f, 1.0f}));
    EXPECT_EQ(mask->GetBackdropColor(), mask->GetNativeBackdrop()->GetColor());
}

TEST(MaskReader, ReadsABackdropWithoutColorSpaceByTheNumberOfItsComponents)
{
    EXPECT_EQ(*MaskWith("/BC [0.5]", Group("", ""))->GetNativeBackdrop()->GetNativeSpace(),
              *ColorSpace::DeviceGray());
    EXPECT_EQ(*MaskWith("/BC [0 0 0 1]", Group("", ""))->GetNativeBackdrop()->GetNativeSpace(),
              *ColorSpace::DeviceCMYK());
}

TEST(MaskReader, HasNoBackdropIfNoneIsStated)
{
    const auto mask = MaskWith("");
    EXPECT_FALSE(mask->GetNativeBackdrop());
    EXPECT_TRUE(mask->GetBackdropColor().entries.empty());
}

TEST(MaskReader, TellsAStatedIdentityFromNoTransferFunction)
{
    EXPECT_TRUE(boost::get<bool>(MaskWith("/TR /Identity")->GetTransferFunction()));
    EXPECT_FALSE(boost::get<bool>(MaskWith("")->GetTransferFunction()));
}

TEST(MaskReader, ReadsATransferFunction)
{
    const auto mask = MaskWith("/TR << /FunctionType 2 /Domain [0 1] /N 2 /C0 [1] /C1 [0] >>");
    const auto* const function = boost::get<FunctionPointer>(&mask->GetTransferFunction());
    ASSERT_TRUE(function);
    EXPECT_EQ((*function)->GetType(), OrvPaint::Function::Type::Exponential);
}

TEST(MaskReader, TellsWhatIsMalformedWithTheNameOfTheState)
{
    const auto tellsG = [](const char* reason) {
        return ElementsAre(AllOf(HasSubstr("/G"), HasSubstr(reason)));
    };
    const std::string start = "<< /S /Luminosity /G 6 0 R ";
    EXPECT_THAT(ErrorsWith("<< /G 6 0 R >>"), tellsG("S is neither"));
    EXPECT_THAT(ErrorsWith("<< /S /Other /G 6 0 R >>"), tellsG("S is neither"));
    EXPECT_THAT(ErrorsWith("<< /S /Alpha >>"), tellsG("no form"));
    EXPECT_THAT(ErrorsWith("<< /S /Alpha /G << >> >>"), tellsG("no form"));
    EXPECT_THAT(ErrorsWith(start + "/BC [0] >>"), tellsG("BC"));
    EXPECT_THAT(ErrorsWith(start + "/BC [0 0 /X] >>"), tellsG("entry 3 of BC"));
    EXPECT_THAT(ErrorsWith(start + "/BC 0.5 >>"), tellsG("BC"));
    EXPECT_THAT(ErrorsWith(start + "/BC [0 0] >>", Group("", "")), tellsG("BC"));
    EXPECT_THAT(ErrorsWith(start + "/TR /Other >>"), tellsG("TR"));
    EXPECT_THAT(ErrorsWith(start + "/TR << /FunctionType 9 >> >>"), tellsG("TR"));
    EXPECT_THAT(ErrorsWith(start + "/TR << /FunctionType 2 /Domain [0 1] /N 1 /C0 [0 0] /C1 [1 1] >> >>"),
                tellsG("TR"));
    EXPECT_THAT(ErrorsWith(start + ">>", Group("/Matrix [1 0 0]")), tellsG("Matrix has 3 entries"));
    EXPECT_THAT(ErrorsWith(start + ">>", PdfStream("", "/BBox [0 0 (a) 9]")), tellsG("entry 3 of BBox"));
    EXPECT_THAT(ErrorsWith("5"), ElementsAre(HasSubstr("SMask is malformed")));
    EXPECT_THAT(ErrorsWith("/Other"), ElementsAre(HasSubstr("SMask is malformed")));
}

TEST(MaskReader, HasNoMaskInForceBehindOneThatCannotBeRead)
{
    const auto document =
        ReadPages({"/G gs /B gs " + square}, "/ExtGState << /G << /SMask 5 0 R >> /B << /SMask << >> >> >>",
                  {"<< /S /Alpha /G 6 0 R >>", Group()});
    EXPECT_FALSE(MaskOf(PathOfPage(*document)));
    EXPECT_THAT(ErrorsOfPage(*document), ElementsAre(HasSubstr("/B")));
}

TEST(MaskReader, MakesOneMaskOfADictionaryUnderOneMatrix)
{
    const auto document =
        ReadPages({"/G gs " + square, "/G gs " + square + "2 0 0 2 0 0 cm /G gs " + square},
                  "/ExtGState << /G << /SMask 7 0 R >> >>", {"<< /S /Alpha /G 8 0 R >>", Group()});
    const auto first = MaskOf(PathOfPage(*document, 0, 0));
    const auto scaled = MaskOf(PathOfPage(*document, 1, 1));
    EXPECT_EQ(first, MaskOf(PathOfPage(*document, 0, 1)));
    EXPECT_NE(first, scaled);
    EXPECT_EQ(first->GetSharedContent(), scaled->GetSharedContent());
}

TEST(MaskReader, ReadsADrawingOnceThatSeveralDictionariesShare)
{
    const auto document =
        ReadPages({"/G gs " + square + "/H gs " + square},
                  "/ExtGState << /G << /SMask << /S /Alpha /G 5 0 R >> >> /H << /SMask << /S "
                  "/Luminosity /G 5 0 R >> >> >>",
                  {Group()});
    const auto first = MaskOf(PathOfPage(*document, 0));
    const auto second = MaskOf(PathOfPage(*document, 1));
    EXPECT_TRUE(first->IsAlpha());
    EXPECT_FALSE(second->IsAlpha());
    EXPECT_EQ(first->GetSharedContent(), second->GetSharedContent());
}

TEST(MaskReader, TellsAMaskThatIsDrawnThroughItself)
{
    const auto document =
        PageWith("<< /S /Alpha /G 6 0 R >>",
                 Group("/Resources << /ExtGState << /G << /SMask 5 0 R >> >> >>", "", "/G gs " + square));
    ASSERT_TRUE(MaskOf(PathOfPage(*document)));
    EXPECT_THAT(ErrorsOfPage(*document),
                ElementsAre(AllOf(HasSubstr("soft mask 6 0"), HasSubstr("inside of itself"))));
}

// Dictionaries that stand in the states themselves have no number to be known by: a drawing that sets itself
// twice was once read two to the power of the nesting limit times.
TEST(MaskReader, TellsAMaskThatIsDrawnThroughItselfByDictionariesOfNoObject)
{
    const std::string states = "/ExtGState << /G << /SMask << /S /Alpha /G 5 0 R >> >> /H << /SMask << /S "
                               "/Luminosity /G 5 0 R >> >> >>";
    const auto document =
        ReadPages({"/G gs " + square}, states,
                  {Group("/Resources << " + states + " >>", "", "/G gs " + square + "/H gs " + square)});
    ASSERT_TRUE(MaskOf(PathOfPage(*document)));
    EXPECT_THAT(ErrorsOfPage(*document),
                ElementsAre(HasSubstr("inside of itself"), HasSubstr("inside of itself")));
}

TEST(MaskReader, KeepsTextInADrawingWhenThePageIsWrittenAnew)
{
    const auto document = PageWith("<< /S /Luminosity /G 6 0 R >>",
                                   Group("", "/CS /DeviceRGB", "BT /T 9 Tf (kept) Tj ET " + square));
    ContentOfPage(*document).MarkChanged();
    SavedFile saved(*document);
    const auto data = saved.FindMaskForm().getStreamData();
    const std::string bytes(reinterpret_cast<const char*>(data->getBuffer()), data->getSize());
    EXPECT_THAT(bytes, HasSubstr("(kept) Tj"));
}

TEST(MaskReader, TellsALayerOfTheDrawing)
{
    const auto document = PageWith("<< /S /Luminosity /G 6 0 R >>", Group("/OC << /Type /OCG /Name (a) >>"));
    EXPECT_TRUE(MaskOf(PathOfPage(*document)));
    EXPECT_THAT(ErrorsOfPage(*document),
                ElementsAre(AllOf(HasSubstr("soft mask 6 0"), HasSubstr("OC is left out"))));
}

TEST(MaskReader, KeepsALayerOfTheDrawingWhenThePageIsWrittenAnew)
{
    const auto document = PageWith("<< /S /Luminosity /G 6 0 R >>", Group("/OC << /Type /OCG /Name (a) >>"));
    ContentOfPage(*document).MarkChanged();
    SavedFile saved(*document);
    EXPECT_TRUE(saved.FindMaskForm().getDict().getKey("/OC").isDictionary());
}

TEST(MaskReader, KeepsALayerOfADrawingThatIsChanged)
{
    const auto document = PageWith("<< /S /Luminosity /G 6 0 R >>", Group("/OC << /Type /OCG /Name (a) >>"));
    const auto mask = MaskOf(PathOfPage(*document));
    const_cast<OrvDoc::Content&>(mask->GetContent()).MarkChanged();
    ContentOfPage(*document).MarkChanged();
    SavedFile saved(*document);
    EXPECT_TRUE(saved.FindMaskForm().getDict().getKey("/OC").isDictionary());
}

TEST(MaskReader, ComesBackEquallyWithAMaskThatIsDrawnThroughItself)
{
    const auto document =
        PageWith("<< /S /Alpha /G 6 0 R >>",
                 Group("/Resources << /ExtGState << /G << /SMask 5 0 R >> >> >>", "", "/G gs " + square));
    ContentOfPage(*document).MarkChanged();
    const auto back = SavedAndRead(*document);
    const auto mask = MaskOf(PathOfPage(*back));
    ASSERT_TRUE(mask);
    EXPECT_FALSE(MaskOf(PathOf(mask->GetContent())));
}

} // namespace
} // namespace ReaderTests
