// Writes a PDF file with every picture of the catalogue, and takes each of them through a round trip of its
// own.

#include "support/all_options.h"
#include "support/command_line.h"
#include "support/count.h"
#include "support/error_list.h"
#include "support/round_trip_report.h"
#include "support/run_program.h"

#include <harrow_support/comparators.h>
#include <harrow_support/content_generator.h>
#include <harrow_support/generate_image.h>
#include <harrow_support/round_trip.h>

#include <orv_doc/document.h>
#include <orv_doc/image.h>
#include <orv_doc/image_mask.h>
#include <orv_doc/page.h>
#include <orv_doc/write_options.h>

#include <cstddef>
#include <iostream>
#include <memory>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

namespace
{

using HarrowSupport::GenerateImage::TestCase;

constexpr char usage[] = R"(usage: catalogue [OPTION...] OUT

Writes a PDF file with the pictures of the catalogue: one to a page, each under the name that says what it is like.
Then it saves and reopens each of them in a document of its own and compares what comes back with what it was. Writes
the lines

    <case> difference <label> <message>
    <case> document error <text>
    <case> content error <text>

with tabs between the fields: the differences, and what could not be written or read. The last line counts. Standard
error tells how far it is.

    --only TEXT             only the pictures whose name contains this
    --help                  writes this text

Exit code: 0 if there is no difference and no error, 1 if there is one, 2 if a file could not be written or read, or if
the command line is wrong. Standard error then says why.
)";

constexpr std::size_t casesBetweenProgress = 100;

// In milli-points. A picture fills a square of one point, so that it has to be enlarged to be seen.
constexpr double pageSize = 200000.0;
constexpr double pictureScale = 160.0;
constexpr double margin = 20000.0;

std::vector<TestCase> FindCases(const std::string& text)
{
    std::vector<TestCase> cases;
    for (const TestCase& testCase : HarrowSupport::GenerateImage::GetTestCases()) {
        if (testCase.name.find(text) != std::string::npos)
            cases.push_back(testCase);
    }
    return cases;
}

std::unique_ptr<OrvDoc::Blendable> MakeObject(const OrvDoc::Document& document, const TestCase& testCase)
{
    if (testCase.isImageMask)
        return HarrowSupport::GenerateImage::CreateImageMask(document, testCase);
    return HarrowSupport::GenerateImage::CreateImage(document, testCase);
}

void AddPage(OrvDoc::Document& document, const TestCase& testCase)
{
    OrvDoc::Page& page = document.AddPage({0.0, 0.0, pageSize, pageSize});
    auto object = MakeObject(document, testCase);
    object->SetName(testCase.name);
    object->SetTransformation({pictureScale, 0.0, 0.0, pictureScale, margin, margin});
    HarrowSupport::ContentGenerator(page.GetContent()).Add(std::move(object));
}

void WriteCatalogue(const std::string& file, const std::vector<TestCase>& cases)
{
    const auto document = OrvDoc::Document::CreateNew();
    for (const TestCase& testCase : cases)
        AddPage(*document, testCase);
    document->Save(file, OrvDoc::WriteOptions(OrvDoc::WriteOptions::Flavour::Full));
}

/// What came up on the way, and what is wrong with the document that came back.
HarrowSupport::RoundTripResult MakeRoundTrip(const TestCase& testCase)
{
    auto document = OrvDoc::Document::CreateNew();
    AddPage(*document, testCase);
    auto result = HarrowSupport::TestRoundTripStructure(document, Examples::AllOptions());
    for (const Examples::PlacedError& entry : Examples::ListActiveErrors(*document))
        result.documentErrors.push_back(entry.error);
    return result;
}

Examples::ExitCode MakeRoundTrips(const std::vector<TestCase>& cases, std::ostream& output)
{
    Examples::RoundTripReport report(output);
    std::size_t done = 0;
    std::size_t differences = 0;
    std::size_t errors = 0;
    for (const TestCase& testCase : cases) {
        const auto result = MakeRoundTrip(testCase);
        report.AddResult(testCase.name, result);
        differences += result.differences.size();
        errors += result.documentErrors.size() + result.contentErrors.size();
        ++done;
        if (done % casesBetweenProgress == 0)
            std::cerr << "catalogue: " << done << " of " << Examples::Count(cases.size(), "case") << "\n";
    }
    output << Examples::Count(done, "case") << ", " << Examples::Count(differences, "difference") << ", "
           << Examples::Count(errors, "error") << "\n";
    return differences == 0 && errors == 0 ? Examples::ExitCode::Equal : Examples::ExitCode::Different;
}

Examples::ExitCode ShowCatalogue(const std::vector<std::string>& arguments, std::ostream& output)
{
    const Examples::CommandLine commandLine = Examples::ReadCommandLine(arguments, {{"--only"}, {}, {"OUT"}});
    const std::vector<TestCase> cases = FindCases(commandLine.GetOption("--only"));
    if (cases.empty())
        throw Examples::UsageError("no picture's name contains '" + commandLine.GetOption("--only") + "'");
    WriteCatalogue(commandLine.operands[0], cases);
    return MakeRoundTrips(cases, output);
}

} // namespace

int main(int argumentCount, char** arguments)
{
    return Examples::RunProgram("catalogue", usage, argumentCount, arguments, ShowCatalogue);
}
