#include <orv_doc/document_info_flag_key.h>
#include <orv_doc/read_options.h>
#include <orv_doc/write_options.h>

#include <gtest/gtest.h>

namespace
{

TEST(ReadOptionsTest, NeedNoPasswordByDefault)
{
    EXPECT_EQ(OrvDoc::ReadOptions().password, "");
}

TEST(ReadOptionsTest, CopyCarriesPasswordAndLimits)
{
    OrvDoc::ReadOptions options;
    options.password = "open";
    options.limits.pages = 3;
    const OrvDoc::ReadOptions copy(options);
    OrvDoc::ReadOptions assigned;
    assigned = options;
    EXPECT_EQ(copy.password, "open");
    EXPECT_EQ(copy.limits.pages, 3u);
    EXPECT_EQ(assigned.password, "open");
    EXPECT_EQ(assigned.limits.pages, 3u);
}

TEST(ReadOptionsTest, LimitsOfAPartLieWithinThoseOfTheWhole)
{
    const OrvDoc::ReadOptions::Limits limits;
    EXPECT_LE(limits.contentStreamBytes, limits.streamBytes);
    EXPECT_LE(limits.streamBytes, limits.documentBytes);
    EXPECT_LE(limits.operandBytes, limits.contentStreamBytes);
    EXPECT_LE(limits.pages, limits.indirectObjects);
}

TEST(WriteOptionsTest, FlavourZeroIsTheFullOne)
{
    const OrvDoc::WriteOptions options(static_cast<OrvDoc::WriteOptions::Flavour>(0));
    EXPECT_EQ(options.GetFlavour(), OrvDoc::WriteOptions::Flavour::Full);
}

TEST(DocumentInfoFlagKeyTest, KeyTwoAsksForNormalizedLinks)
{
    EXPECT_EQ(static_cast<OrvDoc::DocumentInfoFlagKey>(2), OrvDoc::DocumentInfoFlagKey::NormalizedPDFLinks);
}

} // namespace
