// Any bytes as a PDF file.
//
// Laws:
// - opening gives a document, or an exception with a text that names the file;
// - the document is within the limits that it is read with, and equal to itself read a second time;
// - saved as it is, and with all contents written anew, it comes back equal, or the exception names the file
//   that could not be written;
// - no file is left beside those that were asked for.

#include "fuzz_target.h"

#include "laws/document_trip.h"
#include "laws/equal_documents.h"
#include "laws/scratch_folder.h"
#include "laws/small_limits.h"
#include "support/all_contents.h"

#include <orv_doc/document.h>

#include <boost/filesystem/operations.hpp>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

namespace HarrowSupport::Fuzzing
{

namespace
{

using DocumentPointer = std::unique_ptr<OrvDoc::Document>;

void RequireDocument(const std::string& file)
{
    // A content that is kept is read again by the same limits, lest it has more the second time.
    const OrvDoc::ReadOptions limits = LimitsOfWritten();
    const DocumentPointer original = Open(file, limits);
    const DocumentPointer changed = Open(file, limits);
    Require((original == nullptr) == (changed == nullptr), "a file can be read twice or not at all");
    if (original == nullptr)
        return;
    RequireWithin(limits.limits, *original);
    RequireEqual(*original, *changed, "a document that is read twice is the same");
    if (const DocumentPointer back = SaveAndRead(*changed, "kept.pdf")) {
        // A pattern or form that takes its resources from around it is an object of its own where its user is
        // written anew, and the old one where its user is kept.
        RequireEqual(*original, *back, "a document that is saved comes back as it was",
                     {"PatternPaintReuse", "PatternPaintContentReuse", "FormReuse"});
    }
    Examples::MarkAllContentsChanged(*changed);
    if (const DocumentPointer back = SaveAndRead(*changed, "changed.pdf"))
        RequireEqual(*original, *back, "a document that is written anew comes back as it was");
}

/// Takes the files away that were asked for and finds no other.
void RequireNoOtherFiles()
{
    for (const char* const name : {"file.pdf", "kept.pdf", "changed.pdf"})
        boost::filesystem::remove(ScratchFolder().NameOf(name));
    Require(boost::filesystem::is_empty(ScratchFolder().GetPath()), "no other file is left");
}

} // namespace

} // namespace HarrowSupport::Fuzzing

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace HarrowSupport::Fuzzing;

    RequireDocument(ScratchFolder().Write("file.pdf", std::string(data, data + size)));
    RequireNoOtherFiles();
    return 0;
}
