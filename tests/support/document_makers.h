#pragma once

#include <orv_color/color_list.h>
#include <orv_doc/content.h>
#include <orv_doc/document.h>
#include <orv_doc/group.h>
#include <orv_doc/page.h>
#include <orv_doc/path.h>
#include <orv_doc/text_group.h>
#include <orv_paint/flat_paint.h>
#include <plexa/coordinate_systems.h>
#include <plexa/point.h>
#include <plexa/rectangle.h>
#include <plexa/transformation.h>

#include <cstddef>
#include <initializer_list>
#include <memory>
#include <string>
#include <utility>

/// Documents and their objects in a line each.
namespace HarrowSupport::Testing
{

using MilliPoints = Plexa::MilliPointCoordinateSystem;
using Box = Plexa::RectangleBase<MilliPoints>;
using Matrix = Plexa::TransformationBase<MilliPoints>;
using Point = Plexa::PointBase<MilliPoints>;
using Color = OrvColor::ColorList<OrvColor::ColorPolicy>;
using PaintPointer = std::shared_ptr<const OrvPaint::Paint>;

/// A document with that many empty pages of 100 by 100 points.
std::unique_ptr<OrvDoc::Document> NewDocument(std::size_t pageCount = 1);

/// The page of that index.
OrvDoc::Page& PageOf(OrvDoc::Document& document, std::size_t index = 0);

/// The content of the page of that index.
OrvDoc::Content& ContentOf(OrvDoc::Document& document, std::size_t index = 0);

/// A content of the given role that stands on no page.
std::unique_ptr<OrvDoc::Content> NewContent(OrvDoc::Document& document, OrvDoc::Content::Type type);

/// Hands an object to a content or a group and returns it.
template <typename Container, typename Object>
Object& Place(Container& container, std::unique_ptr<Object> object)
{
    container.AddOnTop(object.get());
    return *object.release();
}

/// Hands several objects to a content, in order.
template <typename... Objects>
void Fill(OrvDoc::Content& content, std::unique_ptr<Objects>... objects)
{
    (Place(content, std::move(objects)), ...);
}

/// Gives a group children and returns it.
template <typename GroupClass, typename... Objects>
std::unique_ptr<GroupClass> With(std::unique_ptr<GroupClass> group, std::unique_ptr<Objects>... children)
{
    (Place(*group, std::move(children)), ...);
    return group;
}

/// Names an object and returns it.
template <typename Object>
std::unique_ptr<Object> Named(std::unique_ptr<Object> object, const std::string& name)
{
    object->SetName(name);
    return object;
}

/// Moves an object by milli-points and returns it.
template <typename Object>
std::unique_ptr<Object> Moved(std::unique_ptr<Object> object, double x, double y)
{
    object->SetTransformation(Matrix(1.0, 0.0, 0.0, 1.0, x, y));
    return object;
}

/// A group that the comparison looks through.
std::unique_ptr<OrvDoc::Group> ImplicitGroup();
std::unique_ptr<OrvDoc::Group> UserGroup();
std::unique_ptr<OrvDoc::Group> NamedGroup(const std::string& name);

/// The outline of a rectangle in milli-points, neither filled nor stroked.
std::unique_ptr<OrvDoc::Path> Rectangle(double x, double y, double width, double height);
/// A path of a fixed shape without name or paint.
std::unique_ptr<OrvDoc::Path> Square();
/// The same with a name, to tell it from others.
std::unique_ptr<OrvDoc::Path> Square(const std::string& name);
/// The same that clips, with a name.
std::unique_ptr<OrvDoc::Path> Clip(const std::string& name);

/// A colour of named separations.
Color Tints(std::initializer_list<std::pair<const char*, float>> tints, bool overprint = false);
/// The registration colour.
Color AllSeparations(float tint, bool overprint = false);
PaintPointer Flat(Color color);
/// A path of a fixed shape with a fill paint.
std::unique_ptr<OrvDoc::Path> Filled(PaintPointer paint);
/// A path of a fixed shape with a stroke paint.
std::unique_ptr<OrvDoc::Path> Stroked(PaintPointer paint);

} // namespace HarrowSupport::Testing
