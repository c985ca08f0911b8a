#pragma once

#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include <orv_blend/soft_mask.h>
#include <orv_blend/transparency.h>
#include <orv_doc/document.h>
#include <orv_doc/group.h>
#include <orv_doc/page.h>
#include <orv_doc/page_content.h>
#include <orv_doc/path.h>
#include <orv_doc/write_options.h>
#include <orv_paint/form_paint.h>
#include <orv_paint/pattern_paint.h>

#include "document_library/pdf/reader/opened_file.h"
#include "support/pdf_text.h"
#include "support/temporary_folder.h"

/// Small files with contents inside of contents, and what their pages paint.
namespace ReaderTests
{

using MilliPointMatrix = Plexa::TransformationBase<Plexa::MilliPointCoordinateSystem>;
using MilliPointBox = Plexa::RectangleBase<Plexa::MilliPointCoordinateSystem>;

/// A file whose pages of 100 by 100 points share their resources. Further objects are numbered from 3 plus
/// twice the number of pages: from 5 for one page.
inline std::unique_ptr<OrvDoc::Document> ReadPages(const std::vector<std::string>& contents,
                                                   const std::string& resources,
                                                   const std::vector<std::string>& objects)
{
    return ReadBytes(HarrowSupport::Testing::PdfFileOfPages(contents, "", resources, objects));
}

inline OrvDoc::Content& ContentOfPage(OrvDoc::Document& document, std::size_t page = 0)
{
    auto iterator = document.GetPagesBegin();
    for (; page > 0; --page)
        ++iterator;
    return iterator->GetContent();
}

inline std::vector<std::string> ErrorsOfPage(OrvDoc::Document& document, std::size_t page = 0)
{
    return TextsOf(ContentOfPage(document, page).GetActiveErrors());
}

/// The path of that index, groups left out of account.
inline const OrvDoc::Path& PathOf(const OrvDoc::Content& content, std::size_t index = 0)
{
    std::vector<const OrvDoc::ContentObject*> open{content.GetChildren().first};
    while (!open.empty()) {
        const OrvDoc::ContentObject* const object = open.back();
        open.pop_back();
        if (!object)
            continue;
        open.push_back(object->next);
        if (const auto* const group = dynamic_cast<const OrvDoc::Group*>(object)) {
            open.push_back(group->children.first);
        } else if (const auto* const path = dynamic_cast<const OrvDoc::Path*>(object)) {
            if (!path->IsClippingObject() && index-- == 0)
                return *path;
        }
    }
    throw std::out_of_range("There are not so many paths.");
}

inline const OrvDoc::Path& PathOfPage(OrvDoc::Document& document, std::size_t index = 0, std::size_t page = 0)
{
    return PathOf(ContentOfPage(document, page), index);
}

/// The pattern that a path is filled with; null for another paint or none.
inline std::shared_ptr<const OrvPaint::PatternPaint> PatternOf(const OrvDoc::Path& path)
{
    return std::dynamic_pointer_cast<const OrvPaint::PatternPaint>(path.GetFillPaint());
}

inline const OrvDoc::Content& FormContentOf(const OrvDoc::Path& path)
{
    return dynamic_cast<const OrvPaint::FormPaint&>(*path.GetFillPaint()).GetContent();
}

/// The mask of an object; null for none.
inline std::shared_ptr<const OrvBlend::SoftMask> MaskOf(const OrvDoc::Blendable& object)
{
    return object.GetTransparency() ? object.GetTransparency()->softMask : nullptr;
}

/// What is saved of a document, read again.
inline std::unique_ptr<OrvDoc::Document> SavedAndRead(OrvDoc::Document& document)
{
    const HarrowSupport::Testing::TemporaryFolder folder;
    const std::string name = folder.NameOf("saved.pdf");
    document.Save(name, OrvDoc::WriteOptions(OrvDoc::WriteOptions::Flavour::Full));
    return OrvDoc::Document::Create(name, OrvDoc::ReadOptions());
}

} // namespace ReaderTests
