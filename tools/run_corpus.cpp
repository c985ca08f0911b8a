// Takes all PDF files of a folder through the model and back, and tells what became of them: a line of JSON
// for each, and a summary with the worst files first.

#include "corpus/corpus_run.h"
#include "corpus/summary.h"
#include "corpus/witnesses.h"
#include "support/pdf_files.h"

#include <CLI/CLI.hpp>

#include <boost/dll/runtime_symbol_info.hpp>

#include <exception>
#include <fstream>
#include <iostream>
#include <limits>
#include <stdexcept>
#include <string>
#include <vector>

namespace
{

using namespace HarrowSupport::Corpus;

struct Arguments
{
    std::string folder;
    std::string records = "corpus.jsonl";
    std::size_t rows = 30;
    bool withoutLooks = false;
    RunSettings settings;
};

void TellMissingWitnesses()
{
    for (const std::string& program : ListMissingWitnesses())
        std::cerr << "run_corpus: " << program << " is not installed; what it would tell is left out\n";
}

/// @return whether all bars are held
bool Run(Arguments arguments)
{
    arguments.settings.looks = !arguments.withoutLooks;
    arguments.settings.trialProgram =
        (boost::dll::program_location().parent_path() / "try_document").string();
    const std::vector<std::string> files = HarrowSupport::Testing::ListPdfFiles(arguments.folder);
    if (files.empty())
        throw std::runtime_error("there is no PDF file in " + arguments.folder);
    std::ofstream records(arguments.records);
    if (!records)
        throw std::runtime_error(arguments.records + " can't be written");
    TellMissingWitnesses();

    std::size_t done = 0;
    const auto tell = [&](const FileOutcome& outcome) {
        records << ToJsonLine(outcome) << std::endl;
        std::cerr << "\r" << ++done << " of " << files.size() << " files" << std::flush;
    };
    const std::vector<FileOutcome> outcomes = RunOverFiles(arguments.folder, files, arguments.settings, tell);
    std::cerr << "\n";
    if (!records.flush())
        throw std::runtime_error(arguments.records + " can't be written to its end");
    WriteTable(std::cout, outcomes, arguments.rows);
    std::cout << "\n";
    return WriteBars(std::cout, outcomes);
}

} // namespace

int main(int argumentCount, char** argumentValues)
{
    Arguments arguments;
    std::uint64_t seconds = 10;
    std::uint64_t mebibytes = 1024;
    CLI::App app(
        "Opens each PDF file of a folder, saves it, opens what was saved and compares, with the contents "
        "as they are in the file and with all of them written anew. qpdf, pdftoppm, pdftotext and "
        "pdfimages look at both files where they are installed. The files of the folder are only read.");
    app.footer("Exit code: 0 if all bars are held, 1 if one is not, 2 in trouble.");
    app.add_option("FOLDER", arguments.folder, "Folder of PDF files, with the folders in it")
        ->required()
        ->check(CLI::ExistingDirectory);
    app.add_option("--records", arguments.records, "File for the lines of JSON, one for each PDF file")
        ->capture_default_str();
    app.add_option("--rows", arguments.rows, "Rows of the table, the worst files first")
        ->capture_default_str();
    app.add_option("--seconds", seconds, "What one trip of a file may take")->capture_default_str();
    app.add_option("--mebibytes", mebibytes, "Address space that one trip may take; 0 for no limit")
        ->capture_default_str();
    app.add_option("--jobs", arguments.settings.filesAtOnce, "Files at once; 0 for one on each core")
        ->capture_default_str();
    app.add_option("--keep", arguments.settings.keepFolder, "Folder in which the saved files are kept");
    app.add_flag("--no-looks", arguments.withoutLooks, "Renders no pages, and reads no texts");
    try {
        app.parse(argumentCount, argumentValues);
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? 0 : 2;
    }
    try {
        arguments.settings.trialLimits = {std::chrono::seconds(seconds), mebibytes << 20};
        return Run(std::move(arguments)) ? 0 : 1;
    } catch (const std::exception& error) {
        std::cerr << "run_corpus: " << error.what() << "\n";
        return 2;
    }
}
