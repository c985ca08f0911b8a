#include <orv_color/icc_profile.h>

#include <gtest/gtest.h>

#include <stdexcept>

namespace OrvColor
{
namespace
{

std::string MakeBytes(const std::string& colorSpace, std::size_t size = 128)
{
    std::string bytes(size, '\0');
    bytes.replace(16, 4, colorSpace);
    return bytes;
}

TEST(ICCProfileTest, CountsComponentsByItsSignature)
{
    EXPECT_EQ(ICCProfile(MakeBytes("GRAY")).GetComponentCount(), 1u);
    EXPECT_EQ(ICCProfile(MakeBytes("RGB ")).GetComponentCount(), 3u);
    EXPECT_EQ(ICCProfile(MakeBytes("Lab ")).GetComponentCount(), 3u);
    EXPECT_EQ(ICCProfile(MakeBytes("CMYK")).GetComponentCount(), 4u);
    EXPECT_EQ(ICCProfile(MakeBytes("6CLR")).GetComponentCount(), 6u);
    EXPECT_EQ(ICCProfile(MakeBytes("FCLR")).GetComponentCount(), 15u);
}

TEST(ICCProfileTest, TellsItsSignature)
{
    EXPECT_EQ(ICCProfile(MakeBytes("RGB ")).GetDataColorSpace(), "RGB ");
}

TEST(ICCProfileTest, RefusesLessThanAHeader)
{
    EXPECT_NO_THROW(ICCProfile(MakeBytes("RGB ", 128)));
    EXPECT_THROW(ICCProfile(MakeBytes("RGB ", 127)), std::invalid_argument);
    EXPECT_THROW(ICCProfile(""), std::invalid_argument);
}

TEST(ICCProfileTest, RefusesAnUnknownColourSpace)
{
    EXPECT_THROW(ICCProfile(MakeBytes("rgb ")), std::invalid_argument);
}

TEST(ICCProfileTest, IsEqualByItsBytes)
{
    const std::string bytes = MakeBytes("RGB ", 200);
    std::string other = bytes;
    other.back() = 'x';
    EXPECT_EQ(ICCProfile(bytes), ICCProfile(bytes));
    EXPECT_NE(ICCProfile(bytes), ICCProfile(other));
    EXPECT_NE(ICCProfile(bytes), ICCProfile(bytes + '\0'));
    EXPECT_NE(ICCProfile(bytes).GetDigest(), ICCProfile(other).GetDigest());
}

} // namespace
} // namespace OrvColor
