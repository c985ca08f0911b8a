#include <orv_paint/pattern_paint.h>

#include <gtest/gtest.h>

#include <stdexcept>

#include "document_library/orv_doc/nested_makers.h"

namespace OrvPaint
{
namespace
{

using namespace ModelTests;
using OrvDoc::Content;
using Color = OrvColor::ColorList<OrvColor::ColorPolicy>;
using Colorants = OrvColor::ColorList<OrvColor::ColorantPolicy>;
using Dimension = Plexa::DimensionBase<Plexa::MilliPointCoordinateSystem>;

const Color gold{{{0.5f, "Gold"}}, 0.0f, true, false};

class PatternPaintTest : public testing::Test
{
protected:
    std::unique_ptr<OrvDoc::Document> document = OrvDoc::Document::CreateNew();
    ContentPointer colored = MakeCell(*document);
    ContentPointer uncolored = MakeContent(*document, Content::Type::UncoloredPatternContent);
};

TEST_F(PatternPaintTest, BeginsWithItsCellAlone)
{
    const auto pattern = PatternPaint::Factory(colored).Get();
    EXPECT_EQ(pattern->GetType(), Paint::Type::TilingPattern);
    EXPECT_EQ(&pattern->GetContent(), colored.get());
    EXPECT_TRUE(Plexa::IsIdentity(pattern->GetTransformation()));
    EXPECT_TRUE(pattern->GetCellClip().isInitial);
    EXPECT_EQ(pattern->GetStep(), Dimension());
    EXPECT_FALSE(pattern->GetColor());
    EXPECT_EQ(pattern->GetNativeColor(), nullptr);
    EXPECT_EQ(pattern->GetTilingType(), PatternPaint::TilingType::ConstantSpacing);
}

TEST_F(PatternPaintTest, SettersSetTheirField)
{
    const auto pattern = PatternPaint::Factory(colored)
                             .SetTransformation(Scaling(2))
                             .SetCellClip({1, 2, 3, 4})
                             .SetStep({5, -6})
                             .SetTilingType(PatternPaint::TilingType::NoDistortion)
                             .Get();
    EXPECT_EQ(pattern->GetTransformation(), Scaling(2));
    EXPECT_EQ(pattern->GetCellClip(), Rectangle(1, 2, 3, 4));
    EXPECT_EQ(pattern->GetStep(), Dimension(5, -6));
    EXPECT_EQ(pattern->GetTilingType(), PatternPaint::TilingType::NoDistortion);
}

TEST_F(PatternPaintTest, AColoredOneHasNoColorants)
{
    AddFilled(*colored, MakeBlack());
    EXPECT_EQ(PatternPaint::Factory(colored).Get()->GetColorants(), Colorants());
}

TEST_F(PatternPaintTest, AnUncoloredOneHasTheColorantsOfItsColor)
{
    const auto pattern = PatternPaint::Factory(uncolored).SetColor(gold).Get();
    EXPECT_TRUE(pattern->GetColor() == gold);
    EXPECT_EQ(pattern->GetColorants(), (Colorants{{{{}, "Gold"}}, {}, true, false}));
}

TEST_F(PatternPaintTest, AColorOfAFileIsKeptAsGivenAndAsAList)
{
    const auto paint = FlatPaint::Factory(OrvColor::ColorSpace::DeviceGray(), {0.25f}, false, false).Get();
    const auto pattern = PatternPaint::Factory(uncolored).SetColor(paint).Get();
    EXPECT_EQ(pattern->GetNativeColor(), paint);
    EXPECT_TRUE(pattern->GetColor() == paint->GetColor());
    const auto ofList = PatternPaint::Factory(*pattern).SetColor(gold).Get();
    EXPECT_EQ(ofList->GetNativeColor(), nullptr);
    EXPECT_TRUE(ofList->GetColor() == gold);
}

TEST_F(PatternPaintTest, ColorAndCellMustFit)
{
    EXPECT_THROW(PatternPaint::Factory(uncolored).Get(), std::invalid_argument);
    EXPECT_THROW(PatternPaint::Factory(colored).SetColor(gold).Get(), std::invalid_argument);
    PatternPaint::Factory factory(uncolored);
    factory.SetColor(gold).SetContent(colored).SetColor(std::shared_ptr<const FlatPaint>());
    EXPECT_FALSE(factory.Get()->GetColor());
}

TEST_F(PatternPaintTest, NeedsACellOfItsTypes)
{
    EXPECT_THROW(PatternPaint::Factory(ContentPointer{}), std::invalid_argument);
    for (const auto type :
         {Content::Type::PageContent, Content::Type::FormContent, Content::Type::SoftMaskContent})
        EXPECT_THROW(PatternPaint::Factory(MakeContent(*document, type)), std::invalid_argument);
}

TEST_F(PatternPaintTest, AFactoryOfAPatternBeginsWithItsFields)
{
    const auto pattern = PatternPaint::Factory(colored).SetStep({5, 6}).Get();
    const auto changed = PatternPaint::Factory(*pattern).SetTransformation(Scaling(2)).Get();
    EXPECT_EQ(changed->GetStep(), Dimension(5, 6));
    EXPECT_EQ(changed->GetSharedContent(), colored);
    EXPECT_TRUE(Plexa::IsIdentity(pattern->GetTransformation()));
}

} // namespace
} // namespace OrvPaint
