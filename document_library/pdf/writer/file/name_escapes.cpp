#include "pdf/writer/file/name_escapes.h"

#include <algorithm>
#include <string>

namespace OrvPdf
{

namespace
{

/// A zero is how the library keeps a number sign that begins no escape; it would be written as it was.
bool IsNumberSign(char character)
{
    return character == '#' || character == '\0';
}

bool NeedsEscape(const std::string& name)
{
    return std::any_of(name.begin(), name.end(), IsNumberSign);
}

std::string Escape(const std::string& name)
{
    std::string escaped;
    for (const char character : name) {
        escaped += IsNumberSign(character) ? std::string("#23") : std::string(1, character);
    }
    return escaped;
}

bool IsNameToEscape(QPDFObjectHandle object)
{
    return object.isName() && NeedsEscape(object.getName());
}

void EscapeEntries(QPDFObjectHandle dictionary)
{
    for (const auto& [key, value] : dictionary.getDictAsMap()) {
        const bool isNameToEscape = IsNameToEscape(value);
        if (!isNameToEscape && !NeedsEscape(key)) {
            continue;
        }
        QPDFObjectHandle kept = value;
        const QPDFObjectHandle written =
            isNameToEscape ? QPDFObjectHandle::newName(Escape(kept.getName())) : kept;
        dictionary.removeKey(key);
        dictionary.replaceKey(Escape(key), written);
    }
}

} // namespace

bool LosesNumberSigns()
{
    static const bool loses = QPDFObjectHandle::newName("/#").unparse() == "/#";
    return loses;
}

void EscapeNumberSigns(QPDFObjectHandle& container)
{
    if (container.isArray()) {
        const int count = container.getArrayNItems();
        for (int index = 0; index < count; ++index) {
            QPDFObjectHandle item = container.getArrayItem(index);
            if (IsNameToEscape(item)) {
                container.setArrayItem(index, QPDFObjectHandle::newName(Escape(item.getName())));
            }
        }
        return;
    }
    EscapeEntries(container.isStream() ? container.getDict() : container);
}

} // namespace OrvPdf
