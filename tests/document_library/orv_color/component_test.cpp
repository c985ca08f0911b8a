#include <orv_color/component.h>

#include <gtest/gtest.h>

#include <sstream>

namespace OrvColor
{
namespace
{

TEST(ComponentTest, IsZeroWhenDefaultMade)
{
    EXPECT_EQ(Component(), 0.0f);
}

TEST(ComponentTest, ComesFromAFloatAndTurnsIntoOne)
{
    const Component component = 0.25f;
    const float value = component;
    EXPECT_EQ(value, 0.25f);
}

TEST(ComponentTest, VectorReadsAsAnArrayOfFloat)
{
    const std::vector<Component> components = {0.1f, 0.2f, 0.3f, 0.4f};
    const float* values = reinterpret_cast<const float*>(components.data());
    EXPECT_EQ(values[0], 0.1f);
    EXPECT_EQ(values[3], 0.4f);
}

TEST(ComponentTest, PrintsAsAFloat)
{
    std::ostringstream stream;
    stream << Component(0.1f) << ' ' << Component(1.0f);
    EXPECT_EQ(stream.str(), "0.1 1");
}

TEST(ComponentTest, VectorPrintsInBrackets)
{
    std::ostringstream stream;
    stream << std::vector<Component>{0.5f, 0.0f} << std::vector<Component>();
    EXPECT_EQ(stream.str(), "(0.5, 0)()");
}

} // namespace
} // namespace OrvColor
