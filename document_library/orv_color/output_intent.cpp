#include <orv_color/output_intent.h>

#include "orv_sys/digest.h"

#include <ostream>

namespace OrvColor
{

namespace
{

bool SameProfile(const std::shared_ptr<const ICCProfile>& left,
                 const std::shared_ptr<const ICCProfile>& right)
{
    return left == right || (left && right && *left == *right);
}

void PrintText(std::ostream& stream, const char* label, const std::string& text)
{
    if (!text.empty())
        stream << ", " << label << ": " << text;
}

} // namespace

bool operator==(const OutputIntent& left, const OutputIntent& right)
{
    return left.GetSubtype() == right.GetSubtype() &&
           left.GetOutputCondition() == right.GetOutputCondition() &&
           left.GetOutputConditionIdentifier() == right.GetOutputConditionIdentifier() &&
           left.GetRegistryName() == right.GetRegistryName() && left.GetInfo() == right.GetInfo() &&
           SameProfile(left.GetDestinationProfile(), right.GetDestinationProfile());
}

std::ostream& operator<<(std::ostream& stream, const OutputIntent& intent)
{
    stream << "OutputIntent(" << intent.GetSubtype();
    PrintText(stream, "Identifier", intent.GetOutputConditionIdentifier());
    PrintText(stream, "Condition", intent.GetOutputCondition());
    PrintText(stream, "Registry", intent.GetRegistryName());
    PrintText(stream, "Info", intent.GetInfo());
    if (const ICCProfile* profile = intent.GetDestinationProfile().get()) {
        stream << ", Profile: " << profile->GetDataColorSpace() << ' ' << profile->GetData().size()
               << " bytes " << OrvSys::Detail::DigestText(profile->GetDigest());
    }
    return stream << ')';
}

} // namespace OrvColor
