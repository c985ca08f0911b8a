#include "pdf/writer/content/text_operators.h"

#include <cmath>

#include <orv_font/font.h>
#include <plexa/geometry.h>

#include "pdf/marked_content_tags.h"
#include "pdf/matrix_numbers.h"
#include "pdf/number_text.h"
#include "pdf/writer/content/content_text.h"

namespace OrvPdf
{

namespace
{

using OrvDoc::ShownText;
using Kind = ShownText::Kind;

/// As a string of PDF syntax (ISO 32000-1, 7.3.4), in the shorter of its two forms.
void AppendString(std::string& out, std::string_view bytes)
{
    std::size_t escapes = 0;
    for (const char byte : bytes) {
        const auto code = static_cast<unsigned char>(byte);
        escapes += byte == '(' || byte == ')' || byte == '\\' ? 1 : code < ' ' || code > '~' ? 3 : 0;
    }
    if (escapes > bytes.size()) {
        constexpr char digits[] = "0123456789ABCDEF";
        out.push_back('<');
        for (const char byte : bytes) {
            const auto code = static_cast<unsigned char>(byte);
            out.push_back(digits[code >> 4U]);
            out.push_back(digits[code & 15U]);
        }
        out.push_back('>');
        return;
    }
    out.push_back('(');
    for (const char byte : bytes) {
        const auto code = static_cast<unsigned char>(byte);
        if (byte == '(' || byte == ')' || byte == '\\') {
            out.push_back('\\');
            out.push_back(byte);
        } else if (code < ' ' || code > '~') {
            out.push_back('\\');
            out.push_back(static_cast<char>('0' + (code >> 6U)));
            out.push_back(static_cast<char>('0' + (code >> 3U & 7U)));
            out.push_back(static_cast<char>('0' + (code & 7U)));
        } else {
            out.push_back(byte);
        }
    }
    out.push_back(')');
}

/// Writes one text step by step. Strings and adjustments between two other steps are one `Tj` or `TJ`.
class Shower
{
public:
    Shower(std::string& output, const ShownText& givenText, const TextMatrix& givenMatrix,
           TextParameters& givenParameters)
        : out(output), shown(givenText), matrix(givenMatrix), line(givenMatrix), parameters(givenParameters)
    {}

    void Write(const TextMark& mark)
    {
        AppendMatrix(out, matrix);
        out.append(" Tm\n");
        const double* values = shown.GetValues().data();
        bool hasScale = false;
        bool hasRise = false;
        bool beginsElsewhere = false;
        for (const ShownText::Step& step : shown.GetSteps()) {
            // Before the first code the parameters may still be those of the text before.
            if (step.position > 0) {
                break;
            }
            hasScale = hasScale || step.kind == Kind::Scale;
            hasRise = hasRise || step.kind == Kind::Rise;
            beginsElsewhere = beginsElsewhere || step.kind == Kind::Move || step.kind == Kind::Line ||
                              step.kind == Kind::Turn;
        }
        TextParameters initial = parameters;
        initial.scale = hasScale ? parameters.scale : 1.0;
        initial.rise = hasRise ? parameters.rise : 0.0;
        SetParameters(initial);
        if (mark.ownMatrix) {
            AppendName(out, Tags::text);
            out.append(" <<");
            AppendEntry(Tags::textKey, *mark.ownMatrix);
            AppendEntry(Tags::matrixKey, *mark.objectMatrix);
            out.append(">> DP\n");
        } else if (beginsElsewhere || mark.isNeeded) {
            AppendName(out, Tags::text);
            out.append(" MP\n");
        }
        for (const ShownText::Step& step : shown.GetSteps()) {
            ShowUpTo(step.position);
            Take(step.kind, values);
            values += ShownText::CountValues(step.kind);
        }
        ShowUpTo(shown.GetCodes().size());
        EndStrings();
    }

private:
    void SetParameters(const TextParameters& wanted)
    {
        AppendTextParameters(out, parameters, wanted);
        parameters = wanted;
    }

    void AppendEntry(const char* key, const TextMatrix& value)
    {
        AppendName(out, key);
        out.append(" [");
        AppendMatrix(out, value);
        out.push_back(']');
    }

    void ShowUpTo(std::size_t position)
    {
        if (position == shownBytes) {
            return;
        }
        const std::string_view codes(shown.GetCodes());
        AppendString(strings, codes.substr(shownBytes, position - shownBytes));
        shownBytes = position;
        ++elements;
    }

    void EndStrings()
    {
        if (elements == 0) {
            return;
        }
        const bool isSingle = elements == 1 && !hasAdjustments;
        out.append(isSingle ? "" : "[").append(strings).append(isSingle ? " Tj\n" : "] TJ\n");
        strings.clear();
        elements = 0;
        hasAdjustments = false;
    }

