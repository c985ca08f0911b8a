#pragma once

#include <memory>
#include <utility>

#include <orv_blend/soft_mask.h>
#include <orv_blend/transparency.h>
#include <orv_doc/content.h>
#include <orv_doc/path.h>
#include <orv_paint/form_paint.h>
#include <orv_paint/pattern_paint.h>

#include "document_library/orv_doc/model_makers.h"

namespace ModelTests
{

using ContentPointer = std::shared_ptr<OrvDoc::Content>;

inline ContentPointer MakeContent(OrvDoc::Document& document, OrvDoc::Content::Type type)
{
    return std::make_shared<OrvDoc::Content>(document, type);
}

inline ContentPointer MakeFormContent(OrvDoc::Document& document)
{
    return MakeContent(document, OrvDoc::Content::Type::FormContent);
}

inline ContentPointer MakeCell(OrvDoc::Document& document)
{
    return MakeContent(document, OrvDoc::Content::Type::ColoredPatternContent);
}

inline ContentPointer MakeMaskContent(OrvDoc::Document& document)
{
    return MakeContent(document, OrvDoc::Content::Type::SoftMaskContent);
}

inline std::shared_ptr<const OrvPaint::FormPaint> MakeForm(ContentPointer content)
{
    return OrvPaint::FormPaint::Factory(std::move(content)).Get();
}

inline std::shared_ptr<const OrvPaint::PatternPaint> MakePattern(ContentPointer cell)
{
    return OrvPaint::PatternPaint::Factory(std::move(cell)).Get();
}

inline std::shared_ptr<const OrvBlend::Transparency> MakeMasked(ContentPointer drawing)
{
    return OrvBlend::Transparency::Factory()
        .SetSoftMask(OrvBlend::SoftMask::Factory(std::move(drawing)).Get())
        .Get();
}

/// Adds a path that is filled with the paint.
template <typename Container>
OrvDoc::Path& AddFilled(Container& container, std::shared_ptr<const OrvPaint::Paint> paint)
{
    OrvDoc::Path& path = Add(container, MakePath());
    path.SetFillPaint(std::move(paint));
    return path;
}

} // namespace ModelTests
