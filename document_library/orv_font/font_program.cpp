#include "orv_font/font_program.h"

#include <algorithm>
#include <atomic>
#include <fstream>
#include <mutex>
#include <sstream>
#include <stdexcept>
#include <string_view>
#include <unordered_map>
#include <utility>

#include <plexa/compound.h>

#include "orv_font/cid_table.h"
#include "orv_font/free_type_library.h"
#include "orv_font/glyph_outline.h"
#include "orv_font/name_table.h"
#include "orv_font/processor_time.h"
#include "orv_font/program_extent.h"

#include FT_ADVANCES_H
#include FT_FONT_FORMATS_H
#include FT_TRUETYPE_IDS_H
#include FT_TRUETYPE_TABLES_H
#include FT_TRUETYPE_TAGS_H

namespace OrvFont::Detail
{

namespace
{

// Bytes that FreeType may hold for a program: enough for the largest outline, and for each of the program's
// bytes what its tables and names become when they are unpacked.
constexpr std::size_t memoryForAnyProgram = std::size_t{8} << 20;
constexpr std::size_t memoryForEachByte = 16;

// Nanoseconds of processor time for all outlines of a program together. The 50 000 glyphs of a large one take
// a fraction of a second; one that is made to take more loses its outlines from there on.
constexpr std::int64_t loadingTime = 20'000'000'000;

// Outlines as they are: neither fitted to pixels nor replaced by pictures of the glyphs.
constexpr FT_Int32 loadFlags = FT_LOAD_NO_SCALE | FT_LOAD_NO_HINTING | FT_LOAD_NO_AUTOHINT |
                               FT_LOAD_NO_BITMAP | FT_LOAD_IGNORE_TRANSFORM;

[[noreturn]] void ThrowUnusable(const std::string& reason)
{
    throw std::runtime_error("The font program can't be used: " + reason + ".");
}

FT_Face OpenFace(const FreeTypeLibrary& library, const std::string& bytes, unsigned index)
{
    // The high bits would choose an instance of a variable font.
    if (index > 0xFFFF)
        ThrowUnusable("it has no face " + std::to_string(index));
    const std::string_view program = FindProgramExtent(bytes);
    FT_Face face = nullptr;
    const FT_Error error =
        FT_New_Memory_Face(library.Get(), reinterpret_cast<const FT_Byte*>(program.data()),
                           static_cast<FT_Long>(program.size()), static_cast<FT_Long>(index), &face);
    if (error == FT_Err_Unknown_File_Format || error == FT_Err_Invalid_Stream_Operation)
        ThrowUnusable("its bytes are no TrueType, OpenType, CFF or Type 1, or not all of them");
    if (error == FT_Err_Out_Of_Memory)
        ThrowUnusable("it needs more memory than a program of its size should");
    if (error != 0)
        ThrowUnusable("it is damaged, FreeType's error " + std::to_string(error));
    return face;
}

FontProgram::Format FindFormat(FT_Face face)
{
    const char* name = FT_Get_Font_Format(face);
    const std::string format = name ? name : "";
    if (format == "TrueType")
        return FontProgram::Format::TrueType;
    if (format == "CFF")
        return FontProgram::Format::Cff;
    if (format == "Type 1")
        return FontProgram::Format::Type1;
    ThrowUnusable("its format is '" + format + "'");
}

bool HasTable(FT_Face face, FT_ULong tag)
{
    FT_ULong length = 0;
    return FT_Load_Sfnt_Table(face, tag, 0, nullptr, &length) == 0;
}

/// Never given twice, as an address might be.
std::uint64_t MakeSerialNumber()
{
    static std::atomic<std::uint64_t> last{0};
    return ++last;
}

} // namespace

struct FontProgram::Face
{
    Face(std::shared_ptr<const std::string> givenBytes, unsigned givenNumber)
        : bytes(std::move(givenBytes)),
          faceNumber(givenNumber),
          library(memoryForAnyProgram + memoryForEachByte * bytes->size()),
          face(OpenFace(library, *bytes, faceNumber)),
          format(FindFormat(face)),
          hasAdvances(HasTable(face, TTAG_hmtx)),
          cids(face),
          unicodeMap(face->charmap)
    {
        if (!FT_IS_SCALABLE(face) || face->units_per_EM == 0 || face->num_glyphs <= 0)
            ThrowUnusable("it has no outlines");
        names = ReadNames(face);
        const Font::Point lower(InThousandths(face->bbox.xMin), InThousandths(face->bbox.yMin));
        const Font::Point upper(InThousandths(face->bbox.xMax), InThousandths(face->bbox.yMax));
        box = Plexa::RectangleFromCorners(lower, upper);
    }

