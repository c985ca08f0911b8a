#include <gtest/gtest.h>

#include <orv_doc/content.h>

#include "document_library/pdf/reader/interpreter_test_support.h"
#include "pdf/reader/content/foreign_parameters.h"
#include "pdf/reader/content/inherited_parameters.h"

namespace
{

using OrvPdf::ForeignParameterCache;
using OrvPdf::ForeignParameters;
using OrvPdf::Testing::Reading;
using OrvSys::PdfObject;

const std::string line = " 0 0 m 1 0 l S ";

/// The foreign parameters of each object at the top of the content; a bar in front of each.
std::string ForeignOf(const Reading& reading)
{
    std::string text;
    for (const OrvDoc::ContentObject* object = reading.content->GetChildren().first; object;
         object = object->next) {
        const PdfObject* const found =
            reading.result.foreign ? reading.result.foreign->Find(object->GetID()) : nullptr;
        text += "|" + (found ? found->Serialize() : std::string());
    }
    return text;
}

std::string ForeignIn(const std::string& stream)
{
    Reading reading;
    reading.resources.states["On"] =
        PdfObject::Dictionary({{"SA", PdfObject::Boolean(true)}, {"SM", PdfObject::Real("0.02")}});
    reading.resources.states["Off"] = PdfObject::Dictionary({{"SA", PdfObject::Boolean(false)}});
    reading.Read(stream);
    EXPECT_FALSE(reading.result.hasUnmodelled);
    EXPECT_TRUE(reading.result.errors.empty());
    return ForeignOf(reading);
}

TEST(ForeignParameters, BelongToTheObjectsBehindTheirOperator)
{
    EXPECT_EQ(ForeignIn(line + "/On gs" + line), "||<</SA true /SM 0.02>>");
}

TEST(ForeignParameters, BelongToTheStateThatIsSaved)
{
    EXPECT_EQ(ForeignIn("q /On gs" + line + "Q" + line), "|<</SA true /SM 0.02>>|");
}

TEST(ForeignParameters, InitialValuesTakeThemBackOnAPage)
{
    EXPECT_EQ(ForeignIn("/On gs /Off gs" + line), "|<</SM 0.02>>");
    EXPECT_EQ(ForeignIn("/Off gs" + line), "|");
}

TEST(ForeignParameters, InitialValuesCountInsideOfOtherContents)
{
    Reading reading;
    reading.resources.states["Off"] = PdfObject::Dictionary({{"SA", PdfObject::Boolean(false)}});
    const OrvPdf::GraphicsState state = OrvPdf::BeginForm(OrvPdf::BeginPage(), false);
    reading.content =
        std::make_unique<OrvDoc::Content>(*reading.document, OrvDoc::Content::Type::FormContent);
    reading.result = OrvPdf::InterpretContent("/Off gs" + line, reading.resources, reading.limits,
                                              *reading.content, {&state, reading.box, {}});
    EXPECT_EQ(ForeignOf(reading), "|<</SA false>>");
}

TEST(ForeignParameters, IntentAndFlatnessComeFromOperatorsToo)
{
    EXPECT_EQ(ForeignIn("/Perceptual ri 50 i" + line), "|<</FL 50 /RI /Perceptual>>");
    EXPECT_EQ(ForeignIn("/Perceptual ri 50 i /RelativeColorimetric ri 1 i" + line), "|");
}

TEST(ForeignParameters, ObjectsUnderEqualOnesShareThem)
{
    Reading reading;
    reading.resources.states["On"] = PdfObject::Dictionary({{"SA", PdfObject::Boolean(true)}});
    reading.Read("/On gs" + line + "/On gs" + line);
    EXPECT_EQ(ForeignOf(reading), "|<</SA true>>|<</SA true>>");
    const auto& children = reading.content->GetChildren();
    EXPECT_EQ(reading.result.foreign->Find(children.first->GetID()),
              reading.result.foreign->Find(children.last->GetID()));
}

ForeignParameters Changed(ForeignParameterCache& cache, ForeignParameters parameters,
                          const PdfObject::Entries& changes)
{
    EXPECT_TRUE(cache.Change(parameters, changes));
    return parameters;
}

TEST(ForeignParameters, OneKeyTakesThePlaceOfItsTwin)
{
    ForeignParameterCache cache;
    const ForeignParameters first = Changed(cache, nullptr, {{"BG", PdfObject::Integer(1)}});
    const ForeignParameters second = Changed(cache, first, {{"BG2", PdfObject::Integer(2)}});
    EXPECT_EQ(second->Serialize(), "<</BG2 2>>");
    EXPECT_EQ(Changed(cache, second, {{"BG", PdfObject::Null()}}), nullptr);
}

TEST(ForeignParameters, EqualOnesAreOneObject)
{
    ForeignParameterCache cache;
    const ForeignParameters first = Changed(cache, nullptr, {{"SM", PdfObject::Integer(1)}});
    const ForeignParameters other = Changed(cache, nullptr, {{"SM", PdfObject::Integer(0)}});
    EXPECT_NE(first, other);
    EXPECT_EQ(Changed(cache, other, {{"SM", PdfObject::Integer(1)}}), first);
    EXPECT_EQ(Changed(cache, first, {{"SM", PdfObject::Integer(1)}}), first);
}

TEST(ForeignParameters, AreNoMoreInASetThanAFewDozens)
{
    ForeignParameterCache cache;
    PdfObject::Entries many;
    for (std::size_t index = 0; index < ForeignParameterCache::maximumParameters; ++index) {
        many["K" + std::to_string(index)] = PdfObject::Integer(1);
    }
    ForeignParameters parameters = Changed(cache, nullptr, many);
    const ForeignParameters before = parameters;
    EXPECT_FALSE(cache.Change(parameters, {{"L", PdfObject::Integer(1)}}));
    EXPECT_EQ(parameters, before);
}

TEST(ForeignParameters, MoreSetsThanAnyContentNeedsAreTold)
{
    std::string stream;
    for (std::size_t index = 0; index <= ForeignParameterCache::maximumSets; ++index) {
        stream += std::to_string(2.0 + 0.001 * static_cast<double>(index)) + " i ";
    }
    Reading reading;
    reading.Read(stream + line);
    EXPECT_TRUE(reading.result.hasUnmodelled);
    ASSERT_EQ(reading.result.errors.size(), 1U);
    EXPECT_NE(reading.result.errors[0].find("too many parameters"), std::string::npos);
}

} // namespace
