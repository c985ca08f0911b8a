#pragma once

#include <cstddef>
#include <memory>
#include <vector>

#include <orv_doc/content.h>
#include <orv_doc/document.h>
#include <orv_paint/paint.h>

namespace Benchmarks
{

using PaintPointer = std::shared_ptr<const OrvPaint::Paint>;

/// A document with one page and nothing on it.
std::unique_ptr<OrvDoc::Document> MakeEmptyPage();

/// The content of the first page.
OrvDoc::Content& ContentOf(OrvDoc::Document& document);

/// Puts so many small squares on top; they use the fill paints, of which there must be one, in turn.
void AddSquares(OrvDoc::Content& content, std::size_t count, const std::vector<PaintPointer>& paints);

/// A content of a form, pattern or soft mask with so many black squares.
std::shared_ptr<OrvDoc::Content> MakeSquares(OrvDoc::Document& document, OrvDoc::Content::Type type,
                                             std::size_t count);

/// One page with so many black squares.
std::unique_ptr<OrvDoc::Document> MakePlainDocument(std::size_t objects);

/// One page with so many objects that use the forms in turn, each at a place of its own; so many black
/// squares in each form.
std::unique_ptr<OrvDoc::Document> MakeFormDocument(std::size_t users, std::size_t forms,
                                                   std::size_t objectsInAForm);

/// The objects of all pages, those in groups, and once each those in the contents of forms, patterns and soft
/// masks. Interprets all that is not interpreted yet.
std::size_t CountAllObjects(const OrvDoc::Document& document);

} // namespace Benchmarks