    std::uint32_t GetGlyphCount() const
    {
        return cids.IsEmpty() ? static_cast<std::uint32_t>(face->num_glyphs) : cids.GetGlyphCount();
    }

    double InThousandths(FT_Long units) const
    {
        return static_cast<double>(units) * 1000.0 / face->units_per_EM;
    }

    // All below: with the lock held.

    /// Null if the glyph is damaged or not there.
    FT_GlyphSlot LoadGlyph(std::uint32_t glyph)
    {
        if (glyph >= GetGlyphCount() || timeLeft <= 0)
            return nullptr;
        const FT_UInt index = cids.IsEmpty() ? glyph : cids.GetFreeTypeIndex(glyph);
        const std::int64_t begin = GetThreadTime();
        const FT_Error error = FT_Load_Glyph(face, index, loadFlags);
        timeLeft -= GetThreadTime() - begin;
        return error == 0 ? face->glyph : nullptr;
    }

    std::uint32_t FindInMap(FT_CharMap map, FT_ULong code)
    {
        if (!map || FT_Set_Charmap(face, map) != 0)
            return 0;
        return FT_Get_Char_Index(face, code);
    }

    FT_CharMap FindMap(unsigned platform, unsigned encoding) const
    {
        const auto end = face->charmaps + face->num_charmaps;
        const auto map = std::find_if(face->charmaps, end, [=](FT_CharMap each) {
            return each->platform_id == platform && each->encoding_id == encoding;
        });
        return map == end ? nullptr : *map;
    }

    /// The encoding that a Type 1 or CFF program has of its own.
    FT_CharMap FindBuiltInMap() const
    {
        const auto end = face->charmaps + face->num_charmaps;
        const auto map = std::find_if(face->charmaps, end,
                                      [](FT_CharMap each) { return each->platform_id == TT_PLATFORM_ADOBE; });
        return map == end ? nullptr : *map;
    }

    std::string GetGlyphName(std::uint32_t glyph)
    {
        char name[256] = "";
        if (!FT_HAS_GLYPH_NAMES(face) || FT_Get_Glyph_Name(face, glyph, name, sizeof(name)) != 0)
            return {};
        return name;
    }

    const std::unordered_map<std::string, std::uint32_t>& GetGlyphsByName()
    {
        if (!areNamesKnown && FT_HAS_GLYPH_NAMES(face)) {
            for (std::uint32_t glyph = 0; glyph < GetGlyphCount(); ++glyph)
                glyphsByName.emplace(GetGlyphName(glyph), glyph);
        }
        areNamesKnown = true;
        return glyphsByName;
    }

    const std::uint64_t serialNumber = MakeSerialNumber();
    const std::shared_ptr<const std::string> bytes;
    const unsigned faceNumber;
    const FreeTypeLibrary library;
    const FT_Face face;
    const Format format;
    const bool hasAdvances;
    const CidTable cids;
    const FT_CharMap unicodeMap;
    Font::Names names;
    Font::Rectangle box;

    /// The program that was last found to have the same bytes.
    std::atomic<std::uint64_t> twin{0};

