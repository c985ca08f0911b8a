#include "pdf/reader/document/separation_list.h"

#include <stdexcept>
#include <utility>

#include "pdf/number_text.h"
#include "pdf/reader/file/qpdf_text.h"

namespace OrvPdf
{

namespace
{

using OrvColor::ColorSpace;
using OrvColor::Representation;

std::vector<OrvColor::Component> ReadComponents(QPDFObjectHandle array)
{
    std::vector<OrvColor::Component> components;
    for (int index = 1; index < array.getArrayNItems(); ++index) {
        std::string text;
        float value = 0;
        if (!GetNumberText(array.getArrayItem(index), text) || !ParseFloat(text, value))
            throw std::invalid_argument("a component is no number");
        components.emplace_back(value);
    }
    return components;
}

Representation ReadAlternate(QPDFObjectHandle array)
{
    Representation alternate;
    if (!array.isArray() || array.getArrayNItems() == 0)
        return alternate;
    const std::string family = GetNameText(array.getArrayItem(0));
    try {
        if (family == "DeviceGray")
            alternate.SetGray(ReadComponents(array));
        else if (family == "DeviceRGB")
            alternate.SetRgb(ReadComponents(array));
        else if (family == "DeviceCMYK")
            alternate.SetCmyk(ReadComponents(array));
        else if (family == "Lab")
            alternate.SetLab(ReadComponents(array));
    } catch (const std::invalid_argument&) {
        return Representation();
    }
    return alternate;
}

} // namespace

void SeparationList::AddListed(QPDFObjectHandle array)
{
    if (!array.isArray())
        return;
    for (QPDFObjectHandle listed : array.getArrayAsVector()) {
        if (listed.isDictionary() && listed.getKey("/Name").isName())
            AddEntry(listed);
    }
}

void SeparationList::AddEntry(QPDFObjectHandle listed)
{
    QPDFObjectHandle hidden = listed.getKey("/Hidden");
    if (hidden.isBool() && hidden.getBoolValue()) {
        names.insert(GetNameText(listed.getKey("/Name")));
        return;
    }
    std::string problem;
    QPDFObjectHandle definition = listed.getKey("/Space");
    Add(GetNameText(listed.getKey("/Name")), ReadAlternate(listed.getKey("/Alternate")),
        definition.isNull() ? nullptr : document.GetColorSpace(definition, problem));
}

void SeparationList::AddSpace(QPDFObjectHandle definition)
{
    // A name stands for a device space or for a space of the resources, which is met there.
    if (!definition.isArray() || (definition.isIndirect() && !visited.insert(definition.getObjGen()).second))
        return;
    std::string problem;
    const ColorSpace::Pointer space = document.GetColorSpace(definition, problem);
    if (space)
        AddColorants(space);
    else
        AddNames(definition);
}

void SeparationList::AddColorants(const ColorSpace::Pointer& space)
{
    // The space that a pattern or an index stands on; colorants have no space below that names any.
    ColorSpace::Pointer current = space;
    while (current && current->GetColorantNames().empty())
        current = current->GetBase();
    if (!current)
        return;
    bool isNew = false;
    for (const std::string& name : current->GetColorantNames())
        isNew = isNew || names.count(name) == 0;
    if (!isNew)
        return;
    const bool isSingle = current->GetFamily() == ColorSpace::Family::Separation;
    for (const ColorSpace::Alternate& alternate : current->GetAlternates())
        Add(alternate.name, alternate.representation, isSingle ? current : nullptr);
}

void SeparationList::AddNames(QPDFObjectHandle definition)
{
    if (definition.getArrayNItems() < 2)
        return;
    const std::string family = GetNameText(definition.getArrayItem(0));
    QPDFObjectHandle second = definition.getArrayItem(1);
    if (family == "Separation" && second.isName()) {
        Add(GetNameText(second), Representation(), nullptr);
    } else if (family == "DeviceN" && second.isArray()) {
        for (QPDFObjectHandle name : second.getArrayAsVector()) {
            if (name.isName())
                Add(GetNameText(name), Representation(), nullptr);
        }
    }
}

void SeparationList::Add(const std::string& name, Representation alternate, ColorSpace::Pointer space)
{
    if (name == "All" || name == "None" || !names.insert(name).second)
        return;
    entries.emplace_back(name, std::move(alternate));
    if (space)
        entries.back().SetColorSpace(std::move(space));
}

} // namespace OrvPdf
