// Takes one PDF file through the model and back, and tells what became of it as a line of JSON. run_corpus
// starts it for each file, in a process of its own, so that a file that brings it down takes no other with
// it.

#include "trial/document_trial.h"

#include "support/command_line.h"
#include "support/run_program.h"

#include <nlohmann/json.hpp>

#include <ostream>

namespace
{

constexpr char usage[] = R"(usage: try_document [OPTION...] FILE NEW

Reads a PDF file, saves it as NEW, reads that and compares. A file NEW that is there is replaced. Standard output is
a line of JSON that tells what became of the file.

    --password TEXT         password of the file, if it is encrypted
    --rewrite               writes every content anew from the model
    --help                  writes this text

Exit code: 0 if what came back is equal, 1 if it differs, 2 if the file could not be read, saved or read again;
standard error then says why, and nothing is written to standard output.
)";

Examples::ExitCode TryFile(const std::vector<std::string>& arguments, std::ostream& output)
{
    const Examples::CommandLine commandLine =
        Examples::ReadCommandLine(arguments, {{"--password"}, {"--rewrite"}, {"FILE", "NEW"}});
    HarrowSupport::Corpus::TrialRequest request;
    request.file = commandLine.operands[0];
    request.savedFile = commandLine.operands[1];
    request.password = commandLine.GetOption("--password");
    request.rewrites = commandLine.HasOption("--rewrite");
    const nlohmann::json outcome = HarrowSupport::Corpus::TryDocument(request);
    // Texts of a file need not be UTF-8, but JSON has to be.
    output << outcome.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace) << '\n';
    return outcome["differences"] == 0 ? Examples::ExitCode::Equal : Examples::ExitCode::Different;
}

} // namespace

int main(int argumentCount, char** arguments)
{
    return Examples::RunProgram("try_document", usage, argumentCount, arguments, TryFile);
}
