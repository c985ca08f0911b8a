#include <orv_color/output_intent.h>

#include <orv_color/gen_color_profiles.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <sstream>

#include <boost/optional.hpp>
#include <boost/optional/optional_io.hpp>

namespace OrvColor
{
namespace
{

OutputIntent MakeIntent()
{
    return OutputIntent()
        .SetSubtype("GTS_PDFA1")
        .SetOutputCondition("coated")
        .SetOutputConditionIdentifier("Id")
        .SetRegistryName("http://example.org")
        .SetInfo("info");
}

TEST(OutputIntentTest, TextsAreEqualOrNot)
{
    EXPECT_EQ(MakeIntent(), MakeIntent());
    const std::vector<std::function<void(OutputIntent&)>> changes = {
        [](OutputIntent& intent) { intent.SetSubtype("x"); },
        [](OutputIntent& intent) { intent.SetOutputCondition("x"); },
        [](OutputIntent& intent) { intent.SetOutputConditionIdentifier("x"); },
        [](OutputIntent& intent) { intent.SetRegistryName("x"); },
        [](OutputIntent& intent) { intent.SetInfo("x"); }};
    for (std::size_t index = 0; index < changes.size(); ++index) {
        OutputIntent changed = MakeIntent();
        changes[index](changed);
        EXPECT_NE(changed, MakeIntent()) << "change " << index;
        EXPECT_NE(MakeIntent(), changed) << "change " << index;
    }
}

TEST(OutputIntentTest, ProfilesAreComparedByTheirData)
{
    const auto profile = GenColorProfiles::Instance().GetDefaultGrayProfile(true);
    OutputIntent left = MakeIntent().SetDestinationProfile(profile);
    OutputIntent right = MakeIntent().SetDestinationProfile(std::make_shared<ICCProfile>(profile->GetData()));
    EXPECT_EQ(left, right);
    right.SetDestinationProfile(GenColorProfiles::Instance().GetDefaultRgbProfile(true));
    EXPECT_NE(left, right);
}

TEST(OutputIntentTest, AProfileOnOneSideAloneIsADifference)
{
    const auto profile = GenColorProfiles::Instance().GetDefaultGrayProfile(true);
    const OutputIntent with = MakeIntent().SetDestinationProfile(profile);
    EXPECT_NE(with, MakeIntent());
    EXPECT_NE(MakeIntent(), with);
}

TEST(OutputIntentTest, PrintsTheTextsThatItHas)
{
    std::ostringstream stream;
    stream << MakeIntent() << OutputIntent();
    EXPECT_EQ(stream.str(), "OutputIntent(GTS_PDFA1, Identifier: Id, Condition: coated, Registry: "
                            "http://example.org, Info: info)OutputIntent(GTS_PDFX)");
}

TEST(OutputIntentTest, PrintsItsProfile)
{
    std::ostringstream stream;
    stream << OutputIntent().SetDestinationProfile(
        std::make_shared<ICCProfile>(std::string(16, '\0') + "CMYK" + std::string(108, '\0')));
    EXPECT_THAT(stream.str(),
                testing::MatchesRegex(R"(OutputIntent\(GTS_PDFX, Profile: CMYK 128 bytes [0-9a-f]+\))"));
}

TEST(OutputIntentTest, PrintsInAnOptional)
{
    std::ostringstream stream;
    stream << boost::optional<OutputIntent>(OutputIntent()) << boost::optional<OutputIntent>();
    EXPECT_EQ(stream.str(), " OutputIntent(GTS_PDFX)--");
}

} // namespace
} // namespace OrvColor
