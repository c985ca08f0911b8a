#include "pdf/writer/content/separation_spaces.h"

#include <array>
#include <stdexcept>

#include <orv_sys/pdf_object.h>

#include "pdf/number_text.h"
#include "pdf/writer/content/process_inks.h"

namespace OrvPdf
{

namespace
{

using OrvColor::ColorSpace;
using OrvColor::Representation;
using OrvSys::PdfObject;

PdfObject Number(float value)
{
    std::string text;
    AppendFloat(text, value);
    return PdfObject::Real(text);
}

PdfObject UnitRanges(std::size_t count)
{
    PdfObject::Items items;
    for (std::size_t index = 0; index < count; ++index) {
        items.push_back(PdfObject::Integer(0));
        items.push_back(PdfObject::Integer(1));
    }
    return PdfObject::Array(std::move(items));
}

template <typename Numbers>
PdfObject NumberArray(const Numbers& numbers)
{
    PdfObject::Items items;
    for (const float number : numbers) {
        items.push_back(Number(number));
    }
    return PdfObject::Array(std::move(items));
}

/// The straight way from no ink to the full tint (ISO 32000-1, 7.10.3).
template <typename Numbers>
PdfObject LinearTint(const std::vector<float>& paper, const Numbers& fullTint)
{
    return PdfObject::Dictionary({{"FunctionType", PdfObject::Integer(2)},
                                  {"Domain", UnitRanges(1)},
                                  {"C0", NumberArray(paper)},
                                  {"C1", NumberArray(fullTint)},
                                  {"N", PdfObject::Integer(1)}});
}

/// A calculator (ISO 32000-1, 7.10.5) that adds up what the separations look like. The results pile up on top
/// of the tints; at the end they are rolled below them and the tints are dropped. The range cuts sums
/// above 1.
std::string AddUp(const std::vector<ProcessInks>& inks)
{
    std::string program = "{";
    for (std::size_t process = 0; process < 4; ++process) {
        program += " 0";
        for (std::size_t index = 0; index < inks.size(); ++index) {
            if (inks[index][process] != 0) {
                program += ' ' + std::to_string(inks.size() - index + process) + " index ";
                AppendFloat(program, inks[index][process]);
                program += " mul add";
            }
        }
    }
    program += ' ' + std::to_string(inks.size() + 4) + " 4 roll";
    for (std::size_t index = 0; index < inks.size(); ++index) {
        program += " pop";
    }
    return program + " }";
}

ColorSpace::Pointer MakeSeparation(const std::string& name, const Representation& looks)
{
    switch (looks.GetKind()) {
    case Representation::Kind::Gray:
        return ColorSpace::Separation(name, ColorSpace::DeviceGray(), LinearTint({1}, looks.GetComponents()));
    case Representation::Kind::Rgb:
        return ColorSpace::Separation(name, ColorSpace::DeviceRGB(),
                                      LinearTint({1, 1, 1}, looks.GetComponents()));
    case Representation::Kind::Lab:
        return ColorSpace::Separation(name, ColorSpace::Lab(whitePointD50, {-128, 127, -128, 127}),
                                      LinearTint({100, 0, 0}, looks.GetComponents()));
    case Representation::Kind::Cmyk:
        return ColorSpace::Separation(name, ColorSpace::DeviceCMYK(),
                                      LinearTint({0, 0, 0, 0}, looks.GetComponents()));
    case Representation::Kind::None:
        break;
    }
    return ColorSpace::Separation(name, ColorSpace::DeviceCMYK(),
                                  LinearTint({0, 0, 0, 0}, GuessProcessInks(name)));
}

/// What each colorant looks like by itself (ISO 32000-1, Table 71): renderers that make separations ask for
/// it.
PdfObject MakeAttributes(const std::vector<std::string>& names, const std::vector<Representation>& looks)
{
    PdfObject::Entries colorants;
    for (std::size_t index = 0; index < names.size(); ++index) {
        if (names[index] != "None") {
            colorants.emplace(names[index], MakeSeparation(names[index], looks[index])->GetDefinition());
        }
    }
    return PdfObject::Dictionary({{"Colorants", PdfObject::Dictionary(std::move(colorants))}});
}

ColorSpace::Pointer MakeDeviceN(const std::vector<std::string>& names,
                                const std::vector<Representation>& looks,
                                const PdfObject& attributes = PdfObject())
{
    std::vector<ProcessInks> inks;
    for (std::size_t index = 0; index < names.size(); ++index) {
        const bool isKnown = looks[index].GetKind() != Representation::Kind::None;
        if (names[index] == "None") {
            inks.push_back({0, 0, 0, 0});
            continue;
        }
        inks.push_back(isKnown ? ToProcessInks(looks[index]) : GuessProcessInks(names[index]));
    }
    const PdfObject dictionary = PdfObject::Dictionary({{"FunctionType", PdfObject::Integer(4)},
                                                        {"Domain", UnitRanges(names.size())},
                                                        {"Range", UnitRanges(4)}});
    return ColorSpace::DeviceN(names, ColorSpace::DeviceCMYK(), PdfObject::Stream(dictionary, AddUp(inks)),
                               attributes);
}

} // namespace

SeparationSpaces::SeparationSpaces(const std::vector<OrvDoc::Separation::Entry>& given)
{
    for (const OrvDoc::Separation::Entry& entry : given) {
        entries.emplace(entry.GetName(), &entry);
    }
}

ColorSpace::Pointer SeparationSpaces::Get(const std::vector<std::string>& names)
{
    std::string key;
    for (const std::string& name : names) {
        // No name of a PDF file holds a zero byte.
        if (name.empty() || name == "All" || name == "None" || name.find('\0') != std::string::npos) {
            throw std::invalid_argument("no separation can be named '" + name + "'");
        }
        key += name + '\0';
    }
    ColorSpace::Pointer& space = made[key];
    if (!space) {
        space = names.size() == 1 ? MakeSingle(names.front()) : MakeSeveral(names);
    }
    return space;
}

ColorSpace::Pointer SeparationSpaces::GetWithBlanks(const std::vector<std::string>& names)
{
    std::vector<std::string> stated;
    std::vector<std::string> withNone = names;
    for (std::string& name : withNone) {
        if (name.empty()) {
            name = "None";
        } else {
            stated.push_back(name);
        }
    }
    // What no space can name is found out here.
    const ColorSpace::Pointer space = stated.empty() ? MakeNone() : Get(stated);
    return stated.size() == names.size() || names.size() == 1 ? space : MakeSeveral(withNone);
}

ColorSpace::Pointer SeparationSpaces::MakeAll()
{
    return ColorSpace::Separation("All", ColorSpace::DeviceCMYK(),
                                  LinearTint({0, 0, 0, 0}, ProcessInks{0, 0, 0, 1}));
}

ColorSpace::Pointer SeparationSpaces::MakeNone()
{
    return ColorSpace::Separation("None", ColorSpace::DeviceCMYK(),
                                  LinearTint({0, 0, 0, 0}, ProcessInks{0, 0, 0, 0}));
}

const OrvDoc::Separation::Entry* SeparationSpaces::Find(const std::string& name) const
{
    const auto found = entries.find(name);
    return found == entries.end() ? nullptr : found->second;
}

const Representation& SeparationSpaces::FindLooks(const std::string& name) const
{
    static const Representation none;
    const OrvDoc::Separation::Entry* const entry = Find(name);
    return entry ? entry->GetAlternate() : none;
}

ColorSpace::Pointer SeparationSpaces::MakeSingle(const std::string& name) const
{
    const OrvDoc::Separation::Entry* const entry = Find(name);
    if (entry && entry->GetColorSpace() &&
        entry->GetColorSpace()->GetFamily() == ColorSpace::Family::Separation &&
        entry->GetColorSpace()->GetColorantNames() == std::vector<std::string>{name}) {
        return entry->GetColorSpace();
    }
    return MakeSeparation(name, FindLooks(name));
}

ColorSpace::Pointer SeparationSpaces::MakeSeveral(const std::vector<std::string>& names) const
{
    std::vector<Representation> looks;
    for (const std::string& name : names) {
        looks.push_back(FindLooks(name));
    }
    return MakeDeviceN(names, looks);
}

ColorSpace::Pointer SeparationSpaces::GetWithLooks(const std::vector<std::string>& names,
                                                   const std::vector<Representation>& looks) const
{
    std::vector<Representation> all = looks;
    for (std::size_t index = 0; index < names.size(); ++index) {
        if (all[index].GetKind() == Representation::Kind::None) {
            all[index] = FindLooks(names[index]);
        }
    }
    if (names.size() > 1) {
        return MakeDeviceN(names, all, MakeAttributes(names, all));
    }
    const bool isStated = looks.front().GetKind() != Representation::Kind::None;
    return isStated ? MakeSeparation(names.front(), all.front()) : MakeSingle(names.front());
}

} // namespace OrvPdf
