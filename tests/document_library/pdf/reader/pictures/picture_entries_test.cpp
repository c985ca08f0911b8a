#include "pdf/reader/pictures/picture_entries.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace
{

using OrvColor::RenderingIntent;
using OrvPdf::PictureEntries;
using OrvSys::PdfObject;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

struct Reading
{
    PictureEntries entries;
    std::vector<std::string> problems;
};

PdfObject Integers(const std::vector<int>& values)
{
    PdfObject::Items items;
    for (const int value : values)
        items.push_back(PdfObject::Integer(value));
    return PdfObject::Array(std::move(items));
}

/// A dictionary of a picture of 3 by 2 pixels with these entries besides.
Reading Read(PdfObject::Entries entries)
{
    entries.emplace("Width", PdfObject::Integer(3));
    entries.emplace("Height", PdfObject::Integer(2));
    Reading reading;
    reading.entries = OrvPdf::ReadPictureEntries(PdfObject::Dictionary(std::move(entries)), reading.problems);
    return reading;
}

std::string FailureOf(const PdfObject::Entries& entries)
{
    std::vector<std::string> problems;
    try {
        OrvPdf::ReadPictureEntries(PdfObject::Dictionary(entries), problems);
    } catch (const std::invalid_argument& failure) {
        return failure.what();
    }
    return "none";
}

TEST(PictureEntries, AWidthAndAHeightAreRead)
{
    const Reading reading = Read({});
    EXPECT_EQ(reading.entries.width, 3u);
    EXPECT_EQ(reading.entries.height, 2u);
    EXPECT_THAT(reading.problems, IsEmpty());
}

TEST(PictureEntries, APictureWithoutAWidthIsRefused)
{
    EXPECT_THAT(FailureOf({{"Height", PdfObject::Integer(1)}}), HasSubstr("Width"));
}

TEST(PictureEntries, APictureWithoutAHeightIsRefused)
{
    EXPECT_THAT(FailureOf({{"Width", PdfObject::Integer(1)}}), HasSubstr("Height"));
}

TEST(PictureEntries, AHeightOfZeroIsRefused)
{
    EXPECT_THAT(FailureOf({{"Width", PdfObject::Integer(1)}, {"Height", PdfObject::Integer(0)}}),
                HasSubstr("Height"));
}

TEST(PictureEntries, AWidthBeyondThirtyOneBitsIsRefused)
{
    const auto height = std::make_pair(std::string("Height"), PdfObject::Integer(1));
    EXPECT_EQ(FailureOf({{"Width", PdfObject::Integer(2147483647)}, height}), "none");
    EXPECT_THAT(FailureOf({{"Width", PdfObject::Integer(2147483648)}, height}), HasSubstr("Width"));
}

TEST(PictureEntries, AMissingDepthIsZero)
{
    EXPECT_EQ(Read({}).entries.bits, 0u);
    EXPECT_EQ(Read({{"BitsPerComponent", PdfObject::Integer(4)}}).entries.bits, 4u);
}

TEST(PictureEntries, AColorKeyIsRangesOfSamples)
{
    const Reading reading = Read({{"Mask", Integers({1, 2, 0, 255})}});
    ASSERT_THAT(reading.entries.colorKey, SizeIs(2));
    EXPECT_THAT(reading.entries.colorKey[0], ElementsAre(1u, 2u));
    EXPECT_THAT(reading.entries.colorKey[1], ElementsAre(0u, 255u));
}

TEST(PictureEntries, AColorKeyThatFallsIsLeftOutAndTold)
{
    const Reading reading = Read({{"Mask", Integers({2, 1})}});
    EXPECT_THAT(reading.entries.colorKey, IsEmpty());
    EXPECT_THAT(reading.problems, ElementsAre(HasSubstr("Mask")));
}

TEST(PictureEntries, AnIntentOfItsOwnIsRead)
{
    EXPECT_TRUE(Read({{"Intent", PdfObject::Name("Saturation")}}).entries.intent ==
                RenderingIntent::Saturation);
    EXPECT_FALSE(Read({}).entries.intent);
}

TEST(PictureEntries, AnUnknownIntentIsTold)
{
    const Reading reading = Read({{"Intent", PdfObject::Name("Pretty")}});
    EXPECT_FALSE(reading.entries.intent);
    EXPECT_THAT(reading.problems, ElementsAre(HasSubstr("Pretty")));
}

TEST(PictureEntries, ADecodeWithSomethingThatIsNoNumberIsLeftOutAndTold)
{
    const Reading reading =
        Read({{"Decode", PdfObject::Array({PdfObject::Integer(1), PdfObject::Name("x")})}});
    EXPECT_THAT(reading.entries.decode, IsEmpty());
    EXPECT_THAT(reading.problems, ElementsAre(HasSubstr("Decode")));
}

TEST(PictureEntries, ResolutionsAreRead)
{
    EXPECT_THAT(Read({{"OrvDpi", Integers({300, 150})}}).entries.dpi, ElementsAre(300.0, 150.0));
    EXPECT_THAT(Read({}).entries.dpi, ElementsAre(0.0, 0.0));
}

TEST(PictureEntries, ALinkIsTheFileOfItsVersion)
{
    const PdfObject version = PdfObject::Dictionary({{"F", PdfObject::String("fine.tif")}});
    for (const char* const name : {"1.3", "2.0"}) {
        const PdfObject versions = PdfObject::Dictionary({{name, version}});
        const auto link = Read({{"OPI", versions}}).entries.link;
        ASSERT_TRUE(link) << name;
        EXPECT_EQ(link->uri, "fine.tif") << name;
    }
}

TEST(PictureEntries, ALinkToAFileSpecificationIsItsFile)
{
    const PdfObject specification =
        PdfObject::Dictionary({{"FS", PdfObject::Name("URL")}, {"F", PdfObject::String("file:///fine.tif")}});
    const PdfObject version =
        PdfObject::Dictionary({{"F", specification}, {"Version", PdfObject::Real(2.0)}});
    const auto link = Read({{"OPI", PdfObject::Dictionary({{"2.0", version}})}}).entries.link;
    ASSERT_TRUE(link);
    EXPECT_EQ(link->uri, "file:///fine.tif");
}

TEST(PictureEntries, ALinkThatSaysMoreKeepsItsDictionary)
{
    const PdfObject version =
        PdfObject::Dictionary({{"F", PdfObject::String("fine.tif")}, {"Tint", PdfObject::Integer(1)}});
    const PdfObject versions = PdfObject::Dictionary({{"1.3", version}});
    const auto link = Read({{"OPI", versions}}).entries.link;
    ASSERT_TRUE(link);
    EXPECT_EQ(link->definition, versions);
}

} // namespace
