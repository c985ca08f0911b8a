#include <harrow_support/generate_image.h>

#include <algorithm>
#include <cstdint>
#include <set>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace HarrowSupport::GenerateImage
{
namespace
{

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;

template <typename Property>
auto Distinct(std::size_t begin, std::size_t end, Property property)
{
    // In the order in which they come first.
    std::vector<decltype(property(GetTestCases().front()))> values;
    for (std::size_t index = begin; index < end; ++index) {
        const auto value = property(GetTestCases().at(index));
        if (std::find(values.begin(), values.end(), value) == values.end())
            values.push_back(value);
    }
    return values;
}

std::uint32_t ColorSpaceOf(const TestCase& testCase)
{
    return static_cast<std::uint32_t>(testCase.colorSpace.value());
}

std::size_t CountOf(TestMaskKind kind)
{
    const auto& cases = GetTestCases();
    return static_cast<std::size_t>(std::count_if(
        cases.begin(), cases.end(), [kind](const TestCase& testCase) { return testCase.maskKind == kind; }));
}

std::vector<TestCase> CasesOf(TestMaskKind kind)
{
    std::vector<TestCase> found;
    for (const TestCase& testCase : GetTestCases()) {
        if (testCase.maskKind == kind)
            found.push_back(testCase);
    }
    return found;
}

TEST(CatalogueOfPictures, HasAsManyCasesEachTimeAndAtOnePlace)
{
    const std::vector<TestCase>& first = GetTestCases();
    const std::vector<TestCase>& second = GetTestCases();
    EXPECT_EQ(first.size(), 1376u);
    EXPECT_EQ(&first, &second);
}

TEST(CatalogueOfPictures, IsOneListForAllThreads)
{
    std::vector<const std::vector<TestCase>*> lists(8);
    std::vector<std::thread> threads;
    for (auto& list : lists)
        threads.emplace_back([&list] { list = &GetTestCases(); });
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_THAT(lists, ::testing::Each(&GetTestCases()));
}

TEST(CatalogueOfPictures, BeginsWithAPlainGrayPictureOfOneBit)
{
    const TestCase& first = GetTestCases().front();
    EXPECT_FALSE(first.isImageMask);
    EXPECT_TRUE(first.colorSpace == ColorSpaceKind::DeviceGray);
    EXPECT_TRUE(first.isIndexed == false);
    EXPECT_EQ(first.decode, DecodeKind::DecodeIdentity);
    EXPECT_EQ(first.bitsPerComponent, 1u);
    EXPECT_TRUE(first.maskKind == TestMaskKind::None);
    EXPECT_TRUE(first.maskDecode == boost::none);
    EXPECT_TRUE(first.maskBitsPerComponent == boost::none);
}

TEST(CatalogueOfPictures, EndsWithAnInvertedImageMask)
{
    const TestCase& last = GetTestCases().back();
    EXPECT_TRUE(last.isImageMask);
    EXPECT_TRUE(last.colorSpace == boost::none);
    EXPECT_TRUE(last.isIndexed == boost::none);
    EXPECT_EQ(last.decode, DecodeKind::DecodeInvert);
    EXPECT_EQ(last.bitsPerComponent, 1u);
    EXPECT_TRUE(last.maskKind == boost::none);
    EXPECT_TRUE(last.maskDecode == boost::none);
    EXPECT_TRUE(last.maskBitsPerComponent == boost::none);
}

TEST(CatalogueOfPictures, HasItsKnownNamesAtTheirPlaces)
{
    const auto nameAt = [](std::size_t position) { return GetTestCases().at(position).name; };
    EXPECT_EQ(nameAt(0), "Image-DeviceGray-DecodeIdentity-bps1");
    EXPECT_EQ(nameAt(15), "Image-DeviceGray-Indexed-DecodeIdentity-bps1");
    EXPECT_EQ(nameAt(27), "Image-CalGray_Normal-DecodeIdentity-bps1");
    EXPECT_EQ(nameAt(540), "Image-DeviceGray-DecodeIdentity-bps1-SoftMask(bps1-DecodeIdentity)");
    EXPECT_EQ(nameAt(541), "Image-DeviceGray-DecodeIdentity-bps1-SoftMask(bps4-DecodeIdentity)");
    EXPECT_EQ(nameAt(1116), "Image-DeviceGray-DecodeIdentity-bps1-MaskedImage(bps1-DecodeIdentity)");
    EXPECT_EQ(nameAt(1212), "Image-DeviceGray-DecodeIdentity-bps1-SoftMaskViaTB(DecodeIdentity)");
    EXPECT_EQ(nameAt(1373), "Image-DeviceN_All-DecodeWeird-bps8-SoftMaskViaTB(DecodeWeird)");
    EXPECT_EQ(nameAt(1374), "ImageMask-DecodeIdentity-bps1");
    EXPECT_EQ(nameAt(1375), "ImageMask-DecodeInvert-bps1");
}

TEST(CatalogueOfPictures, GivesNoNameTwice)
{
    std::set<std::string> names;
    for (const TestCase& testCase : GetTestCases())
        EXPECT_TRUE(names.insert(testCase.name).second) << testCase.name;
}

TEST(CatalogueOfPictures, ShowsEachColorSpaceInTheNames)
{
    std::vector<std::string> names;
    for (std::size_t position = 0; position < 540; position += 27)
        names.push_back(GetTestCases()[position].name);
    EXPECT_THAT(
        names,
        ElementsAre("Image-DeviceGray-DecodeIdentity-bps1", "Image-CalGray_Normal-DecodeIdentity-bps1",
                    "Image-CalGray_Weird-DecodeIdentity-bps1", "Image-DeviceRGB-DecodeIdentity-bps1",
                    "Image-CalRGB_Normal-DecodeIdentity-bps1", "Image-CalRGB_Weird-DecodeIdentity-bps1",
                    "Image-Lab_Normal-DecodeIdentity-bps1", "Image-Lab_Weird-DecodeIdentity-bps1",
                    "Image-ICCBased_Gray-DecodeIdentity-bps1", "Image-ICCBased_RGB-DecodeIdentity-bps1",
                    "Image-ICCBased_Lab-DecodeIdentity-bps1", "Image-ICCBased_CMYK-DecodeIdentity-bps1",
                    "Image-DeviceN_CMYK-DecodeIdentity-bps1", "Image-DeviceN_MYC-DecodeIdentity-bps1",
                    "Image-DeviceN_6Component-DecodeIdentity-bps1", "Image-DeviceN_None-DecodeIdentity-bps1",
                    "Image-DeviceN_Black-DecodeIdentity-bps1", "Image-DeviceN_Magenta-DecodeIdentity-bps1",
                    "Image-DeviceN_1Spot-DecodeIdentity-bps1", "Image-DeviceN_All-DecodeIdentity-bps1"));
}

TEST(CatalogueOfPictures, WalksPlainPicturesByDepthDecodeAndTable)
{
    std::vector<std::string> names;
    for (std::size_t position = 27; position < 54; ++position)
        names.push_back(GetTestCases()[position].name.substr(20));
    EXPECT_THAT(names, ElementsAre("-DecodeIdentity-bps1", "-DecodeIdentity-bps2", "-DecodeIdentity-bps4",
                                   "-DecodeIdentity-bps8", "-DecodeIdentity-bps16", "-DecodeInvert-bps1",
                                   "-DecodeInvert-bps2", "-DecodeInvert-bps4", "-DecodeInvert-bps8",
                                   "-DecodeInvert-bps16", "-DecodeWeird-bps1", "-DecodeWeird-bps2",
                                   "-DecodeWeird-bps4", "-DecodeWeird-bps8", "-DecodeWeird-bps16",
                                   "-Indexed-DecodeIdentity-bps1", "-Indexed-DecodeIdentity-bps2",
                                   "-Indexed-DecodeIdentity-bps4", "-Indexed-DecodeIdentity-bps8",
                                   "-Indexed-DecodeInvert-bps1", "-Indexed-DecodeInvert-bps2",
                                   "-Indexed-DecodeInvert-bps4", "-Indexed-DecodeInvert-bps8",
                                   "-Indexed-DecodeWeird-bps1", "-Indexed-DecodeWeird-bps2",
                                   "-Indexed-DecodeWeird-bps4", "-Indexed-DecodeWeird-bps8"));
}

TEST(CatalogueOfPictures, PutsDeviceNWithNoneBeforeBlackAmongPlainPictures)
{
    const auto spaces = Distinct(0, 540, ColorSpaceOf);
    EXPECT_THAT(spaces, ElementsAre(0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 18, 15, 16, 17, 19));
}

TEST(CatalogueOfPictures, HasItsGroupsOneBehindTheOther)
{
    std::vector<std::size_t> starts;
    boost::optional<TestMaskKind> before = TestMaskKind::MaskedImage;
    for (std::size_t position = 0; position < GetTestCases().size(); ++position) {
        if (GetTestCases()[position].maskKind != before)
            starts.push_back(position);
        before = GetTestCases()[position].maskKind;
    }
    EXPECT_THAT(starts, ElementsAre(0, 540, 1116, 1212, 1374));
    EXPECT_EQ(CountOf(TestMaskKind::None), 540u);
    EXPECT_EQ(CountOf(TestMaskKind::SoftMask), 576u);
    EXPECT_EQ(CountOf(TestMaskKind::MaskedImage), 96u);
    EXPECT_EQ(CountOf(TestMaskKind::SoftMaskViaTB), 162u);
}

TEST(CatalogueOfPictures, WalksSoftMasksByDepthAndDecodeOfTheMask)
{
    std::vector<std::string> names;
    for (std::size_t position = 540; position < 553; ++position)
        names.push_back(GetTestCases()[position].name.substr(31));
    EXPECT_THAT(names,
                ElementsAre("-bps1-SoftMask(bps1-DecodeIdentity)", "-bps1-SoftMask(bps4-DecodeIdentity)",
                            "-bps1-SoftMask(bps8-DecodeIdentity)", "-bps1-SoftMask(bps16-DecodeIdentity)",
                            "-bps1-SoftMask(bps1-DecodeInvert)", "-bps1-SoftMask(bps4-DecodeInvert)",
                            "-bps1-SoftMask(bps8-DecodeInvert)", "-bps1-SoftMask(bps16-DecodeInvert)",
                            "-bps1-SoftMask(bps1-DecodeWeird)", "-bps1-SoftMask(bps4-DecodeWeird)",
                            "-bps1-SoftMask(bps8-DecodeWeird)", "-bps1-SoftMask(bps16-DecodeWeird)",
                            "-bps8-SoftMask(bps1-DecodeIdentity)"));
}

TEST(CatalogueOfPictures, WalksStencilsByDecodeOfTheMask)
{
    std::vector<std::string> names;
    for (std::size_t position = 1116; position < 1121; ++position)
        names.push_back(GetTestCases()[position].name);
    EXPECT_THAT(names, ElementsAre("Image-DeviceGray-DecodeIdentity-bps1-MaskedImage(bps1-DecodeIdentity)",
                                   "Image-DeviceGray-DecodeIdentity-bps1-MaskedImage(bps1-DecodeInvert)",
                                   "Image-DeviceGray-DecodeIdentity-bps8-MaskedImage(bps1-DecodeIdentity)",
                                   "Image-DeviceGray-DecodeIdentity-bps8-MaskedImage(bps1-DecodeInvert)",
                                   "Image-DeviceGray-DecodeInvert-bps1-MaskedImage(bps1-DecodeIdentity)"));
}

TEST(CatalogueOfPictures, MasksFourColorSpaces)
{
    EXPECT_THAT(Distinct(540, 1116, ColorSpaceOf), ElementsAre(0, 3, 14, 19));
    EXPECT_THAT(Distinct(1116, 1212, ColorSpaceOf), ElementsAre(0, 3, 14, 19));
}

TEST(CatalogueOfPictures, GivesSixColorSpacesAnAlphaChannel)
{
    EXPECT_THAT(Distinct(1212, 1374, ColorSpaceOf), ElementsAre(0, 3, 14, 16, 17, 19));
}

TEST(CatalogueOfPictures, WalksAlphaChannelsByDecodeOfTheMask)
{
    std::vector<std::string> names;
    for (std::size_t position = 1212; position < 1222; ++position)
        names.push_back(GetTestCases()[position].name.substr(16));
    EXPECT_THAT(names, ElementsAre("-DecodeIdentity-bps1-SoftMaskViaTB(DecodeIdentity)",
                                   "-DecodeIdentity-bps1-SoftMaskViaTB(DecodeInvert)",
                                   "-DecodeIdentity-bps1-SoftMaskViaTB(DecodeWeird)",
                                   "-DecodeIdentity-bps2-SoftMaskViaTB(DecodeIdentity)",
                                   "-DecodeIdentity-bps2-SoftMaskViaTB(DecodeInvert)",
                                   "-DecodeIdentity-bps2-SoftMaskViaTB(DecodeWeird)",
                                   "-DecodeIdentity-bps8-SoftMaskViaTB(DecodeIdentity)",
                                   "-DecodeIdentity-bps8-SoftMaskViaTB(DecodeInvert)",
                                   "-DecodeIdentity-bps8-SoftMaskViaTB(DecodeWeird)",
                                   "-DecodeInvert-bps1-SoftMaskViaTB(DecodeIdentity)"));
}

TEST(CatalogueOfPictures, HasNoIndexedPictureOf16Bits)
{
    for (const TestCase& testCase : GetTestCases())
        EXPECT_FALSE(testCase.isIndexed == true && testCase.bitsPerComponent == 16) << testCase;
}

TEST(CatalogueOfPictures, HasNoIndexedPictureWithAnAlphaChannel)
{
    for (const TestCase& testCase : CasesOf(TestMaskKind::SoftMaskViaTB))
        EXPECT_TRUE(testCase.isIndexed == false) << testCase;
}

TEST(CatalogueOfPictures, HasAlphaChannelsOfOneTwoAndEightBits)
{
    std::set<std::size_t> depths;
    for (const TestCase& testCase : CasesOf(TestMaskKind::SoftMaskViaTB))
        depths.insert(testCase.bitsPerComponent);
    EXPECT_THAT(depths, ElementsAre(1, 2, 8));
}

TEST(CatalogueOfPictures, GivesNoDepthToAnAlphaChannel)
{
    for (const TestCase& testCase : CasesOf(TestMaskKind::SoftMaskViaTB)) {
        EXPECT_TRUE(testCase.maskBitsPerComponent == boost::none) << testCase;
        EXPECT_THAT(testCase.name.substr(testCase.name.find('(')), Not(HasSubstr("bps")));
    }
}

TEST(CatalogueOfPictures, SetsOptionalFieldsOfMasksExactlyWhereTheyCount)
{
    for (const TestCase& testCase : GetTestCases()) {
        const bool hasMask = testCase.maskKind && *testCase.maskKind != TestMaskKind::None;
        const bool hasOwnPicture = hasMask && *testCase.maskKind != TestMaskKind::SoftMaskViaTB;
        EXPECT_EQ(testCase.maskDecode.has_value(), hasMask) << testCase;
        EXPECT_EQ(testCase.maskBitsPerComponent.has_value(), hasOwnPicture) << testCase;
        EXPECT_NE(testCase.colorSpace.has_value(), testCase.isImageMask) << testCase;
        EXPECT_NE(testCase.isIndexed.has_value(), testCase.isImageMask) << testCase;
        EXPECT_NE(testCase.maskKind.has_value(), testCase.isImageMask) << testCase;
    }
}

TEST(CatalogueOfPictures, PrintsACaseByItsNameAndNothingElse)
{
    std::ostringstream stream;
    stream << GetTestCases()[0] << GetTestCases()[1374];
    EXPECT_EQ(stream.str(), "Image-DeviceGray-DecodeIdentity-bps1ImageMask-DecodeIdentity-bps1");
}

TEST(CatalogueOfPictures, NumbersItsKindsAsTheyAreStored)
{
    EXPECT_EQ(sizeof(ColorSpaceKind), 4u);
    EXPECT_EQ(sizeof(DecodeKind), 4u);
    EXPECT_EQ(sizeof(TestMaskKind), 4u);
    EXPECT_EQ(static_cast<std::uint32_t>(ColorSpaceKind::ICCBased_CMYK), 11u);
    EXPECT_EQ(static_cast<std::uint32_t>(ColorSpaceKind::DeviceN_All), 19u);
    EXPECT_EQ(static_cast<std::uint32_t>(DecodeKind::DecodeWeird), 2u);
    EXPECT_EQ(static_cast<std::uint32_t>(TestMaskKind::MaskedImage), 3u);
}

// A second telling of the whole list, by the place of a case alone.
std::string NameAt(std::size_t position)
{
    static const std::vector<std::string> spaces = {
        "DeviceGray",   "CalGray_Normal", "CalGray_Weird",   "DeviceRGB",     "CalRGB_Normal",
        "CalRGB_Weird", "Lab_Normal",     "Lab_Weird",       "ICCBased_Gray", "ICCBased_RGB",
        "ICCBased_Lab", "ICCBased_CMYK",  "DeviceN_CMYK",    "DeviceN_MYC",   "DeviceN_6Component",
        "DeviceN_None", "DeviceN_Black",  "DeviceN_Magenta", "DeviceN_1Spot", "DeviceN_All"};
    static const std::vector<std::string> maskedSpaces = {"DeviceGray", "DeviceRGB", "DeviceN_6Component",
                                                          "DeviceN_All"};
    static const std::vector<std::string> alphaSpaces = {
        "DeviceGray", "DeviceRGB", "DeviceN_6Component", "DeviceN_Magenta", "DeviceN_1Spot", "DeviceN_All"};
    static const std::vector<std::string> decodes = {"-DecodeIdentity", "-DecodeInvert", "-DecodeWeird"};
    static const std::vector<std::string> bits = {"1", "2", "4", "8", "16"};
    if (position < 540) {
        const std::size_t rest = position % 27;
        return "Image-" + spaces[position / 27] +
               (rest < 15 ? decodes[rest / 5] + "-bps" + bits[rest % 5]
                          : "-Indexed" + decodes[(rest - 15) / 4] + "-bps" + bits[(rest - 15) % 4]);
    }
    const auto masked = [](std::size_t place, std::size_t masks) {
        return "Image-" + maskedSpaces[place / (12 * masks)] + (place / (6 * masks) % 2 ? "-Indexed" : "") +
               decodes[place / (2 * masks) % 3] + "-bps" + (place / masks % 2 ? "8" : "1");
    };
    if (position < 1116) {
        const std::size_t mask = (position - 540) % 12;
        const std::vector<std::string> maskBits = {"1", "4", "8", "16"};
        return masked(position - 540, 12) + "-SoftMask(bps" + maskBits[mask % 4] + decodes[mask / 4] + ")";
    }
    if (position < 1212)
        return masked(position - 1116, 2) + "-MaskedImage(bps1" + decodes[position % 2] + ")";
    if (position < 1374) {
        const std::size_t place = position - 1212;
        const std::vector<std::string> alphaBits = {"1", "2", "8"};
        return "Image-" + alphaSpaces[place / 27] + decodes[place / 9 % 3] + "-bps" +
               alphaBits[place / 3 % 3] + "-SoftMaskViaTB(" + decodes[place % 3].substr(1) + ")";
    }
    return "ImageMask" + decodes[position - 1374] + "-bps1";
}

TEST(CatalogueOfPictures, HasEachNameAtItsPlace)
{
    for (std::size_t position = 0; position < GetTestCases().size(); ++position)
        EXPECT_EQ(GetTestCases()[position].name, NameAt(position)) << position;
}

} // namespace
} // namespace HarrowSupport::GenerateImage
