#include "pdf/writer/fonts/font_subset.h"

#include <stdexcept>

#include <hb-subset.h>

#include "orv_sys/digest.h"
#include "pdf/writer/fonts/harfbuzz_face.h"

namespace OrvPdf
{

namespace
{

using SubsetInput = std::unique_ptr<hb_subset_input_t, HarfBuzzRelease<hb_subset_input_destroy>>;

constexpr hb_tag_t compactOutlines = HB_TAG('C', 'F', 'F', ' ');
constexpr hb_tag_t trueTypeOutlines = HB_TAG('g', 'l', 'y', 'f');
constexpr hb_tag_t nameTable = HB_TAG('n', 'a', 'm', 'e');

/// Layout, variation, colour, devices and what editors of fonts keep.
constexpr hb_tag_t leftOutTables[] = {
    HB_TAG('G', 'S', 'U', 'B'), HB_TAG('G', 'P', 'O', 'S'), HB_TAG('G', 'D', 'E', 'F'),
    HB_TAG('B', 'A', 'S', 'E'), HB_TAG('J', 'S', 'T', 'F'), HB_TAG('M', 'A', 'T', 'H'),
    HB_TAG('k', 'e', 'r', 'n'), HB_TAG('f', 'v', 'a', 'r'), HB_TAG('a', 'v', 'a', 'r'),
    HB_TAG('c', 'v', 'a', 'r'), HB_TAG('g', 'v', 'a', 'r'), HB_TAG('H', 'V', 'A', 'R'),
    HB_TAG('V', 'V', 'A', 'R'), HB_TAG('M', 'V', 'A', 'R'), HB_TAG('S', 'T', 'A', 'T'),
    HB_TAG('C', 'O', 'L', 'R'), HB_TAG('C', 'P', 'A', 'L'), HB_TAG('C', 'B', 'D', 'T'),
    HB_TAG('C', 'B', 'L', 'C'), HB_TAG('s', 'b', 'i', 'x'), HB_TAG('h', 'd', 'm', 'x'),
    HB_TAG('V', 'D', 'M', 'X'), HB_TAG('g', 'a', 's', 'p'), HB_TAG('m', 'e', 't', 'a'),
};

HarfBuzzFace OpenEmbeddableFace(std::string_view program, unsigned face)
{
    // HarfBuzz gives an empty face for any bytes.
    const unsigned faceCount = hb_face_count(MakeHarfBuzzBlob(program).get());
    if (faceCount == 0)
        throw std::runtime_error("the bytes are no TrueType or OpenType font");
    if (face >= faceCount)
        throw std::runtime_error("there is no face " + std::to_string(face) + " in a font file of " +
                                 std::to_string(faceCount));
    HarfBuzzFace opened = OpenHarfBuzzFace(program, face);
    if (hb_face_get_glyph_count(opened.get()) == 0)
        throw std::runtime_error("the font has no glyphs");
    if (!HasTable(opened, trueTypeOutlines) && !HasTable(opened, compactOutlines))
        throw std::runtime_error("the font has no outlines in a table glyf or CFF");
    return opened;
}

void ChooseGlyphs(hb_subset_input_t* input, const HarfBuzzFace& face, const GlyphSet& glyphs)
{
    const unsigned glyphCount = hb_face_get_glyph_count(face.get());
    hb_set_t* chosen = hb_subset_input_glyph_set(input);
    hb_set_add(chosen, 0);
    for (const std::uint32_t glyph : glyphs) {
        if (glyph >= glyphCount)
            throw std::runtime_error("there is no glyph " + std::to_string(glyph) + " in a font of " +
                                     std::to_string(glyphCount));
        hb_set_add(chosen, glyph);
    }
}

void ChooseTables(hb_subset_input_t* input)
{
    hb_set_t* leftOut = hb_subset_input_set(input, HB_SUBSET_SETS_DROP_TABLE_TAG);
    for (const hb_tag_t tag : leftOutTables)
        hb_set_add(leftOut, tag);
    hb_set_add(hb_subset_input_set(input, HB_SUBSET_SETS_NO_SUBSET_TABLE_TAG), nameTable);
}

} // namespace

std::string MakeFontSubset(std::string_view program, unsigned face, const GlyphSet& glyphs)
{
    const HarfBuzzFace whole = OpenEmbeddableFace(program, face);
    const SubsetInput input(hb_subset_input_create_or_fail());
    if (!input)
        throw std::bad_alloc();
    ChooseGlyphs(input.get(), whole, glyphs);
    ChooseTables(input.get());
    hb_subset_input_set_flags(input.get(), HB_SUBSET_FLAGS_RETAIN_GIDS | HB_SUBSET_FLAGS_NO_HINTING |
                                               HB_SUBSET_FLAGS_NOTDEF_OUTLINE);
    const HarfBuzzFace part(hb_subset_or_fail(whole.get(), input.get()));
    if (!part)
        throw std::runtime_error("HarfBuzz cannot take " + std::to_string(glyphs.size()) +
                                 " glyphs out of the font: one of its tables is damaged");
    const HarfBuzzBlob blob(hb_face_reference_blob(part.get()));
    return std::string(BytesOf(blob));
}

bool IsTableFont(std::string_view program)
{
    return hb_face_count(MakeHarfBuzzBlob(program).get()) > 0;
}

std::string MakeSubsetTag(std::string_view fontName, const GlyphSet& glyphs)
{
    OrvSys::Detail::Digest digest;
    digest.Add(fontName);
    for (const std::uint32_t glyph : glyphs)
        digest.AddNumber(glyph);
    std::string tag;
    constexpr std::uint64_t letterCount = 26;
    for (std::uint64_t rest = digest.Get(); tag.size() < 6; rest /= letterCount)
        tag.push_back(static_cast<char>('A' + rest % letterCount));
    return tag;
}

} // namespace OrvPdf
