#include "pdf/reader/fonts/font_parts.h"

#include <algorithm>
#include <array>

#include "orv_font/font_names.h"
#include "pdf/marked_content_tags.h"
#include "pdf/number_text.h"
#include "pdf/reader/content/problem_log.h"
#include "pdf/reader/file/qpdf_text.h"
#include "pdf/reader/file/stream_data.h"
#include "pdf/reader/resources/object_conversion.h"

namespace OrvPdf
{

namespace
{

using OrvFont::Font;

constexpr long long heaviest = 900;

class FileFontStream : public FontStream
{
public:
    FileFontStream(std::shared_ptr<const SourceFile> givenFile, QPDFObjectHandle givenStream,
                   std::string givenName)
        : file(std::move(givenFile)), stream(givenStream), name(std::move(givenName))
    {}

    std::string Read(std::string& problem) const override
    {
        EncodedStream encoded;
        {
            const SourceFile::Access access(*file);
            encoded = FetchStream(stream);
        }
        const std::uint64_t largest = file->GetOptions().limits.resourceBytes;
        const DecodedStream decoded = DecodeStream(*file, encoded, {largest, "resourceBytes", largest});
        problem = decoded.problem;
        if (!problem.empty() && !name.empty())
            file->Tell(name + ": " + problem);
        return std::string(decoded.isDecoded ? decoded.bytes.View() : std::string_view());
    }

private:
    std::shared_ptr<const SourceFile> file;
    QPDFObjectHandle stream;
    std::string name;
};

class FileProblems : public LateProblems
{
public:
    explicit FileProblems(std::shared_ptr<const SourceFile> givenFile) : file(std::move(givenFile)) {}

    void Tell(const std::string& problem) const override { file->Tell(problem); }

private:
    std::shared_ptr<const SourceFile> file;
};

class FileFontOrigin : public FontOrigin
{
public:
    FileFontOrigin(std::shared_ptr<const SourceFile> givenFile, QPDFObjectHandle givenDictionary)
        : file(std::move(givenFile)), dictionary(givenDictionary)
    {}

    int GetObjectNumber(const SourceFile& other) const override
    {
        return &other == file.get() ? dictionary.getObjectID() : 0;
    }

    std::string GetDirectText(const SourceFile& other) const override
    {
        if (&other != file.get() || dictionary.isIndirect())
            return {};
        const SourceFile::Access access(*file);
        return QPDFObjectHandle(dictionary).unparse();
    }

