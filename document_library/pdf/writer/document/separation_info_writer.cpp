#include "pdf/writer/document/separation_info_writer.h"

#include <algorithm>
#include <cmath>
#include <set>

#include <orv_color/color_space.h>

#include "pdf/number_text.h"
#include "pdf/reader/file/qpdf_text.h"
#include "pdf/writer/file/object_maker.h"

namespace OrvPdf
{

namespace
{

using OrvColor::Representation;

const char* GetFamilyName(Representation::Kind kind)
{
    switch (kind) {
    case Representation::Kind::Gray:
        return "DeviceGray";
    case Representation::Kind::Rgb:
        return "DeviceRGB";
    case Representation::Kind::Cmyk:
        return "DeviceCMYK";
    case Representation::Kind::Lab:
        return "Lab";
    case Representation::Kind::None:
        break;
    }
    return nullptr;
}

QPDFObjectHandle MakeAlternate(const Representation& alternate)
{
    QPDFObjectHandle array = QPDFObjectHandle::newArray();
    array.appendItem(ObjectMaker::MakeName(GetFamilyName(alternate.GetKind())));
    for (const float component : alternate.GetComponents()) {
        std::string text;
        AppendFloat(text, std::isfinite(component) ? component : 0.0f);
        array.appendItem(QPDFObjectHandle::newReal(text));
    }
    return array;
}

QPDFObjectHandle MakeItem(const std::string& name)
{
    QPDFObjectHandle item = QPDFObjectHandle::newDictionary();
    item.replaceKey("/Name", ObjectMaker::MakeName(name));
    return item;
}

std::vector<std::string> FindHidden(QPDFObjectHandle list)
{
    std::vector<std::string> names;
    for (QPDFObjectHandle item : list.isArray() ? list.getArrayAsVector() : std::vector<QPDFObjectHandle>()) {
        if (IsTrue(GetEntry(item, "/Hidden")) && GetEntry(item, "/Name").isName()) {
            names.push_back(GetNameText(GetEntry(item, "/Name")));
        }
    }
    return names;
}

} // namespace

void WriteSeparationInfo(const std::vector<OrvDoc::Separation::Entry>& entries,
                         const std::vector<std::string>& named, QPDFObjectHandle catalogue,
                         ObjectMaker& maker)
{
    std::vector<QPDFObjectHandle> items;
    // What is no separation of its own is never listed.
    std::set<std::string> listed = {"All", "None"};
    for (const OrvDoc::Separation::Entry& entry : entries) {
        QPDFObjectHandle item = MakeItem(entry.GetName());
        listed.insert(entry.GetName());
        if (GetFamilyName(entry.GetAlternate().GetKind())) {
            item.replaceKey("/Alternate", MakeAlternate(entry.GetAlternate()));
        }
        if (entry.GetColorSpace()) {
            item.replaceKey("/Space", maker.MakeShared(entry.GetColorSpace()->GetDefinition()));
        }
        items.push_back(item);
    }
    const auto hide = [&](const std::string& name) {
        if (listed.insert(name).second) {
            QPDFObjectHandle item = MakeItem(name);
            item.replaceKey("/Hidden", QPDFObjectHandle::newBool(true));
            items.push_back(item);
        }
    };
    std::for_each(named.begin(), named.end(), hide);
    // What stays as it stands in the file may name those that were hidden there.
    const std::vector<std::string> hidden = FindHidden(catalogue.getKey("/OrvSeparations"));
    std::for_each(hidden.begin(), hidden.end(), hide);
    if (items.empty()) {
        catalogue.removeKey("/OrvSeparations");
        return;
    }
    catalogue.replaceKey("/OrvSeparations", QPDFObjectHandle::newArray(items));
}

} // namespace OrvPdf
