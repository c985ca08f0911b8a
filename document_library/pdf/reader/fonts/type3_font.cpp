#include "pdf/reader/fonts/type3_font.h"

#include <array>
#include <cmath>
#include <string>
#include <utility>

#include <plexa/compound.h>
#include <plexa/transformation.h>

#include "orv_font/font_names.h"
#include "pdf/fonts/glyph_names.h"
#include "pdf/fonts/only_code_point.h"
#include "pdf/number_text.h"
#include "pdf/reader/file/qpdf_text.h"
#include "pdf/reader/fonts/simple_font_reader.h"

namespace OrvPdf
{

namespace
{

using OrvFont::Character;
using OrvFont::Font;

constexpr std::uint32_t codeCount = 256;

using MatrixNumbers = std::array<double, 6>;

/// The numbers of `FontMatrix` with their decimal exponent raised; false if it is malformed.
bool ReadMatrixNumbers(QPDFObjectHandle array, int decimalShift, MatrixNumbers& numbers)
{
    if (!array.isArray() || array.getArrayNItems() != static_cast<int>(numbers.size()))
        return false;
    for (std::size_t index = 0; index < numbers.size(); ++index) {
        std::string text;
        if (!GetNumberText(array.getArrayItem(static_cast<int>(index)), text) ||
            !ParseNumber(text, decimalShift, numbers[index]))
            return false;
    }
    return true;
}

/// From the coordinates of glyphs to thousandths, which are exact where the matrix is the usual one of 0.001.
Matrix ReadThousandths(QPDFObjectHandle array, Matrix& plain, FontProblems& problems)
{
    MatrixNumbers numbers{0.001, 0.0, 0.0, 0.001, 0.0, 0.0};
    MatrixNumbers raised{1.0, 0.0, 0.0, 1.0, 0.0, 0.0};
    MatrixNumbers read{};
    if (ReadMatrixNumbers(array, 0, read) && ReadMatrixNumbers(array, 3, raised))
        numbers = read;
    else
        problems.Add("FontMatrix is no array of six numbers; 0.001 of the coordinates counts");
    plain = {numbers[0], numbers[1], numbers[2], numbers[3], raised[4], raised[5]};
    return {raised[0], raised[1], raised[2], raised[3], raised[4], raised[5]};
}

/// Numbers of hostile files may be larger than all others when they are multiplied.
double OrZero(double value)
{
    return std::isfinite(value) ? value : 0.0;
}

SimpleWidths ScaleWidths(SimpleWidths widths, double factor)
{
    for (double& width : widths.widths)
        width = OrZero(width * factor);
    // There is no program to ask.
    widths.missing = OrZero(widths.missing * factor);
    widths.isGiven = true;
    return widths;
}

Font::Rectangle ReadBox(const FontParts& parts, const Matrix& thousandths, FontProblems& problems)
{
    auto box = ReadStatedBox(GetEntry(parts.dictionary, "/FontBBox"), problems);
    if (!box)
        return Font::Rectangle(0.0, 0.0, 0.0, 0.0);
    const Font::Point lower = box->origin;
    const Font::Point upper{lower.x.value + box->size.width.value, lower.y.value + box->size.height.value};
    Font::Rectangle around;
    for (const double x : {lower.x.value, upper.x.value}) {
        for (const double y : {lower.y.value, upper.y.value}) {
            const Font::Point corner{OrZero(thousandths.a * x + thousandths.c * y + thousandths.x.value),
                                     OrZero(thousandths.b * x + thousandths.d * y + thousandths.y.value)};
            around = Plexa::Union(around, Font::Rectangle(corner.x, corner.y, 0.0, 0.0));
        }
    }
    return around;
}

} // namespace

Type3Font::Type3Font(Parts givenParts)
    : FileFont(givenParts.origin), parts(std::move(givenParts)), toUnicode(parts.toUnicode.get())
{}

Type3Font::~Type3Font() = default;

QPDFObjectHandle Type3Font::GetGlyphProcedure(std::uint32_t code) const
{
    if (code >= codeCount)
        return QPDFObjectHandle::newNull();
    const std::string name(parts.encoding.FindName(static_cast<std::uint8_t>(code)));
    QPDFObjectHandle procedure = GetEntry(parts.procedures, ("/" + name).c_str());
    return procedure.isStream() ? procedure : QPDFObjectHandle::newNull();
}

void Type3Font::Decode(std::string_view bytes, std::vector<Character>& characters) const
{
    characters.reserve(characters.size() + bytes.size());
    for (const char byte : bytes) {
        const std::uint32_t code = static_cast<unsigned char>(byte);
        characters.push_back({code, code, 1});
    }
}

std::shared_ptr<const Plexa::Compound> Type3Font::MakeOutline(const Character& /*character*/) const
{
    return nullptr;
}

double Type3Font::GetAdvance(const Character& character) const
{
    return parts.widths.Find(character.code);
}

std::u16string Type3Font::GetText(const Character& character) const
{
    std::u16string text = toUnicode.Find(character);
    if (!text.empty() || character.code >= codeCount)
        return text;
    return ToUtf16(GetTextOfGlyphName(parts.encoding.FindName(static_cast<std::uint8_t>(character.code))));
}

bool Type3Font::FindCharacter(char32_t codePoint, Character& character) const
{
    const SourceFile::Access access(*parts.file);
    for (std::uint32_t code = 0; code < codeCount; ++code) {
        const Character candidate{code, code, 1};
        if (GetOnlyCodePoint(GetText(candidate)) == codePoint && GetGlyphProcedure(code).isStream()) {
            character = candidate;
            return true;
        }
    }
    return false;
}

bool Type3Font::DrawsLike(const FileFont& /*other*/) const
{
    return false;
}

std::shared_ptr<const Font> ReadType3Font(const FontParts& parts, FontProblems& problems)
{
    Type3Font::Parts made;
    made.origin = MakeFontOrigin(parts);
    made.file = parts.file;
    const Matrix thousandths =
        ReadThousandths(GetEntry(parts.dictionary, "/FontMatrix"), made.matrix, problems);
    made.encoding = ReadSimpleEncoding(GetEntry(parts.dictionary, "/Encoding"), problems);
    made.widths = ScaleWidths(ReadSimpleWidths(parts, problems), thousandths.a);
    made.procedures = GetEntry(parts.dictionary, "/CharProcs");
    if (!made.procedures.isDictionary())
        problems.Add("CharProcs is no dictionary");
    made.resources = GetEntry(parts.dictionary, "/Resources");
    if (!made.resources.isDictionary())
        made.resources = QPDFObjectHandle::newNull();
    made.toUnicode = MakeFontStream(parts.file, GetEntry(parts.dictionary, "/ToUnicode"));

    Font::Names names = ReadStatedNames(parts);
    // Old files name such a font nowhere else.
    if (names.name.empty())
        names.name = GetNameText(GetEntry(parts.dictionary, "/Name"));
    const auto box = ReadBox(parts, thousandths, problems);
    return std::make_shared<const Font>(std::move(names), box, OrvFont::WritingMode::Horizontal,
                                        std::make_unique<const Type3Font>(std::move(made)));
}

} // namespace OrvPdf
