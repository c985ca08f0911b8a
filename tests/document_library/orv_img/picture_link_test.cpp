#include <orv_img/picture_link.h>

#include <sstream>

#include <gtest/gtest.h>

namespace OrvImg
{
namespace
{

using OrvSys::PdfObject;

std::string TextOf(const PictureLink& link)
{
    std::ostringstream stream;
    stream << link;
    return stream.str();
}

const PdfObject Definition = PdfObject::Dictionary({{"Version", PdfObject::Real(std::string("2.0"))}});

TEST(PictureLinkTest, EqualsOneWithTheSameFields)
{
    EXPECT_TRUE((PictureLink{"a.tif", Definition}) == (PictureLink{"a.tif", Definition}));
    EXPECT_FALSE((PictureLink{"a.tif", Definition}) != (PictureLink{"a.tif", Definition}));
}

TEST(PictureLinkTest, DiffersInItsUriOrItsDefinition)
{
    const PictureLink link{"a.tif", Definition};
    for (const PictureLink& other : {PictureLink{"b.tif", Definition}, PictureLink{"a.tif", {}},
                                     PictureLink{"a.tif", PdfObject::Array({})}}) {
        EXPECT_TRUE(link != other);
        EXPECT_TRUE(other != link);
    }
}

TEST(PictureLinkTest, PrintsItsUri)
{
    EXPECT_EQ(TextOf({"a.tif", {}}), "a.tif");
}

TEST(PictureLinkTest, PrintsTheDigestOfItsDefinition)
{
    EXPECT_EQ(TextOf({"a.tif", Definition}), "a.tif (" + Definition.GetDigestText() + ")");
}

} // namespace
} // namespace OrvImg
