// Compares two PDF files object by object and writes a line for each difference.

#include "support/command_line.h"
#include "support/line_reporter.h"
#include "support/run_program.h"

#include <harrow_support/comparators.h>

#include <orv_doc/document.h>
#include <orv_doc/read_options.h>

#include <memory>
#include <ostream>
#include <string>
#include <vector>

namespace
{

constexpr char usage[] = R"(usage: compare_documents [OPTION...] LEFT RIGHT

Compares two PDF files, page by page and object by object, and writes a line for each report:

    <kind> <label> <place on the left> <place on the right> <left value vs right value>

with tabs between the fields. The kind is 1 for a difference; 0 marks a tolerated variation, such as a list of
layers in reverse, which does not count as a difference. Pages and objects count from one: "page 2 object 3.1"
is the first child of the third object of the second page. "document" stands for the document as a whole, "-" for
an object that only the other side has. In a value, \t, \n, \r and \\ stand for tab, newline, carriage return and
backslash, \x with two digits for other control characters.

    --password-left TEXT    password of the left file, if it is encrypted
    --password-right TEXT   password of the right file
    --help                  writes this text

Exit code: 0 if the documents are equal, 1 if they differ, 2 if they could not be compared; standard error then
says why, and nothing is written to standard output.
)";

std::unique_ptr<OrvDoc::Document> Open(const std::string& file, const std::string& password)
{
    OrvDoc::ReadOptions options;
    options.password = password;
    return OrvDoc::Document::Create(file, options);
}

Examples::ExitCode CompareFiles(const std::vector<std::string>& arguments, std::ostream& output)
{
    const Examples::CommandLine commandLine = Examples::ReadCommandLine(
        arguments, {{"--password-left", "--password-right"}, {}, {"LEFT", "RIGHT"}});
    const auto left = Open(commandLine.operands[0], commandLine.GetOption("--password-left"));
    const auto right = Open(commandLine.operands[1], commandLine.GetOption("--password-right"));

    Examples::LineReporter reporter(output, *left, *right);
    HarrowSupport::Comparators::Compare(reporter, *left, *right, Examples::StrictestOptions());
    return reporter.GetDifferenceCount() == 0 ? Examples::ExitCode::Equal : Examples::ExitCode::Different;
}

} // namespace

int main(int argumentCount, char** arguments)
{
    return Examples::RunProgram("compare_documents", usage, argumentCount, arguments, CompareFiles);
}
