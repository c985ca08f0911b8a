#include "pdf/reader/content/inherited_parameters.h"

namespace OrvPdf
{

namespace
{

bool AreEqualColors(const std::shared_ptr<const Color>& left, const std::shared_ptr<const Color>& right)
{
    if (left == right) {
        return true;
    }
    return left && right && left->space == right->space && left->components == right->components;
}

bool AreEqual(const PaintSetting& left, const PaintSetting& right)
{
    return AreEqualColors(left.color, right.color) && left.patternSpace == right.patternSpace &&
           left.pattern == right.pattern && AreEqualColors(left.patternColor, right.patternColor);
}

template <typename Value>
bool AreEqualValues(const std::shared_ptr<Value>& left, const std::shared_ptr<Value>& right)
{
    return left == right || (left && right && *left == *right);
}

bool AgreeInStroke(const OrvDoc::StrokeProperties& left, const OrvDoc::StrokeProperties& right,
                   std::uint32_t parameters)
{
    const auto asks = [parameters](std::uint32_t bit) { return (parameters & bit) != 0; };
    return !(asks(Inherited::lineWidth) && left.width != right.width) &&
           !(asks(Inherited::lineCap) && left.cap != right.cap) &&
           !(asks(Inherited::lineJoin) && left.join != right.join) &&
           !(asks(Inherited::miterLimit) && left.miterLimit != right.miterLimit) &&
           !(asks(Inherited::dash) &&
             (left.dashArray != right.dashArray || left.dashPhase != right.dashPhase));
}

bool AgreeInText(const TextSetting& left, const TextSetting& right, std::uint32_t parameters)
{
    const auto asks = [parameters](std::uint32_t bit) { return (parameters & bit) != 0; };
    return !(asks(Inherited::textFont) && (left.font != right.font || left.size != right.size)) &&
           !(asks(Inherited::characterSpacing) && left.characterSpacing != right.characterSpacing) &&
           !(asks(Inherited::wordSpacing) && left.wordSpacing != right.wordSpacing) &&
           !(asks(Inherited::horizontalScaling) && left.scale != right.scale) &&
           !(asks(Inherited::leading) && left.leading != right.leading) &&
           !(asks(Inherited::textRise) && left.rise != right.rise) &&
           !(asks(Inherited::textMode) && left.mode != right.mode);
}

} // namespace

// Black in plain DeviceGray: a default colour space applies to colours that the content sets.
GraphicsState BeginPage()
{
    GraphicsState state;
    const auto gray = OrvColor::ColorSpace::DeviceGray();
    const auto black = std::make_shared<const Color>(Color{gray, gray->GetInitialComponents()});
    state.fill.color = black;
    state.stroke.color = black;
    state.strokeProperties = std::make_shared<const OrvDoc::StrokeProperties>();
    return state;
}

GraphicsState BeginForm(const GraphicsState& state, bool isTransparencyGroup)
{
    GraphicsState nested = state;
    nested.matrix = Matrix();
    nested.inherited = Inherited::all;
    nested.foreign = nullptr;
    for (PaintSetting* const setting : {&nested.fill, &nested.stroke}) {
        // That of a pattern is one for the coordinates around.
        setting->paint = setting->pattern ? nullptr : setting->paint;
    }
    if (isTransparencyGroup) {
        nested.blending = BlendSetting();
        nested.inherited &= ~Inherited::blending;
    }
    // A paint that was made for the content around may be known by its address there.
    nested.blending.transparency = nullptr;
    return nested;
}

std::uint32_t FindPeculiar(const GraphicsState& state, std::uint32_t parameters)
{
    static const GraphicsState initial = BeginPage();
    std::uint32_t peculiar = 0;
    for (std::uint32_t bit = 1; bit <= Inherited::all; bit <<= 1U) {
        if (!Agree(state, initial, parameters & bit)) {
            peculiar |= bit;
        }
    }
    return peculiar;
}

bool Agree(const GraphicsState& left, const GraphicsState& right, std::uint32_t parameters)
{
    const auto asks = [parameters](std::uint32_t bit) { return (parameters & bit) != 0; };
    return !(asks(Inherited::fillColor) && !AreEqual(left.fill, right.fill)) &&
           !(asks(Inherited::strokeColor) && !AreEqual(left.stroke, right.stroke)) &&
           !(asks(Inherited::fillOverprint) && left.fill.overprint != right.fill.overprint) &&
           !(asks(Inherited::strokeOverprint) && left.stroke.overprint != right.stroke.overprint) &&
           !(asks(Inherited::overprintMode) && left.nonzeroOverprint != right.nonzeroOverprint) &&
           !(asks(Inherited::renderingIntent) && left.intent != right.intent) &&
           !(asks(Inherited::blending) && left.blending.value != right.blending.value) &&
           !(asks(Inherited::halftones) && !AreEqualValues(left.halftones, right.halftones)) &&
           !(asks(Inherited::transferFunctions) &&
             !AreEqualValues(left.transfer.functions, right.transfer.functions)) &&
           AgreeInStroke(*left.strokeProperties, *right.strokeProperties, parameters) &&
           AgreeInText(left.text, right.text, parameters);
}

} // namespace OrvPdf