    OrvSys::PdfObject Convert(std::string& problem) const override
    {
        const SourceFile::Access access(*file);
        return ObjectConverter(*file).Convert(dictionary, problem);
    }

private:
    std::shared_ptr<const SourceFile> file;
    mutable QPDFObjectHandle dictionary;
};

/// A name, or a string in its place.
std::string GetNameOrText(QPDFObjectHandle object)
{
    const std::string name = GetNameText(object);
    return name.empty() && object.isString() ? object.getStringValue() : name;
}

} // namespace

QPDFObjectHandle FindProgramStream(QPDFObjectHandle descriptor)
{
    for (const char* const key : {"/FontFile3", "/FontFile2", "/FontFile"}) {
        QPDFObjectHandle stream = GetEntry(descriptor, key);
        if (stream.isStream())
            return stream;
    }
    return QPDFObjectHandle::newNull();
}

FontParts GatherFontParts(const std::shared_ptr<const SourceFile>& file, QPDFObjectHandle dictionary,
                          QPDFObjectHandle glyphs)
{
    FontParts parts{file, dictionary, glyphs, GetEntry(glyphs, "/FontDescriptor"), {}, 0};
    if (!parts.descriptor.isDictionary())
        parts.descriptor = QPDFObjectHandle::newNull();
    for (QPDFObjectHandle candidate : {GetEntry(glyphs, "/BaseFont"), GetEntry(parts.descriptor, "/FontName"),
                                       GetEntry(dictionary, "/BaseFont")}) {
        if (parts.baseFont.empty())
            parts.baseFont = GetNameOrText(candidate);
    }
    QPDFObjectHandle flags = GetEntry(parts.descriptor, "/Flags");
    if (flags.isInteger())
        parts.flags = static_cast<std::uint32_t>(flags.getIntValue());
    return parts;
}

std::unique_ptr<const FontStream> MakeFontStream(const std::shared_ptr<const SourceFile>& file,
                                                 QPDFObjectHandle stream, std::string name)
{
    return stream.isStream() ? std::make_unique<const FileFontStream>(file, stream, std::move(name))
                             : nullptr;
}

std::shared_ptr<const FontOrigin> MakeFontOrigin(const FontParts& parts)
{
    return std::make_shared<const FileFontOrigin>(parts.file, parts.dictionary);
}

std::unique_ptr<const DrawingProgram> MakeDrawingProgram(const FontParts& parts, FontProblems& problems)
{
    DrawingProgram::Description description;
    description.name = problems.GetFont();
    description.postScriptName = OrvFont::Detail::WithoutSubsetTag(parts.baseFont);
    OrvFont::Detail::FontHints& hints = description.hints;
    hints.isSerif = (parts.flags & FontFlag::Serif) != 0;
    hints.isFixedPitch = (parts.flags & FontFlag::FixedPitch) != 0;
    hints.isItalic = (parts.flags & FontFlag::Italic) != 0;
    hints.isBold = (parts.flags & FontFlag::ForceBold) != 0;
    QPDFObjectHandle weight = GetEntry(parts.descriptor, "/FontWeight");
    if (weight.isInteger())
        hints.weight = static_cast<int>(std::clamp<long long>(weight.getIntValue(), 0, heaviest));
    std::string problem;
    auto program = std::make_unique<const DrawingProgram>(
        std::move(description), MakeFontStream(parts.file, FindProgramStream(parts.descriptor)),
        std::make_shared<const FileProblems>(parts.file), problem);
    if (!problem.empty())
        problems.AddWhole(std::move(problem));
    return program;
}

Font::Names ReadStatedNames(const FontParts& parts)
{
    Font::Names names;
    if (!parts.baseFont.empty())
        names = OrvFont::Detail::NamesFromPostScriptName(parts.baseFont);
    names.name = OrvFont::Detail::WithoutSubsetTag(parts.baseFont);
    const std::string family = GetTextString(GetEntry(parts.descriptor, "/FontFamily"));
    if (!family.empty())
        names.family = family;
    QPDFObjectHandle style = GetEntry(parts.descriptor, Tags::fontStyleKey);
    if (style.isString())
        names.style = GetTextString(style);
    return names;
}

Font::Names ReadFontNames(const FontParts& parts, const DrawingProgram& program)
{
    Font::Names names = ReadStatedNames(parts);
    if (!names.name.empty() || !program.IsEmbedded() || program.IsReplaced())
        return names;
    const Font::Names& own = program.Get()->GetNames();
    names.name = own.name;
    if (names.family.empty())
        names.family = own.family;
    if (names.style.empty())
        names.style = own.style;
    return names;
}

boost::optional<Font::Rectangle> ReadStatedBox(QPDFObjectHandle array, FontProblems& problems)
{
    std::array<double, 4> corners{};
    if (array.isNull())
        return boost::none;
    bool isBox = array.isArray() && array.getArrayNItems() == static_cast<int>(corners.size());
    for (std::size_t index = 0; isBox && index < corners.size(); ++index)
        isBox = ReadNumber(array.getArrayItem(static_cast<int>(index)), corners[index]);
    if (!isBox) {
        problems.Add("FontBBox is no array of four numbers");
        return boost::none;
    }
    return Plexa::RectangleFromCorners<Plexa::MilliPointCoordinateSystem>({corners[0], corners[1]},
                                                                          {corners[2], corners[3]});
}

Font::Rectangle ReadFontBox(const FontParts& parts, const DrawingProgram& program, FontProblems& problems)
{
    const auto stated = ReadStatedBox(GetEntry(parts.descriptor, "/FontBBox"), problems);
    if (stated)
        return *stated;
    return program.Get() ? program.Get()->GetBox() : Font::Rectangle(0.0, 0.0, 0.0, 0.0);
}

bool ReadNumber(QPDFObjectHandle object, double& value)
{
    if (object.isInteger()) {
        value = static_cast<double>(object.getIntValue());
        return true;
    }
    return object.isReal() && ParseNumber(object.getRealValue(), 0, value);
}

double ReadNumberAt(QPDFObjectHandle dictionary, const char* key, double otherwise, FontProblems& problems)
{
    QPDFObjectHandle object = GetEntry(dictionary, key);
    double value = otherwise;
    if (!object.isNull() && !ReadNumber(object, value))
        problems.Add(WithoutSlash(key) + " is no number");
    return value;
}

} // namespace OrvPdf
