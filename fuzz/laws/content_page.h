#pragma once

#include <string>

namespace HarrowSupport::Fuzzing
{

/// The bytes of a file of one page with that content stream, and with resources of each kind. They have the
/// names that the writer of the library gives, so that what it wrote is a good content here as well:
///
///     f0 to f3     fonts: standard, Type 3, composite, with an encoding of its own
///     fm0 to fm4   forms: plain, transparency group, one that shows itself, without resources of its own,
///                  isolated group in CMYK
///     im0 to im3   pictures: RGB, stencil, with a soft mask, indexed with a colour key
///     p0 to p3     patterns: coloured and uncoloured tiling, axial and radial shading
///     sh0 to sh2   shadings: axial, radial, a mesh
///     cs0 to cs7   colour spaces: Separation, DeviceN, Lab, Indexed, CalRGB, uncoloured patterns, All, ICC
///     gs0 to gs7   graphics states: alpha and blending, soft mask, no soft mask, halftone and rendering,
///                  transfer functions, overprint, strokes with a font, another soft mask
///     oc0 to oc2   layers, and an expression of them
///     mc0 to mc2   property lists
std::string MakeContentPage(const std::string& stream);

} // namespace HarrowSupport::Fuzzing
