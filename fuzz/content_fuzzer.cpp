// Any bytes as the content stream of a page, whose resources are those of laws/content_page.h.
//
// Laws:
// - the content is within the limits that it is read with, and equal to itself read a second time;
// - bytes that are no content, and operators that nobody knows, are told among its errors;
// - written anew, with the contents inside of it, it comes back equal and without errors.

#include "fuzz_target.h"

#include "laws/content_page.h"
#include "laws/document_trip.h"
#include "laws/equal_documents.h"
#include "laws/scratch_folder.h"
#include "laws/small_limits.h"
#include "pdf/reader/lexer/content_lexer.h"
#include "support/all_contents.h"

#include <orv_doc/content.h>
#include <orv_doc/document.h>
#include <orv_doc/errors.h>
#include <orv_doc/page.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

namespace HarrowSupport::Fuzzing
{

namespace
{

using DocumentPointer = std::unique_ptr<OrvDoc::Document>;

const OrvDoc::Content& ContentOf(OrvDoc::Document& document)
{
    return document.GetPagesBegin()->GetContent();
}

bool HasErrors(OrvDoc::Document& document)
{
    return !ContentOf(document).GetActiveErrors().GetAllErrors().empty();
}

/// Whether something stands in the stream that is neither an operation nor may be passed over.
bool HasNonsense(const std::string& stream)
{
    OrvPdf::ContentLexer lexer(stream);
    OrvPdf::ContentOperation operation;
    bool mayBeUnknown = false;
    while (lexer.Next(operation)) {
        mayBeUnknown = mayBeUnknown || operation.id == OrvPdf::OperatorId::BeginCompatibility;
        if (operation.id == OrvPdf::OperatorId::Unknown && !mayBeUnknown)
            return true;
    }
    return lexer.DamageCount() != 0;
}

/// Fonts stay as they are in the file, and so does what there is to tell about them.
bool IsAboutFont(const std::string& error)
{
    return error.find("is not embedded") != std::string::npos;
}

void RequireNoErrors(OrvDoc::Document& document)
{
    for (const OrvDoc::Content* const content : Examples::ListAllContents(document)) {
        for (const auto& error : content->GetActiveErrors().GetAllErrors()) {
            const bool isExpected = IsAboutFont(error->GetText());
            if (!isExpected)
                std::cerr << error->GetText() << "\n";
            Require(isExpected, "what is written anew is read without errors");
        }
    }
}

void RequireContent(const std::string& stream)
{
    const std::string file = ScratchFolder().Write("content.pdf", MakeContentPage(stream));
    const OrvDoc::ReadOptions limits = SmallLimits();
    const DocumentPointer original = OrvDoc::Document::Create(file, limits);
    const DocumentPointer changed = OrvDoc::Document::Create(file, limits);
    RequireEqual(*original, *changed, "a content that is read twice is the same");
    RequireWithin(limits.limits, *original);
    Require(!HasNonsense(stream) || HasErrors(*original), "what is no content is told");

    Examples::MarkAllContentsChanged(*changed);
    const DocumentPointer back = SaveAndRead(*changed, "written.pdf");
    Require(back != nullptr, "a content can be written anew");
    RequireEqual(*original, *back, "a content that is written anew comes back as it was");
    RequireNoErrors(*back);
}

} // namespace

} // namespace HarrowSupport::Fuzzing

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    HarrowSupport::Fuzzing::RequireContent(std::string(data, data + size));
    return 0;
}
