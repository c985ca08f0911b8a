#include "support/type1_maker.h"

#include <cstdint>

#include "support/font_bytes.h"

namespace HarrowSupport::Testing
{

namespace
{

struct Parts
{
    std::string text;
    std::string encrypted;
    std::string zeros;
};

/// The encryption of Type 1, with four bytes before that mean nothing.
std::string Encrypt(const std::string& plain, std::uint16_t key)
{
    std::string encrypted;
    for (const char letter : std::string(4, '\0') + plain) {
        const auto cipher = static_cast<unsigned char>(static_cast<unsigned char>(letter) ^ (key >> 8));
        key = static_cast<std::uint16_t>((cipher + key) * 52845u + 22719u);
        encrypted.push_back(static_cast<char>(cipher));
    }
    return encrypted;
}

std::string MakeOutline(const MadeType1Glyph& glyph)
{
    FontBytes code;
    const auto number = [&code](int value) { code.Add8(255).Add32(value); };
    number(glyph.left);
    number(glyph.width);
    code.Add8(13); // hsbw, which also moves to the left edge
    if (glyph.right == glyph.left)
        return code.Add8(14).text;
    number(glyph.bottom);
    code.Add8(4); // vmoveto
    number(glyph.right - glyph.left);
    code.Add8(6); // hlineto
    number(glyph.left - glyph.right);
    number(glyph.top - glyph.bottom);
    code.Add8(5); // rlineto
    return code.Add8(9).Add8(14).text;
}

Parts MakeParts(const MadeType1Font& font)
{
    Parts parts;
    parts.text = "%!PS-AdobeFont-1.0: " + font.postScriptName +
                 " 001.001\n11 dict begin\n/FontInfo 5 dict dup begin\n";
    parts.text += "/FullName (" + font.fullName + ") readonly def\n/FamilyName (" + font.familyName +
                  ") readonly def\n/Weight (" + font.weight + ") readonly def\nend readonly def\n";
    parts.text += "/FontName /" + font.postScriptName + " def\n/PaintType 0 def\n/FontType 1 def\n";
    parts.text += "/FontMatrix [" + font.matrix + "] readonly def\n/Encoding 256 array\n";
    parts.text += "0 1 255 {1 index exch /.notdef put} for\n";
    for (std::size_t glyph = 1; glyph < font.glyphs.size(); ++glyph)
        parts.text += "dup " + std::to_string(font.firstCode + static_cast<int>(glyph) - 1) + " /" +
                      font.glyphs[glyph].name + " put\n";
    parts.text +=
        "readonly def\n/FontBBox {-10 -200 1000 800} readonly def\ncurrentdict end\ncurrentfile eexec\n";

    std::string secret =
        "dup /Private 8 dict dup begin\n/RD {string currentfile exch readstring pop} executeonly def\n"
        "/ND {noaccess def} executeonly def\n/NP {noaccess put} executeonly def\n"
        "/BlueValues [] def\n/MinFeature {16 16} def\n/password 5839 def\n/lenIV 4 def\n";
    secret += "2 index /CharStrings " + std::to_string(font.glyphs.size()) + " dict dup begin\n";
    for (const MadeType1Glyph& glyph : font.glyphs) {
        const std::string outline = Encrypt(MakeOutline(glyph), 4330);
        secret += '/' + glyph.name + ' ' + std::to_string(outline.size()) + " RD " + outline + " ND\n";
    }
    secret += "end\nend\nreadonly put\nnoaccess put\ndup /FontName get exch definefont pop\nmark currentfile "
              "closefile\n";
    parts.encrypted = Encrypt(secret, 55665);
    for (int line = 0; line < 8; ++line)
        parts.zeros += std::string(64, '0') + '\n';
    parts.zeros += "cleartomark\n";
    return parts;
}

std::string MakeSegment(char kind, const std::string& bytes)
{
    std::string segment = {'\x80', kind};
    for (int shift = 0; shift < 32; shift += 8)
        segment.push_back(static_cast<char>(bytes.size() >> shift));
    return segment + bytes;
}

} // namespace

std::string MakeType1(const MadeType1Font& font)
{
    const Parts parts = MakeParts(font);
    return parts.text + parts.encrypted + parts.zeros;
}

std::string MakeSegmentedType1(const MadeType1Font& font)
{
    const Parts parts = MakeParts(font);
    return MakeSegment('\1', parts.text) + MakeSegment('\2', parts.encrypted) +
           MakeSegment('\1', parts.zeros) + "\x80\x03";
}

} // namespace HarrowSupport::Testing
