#include <orv_blend/transparency.h>

#include <gtest/gtest.h>

#include <functional>
#include <vector>

namespace OrvBlend
{
namespace
{

using Factory = Transparency::Factory;

TEST(TransparencyTest, DefaultIsOpaque)
{
    const auto& opaque = Factory::GetDefault();
    EXPECT_EQ(opaque->blendMode, BlendMode::Normal);
    EXPECT_EQ(opaque->fillAlpha, 1.0f);
    EXPECT_EQ(opaque->strokeAlpha, 1.0f);
    EXPECT_FALSE(opaque->isolated);
    EXPECT_FALSE(opaque->knockout);
    EXPECT_FALSE(opaque->alphaIsShape);
    EXPECT_EQ(opaque->softMask, nullptr);
}

TEST(TransparencyTest, DefaultIsOneObject)
{
    EXPECT_EQ(&Factory::GetDefault(), &Factory::GetDefault());
    EXPECT_EQ(Factory().Get(), Factory::GetDefault());
    EXPECT_EQ(Factory().SetKnockout(true).SetKnockout(false).Get(), Factory::GetDefault());
}

TEST(TransparencyTest, FactorySetsEachField)
{
    const auto made = Factory()
                          .SetBlendMode(BlendMode::Multiply)
                          .SetFillAlpha(0.25f)
                          .SetStrokeAlpha(0.75f)
                          .SetIsolated(true)
                          .SetKnockout(true)
                          .SetAlphaIsShape(true)
                          .Get();
    EXPECT_EQ(made->blendMode, BlendMode::Multiply);
    EXPECT_EQ(made->fillAlpha, 0.25f);
    EXPECT_EQ(made->strokeAlpha, 0.75f);
    EXPECT_TRUE(made->isolated);
    EXPECT_TRUE(made->knockout);
    EXPECT_TRUE(made->alphaIsShape);
}

TEST(TransparencyTest, FieldsStandInTheOrderOfTheInterface)
{
    const Transparency fields{BlendMode::Screen, 0.1f, 0.2f, true, false, true, nullptr};
    EXPECT_EQ(fields.strokeAlpha, 0.2f);
    EXPECT_TRUE(fields.isolated);
    EXPECT_FALSE(fields.knockout);
    EXPECT_TRUE(fields.alphaIsShape);
}

TEST(TransparencyTest, EachFieldCountsForEquality)
{
    // Any pointer will do, as soft masks are told apart by identity.
    const auto anything = std::make_shared<int>(0);
    const std::shared_ptr<const SoftMask> mask(anything, reinterpret_cast<const SoftMask*>(anything.get()));
    const std::vector<std::function<void(Factory&)>> changes = {
        [](Factory& factory) { factory.SetBlendMode(BlendMode::Hue); },
        [](Factory& factory) { factory.SetFillAlpha(0.5f); },
        [](Factory& factory) { factory.SetStrokeAlpha(0.5f); },
        [](Factory& factory) { factory.SetIsolated(true); },
        [](Factory& factory) { factory.SetKnockout(true); },
        [](Factory& factory) { factory.SetAlphaIsShape(true); },
        [&](Factory& factory) { factory.SetSoftMask(mask); }};
    for (std::size_t index = 0; index < changes.size(); ++index) {
        Factory factory;
        changes[index](factory);
        EXPECT_NE(*factory.Get(), *Factory::GetDefault()) << "change " << index;
        EXPECT_EQ(*factory.Get(), *factory.Get()) << "change " << index;
    }
}

} // namespace
} // namespace OrvBlend
