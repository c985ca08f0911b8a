#pragma once

#include <memory>
#include <string>
#include <vector>

#include <boost/filesystem/operations.hpp>
#include <boost/filesystem/path.hpp>
#include <qpdf/QPDF.hh>

#include <orv_doc/content.h>
#include <orv_doc/document.h>
#include <orv_doc/errors.h>
#include <orv_doc/page_content.h>
#include <orv_doc/path.h>
#include <orv_doc/read_options.h>
#include <orv_doc/write_options.h>
#include <orv_paint/form_paint.h>

#include "support/document_makers.h"
#include "support/error_texts.h"
#include "support/pdf_text.h"
#include "support/temporary_folder.h"

/// Small files with forms, read, changed, saved and read again.
namespace OrvPdf::Testing
{

using FormPointer = std::shared_ptr<const OrvPaint::FormPaint>;

/// A form XObject with a box of ten by ten points.
inline std::string FormObject(const std::string& content, const std::string& entries = "",
                              const std::string& resources = "/Resources << >>")
{
    return HarrowSupport::Testing::PdfStream(content, "/Type /XObject /Subtype /Form /BBox [0 0 10 10] " +
                                                          resources + " " + entries);
}

/// The objects at the top of a content.
inline std::vector<const OrvDoc::ContentObject*> ObjectsOf(const OrvDoc::Content& content)
{
    std::vector<const OrvDoc::ContentObject*> objects;
    for (const OrvDoc::ContentObject* object = content.GetChildren().first; object; object = object->next)
        objects.push_back(object);
    return objects;
}

/// The form that an object shows; null if it shows none.
inline FormPointer FormOf(const OrvDoc::ContentObject* object)
{
    const auto* const path = dynamic_cast<const OrvDoc::Path*>(object);
    return path ? std::dynamic_pointer_cast<const OrvPaint::FormPaint>(path->GetFillPaint()) : nullptr;
}

/// The form that the object of that index at the top of a content shows.
inline FormPointer FormAt(const OrvDoc::Content& content, std::size_t index = 0)
{
    const auto objects = ObjectsOf(content);
    return index < objects.size() ? FormOf(objects[index]) : nullptr;
}

inline const OrvDoc::Path& PathAt(const OrvDoc::Content& content, std::size_t index = 0)
{
    return dynamic_cast<const OrvDoc::Path&>(*ObjectsOf(content).at(index));
}

inline std::vector<std::string> ErrorsOf(const OrvDoc::Content& content)
{
    return HarrowSupport::Testing::TextsOf(content.GetActiveErrors());
}

/// One document in a folder of its own. Pages use the forms `F0`, `F1` and so on.
class FormFile
{
public:
    /// The document of a file with those pages and objects behind them; the first has the number of
    /// `NumberOf(0)`, and is the form `F0` of all pages.
    void Read(const std::vector<std::string>& pages, const std::vector<std::string>& objects,
              const std::string& resources = "", const OrvDoc::ReadOptions& options = {})
    {
        pageCount = pages.size();
        std::string forms = "/XObject <<";
        for (std::size_t index = 0; index < objects.size(); ++index)
            forms += " /F" + std::to_string(index) + " " + Reference(index);
        bytes = HarrowSupport::Testing::PdfFileOfPages(pages, "", forms + " >> " + resources, objects);
        document = OrvDoc::Document::Create(folder.Write("in.pdf", bytes), options);
    }

    /// The object number of a form in a file of so many pages.
    static std::size_t NumberOf(std::size_t index, std::size_t pages = 1) { return 3 + 2 * pages + index; }
    std::string Reference(std::size_t index) const
    {
        return std::to_string(NumberOf(index, pageCount)) + " 0 R";
    }

    OrvDoc::Content& Page(std::size_t index = 0)
    {
        return HarrowSupport::Testing::ContentOf(*document, index);
    }

    /// Saves under that name and reads what was saved.
    std::unique_ptr<OrvDoc::Document> Reopen(const std::string& name = "out.pdf")
    {
        document->Save(folder.NameOf(name), OrvDoc::WriteOptions(OrvDoc::WriteOptions::Flavour::Full));
        return OrvDoc::Document::Create(folder.NameOf(name), OrvDoc::ReadOptions());
    }

    /// The form XObjects that the pages of a saved file lead to, each once, in order of their first use.
    std::vector<QPDFObjectHandle> SavedForms(const std::string& name = "out.pdf")
    {
        saved = std::make_unique<QPDF>();
        saved->processFile(folder.NameOf(name).c_str());
        std::vector<QPDFObjectHandle> forms;
        for (QPDFObjectHandle page : saved->getAllPages())
            AddForms(page.getKey("/Resources"), forms);
        return forms;
    }

    HarrowSupport::Testing::TemporaryFolder folder;
    std::string bytes;
    std::unique_ptr<OrvDoc::Document> document;

private:
    static void AddForms(QPDFObjectHandle resources, std::vector<QPDFObjectHandle>& forms)
    {
        if (!resources.isDictionary() || !resources.getKey("/XObject").isDictionary())
            return;
        for (const auto& [name, form] : resources.getKey("/XObject").getDictAsMap()) {
            QPDFObjectHandle handle = form;
            bool isKnown = false;
            for (QPDFObjectHandle& other : forms)
                isKnown = isKnown || other.getObjGen() == handle.getObjGen();
            if (!isKnown) {
                forms.push_back(handle);
                AddForms(handle.getDict().getKey("/Resources"), forms);
            }
        }
    }

    std::size_t pageCount = 1;
    std::unique_ptr<QPDF> saved;
};

inline std::string DataOf(QPDFObjectHandle stream)
{
    const auto buffer = stream.getStreamData();
    return std::string(reinterpret_cast<const char*>(buffer->getBuffer()), buffer->getSize());
}

} // namespace OrvPdf::Testing
