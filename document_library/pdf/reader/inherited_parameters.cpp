#include "pdf/reader/inherited_parameters.h"

namespace OrvPdf
{

namespace
{

bool AreEqual(const std::shared_ptr<const Color>& left, const std::shared_ptr<const Color>& right)
{
    if (left == right) {
        return true;
    }
    return left && right && left->space == right->space && left->components == right->components;
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

} // namespace

GraphicsState BeginForm(const GraphicsState& state)
{
    GraphicsState nested = state;
    nested.matrix = Matrix();
    nested.inherited = Inherited::all;
    return nested;
}

bool Agree(const GraphicsState& left, const GraphicsState& right, std::uint32_t parameters)
{
    const auto asks = [parameters](std::uint32_t bit) { return (parameters & bit) != 0; };
    return !asks(Inherited::textState) &&
           !(asks(Inherited::fillColor) && !AreEqual(left.fill.color, right.fill.color)) &&
           !(asks(Inherited::strokeColor) && !AreEqual(left.stroke.color, right.stroke.color)) &&
           !(asks(Inherited::fillOverprint) && left.fill.overprint != right.fill.overprint) &&
           !(asks(Inherited::strokeOverprint) && left.stroke.overprint != right.stroke.overprint) &&
           !(asks(Inherited::overprintMode) && left.nonzeroOverprint != right.nonzeroOverprint) &&
           AgreeInStroke(*left.strokeProperties, *right.strokeProperties, parameters);
}

} // namespace OrvPdf
