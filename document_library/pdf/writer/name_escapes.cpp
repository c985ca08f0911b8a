#include "pdf/writer/name_escapes.h"

#include <string>

namespace OrvPdf
{

namespace
{

bool NeedsEscape(const std::string& name)
{
    return name.find('#') != std::string::npos;
}

std::string Escape(const std::string& name)
{
    std::string escaped;
    for (const char character : name) {
        escaped += character == '#' ? std::string("#23") : std::string(1, character);
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
