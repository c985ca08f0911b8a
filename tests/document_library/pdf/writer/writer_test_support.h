#pragma once

#include <string>
#include <vector>

#include <orv_doc/document.h>
#include <plexa/compound_builder.h>

#include "pdf/writer/content/content_writer.h"
#include "pdf/writer/content/separation_spaces.h"
#include "support/document_makers.h"

namespace OrvPdf::Testing
{

using namespace HarrowSupport::Testing;

/// What is written for objects on a page of their own.
template <typename... Objects>
WrittenContent WriteObjects(std::unique_ptr<Objects>... objects)
{
    const auto document = NewDocument(1);
    Fill(ContentOf(*document), std::move(objects)...);
    SeparationSpaces separations(document->GetSeparationInfo());
    return WriteContent(ContentOf(*document), separations, ContentStart::Page);
}

template <typename... Objects>
std::string BytesOf(std::unique_ptr<Objects>... objects)
{
    return WriteObjects(std::move(objects)...).bytes;
}

/// A line from the origin, which is short in the file: "0 0 m\n1 0 l\n".
inline std::unique_ptr<OrvDoc::Path> Line(double length = 1000.0,
                                          Plexa::WindingRule rule = Plexa::WindingRule::NonZero)
{
    Plexa::CompoundBuilder builder;
    builder.MoveTo({0.0, 0.0});
    builder.LineTo({length, 0.0});
    return std::make_unique<OrvDoc::Path>(builder.Finish(rule));
}

inline std::unique_ptr<OrvDoc::Path> ClipLine(double length = 1000.0)
{
    auto path = Line(length);
    path->SetClippingObject(true);
    return path;
}

template <typename Object>
std::unique_ptr<Object> Transformed(std::unique_ptr<Object> object,
                                    const HarrowSupport::Testing::Matrix& matrix)
{
    object->SetTransformation(matrix);
    return object;
}

inline PaintPointer Ink(float tint)
{
    return Flat(Tints({{"Spot", tint}}));
}

inline PaintPointer Native(OrvColor::ColorSpace::Pointer space, std::vector<float> components,
                           bool overprint = false, bool nonzero = false)
{
    return OrvPaint::FlatPaint::Factory(std::move(space), std::move(components), overprint, nonzero).Get();
}

inline std::unique_ptr<OrvDoc::Path> FilledLine(PaintPointer paint)
{
    auto path = Line();
    path->SetFillPaint(std::move(paint));
    return path;
}

inline std::unique_ptr<OrvDoc::Path> StrokedLine(PaintPointer paint)
{
    auto path = Line();
    path->SetStrokePaint(std::move(paint));
    return path;
}

} // namespace OrvPdf::Testing
