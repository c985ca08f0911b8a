#include "pdf/writer/fonts/fonts_writer.h"

#include <algorithm>
#include <utility>

#include <qpdf/QPDF.hh>

#include <orv_font/font.h>

#include "orv_font/font_program.h"
#include "orv_font/program_font.h"
#include "pdf/fonts/file_font.h"
#include "pdf/writer/file/object_maker.h"
#include "pdf/writer/fonts/file_font_objects.h"
#include "pdf/writer/fonts/font_embedding.h"

namespace OrvPdf
{

namespace
{

using OrvFont::Font;

const OrvFont::Detail::ProgramFont* FindProgramFont(const Font& font)
{
    return dynamic_cast<const OrvFont::Detail::ProgramFont*>(&font.GetSource());
}

/// Whether both are written as one and the same object: those of another document may be.
bool AreWrittenAlike(const Font& left, const Font& right)
{
    // Fonts of files may stand for other texts, though they draw alike.
    return FindProgramFont(left) && left.GetName() == right.GetName() &&
           left.GetFamilyName() == right.GetFamilyName() && left.GetStyleName() == right.GetStyleName() &&
           left.GetFontBBox() == right.GetFontBBox() && left.GetWritingMode() == right.GetWritingMode() &&
           OrvFont::HaveSameOutlines(left, right);
}

} // namespace

QPDFObjectHandle FontsWriter::GetFont(const UsedFont& used)
{
    Known& known = fonts[Add(used.font)];
    for (std::uint32_t code = 0; code < used.codes.size(); ++code) {
        if (used.codes[code])
            known.glyphs.insert(code);
    }
    return known.object;
}

std::size_t FontsWriter::Add(const std::shared_ptr<const Font>& font)
{
    const auto found = places.find(font.get());
    if (found != places.end())
        return found->second;
    kept.push_back(font);
    const auto alike = std::find_if(fonts.begin(), fonts.end(),
                                    [&](const Known& known) { return AreWrittenAlike(*known.font, *font); });
    const auto place = static_cast<std::size_t>(alike - fonts.begin());
    if (alike == fonts.end())
        fonts.push_back({font, Reserve(*font), {}});
    places.emplace(font.get(), place);
    return place;
}

QPDFObjectHandle FontsWriter::Reserve(const Font& font)
{
    if (FindProgramFont(font))
        return maker.GetFile().makeIndirectObject(QPDFObjectHandle::newDictionary());
    std::string problem = "it has no program that can be embedded";
    if (const FileFont* const fileFont = GetFileFont(font)) {
        QPDFObjectHandle object = MakeFileFontObject(*fileFont, source, maker, problem);
        if (!object.isNull())
            return object;
    }
    errors.push_back("the font '" + font.GetName() + "' cannot be written: " + problem);
    return QPDFObjectHandle::newNull();
}

std::vector<std::string> FontsWriter::WriteAll()
{
    for (const Known& known : fonts) {
        const OrvFont::Detail::ProgramFont* const program = FindProgramFont(*known.font);
        if (!program)
            continue;
        const EmbeddingOutcome outcome =
            WriteEmbeddedFont(known.object, *known.font, *program->GetProgram(), known.glyphs, maker);
        version = std::max(version, outcome.version);
        if (!outcome.problem.empty())
            errors.push_back("the font '" + known.font->GetName() + "' is not embedded: " + outcome.problem);
    }
    return std::exchange(errors, {});
}

} // namespace OrvPdf
