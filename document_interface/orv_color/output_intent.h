#pragma once

#include <iosfwd>
#include <memory>
#include <string>
#include <utility>

#include <orv_color/icc_profile.h>
#include <orv_sys/export.h>

namespace OrvColor
{

/// For which output condition a document was made (ISO 32000-1, 14.11.5). A value.
class ORV_EXPORT OutputIntent
{
public:
    // For makers of documents.

    OutputIntent() = default;

    /// The name under key S, without its slash: "GTS_PDFX" and the like.
    const std::string& GetSubtype() const { return subtype; }
    OutputIntent& SetSubtype(std::string value) { return Set(subtype, std::move(value)); }

    /// The texts are UTF-8; an empty one stands for a missing key.
    const std::string& GetOutputCondition() const { return outputCondition; }
    OutputIntent& SetOutputCondition(std::string value) { return Set(outputCondition, std::move(value)); }

    const std::string& GetOutputConditionIdentifier() const { return outputConditionIdentifier; }
    OutputIntent& SetOutputConditionIdentifier(std::string value)
    {
        return Set(outputConditionIdentifier, std::move(value));
    }

    const std::string& GetRegistryName() const { return registryName; }
    OutputIntent& SetRegistryName(std::string value) { return Set(registryName, std::move(value)); }

    const std::string& GetInfo() const { return info; }
    OutputIntent& SetInfo(std::string value) { return Set(info, std::move(value)); }

    /// DestOutputProfile; null if there is none.
    const std::shared_ptr<const ICCProfile>& GetDestinationProfile() const { return destinationProfile; }
    OutputIntent& SetDestinationProfile(std::shared_ptr<const ICCProfile> value)
    {
        destinationProfile = std::move(value);
        return *this;
    }

private:
    OutputIntent& Set(std::string& field, std::string&& value)
    {
        field = std::move(value);
        return *this;
    }

    std::string subtype = "GTS_PDFX";
    std::string outputCondition;
    std::string outputConditionIdentifier;
    std::string registryName;
    std::string info;
    std::shared_ptr<const ICCProfile> destinationProfile;
};

/// All texts equal, and both without a profile or both with the same profile data.
ORV_EXPORT bool operator==(const OutputIntent& left, const OutputIntent& right);
inline bool operator!=(const OutputIntent& left, const OutputIntent& right)
{
    return !(left == right);
}

/// "OutputIntent(GTS_PDFX, Identifier: FOGRA39, ...)": the texts that are not empty, then data colour space,
/// size and digest of the profile if there is one.
ORV_EXPORT std::ostream& operator<<(std::ostream& stream, const OutputIntent& intent);

} // namespace OrvColor
