// Takes a PDF file through the model and back, and compares what comes back with the original.

#include "support/all_contents.h"
#include "support/command_line.h"
#include "support/count.h"
#include "support/error_list.h"
#include "support/line_reporter.h"
#include "support/run_program.h"

#include <harrow_support/comparators.h>
#include <harrow_support/round_trip.h>

#include <orv_doc/document.h>
#include <orv_doc/read_options.h>
#include <orv_doc/write_options.h>

#include <filesystem>
#include <iostream>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

namespace
{

constexpr char usage[] = R"(usage: save_and_reopen [OPTION...] FILE

Reads a PDF file, saves it to a temporary file, reads that one and compares: the file as it is on the left, what
came back on the right. Each report is a line as compare_documents writes it. Before them stands a line

    error <place> <text>

with tabs between the fields, for each thing of the file that could not be read into the model or written from it.
The last line on standard error counts both.

    --password TEXT         password of the file, if it is encrypted
    --keep NEW              also keeps what was saved, under this name; a file of that name is replaced
    --rewrite               writes every content anew from the model, also those of forms, patterns and soft masks,
                            but for the glyphs of Type 3 fonts, which would be no text any more; without it, one
                            that holds something that could not be read into the model stays as it is in the file
    --help                  writes this text

Exit code: 0 if what came back is equal, 1 if it differs, 2 if the file could not be read, saved or read again;
standard error then says why, and nothing is written to standard output.
)";

Examples::ExitCode MakeRoundTrip(const std::vector<std::string>& arguments, std::ostream& output)
{
    const Examples::CommandLine commandLine =
        Examples::ReadCommandLine(arguments, {{"--password", "--keep"}, {"--rewrite"}, {"FILE"}});
    const std::string& file = commandLine.operands[0];
    const std::string keptFile = commandLine.GetOption("--keep");
    OrvDoc::ReadOptions readOptions;
    readOptions.password = commandLine.GetOption("--password");

    auto document = OrvDoc::Document::Create(file, readOptions);
    if (commandLine.HasOption("--rewrite"))
        Examples::MarkAllContentsChanged(*document);
    // Saving destroys the document and its errors with it, so the errors of writing are asked for before.
    document->Flush();
    const std::vector<Examples::PlacedError> errors = Examples::ListActiveErrors(*document);
    Examples::WriteErrors(output, errors);
    HarrowSupport::SaveAndReopen(document, "save_and_reopen",
                                 OrvDoc::WriteOptions(OrvDoc::WriteOptions::Flavour::Full), readOptions);

    const auto original = OrvDoc::Document::Create(file, readOptions);
    Examples::LineReporter reporter(output, *original, *document);
    HarrowSupport::Comparators::Compare(reporter, *original, *document, Examples::StrictestOptions());

    if (!keptFile.empty()) {
        // The temporary file goes with the document.
        std::filesystem::copy_file(document->GetFilePath().string(), keptFile,
                                   std::filesystem::copy_options::overwrite_existing);
    }
    std::cerr << "save_and_reopen: " << Examples::Count(errors.size(), "active error") << ", "
              << Examples::Count(reporter.GetDifferenceCount(), "difference") << "\n";
    return reporter.GetDifferenceCount() == 0 ? Examples::ExitCode::Equal : Examples::ExitCode::Different;
}

} // namespace

int main(int argumentCount, char** arguments)
{
    return Examples::RunProgram("save_and_reopen", usage, argumentCount, arguments, MakeRoundTrip);
}
