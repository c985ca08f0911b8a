#pragma once

#include <memory>
#include <string>

#include <gtest/gtest.h>
#include <qpdf/QPDF.hh>

#include <orv_doc/errors.h>
#include <orv_doc/read_options.h>
#include <orv_doc/write_options.h>

#include "pdf/writer/content/ext_g_state.h"
#include "pdf/writer/content/separation_spaces.h"
#include "pdf/writer/file/object_maker.h"
#include "pdf/writer/resources/nested_writer.h"
#include "support/temporary_folder.h"
#include "writer_test_support.h"

/// The graphics states of a content: as they are written, and what comes back from a file.
namespace OrvPdf::Testing
{

/// The `ExtGState` resources as PDF syntax. Objects of their own are references.
inline std::string StatesOf(const WrittenContent& content)
{
    QPDF file;
    file.emptyPDF();
    ObjectMaker maker(file, false);
    const auto document = OrvDoc::Document::CreateNew();
    SeparationSpaces separations(document->GetSeparationInfo());
    NestedWriter nested(*document, maker, separations, {});
    return MakeExtGStates(content.graphicsStates, content.transferFunctions, content.start, maker, nested)
        .unparseResolved();
}

/// The document as it comes back from a file. Errors fail the test.
inline std::unique_ptr<OrvDoc::Document> Reopened(OrvDoc::Document& document)
{
    const TemporaryFolder folder;
    const std::string name = folder.NameOf("states.pdf");
    document.Save(name, OrvDoc::WriteOptions(OrvDoc::WriteOptions::Flavour::Full));
    auto back = OrvDoc::Document::Create(name, OrvDoc::ReadOptions());
    for (OrvDoc::Document* const one : {&document, back.get()}) {
        for (const auto& error : ContentOf(*one).GetActiveErrors().GetAllErrors())
            ADD_FAILURE() << error->GetText();
    }
    return back;
}

/// The first object of a page that had the path alone, from a file. The document must live as long.
struct PathFromFile
{
    explicit PathFromFile(std::unique_ptr<OrvDoc::Path> path)
    {
        const auto before = NewDocument(1);
        Fill(ContentOf(*before), std::move(path));
        document = Reopened(*before);
    }

    const OrvDoc::Path& operator*() const
    {
        return dynamic_cast<const OrvDoc::Path&>(*ContentOf(*document).GetChildren().first);
    }
    const OrvDoc::Path* operator->() const { return &**this; }

    std::unique_ptr<OrvDoc::Document> document;
};

} // namespace OrvPdf::Testing
