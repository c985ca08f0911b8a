// Takes PDF files through the write path of the library and compares the first page of each with a copy that
// was put aside before.

#include "support/all_options.h"
#include "support/command_line.h"
#include "support/round_trip_report.h"
#include "support/run_program.h"

#include <harrow_support/comparators.h>
#include <harrow_support/round_trip.h>

#include <orv_doc/content.h>
#include <orv_doc/content_object.h>
#include <orv_doc/document.h>
#include <orv_doc/page.h>
#include <orv_doc/read_options.h>
#include <orv_doc/scratch_document.h>

#include <exception>
#include <iostream>
#include <memory>
#include <new>
#include <ostream>
#include <stdexcept>
#include <string>
#include <vector>

namespace
{

constexpr char usage[] = R"(usage: round_trip [OPTION...] FILE...

Reads each PDF file, saves it to a temporary file and reads that one again, and compares the objects of the first
page and the list of separations with what they were before. Writes the lines

    <file> difference <label> <message>
    <file> document error <text>
    <file> content error <text>

with tabs between the fields: the differences, and what could not be written of the document and of the content of
its first page. Objects are told by numbers that the library gave them in this run. The last line counts.

    --flush                 no file is written: the document itself goes through the write path. A file that can't be
                            opened without a password needs this, since what is saved of it can't be either.
    --password TEXT         password of the files, if they are encrypted
    --help                  writes this text

Exit code: 0 if there is no difference, 1 if there is one, 2 if a file could not be read, saved or read again, or if
the command line is wrong. Standard error then says why; the other files are tried all the same.
)";

/// A round trip that ends in an exception leaves its copy in the scratch document, where the next one would
/// compare it along with its own.
void EmptyScratchDocument()
{
    auto& objects = OrvDoc::GetScratchDocument().GetPagesBegin()->GetContent().GetChildren();
    while (objects.first != nullptr)
        delete objects.first->ExtractFromParent();
}

void AddFailure(const std::string& file, const char* reason, Examples::RoundTripReport& report)
{
    EmptyScratchDocument();
    report.AddFailure();
    std::cerr << "round_trip: " << file << " failed: " << reason << "\n";
}

HarrowSupport::RoundTripResult MakeRoundTrip(const std::string& file,
                                             const Examples::CommandLine& commandLine)
{
    OrvDoc::ReadOptions readOptions;
    readOptions.password = commandLine.GetOption("--password");
    auto document = OrvDoc::Document::Create(file, readOptions);
    // A damaged page tree can leave a document without pages, which a round trip is not made for.
    if (document->GetNumberOfPages() == 0)
        throw std::runtime_error("there is no page that can be read");
    return commandLine.HasOption("--flush")
               ? HarrowSupport::TestRoundTripStructure(*document, Examples::AllOptions())
               : HarrowSupport::TestRoundTripStructure(document, Examples::AllOptions());
}

Examples::ExitCode MakeRoundTrips(const std::vector<std::string>& arguments, std::ostream& output)
{
    const Examples::CommandLine commandLine =
        Examples::ReadCommandLine(arguments, {{"--password"}, {"--flush"}, {"FILE..."}});
    Examples::RoundTripReport report(output);
    for (const std::string& file : commandLine.operands) {
        try {
            report.AddResult(file, MakeRoundTrip(file, commandLine));
        } catch (const std::bad_alloc&) {
            AddFailure(file, Examples::NoMemory(), report);
        } catch (const std::exception& error) {
            AddFailure(file, error.what(), report);
        }
    }
    return report.Finish();
}

} // namespace

int main(int argumentCount, char** arguments)
{
    return Examples::RunProgram("round_trip", usage, argumentCount, arguments, MakeRoundTrips);
}
