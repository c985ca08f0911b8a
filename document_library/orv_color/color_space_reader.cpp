// Reads the definitions of colour spaces: checks the shape of each family and fills the state.

#include "orv_color/color_space_state.h"
#include "orv_sys/digest.h"
#include "orv_sys/stream_bytes.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace OrvColor
{

namespace
{

using OrvSys::PdfObject;
using State = ColorSpace::State;
using Family = ColorSpace::Family;
using Ranges = std::vector<std::array<double, 2>>;

constexpr std::array<double, 2> UnitRange = {0.0, 1.0};

[[noreturn]] void Fail(const std::string& family, const std::string& problem)
{
    throw std::invalid_argument("The colour space " + family + " " + problem + ".");
}

PdfObject Item(const PdfObject& definition, std::size_t index)
{
    if (!definition.IsArray() || index >= definition.GetItems().size())
        return PdfObject();
    return definition.GetItems()[index];
}

std::vector<double> Numbers(const PdfObject& array, std::size_t count, const std::string& family,
                            const char* key)
{
    if (!array.IsArray() || array.GetItems().size() != count)
        Fail(family, std::string("needs ") + std::to_string(count) + " numbers under " + key);
    std::vector<double> numbers;
    for (const PdfObject& item : array.GetItems()) {
        if (!item.IsNumber())
            Fail(family,
                 std::string("has '") + item.Serialize().substr(0, 40) + "' for a number under " + key);
        numbers.push_back(item.GetNumber());
    }
    return numbers;
}

Ranges Pairs(const std::vector<double>& numbers, const std::string& family)
{
    Ranges pairs;
    for (std::size_t index = 0; index + 1 < numbers.size(); index += 2) {
        if (numbers[index] > numbers[index + 1])
            Fail(family, "has a range that ends below its start");
        pairs.push_back({numbers[index], numbers[index + 1]});
    }
    return pairs;
}

void NameComponents(State& state, const std::string& space, const std::vector<const char*>& components)
{
    for (const char* component : components)
        state.componentNames.push_back(space + ' ' + component);
}

// The component nearest to zero in each range (ISO 32000-1, 8.6.5.4 and 8.6.5.5).
void BeginAtZero(State& state)
{
    for (const auto& range : state.ranges)
        state.initialComponents.push_back(static_cast<float>(std::clamp(0.0, range[0], range[1])));
}

std::unique_ptr<State> MakeState(Family family, const PdfObject& definition, Ranges ranges)
{
    auto state = std::make_unique<State>();
    state->family = family;
    state->definition = definition;
    state->componentCount = ranges.size();
    state->ranges = std::move(ranges);
    return state;
}

std::unique_ptr<State> MakeDevice(Family family, const char* name, std::vector<const char*> components)
{
    auto state = MakeState(family, PdfObject::Name(name), Ranges(components.size(), UnitRange));
    state->initialComponents.assign(components.size(), 0.0f);
    if (family == Family::DeviceRGB)
        NameComponents(*state, name, components);
    else
        state->componentNames.assign(components.begin(), components.end());
    if (family == Family::DeviceCMYK)
        state->initialComponents.back() = 1.0f;
    return state;
}

std::unique_ptr<State> ReadCalibrated(Family family, const std::string& name, const PdfObject& definition)
{
    const PdfObject dictionary = Item(definition, 1);
    if (!dictionary.IsDictionary())
        Fail(name, "needs a dictionary");
    Numbers(dictionary.Find("WhitePoint"), 3, name, "WhitePoint");
    if (family == Family::CalGray && !dictionary.Find("Gamma").IsNull() &&
        !dictionary.Find("Gamma").IsNumber())
        Fail(name, "needs a number under Gamma");
    if (family == Family::CalRGB && !dictionary.Find("Gamma").IsNull())
        Numbers(dictionary.Find("Gamma"), 3, name, "Gamma");
    if (family == Family::CalRGB && !dictionary.Find("Matrix").IsNull())
        Numbers(dictionary.Find("Matrix"), 9, name, "Matrix");
    Ranges ranges(family == Family::CalGray ? 1 : 3, UnitRange);
    std::vector<const char*> components = {"Red", "Green", "Blue"};
    if (family == Family::CalGray)
        components = {"Gray"};
    if (family == Family::Lab) {
        components = {"L", "a", "b"};
        const PdfObject range = dictionary.Find("Range");
        ranges = {{-100.0, 100.0}, {-100.0, 100.0}};
        if (!range.IsNull())
            ranges = Pairs(Numbers(range, 4, name, "Range"), name);
        ranges.insert(ranges.begin(), {0.0, 100.0});
    }
    auto state = MakeState(family, definition, std::move(ranges));
    state->labComponents = family == Family::Lab;
    BeginAtZero(*state);
    NameComponents(*state, name + '(' + definition.GetDigestText() + ')', components);
    return state;
}

std::vector<const char*> ProfileComponents(std::size_t count, bool lab)
{
    if (count == 1)
        return {"Gray"};
    if (count == 4)
        return {"Cyan", "Magenta", "Yellow", "Black"};
    if (lab)
        return {"L", "a", "b"};
    return {"Red", "Green", "Blue"};
}

// Profile, component count and ranges, so that the way in which the bytes were encoded plays no part.
std::string ProfileDigest(const std::string& bytes, const Ranges& ranges)
{
    OrvSys::Detail::Digest digest;
    digest.Add(bytes);
    digest.AddNumber(ranges.size());
    for (const auto& range : ranges) {
        if (range != UnitRange)
            digest.Add(PdfObject::Real(range[0]).Serialize() + ' ' + PdfObject::Real(range[1]).Serialize());
        digest.Add(';');
    }
    return OrvSys::Detail::DigestText(digest.Get());
}

std::unique_ptr<State> ReadProfiled(const PdfObject& definition)
{
    const PdfObject stream = Item(definition, 1);
    if (!stream.IsStream())
        Fail("ICCBased", "needs a stream");
    const PdfObject count = stream.Find("N");
    if (!count.IsInteger() || (count.GetInteger() != 1 && count.GetInteger() != 3 && count.GetInteger() != 4))
        Fail("ICCBased", "needs 1, 3 or 4 under N, not '" + count.Serialize().substr(0, 40) + "'");
    const auto componentCount = static_cast<std::size_t>(count.GetInteger());
    const PdfObject range = stream.Find("Range");
    Ranges ranges(componentCount, UnitRange);
    if (!range.IsNull())
        ranges = Pairs(Numbers(range, 2 * componentCount, "ICCBased", "Range"), "ICCBased");
    auto state = MakeState(Family::ICCBased, definition, std::move(ranges));
    // A profile whose filters aren't known here still gets a digest of its own, over the encoded bytes.
    const std::string bytes = OrvSys::Detail::DecodeSmallStream(stream).value_or(stream.GetRawBytes());
    constexpr std::size_t SignaturePlace = 16;
    state->labComponents =
        componentCount == 3 && bytes.size() > SignaturePlace && bytes.compare(SignaturePlace, 4, "Lab ") == 0;
    BeginAtZero(*state);
    NameComponents(*state, "ICCBased(" + ProfileDigest(bytes, state->ranges) + ')',
                   ProfileComponents(componentCount, state->labComponents));
    return state;
}

ColorSpace::Pointer ReadAlternate(const PdfObject& definition, const std::string& family)
{
    auto alternate = ColorSpace::FromDefinition(definition);
    if (alternate->GetFamily() == Family::Pattern || alternate->GetFamily() == Family::Indexed)
        Fail(family, "has an alternate or base that is Indexed or Pattern");
    return alternate;
}

std::unique_ptr<State> ReadColorants(Family family, const std::string& name, const PdfObject& definition,
                                     const PdfObject::Items& colorants)
{
    if (colorants.empty() || colorants.size() > ColorSpace::MaxColorants)
        Fail(name, "needs 1 to 256 colorants, not " + std::to_string(colorants.size()));
    auto state = MakeState(family, definition, Ranges(colorants.size(), UnitRange));
    for (const PdfObject& colorant : colorants) {
        if (!colorant.IsName())
            Fail(name, "has '" + colorant.Serialize().substr(0, 40) + "' for the name of a colorant");
        state->colorantNames.push_back(colorant.GetText());
    }
    state->initialComponents.assign(colorants.size(), 1.0f);
    state->componentNames = state->colorantNames;
    state->base = ReadAlternate(Item(definition, 2), name);
    state->tintTransform = Item(definition, 3);
    if (!state->tintTransform.IsDictionary() && !state->tintTransform.IsStream())
        Fail(name, "needs a function for its tint transform");
    state->attributes = Item(definition, 4);
    return state;
}

std::unique_ptr<State> ReadSeparation(const PdfObject& definition)
{
    return ReadColorants(Family::Separation, "Separation", definition, {Item(definition, 1)});
}

std::unique_ptr<State> ReadDeviceN(const PdfObject& definition)
{
    const PdfObject names = Item(definition, 1);
    if (!names.IsArray())
        Fail("DeviceN", "needs an array of names");
    return ReadColorants(Family::DeviceN, "DeviceN", definition, names.GetItems());
}

std::unique_ptr<State> ReadIndexed(const PdfObject& definition)
{
    const PdfObject highest = Item(definition, 2);
    if (!highest.IsInteger() || highest.GetInteger() < 0 || highest.GetInteger() > 255)
        Fail("Indexed",
             "needs a highest index from 0 to 255, not '" + highest.Serialize().substr(0, 40) + "'");
    auto state = MakeState(Family::Indexed, definition, {{0.0, highest.GetNumber()}});
    state->base = ReadAlternate(Item(definition, 1), "Indexed");
    const PdfObject table = Item(definition, 3);
    if (table.IsString())
        state->table = table.GetText();
    else if (const auto bytes = OrvSys::Detail::DecodeSmallStream(table))
        state->table = *bytes;
    else
        Fail("Indexed", "has no table that can be decoded");
    state->initialComponents = {0.0f};
    state->definition =
        PdfObject::Array({PdfObject::Name("Indexed"), state->base->GetDefinition(), highest, table});
    return state;
}

std::unique_ptr<State> ReadPattern(const PdfObject& definition)
{
    const PdfObject underlying = Item(definition, 1);
    if (underlying.IsNull())
        return MakeState(Family::Pattern, PdfObject::Name("Pattern"), {});
    auto base = ColorSpace::FromDefinition(underlying);
    if (base->GetFamily() == Family::Pattern)
        Fail("Pattern", "has a Pattern space under it");
    auto state = MakeState(Family::Pattern, definition, base->GetRanges());
    state->initialComponents = base->GetInitialComponents();
    state->base = std::move(base);
    return state;
}

std::unique_ptr<State> ReadArray(const std::string& name, const PdfObject& definition)
{
    if (name == "CalGray")
        return ReadCalibrated(Family::CalGray, name, definition);
    if (name == "CalRGB")
        return ReadCalibrated(Family::CalRGB, name, definition);
    if (name == "Lab")
        return ReadCalibrated(Family::Lab, name, definition);
    if (name == "ICCBased")
        return ReadProfiled(definition);
    if (name == "Separation")
        return ReadSeparation(definition);
    if (name == "DeviceN")
        return ReadDeviceN(definition);
    if (name == "Indexed" || name == "I")
        return ReadIndexed(definition);
    if (name == "Pattern")
        return ReadPattern(definition);
    Fail("'" + name.substr(0, 40) + "'", "is of no known family");
}

} // namespace

ColorSpace::Pointer ColorSpace::DeviceGray()
{
    static const auto space =
        std::make_shared<const ColorSpace>(MakeDevice(Family::DeviceGray, "DeviceGray", {"Black"}));
    return space;
}

ColorSpace::Pointer ColorSpace::DeviceRGB()
{
    static const auto space = std::make_shared<const ColorSpace>(
        MakeDevice(Family::DeviceRGB, "DeviceRGB", {"Red", "Green", "Blue"}));
    return space;
}

ColorSpace::Pointer ColorSpace::DeviceCMYK()
{
    static const auto space = std::make_shared<const ColorSpace>(
        MakeDevice(Family::DeviceCMYK, "DeviceCMYK", {"Cyan", "Magenta", "Yellow", "Black"}));
    return space;
}

ColorSpace::Pointer ColorSpace::FromDefinition(const PdfObject& definition)
{
    const PdfObject nameObject = definition.IsArray() ? Item(definition, 0) : definition;
    if (!nameObject.IsName())
        throw std::invalid_argument("A colour space begins with '" + nameObject.Serialize().substr(0, 40) +
                                    "' instead of the name of its family.");
    const std::string& name = nameObject.GetText();
    if (name == "DeviceGray" || name == "G")
        return DeviceGray();
    if (name == "DeviceRGB" || name == "RGB")
        return DeviceRGB();
    if (name == "DeviceCMYK" || name == "CMYK")
        return DeviceCMYK();
    return std::make_shared<const ColorSpace>(ReadArray(name, definition));
}

} // namespace OrvColor
