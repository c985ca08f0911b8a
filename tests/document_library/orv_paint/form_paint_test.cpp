#include <orv_paint/form_paint.h>

#include <gtest/gtest.h>

#include <sstream>
#include <stdexcept>

#include "document_library/orv_doc/nested_makers.h"

namespace OrvPaint
{
namespace
{

using namespace ModelTests;
using OrvDoc::Content;
using Reference = std::pair<boost::filesystem::path, std::size_t>;

class FormPaintTest : public testing::Test
{
protected:
    std::unique_ptr<OrvDoc::Document> document = OrvDoc::Document::CreateNew();
    ContentPointer content = MakeFormContent(*document);
    FormPaint::Factory factory{content};
};

TEST_F(FormPaintTest, BeginsWithItsContentAlone)
{
    const auto form = factory.Get();
    EXPECT_EQ(form->GetType(), Paint::Type::Form);
    EXPECT_EQ(&form->GetContent(), content.get());
    EXPECT_EQ(form->GetSharedContent(), content);
    EXPECT_TRUE(Plexa::IsIdentity(form->GetFormTransformation()));
    EXPECT_TRUE(form->GetFormBBox().isInitial);
    EXPECT_FALSE(form->GetExternalReference());
    EXPECT_FALSE(form->GetScope());
    EXPECT_FALSE(form->GetUniqueID());
}

TEST_F(FormPaintTest, SettersSetTheirField)
{
    const auto form = factory.SetFormTransformation(Scaling(2))
                          .SetFormBBox({1, 2, 3, 4})
                          .SetExternalReference(Reference("other.pdf", 7))
                          .SetScope(FormPaint::Scope::Global)
                          .SetUniqueID(std::string("uuid:1"))
                          .Get();
    EXPECT_EQ(form->GetFormTransformation(), Scaling(2));
    EXPECT_EQ(form->GetFormBBox(), Rectangle(1, 2, 3, 4));
    EXPECT_TRUE(form->GetExternalReference() == Reference("other.pdf", 7));
    EXPECT_TRUE(form->GetScope() == FormPaint::Scope::Global);
    EXPECT_TRUE(form->GetUniqueID() == std::string("uuid:1"));
}

TEST_F(FormPaintTest, AnEmptyIDIsAnID)
{
    EXPECT_TRUE(factory.SetUniqueID(std::string()).Get()->GetUniqueID().has_value());
}

TEST_F(FormPaintTest, HasNoColorants)
{
    AddFilled(*content, MakeBlack());
    EXPECT_EQ(factory.Get()->GetColorants(), OrvColor::ColorList<OrvColor::ColorantPolicy>());
}

TEST_F(FormPaintTest, NeedsAContentOfItsType)
{
    EXPECT_THROW(FormPaint::Factory(ContentPointer{}), std::invalid_argument);
    EXPECT_THROW(factory.SetContent(nullptr), std::invalid_argument);
    for (const auto type : {Content::Type::PageContent, Content::Type::ColoredPatternContent,
                            Content::Type::UncoloredPatternContent, Content::Type::SoftMaskContent})
        EXPECT_THROW(FormPaint::Factory(MakeContent(*document, type)), std::invalid_argument);
}

TEST_F(FormPaintTest, AFactoryOfAFormBeginsWithItsFields)
{
    const auto form = factory.SetUniqueID(std::string("a")).SetScope(FormPaint::Scope::File).Get();
    const ContentPointer other = MakeFormContent(*document);
    const auto changed = FormPaint::Factory(*form).SetContent(other).SetScope(boost::none).Get();
    EXPECT_TRUE(changed->GetUniqueID() == std::string("a"));
    EXPECT_FALSE(changed->GetScope());
    EXPECT_EQ(changed->GetSharedContent(), other);
    EXPECT_TRUE(form->GetScope() == FormPaint::Scope::File);
}

TEST(FormScopeTest, PrintsItsName)
{
    std::ostringstream stream;
    for (std::uint32_t value = 0; value <= 5; ++value)
        stream << static_cast<FormPaint::Scope>(value) << ' ';
    EXPECT_EQ(stream.str(), "Unknown SingleUse Record File Stream Global ");
}

TEST(FormScopeTest, PrintsNothingForAnUnknownValue)
{
    std::ostringstream stream;
    stream << static_cast<FormPaint::Scope>(6);
    EXPECT_EQ(stream.str(), "");
}

} // namespace
} // namespace OrvPaint
