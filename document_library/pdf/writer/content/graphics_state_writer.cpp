#include "pdf/writer/content/graphics_state_writer.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "pdf/marked_content_tags.h"
#include "pdf/matrix_numbers.h"
#include "pdf/number_text.h"
#include "pdf/writer/content/content_text.h"

namespace OrvPdf
{

namespace
{

const OrvDoc::StrokeProperties initialProperties;

struct ColorOperators
{
    const char* device[3];
    const char* space;
    const char* color;
};

constexpr ColorOperators fillOperators = {{"g\n", "rg\n", "k\n"}, " cs\n", "scn\n"};
constexpr ColorOperators strokeOperators = {{"G\n", "RG\n", "K\n"}, " CS\n", "SCN\n"};

} // namespace

GraphicsStateWriter::GraphicsStateWriter(std::string& output, ContentStart start) : out(output)
{
    Level level;
    level.properties = &initialProperties;
    if (start == ContentStart::Nested || start == ContentStart::Group) {
        level.fill.space = PaintColor::unknown;
        level.stroke.space = PaintColor::unknown;
    }
    if (start != ContentStart::Page) {
        level.properties = nullptr;
        level.text = TextParameters::Unknown();
        level.areParametersKnown = false;
    }
    levels.push_back(level);
}

void GraphicsStateWriter::Save()
{
    out.append("q\n");
    levels.push_back(levels.back());
}

void GraphicsStateWriter::Restore()
{
    out.append("Q\n");
    levels.pop_back();
}

void GraphicsStateWriter::Concatenate(const Matrix& matrix)
{
    AppendMatrix(out, matrix);
    out.append(" cm\n");
    levels.back().matrix = matrix;
}

void GraphicsStateWriter::SetBase()
{
    Level& level = levels.back();
    level.base = Plexa::Concatenate(level.matrix, level.base);
    level.matrix = Matrix();
}

bool GraphicsStateWriter::Reset()
{
    Matrix& matrix = levels.back().matrix;
    if (!Plexa::Inverse(matrix)) {
        return false;
    }
    const Matrix inverse = GetRoundedInverse(matrix);
    if (!IsFinite(inverse)) {
        return false;
    }
    AppendName(out, Tags::reset);
    out.append(" <</");
    out.append(Tags::matrixKey);
    out.append(" [");
    AppendMatrix(out, matrix);
    out.append("]>> DP\n");
    AppendMatrix(out, inverse);
    out.append(" cm\n");
    matrix = Matrix();
    return true;
}

void GraphicsStateWriter::SetFillColor(const PaintColor& color)
{
    SetColor(levels.back().fill, color, false);
}

void GraphicsStateWriter::SetStrokeColor(const PaintColor& color)
{
    SetColor(levels.back().stroke, color, true);
}

void GraphicsStateWriter::SetColor(PaintColor& current, const PaintColor& color, bool isStroke)
{
    const bool isSameSpace = current.space == color.space;
    if (isSameSpace && current.pattern == color.pattern &&
        std::equal(current.components.begin(), current.components.end(), color.components.begin(),
                   color.components.end(), [](float left, float right) {
                       return left == right && std::signbit(left) == std::signbit(right);
                   })) {
        return;
    }
    const ColorOperators& operators = isStroke ? strokeOperators : fillOperators;
    const bool isDevice = color.space < PaintColor::firstNamed;
    if (color.space == PaintColor::patterns && !isSameSpace) {
        out.append("/Pattern");
        out.append(operators.space);
    } else if (!isDevice && !isSameSpace) {
        out.append("/cs");
        out.append(std::to_string(color.space - PaintColor::firstNamed));
        out.append(operators.space);
    }
    for (const float component : color.components) {
        AppendFloat(out, component);
        out.push_back(' ');
    }
    if (color.pattern != 0) {
        out.append("/p");
        out.append(std::to_string(color.pattern - 1));
        out.push_back(' ');
    }
    out.append(isDevice ? operators.device[color.space] : operators.color);
    current = color;
}

void GraphicsStateWriter::SetText(const TextParameters& wanted)
{
    TextParameters& current = levels.back().text;
    AppendTextParameters(out, current, wanted);
    const std::size_t font = wanted.font == TextParameters::noFont ? current.font : wanted.font;
    const double size = wanted.font == TextParameters::noFont ? current.size : wanted.size;
    current = wanted;
    current.font = font;
    current.size = size;
}

void GraphicsStateWriter::SetInitialStrokeProperties()
{
    SetStrokeProperties(initialProperties);
}

void GraphicsStateWriter::SetStrokeProperties(const OrvDoc::StrokeProperties& properties)
{
    const bool isUnknown = !levels.back().properties;
    const OrvDoc::StrokeProperties& current = isUnknown ? initialProperties : *levels.back().properties;
    if (!isUnknown && &current == &properties) {
        return;
    }
    if (isUnknown || !AreIdentical(current.width, properties.width)) {
        AppendLength(out, properties.width);
        out.append(" w\n");
    }
    if (isUnknown || current.cap != properties.cap) {
        out.append(std::to_string(static_cast<unsigned>(properties.cap)));
        out.append(" J\n");
    }
    if (isUnknown || current.join != properties.join) {
        out.append(std::to_string(static_cast<unsigned>(properties.join)));
        out.append(" j\n");
    }
    if (isUnknown || !AreIdentical(current.miterLimit, properties.miterLimit)) {
        AppendNumber(out, properties.miterLimit, 0);
        out.append(" M\n");
    }
    if (isUnknown || current.dashArray != properties.dashArray ||
        !AreIdentical(current.dashPhase, properties.dashPhase)) {
        AppendDash(properties);
    }
    levels.back().properties = &properties;
}

void GraphicsStateWriter::AppendDash(const OrvDoc::StrokeProperties& properties)
{
    out.push_back('[');
    const char* separator = "";
    for (const double length : properties.dashArray) {
        out.append(separator);
        AppendLength(out, length);
        separator = " ";
    }
    out.append("] ");
    AppendLength(out, properties.dashPhase);
    out.append(" d\n");
}

ExtGState GraphicsStateWriter::FindParameters(const PaintSettings* fill, const PaintSettings* stroke,
                                              const OrvBlend::Transparency& blending,
                                              const std::shared_ptr<OrvDoc::HalftoneSet>* halftones) const
{
    ExtGState wanted = levels.back().parameters;
    wanted.blending = blending;
    if (halftones) {
        wanted.halftones = *halftones;
    }
    if (fill) {
        wanted.fill = fill->overprint;
    }
    if (stroke) {
        wanted.stroke = stroke->overprint;
    }
    // The mode of a paint that it makes a difference to comes before that of one that merely has it.
    for (const bool isNeeded : {false, true}) {
        for (const PaintSettings* const paint : {stroke, fill}) {
            if (paint && (isNeeded ? paint->DependsOnMode() : paint->overprint)) {
                wanted.nonzero = paint->nonzeroOverprint;
            }
        }
    }
    return wanted;
}

ExtGState GraphicsStateWriter::FindFormParameters(const OrvBlend::Transparency& blending,
                                                  bool isOverprintInitial) const
{
    ExtGState wanted = levels.back().parameters;
    wanted.blending = blending;
    wanted.halftones = nullptr;
    if (isOverprintInitial) {
        wanted.fill = false;
        wanted.stroke = false;
        wanted.nonzero = false;
    }
    return wanted;
}

bool GraphicsStateWriter::NeedsParameters(const ExtGState& wanted, bool isPainted) const
{
    const Level& level = levels.back();
    return wanted.blending.softMask != level.parameters.blending.softMask || !(wanted == level.parameters) ||
           (!level.areParametersKnown && isPainted);
}

void GraphicsStateWriter::SetParameters(const ExtGState& wanted, bool isPainted)
{
    if (!NeedsParameters(wanted, isPainted)) {
        return;
    }
    Level& level = levels.back();
    level.parameters = wanted;
    // A state says all its parameters: also a mask that stays in force is set anew, under the matrix here.
    level.parameters.maskMatrix = level.base;
    level.areParametersKnown = true;
    out.append("/gs");
    out.append(std::to_string(states.Add(level.parameters)));
    out.append(" gs\n");
}

bool IsFinite(const OrvDoc::StrokeProperties& properties)
{
    const auto isFinite = [](double number) { return std::isfinite(number); };
    return isFinite(properties.width) && isFinite(properties.miterLimit) && isFinite(properties.dashPhase) &&
           std::all_of(properties.dashArray.begin(), properties.dashArray.end(), isFinite);
}

} // namespace OrvPdf
