#pragma once

#include <sstream>
#include <string>
#include <vector>

#include <qpdf/QPDF.hh>

#include <orv_doc/document.h>
#include <orv_doc/errors.h>
#include <orv_doc/page_content.h>
#include <orv_doc/path.h>
#include <orv_doc/text.h>
#include <orv_doc/write_options.h>
#include <orv_paint/form_paint.h>

#include "reader/interpreter_test_support.h"
#include "support/document_makers.h"
#include "support/error_texts.h"
#include "support/file_bytes.h"
#include "support/pdf_text.h"
#include "support/temporary_folder.h"

/// Small files with text, read, changed, saved and read again.
namespace OrvPdf::Testing
{

inline std::string MatrixText(const Plexa::TransformationBase<Plexa::MilliPointCoordinateSystem>& matrix)
{
    std::string text;
    for (const double number : {matrix.a, matrix.b, matrix.c, matrix.d, matrix.x.value, matrix.y.value})
        text += (text.empty() ? "" : ",") + ShortNumber(number);
    return text;
}

/// Every path that shows a form, as `@matrix[objects of the form]`, and every text, in paint order, groups
/// left out of account.
inline std::vector<std::string> ShownIn(const OrvDoc::Detail::List<OrvDoc::ContentObject>& objects)
{
    std::vector<std::string> shown;
    for (const OrvDoc::ContentObject* object = objects.first; object; object = object->next) {
        if (const auto* const group = dynamic_cast<const OrvDoc::Group*>(object)) {
            const auto inner = ShownIn(group->children);
            shown.insert(shown.end(), inner.begin(), inner.end());
        } else if (const auto* const text = dynamic_cast<const OrvDoc::Text*>(object)) {
            shown.push_back(TextText(*text));
        } else if (const auto* const path = dynamic_cast<const OrvDoc::Path*>(object)) {
            const auto* const form = dynamic_cast<const OrvPaint::FormPaint*>(path->GetFillPaint().get());
            shown.push_back(form ? "@" + MatrixText(path->GetTransformation()) + "[" +
                                       TreeText(std::as_const(form->GetContent()).GetChildren()) + "]"
                                 : ObjectText(*path));
        }
    }
    return shown;
}

inline std::vector<std::string> ShownOn(const OrvDoc::Content& content)
{
    return ShownIn(content.GetChildren());
}

/// The paths of a content that show forms, in paint order.
inline void CollectForms(const OrvDoc::Detail::List<OrvDoc::ContentObject>& objects,
                         std::vector<OrvDoc::Path*>& paths)
{
    for (OrvDoc::ContentObject* object = objects.first; object; object = object->next) {
        if (auto* const group = dynamic_cast<OrvDoc::Group*>(object)) {
            CollectForms(group->children, paths);
        } else if (auto* const path = dynamic_cast<OrvDoc::Path*>(object)) {
            if (dynamic_cast<const OrvPaint::FormPaint*>(path->GetFillPaint().get()))
                paths.push_back(path);
        }
    }
}

/// One document in a folder of its own.
class TextFile
{
public:
    /// The document of a file with those pages, entries of their resources, and further objects, of which the
    /// first has the number three plus twice the number of pages: five for one page.
    void Read(const std::vector<std::string>& pages, const std::string& resources,
              const std::vector<std::string>& objects, const OrvDoc::ReadOptions& options = {})
    {
        const std::string bytes = HarrowSupport::Testing::PdfFileOfPages(pages, "", resources, objects);
        document = OrvDoc::Document::Create(folder.Write("in.pdf", bytes), options);
    }

    OrvDoc::Content& Page(std::size_t index = 0)
    {
        return HarrowSupport::Testing::ContentOf(*document, index);
    }

    std::vector<std::string> Shown(std::size_t page = 0) { return ShownOn(Page(page)); }
    std::vector<std::string> Errors(std::size_t page = 0)
    {
        return HarrowSupport::Testing::TextsOf(Page(page).GetActiveErrors());
    }

    std::string Path(const std::string& name = "out.pdf") const { return folder.NameOf(name); }

    /// Saves, then reads what was saved; the document before is gone.
    void Reopen()
    {
        Save();
        document = OrvDoc::Document::Create(Path(), OrvDoc::ReadOptions());
    }

    void Save() { document->Save(Path(), OrvDoc::WriteOptions(OrvDoc::WriteOptions::Flavour::Full)); }

    /// Page of the saved file.
    QPDFObjectHandle SavedPage(int index = 0)
    {
        saved = std::make_unique<QPDF>();
        saved->processFile(Path().c_str());
        return saved->getAllPages().at(static_cast<std::size_t>(index));
    }

    std::string SavedStream(int page = 0)
    {
        QPDFObjectHandle contents = SavedPage(page).getKey("/Contents");
        const std::vector<QPDFObjectHandle> parts =
            contents.isArray() ? contents.getArrayAsVector() : std::vector<QPDFObjectHandle>{contents};
        std::string bytes;
        for (QPDFObjectHandle part : parts) {
            const auto buffer = part.getStreamData();
            bytes.append(reinterpret_cast<const char*>(buffer->getBuffer()), buffer->getSize());
        }
        return bytes;
    }

    std::vector<QPDFObjectHandle> SavedFonts(int page = 0)
    {
        std::vector<QPDFObjectHandle> fonts;
        QPDFObjectHandle dictionary = SavedPage(page).getKey("/Resources").getKey("/Font");
        if (dictionary.isDictionary()) {
            for (const auto& [name, font] : dictionary.getDictAsMap())
                fonts.push_back(font);
        }
        return fonts;
    }

    HarrowSupport::Testing::TemporaryFolder folder;
    std::unique_ptr<OrvDoc::Document> document;

private:
    std::unique_ptr<QPDF> saved;
};

} // namespace OrvPdf::Testing