    /// One thread at a time may use `face` and what follows.
    std::mutex mutex;
    std::int64_t timeLeft = loadingTime;
    bool areNamesKnown = false;
    std::unordered_map<std::string, std::uint32_t> glyphsByName;
};

FontProgram::FontProgram(std::shared_ptr<const std::string> bytes, unsigned faceNumber)
{
    if (!bytes || bytes->empty())
        ThrowUnusable("it is empty");
    face = std::make_unique<Face>(std::move(bytes), faceNumber);
}

FontProgram::~FontProgram() = default;

std::shared_ptr<const FontProgram> FontProgram::Load(const std::string& path, unsigned face)
{
    std::ifstream file(path, std::ios::binary);
    std::ostringstream bytes;
    if (!file.is_open() || !(bytes << file.rdbuf()))
        throw std::runtime_error("The font file '" + path + "' can't be read.");
    try {
        return std::make_shared<const FontProgram>(std::make_shared<const std::string>(bytes.str()), face);
    } catch (const std::runtime_error& error) {
        throw std::runtime_error("In the font file '" + path + "': " + error.what());
    }
}

const std::shared_ptr<const std::string>& FontProgram::GetBytes() const
{
    return face->bytes;
}

unsigned FontProgram::GetFace() const
{
    return face->faceNumber;
}

FontProgram::Format FontProgram::GetFormat() const
{
    return face->format;
}

bool FontProgram::IsCidKeyed() const
{
    return !face->cids.IsEmpty();
}

std::uint32_t FontProgram::GetGlyphCount() const
{
    return face->GetGlyphCount();
}

const Font::Names& FontProgram::GetNames() const
{
    return face->names;
}

Font::Rectangle FontProgram::GetBox() const
{
    return face->box;
}

std::shared_ptr<const Plexa::Compound> FontProgram::MakeOutline(std::uint32_t glyph,
                                                                const Font::Point& origin) const
{
    const std::lock_guard<std::mutex> lock(face->mutex);
    const FT_GlyphSlot slot = face->LoadGlyph(glyph);
    if (!slot || slot->format != FT_GLYPH_FORMAT_OUTLINE)
        return nullptr;
    return MakeCompound(slot->outline, face->face->units_per_EM, origin);
}

double FontProgram::GetAdvance(std::uint32_t glyph) const
{
    const std::lock_guard<std::mutex> lock(face->mutex);
    if (glyph >= face->GetGlyphCount())
        return 0.0;
    // FreeType's quick way knows the table of advances, but not the matrix of a program without that table.
    if (face->hasAdvances) {
        FT_Fixed advance = 0;
        const bool isKnown = FT_Get_Advance(face->face, glyph, loadFlags, &advance) == 0;
        return isKnown ? face->InThousandths(advance) : 0.0;
    }
    const FT_GlyphSlot slot = face->LoadGlyph(glyph);
    return slot ? face->InThousandths(slot->metrics.horiAdvance) : 0.0;
}

double FontProgram::GetVerticalAdvance(std::uint32_t glyph) const
{
    const std::lock_guard<std::mutex> lock(face->mutex);
    FT_Fixed advance = 0;
    const bool isKnown =
        FT_HAS_VERTICAL(face->face) && glyph < face->GetGlyphCount() &&
        FT_Get_Advance(face->face, glyph, loadFlags | FT_LOAD_VERTICAL_LAYOUT, &advance) == 0;
    return isKnown ? -face->InThousandths(advance) : -1000.0;
}

std::uint32_t FontProgram::FindGlyphByName(const std::string& name) const
{
    const std::lock_guard<std::mutex> lock(face->mutex);
    const auto& glyphs = face->GetGlyphsByName();
    const auto found = glyphs.find(name);
    return found == glyphs.end() || name.empty() ? 0 : found->second;
}

std::uint32_t FontProgram::FindGlyphByCodePoint(char32_t codePoint) const
{
    const std::lock_guard<std::mutex> lock(face->mutex);
    return face->FindInMap(face->unicodeMap, codePoint);
}

bool FontProgram::HasCharacterMap(unsigned platform, unsigned encoding) const
{
    return face->FindMap(platform, encoding) != nullptr;
}

std::uint32_t FontProgram::FindGlyphByCode(unsigned platform, unsigned encoding, std::uint32_t code) const
{
    const std::lock_guard<std::mutex> lock(face->mutex);
    return face->FindInMap(face->FindMap(platform, encoding), code);
}

std::uint32_t FontProgram::FindGlyphByBuiltInCode(std::uint8_t code) const
{
    const std::lock_guard<std::mutex> lock(face->mutex);
    if (face->format != Format::TrueType)
        return face->FindInMap(face->FindBuiltInMap(), code);
    if (face->face->num_charmaps != 1)
        return 0;
    // The codes of a symbolic font may stand in any of these ranges (ISO 32000-1, 9.6.6.4).
    for (const FT_ULong range : {0x0000, 0xF000, 0xF100, 0xF200}) {
        if (const std::uint32_t glyph = face->FindInMap(face->face->charmaps[0], range + code))
            return glyph;
    }
    return 0;
}

std::uint32_t FontProgram::FindGlyphByCid(std::uint32_t cid) const
{
    if (face->cids.IsEmpty())
        return cid < face->GetGlyphCount() ? cid : 0;
    return face->cids.FindGlyph(cid);
}

std::string FontProgram::GetGlyphName(std::uint32_t glyph) const
{
    const std::lock_guard<std::mutex> lock(face->mutex);
    return glyph < face->GetGlyphCount() ? face->GetGlyphName(glyph) : std::string();
}

bool FontProgram::IsSameAs(const FontProgram& other) const
{
    if (this == &other)
        return true;
    if (face->faceNumber != other.face->faceNumber)
        return false;
    if (face->bytes == other.face->bytes || face->twin == other.face->serialNumber)
        return true;
    if (*face->bytes != *other.face->bytes)
        return false;
    // Programs are compared for each pair of texts, and that would read all bytes every time.
    face->twin = other.face->serialNumber;
    return true;
}

} // namespace OrvFont::Detail
