#pragma once

#include <boost/optional.hpp>

#include <orv_color/color_space.h>
#include <orv_paint/shading_paint.h>
#include <orv_sys/pdf_object.h>

namespace OrvPdf
{

class SeparationSpaces;

/// A shading paint as a file says it.
struct ShadingDefinition
{
    /// The shading dictionary (ISO 32000-1, 8.7.4.3); of a mesh, that of its stream.
    OrvSys::PdfObject dictionary;
    /// Its colour space, which is in the dictionary too.
    OrvColor::ColorSpace::Pointer space;
};

/// The definition from which the same paint is read, but for its overprint and its transformation, which
/// stand elsewhere. It is in the space that the paint was given in; one made for a list of separations is in
/// a space of these in the order of their indices, where an index without a separation stands for no ink.
/// None if there is no definition, with the reason in the plural in `problem`.
boost::optional<ShadingDefinition> DefineShading(const OrvPaint::ShadingPaint& paint,
                                                 SeparationSpaces& separations, const char*& problem);

} // namespace OrvPdf
