#pragma once

#include <orv_color/color_list.h>
#include <orv_sys/pdf_object.h>

namespace OrvPdf
{

using SeparationMapping = OrvColor::ColorList<OrvColor::SeparationMappingPolicy>;

/// Keys of a shading dictionary that other readers ignore. They stand there only where the standard's own
/// keys don't say all.
namespace ShadingKeys
{
/// The separations, where the components of the colour space are not exactly these.
constexpr const char* mapping = "OrvMapping";
/// The background, where it has not one number for each component.
constexpr const char* background = "OrvBackground";
} // namespace ShadingKeys

/// A mapping as a dictionary: `Entries` has a name as a string and an index for each, `ForAll` the value for
/// all, `All` the flag. The index -1 stands for none. Overprint is not in it, which the graphics state says.
OrvSys::PdfObject DefineMapping(const SeparationMapping& mapping);

/// The mapping of such a dictionary, without overprint. Throws `std::invalid_argument` if it is malformed.
SeparationMapping ReadMapping(const OrvSys::PdfObject& definition);

} // namespace OrvPdf
