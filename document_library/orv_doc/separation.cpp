#include <orv_doc/separation.h>

#include <ostream>
#include <utility>

#include "orv_doc/text_form.h"

namespace OrvDoc::Separation
{

namespace
{

using OrvColor::Representation;

const char* GetKindName(Representation::Kind kind)
{
    switch (kind) {
    case Representation::Kind::Gray:
        return "Gray";
    case Representation::Kind::Rgb:
        return "RGB";
    case Representation::Kind::Cmyk:
        return "CMYK";
    case Representation::Kind::Lab:
        return "Lab";
    case Representation::Kind::None:
        break;
    }
    return "none";
}

} // namespace

Entry::Entry(const Entry& other) = default;
Entry& Entry::operator=(const Entry& other) = default;
Entry::~Entry() = default;

Entry::Entry(std::string givenName, Representation givenAlternate)
    : name(std::move(givenName)), alternate(std::move(givenAlternate))
{}

bool Entry::operator==(const Entry& other) const
{
    return name == other.name && alternate == other.alternate;
}

void Entry::SetColorSpace(std::shared_ptr<const OrvColor::ColorSpace> value)
{
    space = std::move(value);
}

std::ostream& operator<<(std::ostream& stream, const std::vector<Entry>& entries)
{
    std::string text = "[";
    const char* separator = "";
    for (const Entry& entry : entries) {
        text += separator + entry.GetName() + " (" + GetKindName(entry.GetAlternate().GetKind());
        for (const OrvColor::Component component : entry.GetAlternate().GetComponents()) {
            text += ' ';
            Detail::AppendNumber(text, static_cast<float>(component));
        }
        text += ')';
        separator = ", ";
    }
    return stream << text + "]";
}

} // namespace OrvDoc::Separation
