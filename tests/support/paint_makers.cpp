#include "paint_makers.h"

#include <orv_paint/exponential_function.h>
#include <orv_paint/stitching_function.h>
#include <orv_paint/whole_function.h>

namespace HarrowSupport::Testing
{

using OrvSys::PdfObject;
using Type = OrvDoc::Content::Type;

OrvPaint::FormPaint::Factory AForm(OrvDoc::Document& document, const std::string& name)
{
    return FormOf(document, Square(name)).SetFormBBox(Box(0.0, 0.0, 10000.0, 10000.0));
}

OrvPaint::PatternPaint::Factory APattern(OrvDoc::Document& document, const std::string& name)
{
    return PatternOf(document, Square(name))
        .SetCellClip(Box(0.0, 0.0, 8000.0, 8000.0))
        .SetStep({8000.0, 9000.0});
}

OrvPaint::PatternPaint::Factory AnUncoloredPattern(OrvDoc::Document& document, Color color)
{
    return OrvPaint::PatternPaint::Factory(Drawing(document, Type::UncoloredPatternContent, Square("cell")))
        .SetColor(std::move(color));
}

OrvBlend::SoftMask::Factory AMask(OrvDoc::Document& document, const std::string& name)
{
    return MaskOf(document, Square(name));
}

std::unique_ptr<OrvDoc::Path> Masked(MaskPointer mask)
{
    std::unique_ptr<OrvDoc::Path> path = Square();
    path->SetTransparency(OrvBlend::Transparency::Factory().SetSoftMask(std::move(mask)).Get());
    return path;
}

Mapping Components(std::initializer_list<std::pair<const char*, std::size_t>> components, bool overprint)
{
    Mapping mapping;
    for (const std::pair<const char*, std::size_t>& component : components)
        mapping.Add(component.first, component.second);
    mapping.overprint = overprint;
    return mapping;
}

Mapping ComponentForAll(std::size_t index)
{
    Mapping mapping;
    mapping.all = true;
    mapping.valueForAll = index;
    return mapping;
}

FunctionPointer Ramp(std::vector<OrvColor::Component> from, std::vector<OrvColor::Component> to,
                     double exponent)
{
    return OrvPaint::ExponentialFunction::Factory(std::move(from), std::move(to), exponent).Get();
}

FunctionPointer Stitched(FunctionPointer first, FunctionPointer second, double bound)
{
    return OrvPaint::StitchingFunction::Factory({std::move(first), std::move(second)}, {bound}).Get();
}

FunctionPointer SampledFunction(const std::string& samples)
{
    const PdfObject unit = PdfObject::Array({PdfObject::Integer(0), PdfObject::Integer(1)});
    return OrvPaint::WholeFunction::Make(PdfObject::Stream(
        PdfObject::Dictionary({{"FunctionType", PdfObject::Integer(0)}, {"Domain", unit}, {"Range", unit}}),
        samples));
}

OrvPaint::AxialShadingPaint::Factory AnAxialShading()
{
    return AxialShadingOf(Components({{"Cyan", 0}}), Ramp({0.0f}, {1.0f}));
}

OrvPaint::AxialShadingPaint::Factory AxialShadingOf(Mapping mapping, const FunctionPointer& function)
{
    return OrvPaint::AxialShadingPaint::Factory(std::move(mapping))
        .SetFunction(function)
        .SetPoints({Point(0.0, 0.0), Point(10000.0, 0.0)});
}

OrvPaint::RadialShadingPaint::Factory ARadialShading()
{
    return OrvPaint::RadialShadingPaint::Factory(Components({{"Cyan", 0}}))
        .SetFunction(Ramp({0.0f}, {1.0f}))
        .SetCenters({Point(5000.0, 5000.0), Point(5000.0, 5000.0)})
        .SetRadii({0.0, 4000.0});
}

} // namespace HarrowSupport::Testing
