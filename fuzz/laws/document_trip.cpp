#include "laws/document_trip.h"

#include "fuzz_target.h"

#include "laws/scratch_folder.h"
#include "laws/small_limits.h"

#include <orv_doc/write_options.h>

#include <boost/filesystem/operations.hpp>

#include <stdexcept>

namespace HarrowSupport::Fuzzing
{

using DocumentPointer = std::unique_ptr<OrvDoc::Document>;

namespace
{

bool NamesFileAndReason(const std::runtime_error& problem, const std::string& file)
{
    const std::string text = problem.what();
    const std::string begin = file + ": ";
    const bool holds = text.compare(0, begin.size(), begin) == 0 && text.size() > begin.size();
    if (!holds)
        std::cerr << text << "\n";
    return holds;
}

} // namespace

DocumentPointer Open(const std::string& file, const OrvDoc::ReadOptions& limits)
{
    try {
        return OrvDoc::Document::Create(file, limits);
    } catch (const std::runtime_error& problem) {
        Require(NamesFileAndReason(problem, file),
                "an exception of reading names the file and what is wrong");
    }
    return nullptr;
}

DocumentPointer SaveAndRead(OrvDoc::Document& document, const char* name)
{
    const std::string file = ScratchFolder().NameOf(name);
    boost::filesystem::remove(file);
    try {
        document.Save(file, OrvDoc::WriteOptions(OrvDoc::WriteOptions::Flavour::Full));
    } catch (const std::runtime_error& problem) {
        Require(NamesFileAndReason(problem, file),
                "an exception of writing names the file and what is wrong");
        Require(!boost::filesystem::exists(file), "a file that could not be written is not there");
        return nullptr;
    }
    return OrvDoc::Document::Create(file, LimitsOfWritten());
}

} // namespace HarrowSupport::Fuzzing
