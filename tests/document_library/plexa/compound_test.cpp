#include <memory>

#include <gtest/gtest.h>

#include <plexa/compound_builder.h>

namespace
{

using Plexa::Compound;
using Plexa::CompoundBuilder;
using Plexa::WindingRule;

std::shared_ptr<const Compound> MakeTwoRectangles(WindingRule rule, double lastHeight = 5.0)
{
    CompoundBuilder builder;
    builder.AddRectangle(0, 0, 10, 10);
    builder.AddRectangle(2, 2, 5, lastHeight);
    return builder.Finish(rule);
}

TEST(PlexaCompound, WindingRulesHaveFixedNumbers)
{
    EXPECT_EQ(static_cast<int>(WindingRule::EvenOdd), 0);
    EXPECT_EQ(static_cast<int>(WindingRule::NonZero), 1);
}

TEST(PlexaCompound, EqualityComparesRuleAndSubpaths)
{
    const auto compound = MakeTwoRectangles(WindingRule::NonZero);
    EXPECT_TRUE(*compound == *MakeTwoRectangles(WindingRule::NonZero));
    EXPECT_TRUE(*compound != *MakeTwoRectangles(WindingRule::EvenOdd));
    EXPECT_TRUE(*compound != *MakeTwoRectangles(WindingRule::NonZero, 5.5));
}

TEST(PlexaCompound, EqualityComparesTheNumberOfSubpaths)
{
    const auto compound = MakeTwoRectangles(WindingRule::NonZero);
    const Compound shorter({compound->GetSubpaths().front()}, WindingRule::NonZero);
    EXPECT_TRUE(shorter != *compound);
    EXPECT_TRUE(*compound != shorter);
}

TEST(PlexaCompound, OtherWindingRuleSharesTheSubpaths)
{
    const auto compound = MakeTwoRectangles(WindingRule::NonZero);
    const auto other = Plexa::WithWindingRule(compound, WindingRule::EvenOdd);
    EXPECT_EQ(other->GetWindingRule(), WindingRule::EvenOdd);
    EXPECT_EQ(other->GetSubpaths(), compound->GetSubpaths());
    EXPECT_EQ(compound->GetWindingRule(), WindingRule::NonZero);
}

TEST(PlexaCompound, SameWindingRuleIsTheSameShape)
{
    const auto compound = MakeTwoRectangles(WindingRule::NonZero);
    EXPECT_EQ(Plexa::WithWindingRule(compound, WindingRule::NonZero), compound);
}

TEST(PlexaCompound, OtherWindingRuleOfNullIsNull)
{
    EXPECT_EQ(Plexa::WithWindingRule(nullptr, WindingRule::NonZero), nullptr);
}

} // namespace