    void Take(Kind kind, const double* values)
    {
        if (kind == Kind::Adjustment) {
            if (hasAdjustments && strings.back() != ')' && strings.back() != '>') {
                strings.push_back(' ');
            }
            AppendNumber(strings, values[0], 0);
            hasAdjustments = true;
            ++elements;
            return;
        }
        EndStrings();
        TextParameters changed = parameters;
        switch (kind) {
        case Kind::Move:
            AppendNumber(out, values[0], 0);
            out.push_back(' ');
            AppendNumber(out, values[1], 0);
            out.append(" Td\n");
            return;
        case Kind::Scale:
            changed.scale = values[0];
            SetParameters(changed);
            return;
        case Kind::Rise:
            changed.rise = values[0];
            SetParameters(changed);
            return;
        case Kind::Line:
            current.x = values[0];
            current.y = values[1];
            break;
        case Kind::Turn:
            current = {values[0], values[1], values[2], values[3], values[4], values[5]};
            break;
        case Kind::Adjustment:
            break;
        }
        SetLine(kind == Kind::Turn);
    }

    /// The matrix of a line may be rounded; if the line can't be told from it, it is named as well.
    void SetLine(bool isTurn)
    {
        const TextMatrix found = FindMatrix(isTurn);
        if (!LeadsToCurrent(found, isTurn)) {
            AppendName(out, Tags::line);
            out.append(" <</").append(Tags::matrixKey).append(" [");
            const char* separator = "";
            for (const double number : {current.a, current.b, current.c, current.d, current.x, current.y}) {
                out.append(separator);
                AppendNumber(out, number, 0);
                separator = " ";
            }
            out.append("]>> DP\n");
        }
        line = found;
        AppendMatrix(out, line);
        out.append(" Tm\n");
    }

    TextMatrix FindMatrix(bool isTurn) const
    {
        TextMatrix exact = GetLineMatrix(current, matrix);
        if (isTurn && current.a == 1.0 && current.b == 0.0 && current.c == 0.0 && current.d == 1.0) {
            exact = TextMatrix(matrix.a, matrix.b, matrix.c, matrix.d, exact.x, exact.y);
        } else if (!isTurn) {
            exact = TextMatrix(line.a, line.b, line.c, line.d, exact.x, exact.y);
        }
        // The number that the line was read from had few digits as a rule.
        constexpr double parts = 1e4;
        TextMatrix rounded = exact;
        rounded.x.value = std::round(exact.x.value * parts) / parts;
        rounded.y.value = std::round(exact.y.value * parts) / parts;
        return LeadsToCurrent(rounded, isTurn) ? rounded : exact;
    }

    /// Whether a reader of the matrix finds the current line.
    bool LeadsToCurrent(const TextMatrix& candidate, bool isTurn) const
    {
        if (HaveSameAxes(candidate, line) == isTurn) {
            return false;
        }
        const auto read = FindTextLine(candidate, matrix);
        return read && AreIdentical(read->x, current.x) && AreIdentical(read->y, current.y) &&
               (!isTurn || (AreIdentical(read->a, current.a) && AreIdentical(read->b, current.b) &&
                            AreIdentical(read->c, current.c) && AreIdentical(read->d, current.d)));
    }

    std::string& out;
    const ShownText& shown;
    const TextMatrix& matrix;
    /// The line as its matrix was written, and from there to the text.
    TextMatrix line;
    TextLine current;
    TextParameters& parameters;
    std::size_t shownBytes = 0;
    std::string strings;
    std::size_t elements = 0;
    bool hasAdjustments = false;
};

using Place = Plexa::TransformationBase<Plexa::PdfCoordinateSystem>;

bool AreTurnedAlike(const Place& left, const Place& right)
{
    return left.a == right.a && left.b == right.b && left.c == right.c && left.d == right.d;
}

} // namespace

std::string CodeText(const OrvFont::Character& character)
{
    std::string code;
    for (std::uint32_t left = character.codeBytes; left-- > 0;) {
        code.push_back(static_cast<char>(character.code >> (8 * left) & 0xFF));
    }
    return code;
}

ShownText GetShownText(const OrvDoc::Text& text)
{
    if (const ShownText* const shown = text.GetShownText()) {
        return *shown;
    }
    ShownText shown;
    const auto& characters = text.GetText();
    const bool isPlaced = text.HasOwnCharacterTransformations();
    Place latest;
    for (std::size_t index = 0; index < characters.size(); ++index) {
        if (isPlaced) {
            const Place& place = text.GetCharacterTransformations()[index];
            if (AreTurnedAlike(place, latest)) {
                shown.AddLine(place.x.value, place.y.value);
            } else {
                shown.AddTurn(place.a, place.b, place.c, place.d, place.x.value, place.y.value);
                latest = place;
            }
        }
        shown.AppendCodes(CodeText(characters[index].character));
    }
    return shown;
}

bool CanShow(const ShownText& shown, const TextMatrix& matrix)
{
    bool movesLine = false;
    for (const ShownText::Step& step : shown.GetSteps()) {
        movesLine = movesLine || step.kind == Kind::Line || step.kind == Kind::Turn;
    }
    return shown.IsFinite() && (!movesLine || Plexa::Inverse(matrix));
}

void AppendShownText(std::string& out, const ShownText& shown, const TextMatrix& matrix,
                     TextParameters& parameters, const TextMark& mark)
{
    Shower(out, shown, matrix, parameters).Write(mark);
}

} // namespace OrvPdf
