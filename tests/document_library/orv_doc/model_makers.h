#pragma once

#include <memory>
#include <string>
#include <utility>

#include <orv_doc/content.h>
#include <orv_doc/document.h>
#include <orv_doc/group.h>
#include <orv_doc/path.h>
#include <orv_paint/flat_paint.h>
#include <plexa/compound_builder.h>

namespace ModelTests
{

using Transformation = Plexa::TransformationBase<Plexa::MilliPointCoordinateSystem>;
using Rectangle = Plexa::RectangleBase<Plexa::MilliPointCoordinateSystem>;
using CompoundPointer = std::shared_ptr<const Plexa::Compound>;

inline CompoundPointer MakeRectangle(double x, double y, double width, double height)
{
    Plexa::CompoundBuilder builder;
    builder.AddRectangle(x, y, width, height);
    return builder.Finish(Plexa::WindingRule::NonZero);
}

inline std::unique_ptr<OrvDoc::Path> MakePath()
{
    return std::make_unique<OrvDoc::Path>(MakeRectangle(0, 0, 1000, 2000));
}

inline std::unique_ptr<OrvDoc::Group> MakeGroup()
{
    return std::make_unique<OrvDoc::Group>(OrvDoc::Group::Flags::Default);
}

inline Transformation Translation(double x, double y)
{
    return Plexa::Translation<Plexa::MilliPointCoordinateSystem>(x, y);
}

inline Transformation Scaling(double factor)
{
    return {factor, 0, 0, factor, 0, 0};
}

/// Adds an object and returns it as what it is.
template <typename Container, typename Object>
Object& Add(Container& container, std::unique_ptr<Object> object)
{
    container.AddOnTop(object.get());
    return *object.release();
}

/// A chain of groups, each in the one before, with the outermost returned and the innermost in `innermost`.
inline std::unique_ptr<OrvDoc::Group> MakeChain(std::size_t depth, OrvDoc::Group** innermost = nullptr)
{
    std::unique_ptr<OrvDoc::Group> root = MakeGroup();
    OrvDoc::Group* group = root.get();
    while (--depth)
        group = &Add(*group, MakeGroup());
    if (innermost)
        *innermost = group;
    return root;
}

inline std::shared_ptr<const OrvPaint::Paint> MakeBlack()
{
    OrvColor::ColorList<OrvColor::ColorPolicy> color;
    color.Add("Black", 1.0f);
    return OrvPaint::GetFlatPaint(color, nullptr);
}

/// The number of objects in a list, counted from both ends, which must agree.
inline std::size_t CountObjects(const OrvDoc::Detail::List<OrvDoc::ContentObject>& list)
{
    std::size_t forward = 0;
    std::size_t backward = 0;
    for (const OrvDoc::ContentObject* object = list.first; object; object = object->next)
        ++forward;
    for (const OrvDoc::ContentObject* object = list.last; object; object = object->previous)
        ++backward;
    return forward == backward ? forward : static_cast<std::size_t>(-1);
}

} // namespace ModelTests
