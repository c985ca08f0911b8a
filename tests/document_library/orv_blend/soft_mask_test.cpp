#include <orv_blend/soft_mask.h>

#include <gtest/gtest.h>

#include <stdexcept>

#include <orv_paint/exponential_function.h>

#include "document_library/orv_doc/nested_makers.h"

namespace OrvBlend
{
namespace
{

using namespace ModelTests;
using OrvColor::ColorSpace;
using OrvDoc::Content;
using Color = OrvColor::ColorList<OrvColor::ColorPolicy>;
using FunctionPointer = std::shared_ptr<const OrvPaint::Function>;

class SoftMaskTest : public testing::Test
{
protected:
    std::unique_ptr<OrvDoc::Document> document = OrvDoc::Document::CreateNew();
    ContentPointer content = MakeMaskContent(*document);
    SoftMask::Factory factory{content};
};

TEST_F(SoftMaskTest, BeginsAsALuminosityMaskOnBlack)
{
    const auto mask = factory.Get();
    EXPECT_EQ(&mask->GetContent(), content.get());
    EXPECT_TRUE(Plexa::IsIdentity(mask->GetTransformation()));
    EXPECT_TRUE(mask->GetBoundingBox().isInitial);
    EXPECT_EQ(mask->GetBackdropColor(), Color());
    EXPECT_EQ(mask->GetNativeBackdrop(), nullptr);
    EXPECT_EQ(mask->GetTransferFunction(), SoftMask::TransferFunction(false));
    EXPECT_FALSE(mask->IsAlpha());
    EXPECT_FALSE(mask->IsKnockout());
}

TEST_F(SoftMaskTest, SettersSetTheirField)
{
    const FunctionPointer function = OrvPaint::ExponentialFunction::Factory({0.0f}, {1.0f}, 1.0).Get();
    const Color backdrop{{{0.5f, "Black"}}, 0.0f, false, false};
    const auto mask = factory.SetTransformation(Scaling(2))
                          .SetBoundingBox({1, 2, 3, 4})
                          .SetBackdropColor(backdrop)
                          .SetAlpha(true)
                          .SetTransferFunction(function)
                          .SetKnockout(true)
                          .Get();
    EXPECT_EQ(mask->GetTransformation(), Scaling(2));
    EXPECT_EQ(mask->GetBoundingBox(), Rectangle(1, 2, 3, 4));
    EXPECT_EQ(mask->GetBackdropColor(), backdrop);
    EXPECT_EQ(mask->GetTransferFunction(), SoftMask::TransferFunction(function));
    EXPECT_TRUE(mask->IsAlpha());
    EXPECT_TRUE(mask->IsKnockout());
}

TEST_F(SoftMaskTest, ABackdropOfAFileIsKeptAsGivenAndAsAList)
{
    const auto paint = OrvPaint::FlatPaint::Factory(ColorSpace::DeviceGray(), {0.25f}, false, false).Get();
    const auto mask = factory.SetBackdropColor(paint).Get();
    EXPECT_EQ(mask->GetNativeBackdrop(), paint);
    EXPECT_EQ(mask->GetBackdropColor(), paint->GetColor());
}

TEST_F(SoftMaskTest, TheLastBackdropCounts)
{
    const auto paint = OrvPaint::FlatPaint::Factory(ColorSpace::DeviceGray(), {0.25f}, false, false).Get();
    const Color list{{{0.5f, "Gold"}}, 0.0f, false, false};
    const auto ofList = factory.SetBackdropColor(paint).SetBackdropColor(list).Get();
    EXPECT_EQ(ofList->GetNativeBackdrop(), nullptr);
    EXPECT_EQ(ofList->GetBackdropColor(), list);
    const auto none = factory.SetBackdropColor(std::shared_ptr<const OrvPaint::FlatPaint>()).Get();
    EXPECT_EQ(none->GetBackdropColor(), Color());
}

TEST_F(SoftMaskTest, TheIdentityMayBeStated)
{
    EXPECT_EQ(factory.SetTransferFunction(true).Get()->GetTransferFunction(),
              SoftMask::TransferFunction(true));
}

TEST_F(SoftMaskTest, RefusesANullFunction)
{
    EXPECT_THROW(factory.SetTransferFunction(FunctionPointer()), std::invalid_argument);
    EXPECT_EQ(factory.Get()->GetTransferFunction(), SoftMask::TransferFunction(false));
}

TEST_F(SoftMaskTest, NeedsAContentOfItsType)
{
    EXPECT_THROW(SoftMask::Factory(ContentPointer{}), std::invalid_argument);
    for (const auto type : {Content::Type::PageContent, Content::Type::FormContent,
                            Content::Type::ColoredPatternContent, Content::Type::UncoloredPatternContent}) {
        EXPECT_THROW(SoftMask::Factory(MakeContent(*document, type)), std::invalid_argument);
        EXPECT_THROW(factory.SetContent(MakeContent(*document, type)), std::invalid_argument);
    }
    EXPECT_EQ(&factory.Get()->GetContent(), content.get());
}

TEST_F(SoftMaskTest, AFactoryOfAMaskBeginsWithItsFields)
{
    const auto mask = factory.SetAlpha(true).SetTransformation(Scaling(2)).Get();
    const ContentPointer other = MakeMaskContent(*document);
    const auto changed = SoftMask::Factory(*mask).SetContent(other).Get();
    EXPECT_TRUE(changed->IsAlpha());
    EXPECT_EQ(changed->GetTransformation(), Scaling(2));
    EXPECT_EQ(changed->GetSharedContent(), other);
    EXPECT_EQ(mask->GetSharedContent(), content);
}

TEST_F(SoftMaskTest, EachIsAnObjectOfItsOwn)
{
    EXPECT_NE(factory.Get(), factory.Get());
}

} // namespace
} // namespace OrvBlend
