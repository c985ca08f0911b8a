#pragma once

#include "support/document_makers.h"

#include <orv_blend/soft_mask.h>
#include <orv_blend/transparency.h>
#include <orv_color/color_list.h>
#include <orv_paint/axial_shading_paint.h>
#include <orv_paint/form_paint.h>
#include <orv_paint/function.h>
#include <orv_paint/pattern_paint.h>
#include <orv_paint/radial_shading_paint.h>

#include <cstddef>
#include <initializer_list>
#include <memory>
#include <string>
#include <utility>
#include <vector>

/// Shadings, patterns, forms and soft masks in a line each. Those with many properties come as the factory of
/// a fixed one, so that a test states only what matters to it: `AnAxialShading().SetExtends({true, false})`.
namespace HarrowSupport::Testing
{

using ContentPointer = std::shared_ptr<OrvDoc::Content>;
using FunctionPointer = std::shared_ptr<const OrvPaint::Function>;
using MaskPointer = std::shared_ptr<const OrvBlend::SoftMask>;
using Mapping = OrvColor::ColorList<OrvColor::SeparationMappingPolicy>;

/// A content for a paint or a mask, with objects.
template <typename... Objects>
ContentPointer Drawing(OrvDoc::Document& document, OrvDoc::Content::Type type,
                       std::unique_ptr<Objects>... objects)
{
    ContentPointer content = NewContent(document, type);
    Fill(*content, std::move(objects)...);
    return content;
}

/// A form of one square with that name.
OrvPaint::FormPaint::Factory AForm(OrvDoc::Document& document, const std::string& name = "form");
/// A form with objects of its own.
template <typename... Objects>
OrvPaint::FormPaint::Factory FormOf(OrvDoc::Document& document, std::unique_ptr<Objects>... objects)
{
    return OrvPaint::FormPaint::Factory(
        Drawing(document, OrvDoc::Content::Type::FormContent, std::move(objects)...));
}

/// A coloured pattern with a cell of one square with that name.
OrvPaint::PatternPaint::Factory APattern(OrvDoc::Document& document, const std::string& name = "cell");
/// The same of an uncoloured one.
OrvPaint::PatternPaint::Factory AnUncoloredPattern(OrvDoc::Document& document, Color color);
template <typename... Objects>
OrvPaint::PatternPaint::Factory PatternOf(OrvDoc::Document& document, std::unique_ptr<Objects>... objects)
{
    return OrvPaint::PatternPaint::Factory(
        Drawing(document, OrvDoc::Content::Type::ColoredPatternContent, std::move(objects)...));
}

/// A luminosity mask of one square with that name.
OrvBlend::SoftMask::Factory AMask(OrvDoc::Document& document, const std::string& name = "mask");
template <typename... Objects>
OrvBlend::SoftMask::Factory MaskOf(OrvDoc::Document& document, std::unique_ptr<Objects>... objects)
{
    return OrvBlend::SoftMask::Factory(
        Drawing(document, OrvDoc::Content::Type::SoftMaskContent, std::move(objects)...));
}

/// A square seen through a soft mask.
std::unique_ptr<OrvDoc::Path> Masked(MaskPointer mask);

/// Components by index, in the order given.
Mapping Components(std::initializer_list<std::pair<const char*, std::size_t>> components,
                   bool overprint = false);
/// A component that stands for all separations.
Mapping ComponentForAll(std::size_t index);

/// The component in order: from the first value to the second one.
FunctionPointer Ramp(std::vector<OrvColor::Component> from, std::vector<OrvColor::Component> to,
                     double exponent = 1.0);
/// Two parts that meet at a bound, each with its own encoding of (0, 1).
FunctionPointer Stitched(FunctionPointer first, FunctionPointer second, double bound = 0.5);
/// A function of one output that is kept whole.
FunctionPointer SampledFunction(const std::string& samples);

/// Along ten points, in one separation, "Cyan".
OrvPaint::AxialShadingPaint::Factory AnAxialShading();
/// The same in separations and with a function of one's own.
OrvPaint::AxialShadingPaint::Factory AxialShadingOf(Mapping mapping, const FunctionPointer& function);
/// Between two circles of one centre, in one separation, "Cyan".
OrvPaint::RadialShadingPaint::Factory ARadialShading();

} // namespace HarrowSupport::Testing
