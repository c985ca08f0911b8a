#include "pdf/text_line.h"

#include <gtest/gtest.h>

namespace OrvPdf
{
namespace
{

void ExpectNear(const TextMatrix& left, const TextMatrix& right)
{
    EXPECT_NEAR(left.a, right.a, 1e-9);
    EXPECT_NEAR(left.b, right.b, 1e-9);
    EXPECT_NEAR(left.c, right.c, 1e-9);
    EXPECT_NEAR(left.d, right.d, 1e-9);
    EXPECT_NEAR(left.x.value, right.x.value, 1e-6);
    EXPECT_NEAR(left.y.value, right.y.value, 1e-6);
}

TEST(TextLine, LeadsBackToItsMatrix)
{
    const TextMatrix matrices[] = {{1, 0, 0, 1, 0, 0},
                                   {2, 0, 0, 3, 4000, 5000},
                                   {1, 2, -3, 4, 5000, -6000},
                                   {0, 1, -1, 0, 7, 8},
                                   {0.5, 0.25, 2, -1.5, 10, 20}};
    for (const TextMatrix& line : matrices) {
        for (const TextMatrix& text : matrices) {
            const auto found = FindTextLine(line, text);
            ASSERT_TRUE(found);
            ExpectNear(GetLineMatrix(*found, text), line);
        }
    }
}

TEST(TextLine, OfTheSameAxesHasThoseOfTheIdentity)
{
    const auto found = FindTextLine({0.1, 0.7, -0.3, 0.9, 1, 2}, {0.1, 0.7, -0.3, 0.9, 3, 4});
    ASSERT_TRUE(found);
    EXPECT_EQ(found->a, 1.0);
    EXPECT_EQ(found->b, 0.0);
    EXPECT_EQ(found->c, 0.0);
    EXPECT_EQ(found->d, 1.0);
}

TEST(TextLine, IsInPoints)
{
    const auto found = FindTextLine({2, 0, 0, 4, 7000, 9000}, {2, 0, 0, 4, 1000, 1000});
    ASSERT_TRUE(found);
    EXPECT_EQ(found->x, 3.0);
    EXPECT_EQ(found->y, 2.0);
}

TEST(TextLine, IsMissingWhereNothingFiniteLeadsThere)
{
    EXPECT_FALSE(FindTextLine({1, 0, 0, 1, 0, 0}, {1, 2, 2, 4, 0, 0}));
    EXPECT_FALSE(FindTextLine({1, 0, 0, 1, 0, 0}, {0, 0, 0, 0, 0, 0}));
    EXPECT_FALSE(FindTextLine({1e300, 0, 0, 1, 0, 0}, {1e-100, 0, 0, 1e100, 0, 0}));
}

} // namespace
} // namespace OrvPdf
