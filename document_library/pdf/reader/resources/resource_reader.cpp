#include "pdf/reader/resources/resource_reader.h"
#include "pdf/number_text.h"

#include <array>

#include "pdf/reader/document/layer_membership.h"
#include "pdf/reader/file/qpdf_text.h"
#include "pdf/reader/fonts/type3_font.h"
#include "pdf/reader/resources/resource_guard.h"

namespace OrvPdf
{

namespace
{

using OrvColor::ColorSpace;

struct DeviceSpace
{
    const char* name;
    const char* defaultKey;
    std::size_t components;
    ColorSpace::Pointer (*make)();
};

constexpr std::array<DeviceSpace, 3> DeviceSpaces = {
    {{"DeviceGray", "/DefaultGray", 1, &ColorSpace::DeviceGray},
     {"DeviceRGB", "/DefaultRGB", 3, &ColorSpace::DeviceRGB},
     {"DeviceCMYK", "/DefaultCMYK", 4, &ColorSpace::DeviceCMYK}}};

const DeviceSpace* FindDeviceSpace(const std::string& name)
{
    for (const DeviceSpace& space : DeviceSpaces) {
        if (name == space.name)
            return &space;
    }
    return nullptr;
}

} // namespace

QPDFObjectHandle ResourceReader::FindResource(const char* category, const std::string& name,
                                              std::string& problem)
{
    QPDFObjectHandle dictionary = resources;
    if (!dictionary.isInitialized() || !dictionary.isDictionary()) {
        problem = "there are no resources";
        return QPDFObjectHandle::newNull();
    }
    QPDFObjectHandle found = GetNamedEntry(dictionary.getKey(category), name);
    if (found.isNull())
        problem = "it is missing from " + WithoutSlash(category) + " of the resources";
    hasFound = hasFound || !found.isNull();
    return found;
}

ColorSpace::Pointer ResourceReader::FindColorSpace(const std::string& name, std::string& problem)
{
    ColorSpace::Pointer space;
    GuardLookUp(problem, [&] {
        const SourceFile::Access access(document.GetFile());
        if (name == "Pattern") {
            space = ColorSpace::Pattern();
        } else if (FindDeviceSpace(name)) {
            space = FindDefault(name, problem);
        } else {
            QPDFObjectHandle definition = FindResource("/ColorSpace", name, problem);
            if (!definition.isNull())
                space = ResolveColorSpace(definition, problem);
        }
    });
    return space;
}

ColorSpace::Pointer ResourceReader::ResolveColorSpace(QPDFObjectHandle definition, std::string& problem)
{
    const std::string alias = GetNameText(definition);
    return FindDeviceSpace(alias) ? FindDefault(alias, problem) : document.GetColorSpace(definition, problem);
}

ColorSpace::Pointer ResourceReader::FindDefault(const std::string& deviceName, std::string& problem)
{
    const DeviceSpace& device = *FindDeviceSpace(deviceName);
    std::string missing;
    QPDFObjectHandle definition = FindResource("/ColorSpace", WithoutSlash(device.defaultKey), missing);
    if (definition.isNull() || definition.isName())
        return device.make();
    const ColorSpace::Pointer space = document.GetColorSpace(definition, problem);
    if (!space) {
        problem = WithoutSlash(device.defaultKey) + " is left out: " + problem;
        return device.make();
    }
    // No pattern may stand in, nor what looks up colours of its own (ISO 32000-1, 8.6.5.6).
    const bool isFit = space->GetFamily() != ColorSpace::Family::Pattern &&
                       space->GetFamily() != ColorSpace::Family::Indexed &&
                       space->GetComponentCount() == device.components;
    if (!isFit)
        problem = WithoutSlash(device.defaultKey) + " is left out: it cannot stand for " + deviceName;
    return isFit ? space : device.make();
}

OrvSys::PdfObject ResourceReader::ConvertState(QPDFObjectHandle dictionary)
{
    OrvSys::PdfObject::Entries entries;
    for (const auto& [key, handle] : dictionary.getDictAsMap()) {
        QPDFObjectHandle value = handle;
        OrvSys::PdfObject converted;
        // A form and a font have resources of their own, which may lead anywhere.
        std::string problem;
        if (key == "/Font" || (key == "/SMask" && value.isDictionary()))
            problem = "resources";
        else
            converted = document.GetConverter().Convert(value, problem);
        entries.emplace(WithoutSlash(key),
                        problem.empty() ? converted : OrvSys::PdfObject::Name(unresolvedValue));
    }
    return OrvSys::PdfObject::Dictionary(std::move(entries));
}

OrvSys::PdfObject ResourceReader::FindGraphicsState(const std::string& name, std::string& problem)
{
    OrvSys::PdfObject state;
    GuardLookUp(problem, [&] {
        const SourceFile::Access access(document.GetFile());
        QPDFObjectHandle dictionary = FindResource("/ExtGState", name, problem);
        if (dictionary.isDictionary())
            state = ConvertState(dictionary);
        else if (!dictionary.isNull())
            problem = "it is no dictionary";
    });
    return state;
}

std::shared_ptr<const OrvFont::Font> ResourceReader::ReadFont(QPDFObjectHandle dictionary,
                                                              std::string& problem)
{
    std::vector<std::string> problems;
    auto font = document.GetFonts().Read(dictionary, problems);
    for (const std::string& text : problems)
        problem += (problem.empty() ? "" : "; ") + text;
    return font;
}

std::shared_ptr<const OrvFont::Font> ResourceReader::FindFont(const std::string& name, std::string& problem)
{
    std::shared_ptr<const OrvFont::Font> font;
    GuardLookUp(problem, [&] {
        const SourceFile::Access access(document.GetFile());
        QPDFObjectHandle dictionary = FindResource("/Font", name, problem);
        if (!dictionary.isNull())
            font = ReadFont(dictionary, problem);
    });
    return font;
}

ContentResources::SizedFont ResourceReader::FindFontOfState(const std::string& state, std::string& problem)
{
    SizedFont found;
    GuardLookUp(problem, [&] {
        const SourceFile::Access access(document.GetFile());
        QPDFObjectHandle font = GetEntry(FindResource("/ExtGState", state, problem), "/Font");
        std::string size;
        if (!font.isArray() || font.getArrayNItems() != 2 || !GetNumberText(font.getArrayItem(1), size) ||
            !ParseNumber(size, 0, found.size)) {
            problem = "the font is no array of a font and its size";
            return;
        }
        found.font = ReadFont(font.getArrayItem(0), problem);
    });
    return found;
}

bool ResourceReader::HasGlyphContents(const OrvFont::Font& font)
{
    return dynamic_cast<const Type3Font*>(&font.GetSource()) != nullptr;
}

std::shared_ptr<FormDefinition> ResourceReader::FindGlyph(const std::shared_ptr<const OrvFont::Font>& font,
                                                          const OrvFont::Character& character,
                                                          std::string& problem)
{
    std::shared_ptr<FormDefinition> glyph;
    GuardLookUp(problem, [&] {
        const SourceFile::Access access(document.GetFile());
        glyph = document.GetGlyph(font, character, resources);
    });
    return glyph;
}

boost::optional<ContentResources::PropertyList> ResourceReader::FindPropertyList(const std::string& name,
                                                                                 std::string& problem)
{
    boost::optional<PropertyList> list;
    GuardLookUp(problem, [&] {
        const SourceFile::Access access(document.GetFile());
        QPDFObjectHandle dictionary = FindResource("/Properties", name, problem);
        if (dictionary.isNull())
            return;
        if (!dictionary.isDictionary()) {
            problem = "it is no dictionary";
            return;
        }
        PropertyList read;
        read.objectNumber = dictionary.getObjectID();
        read.layer = ReadLayerMembership(document, dictionary, problem);
        std::string conversionProblem;
        read.value = document.GetConverter().Convert(dictionary, conversionProblem);
        // A layer is told by its membership; the value of any other list is all that it has.
        if (!conversionProblem.empty() && !read.layer)
            problem = conversionProblem;
        list = std::move(read);
    });
    return list;
}

ContentResources::XObject ResourceReader::FindXObject(const std::string& name, std::string& problem)
{
    XObject found;
    GuardLookUp(problem, [&] {
        const SourceFile::Access access(document.GetFile());
        QPDFObjectHandle stream = FindResource("/XObject", name, problem);
        const std::string kind = GetNameText(GetEntry(stream, "/Subtype"));
        if (stream.isNull())
            return;
        if (!stream.isStream()) {
            problem = "it is no stream";
        } else if (kind == "Image") {
            found.kind = XObject::Kind::Picture;
            found.isStencil = IsTrue(GetEntry(stream, "/ImageMask"));
            const auto findSpace = [this](QPDFObjectHandle definition, std::string& spaceProblem) {
                return ResolveColorSpace(definition, spaceProblem);
            };
            found.picture = document.GetPictures().Read(stream, findSpace, problem);
        } else if (kind == "Form") {
            found.kind = XObject::Kind::Form;
            found.form = document.GetForm(stream, resources);
        } else {
            problem = "external objects of the kind " + (kind.empty() ? "that is missing" : "/" + kind) +
                      " are not modelled";
        }
    });
    return found;
}

std::shared_ptr<PictureResource> ResourceReader::ReadInlinePicture(const OrvSys::PdfObject& stream,
                                                                   const ColorSpace::Pointer& space,
                                                                   std::string& problem)
{
    std::shared_ptr<PictureResource> picture;
    GuardLookUp(problem, [&] {
        const SourceFile::Access access(document.GetFile());
        picture = document.GetPictures().ReadInline(stream, space, problem);
    });
    return picture;
}

std::shared_ptr<MaskDefinition> ResourceReader::FindMask(const std::string& state, std::string& problem)
{
    std::shared_ptr<MaskDefinition> found;
    GuardLookUp(problem, [&] {
        const SourceFile::Access access(document.GetFile());
        QPDFObjectHandle mask = GetEntry(FindResource("/ExtGState", state, problem), "/SMask");
        if (!GetEntry(mask, "/G").isStream()) {
            problem = "the soft mask has no form";
            return;
        }
        found = document.GetMask(mask, resources);
    });
    return found;
}

} // namespace OrvPdf
