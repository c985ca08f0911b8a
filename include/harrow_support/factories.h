#pragma once

#include <harrow_support/export.h>

#include <array>
#include <memory>
#include <vector>

#include <boost/utility/string_view.hpp>

#include <orv_color/color_list.h>
#include <orv_doc/group.h>
#include <orv_doc/path.h>
#include <orv_doc/text.h>
#include <orv_doc/text_group.h>
#include <orv_paint/axial_shading_paint.h>
#include <orv_paint/flat_paint.h>
#include <orv_paint/form_paint.h>
#include <orv_paint/radial_shading_paint.h>
#include <plexa/compound.h>
#include <plexa/rectangle.h>

namespace OrvDoc
{
class Content;
}

/// Objects for the documents of a test program, each made in one call. What the caller does not name is
/// fixed, and part of the contract: the same arguments give equal objects. The functions keep nothing and
/// check nothing; what the document library throws passes through unchanged.
namespace HarrowSupport
{

/// One colour all over, with the list as it stands.
HARROW_EXPORT std::shared_ptr<const OrvPaint::FlatPaint>
CreateFlatPaint(OrvColor::ColorList<OrvColor::ColorPolicy> color);

/// Full-strength ink of one separation, without overprint. The name is taken as it stands: it is not parsed
/// and not looked up, and may be empty.
HARROW_EXPORT std::shared_ptr<const OrvPaint::FlatPaint> CreateFlatPaint(boost::string_view separation);

/// Colours from (0, 0) to (1, 0) in milli-points, continued at both ends, under the identity. To be seen, the
/// object that it paints is that small, or a group around it is scaled up.
///
/// The n colours make n - 1 segments. With two colours and an `encode[0]` of exactly (0, 1) the function is
/// exponential, with the domain from `bounds[0]` to `bounds[1]`. In all other cases it is a stitching
/// function with an exponential function for each segment.
///
/// Overprint and the flag for all separations are those of the first colour. The separations are those of all
/// colours in the order of first appearance; a colour that lacks one has the tint 0 there.
///
/// @param colors the colour stops, at least one: without any the behaviour is undefined
/// @param bounds of the stitching function, handed on as they are; of a lone exponential function its domain
/// @param midpoints for each segment in order where it reaches the mean of its colours, between 0 and 1; see
///     `OrvPaint::MidpointToExponent`
/// @param encode for each segment in order the pair for the stitching function; never empty with two colours
HARROW_EXPORT std::shared_ptr<const OrvPaint::AxialShadingPaint>
CreateAxialShadingPaint(std::vector<OrvColor::ColorList<OrvColor::ColorPolicy>> colors,
                        std::vector<double> bounds, std::vector<double> midpoints,
                        std::vector<std::array<double, 2>> encode);

/// Colours from a circle around (0, 0) with the radius 0 to one around (1, 0) with the radius 1, in
/// milli-points; otherwise like CreateAxialShadingPaint.
HARROW_EXPORT std::shared_ptr<const OrvPaint::RadialShadingPaint>
CreateRadialShadingPaint(std::vector<OrvColor::ColorList<OrvColor::ColorPolicy>> colors,
                         std::vector<double> bounds, std::vector<double> midpoints,
                         std::vector<std::array<double, 2>> encode);

/// An object that shows a form: the outline of the form's box, brought to the object's coordinates by the
/// form's transformation, and filled with the form. The form must not be null.
HARROW_EXPORT std::unique_ptr<OrvDoc::Path>
CreateFormInstance(std::shared_ptr<const OrvPaint::FormPaint> form);

/// An empty group with the nine low flags set.
HARROW_EXPORT std::unique_ptr<OrvDoc::Group> CreateGroup();

/// The same with the mark of a group that a user made.
HARROW_EXPORT std::unique_ptr<OrvDoc::Group> CreateUserGroup();

/// A path with the outline of the rectangle, without paint.
HARROW_EXPORT std::unique_ptr<OrvDoc::Path>
CreatePath(const Plexa::RectangleBase<Plexa::MilliPointCoordinateSystem>& rectangle);

/// A path of that shape, without paint.
HARROW_EXPORT std::unique_ptr<OrvDoc::Path> CreatePath(std::shared_ptr<const Plexa::Compound> compound);

/// An empty text group.
HARROW_EXPORT std::unique_ptr<OrvDoc::TextGroup> CreateTextGroup();

/// A text group that holds one text, the one of `CreateText`.
HARROW_EXPORT std::unique_ptr<OrvDoc::TextGroup> CreateTextGroup(boost::string_view text,
                                                                 OrvDoc::Content& content);

/// A text in the font "QuorleSerif", written horizontally with 14 points, without paint, spacing or
/// transformation. The content only leads to the fonts of its document and stays as it is.
///
/// The text ends at its first zero byte. A text that is not UTF-8 comes out empty, with nothing said. A
/// character that the font lacks is left out; then a line on the standard error stream says that there was
/// one.
HARROW_EXPORT std::unique_ptr<OrvDoc::Text> CreateText(boost::string_view text, OrvDoc::Content& content);

} // namespace HarrowSupport
