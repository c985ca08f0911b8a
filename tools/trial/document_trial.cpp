#include "document_trial.h"

#include "support/all_contents.h"
#include "support/error_list.h"
#include "support/line_reporter.h"

#include <harrow_support/comparators.h>
#include <harrow_support/round_trip.h>

#include <orv_doc/content.h>
#include <orv_doc/content_object.h>
#include <orv_doc/document.h>
#include <orv_doc/page.h>
#include <orv_doc/read_options.h>
#include <orv_doc/visitor.h>
#include <orv_doc/write_options.h>
#include <orv_sys/error.h>

#include <nlohmann/json.hpp>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <memory>
#include <regex>
#include <set>
#include <sstream>
#include <utility>
#include <vector>

namespace HarrowSupport::Corpus
{

namespace
{

using Counts = std::map<std::string, std::uint64_t>;

/// As many texts as somebody reads; the counts tell of the others.
constexpr std::size_t mostTexts = 20;

/// Counts the objects that it visits by class, those of groups as well.
class ObjectCounter : public OrvDoc::ConstVisitorBase
{
public:
    using OrvDoc::ConstVisitorBase::Visit;

    bool Visit(const OrvDoc::ContentObject& object) override
    {
        ++counts[object.DumpInfo().first];
        return true;
    }

    Counts counts;
};

/// Counts the reports of a comparison and keeps the lines of the first.
class TrialReporter : public Comparators::Reporter
{
public:
    TrialReporter(const OrvDoc::Document& left, const OrvDoc::Document& right) : lines(text, left, right) {}

    void Report(Comparators::ReportKind kind, const std::string& label, const Comparators::LocationPath& left,
                const Comparators::LocationPath& right, const std::string& value) override
    {
        if (kind == Comparators::ReportKind::ToleratedVariation)
            return;
        // Functions of two masks are told apart by identity, and an image in an uncoloured pattern is always
        // told.
        if (label == "SoftMaskTransferFunction" || label == "UncoloredPatternPaintHasImage") {
            ++onPurpose;
            return;
        }
        ++labels[label];
        if (++differences <= mostTexts)
            lines.Report(kind, label, left, right, value);
    }

    std::vector<std::string> GetTexts() const
    {
        std::vector<std::string> texts;
        std::istringstream stream(text.str());
        for (std::string line; std::getline(stream, line);)
            texts.push_back(line);
        return texts;
    }

    Counts labels;
    std::uint64_t differences = 0;
    std::uint64_t onPurpose = 0;

private:
    std::ostringstream text;
    Examples::LineReporter lines;
};

Counts CountObjects(OrvDoc::Document& document)
{
    ObjectCounter counter;
    for (const OrvDoc::Content* const content : Examples::ListAllContents(document))
        content->Accept(counter);
    return counter.counts;
}

/// The page of `page 2`.
std::size_t PageOf(const std::string& place)
{
    const std::string start = "page ";
    return place.compare(0, start.size(), start) == 0 ? std::stoul(place.substr(start.size())) : 0;
}

void AddErrors(nlohmann::json& outcome, const std::vector<Examples::PlacedError>& errors)
{
    std::vector<std::string> texts;
    Counts limits;
    std::set<std::size_t> incompletePages;
    for (const Examples::PlacedError& entry : errors) {
        const std::string text = entry.error->GetText();
        if (texts.size() < mostTexts)
            texts.push_back(entry.place + ": " + text);
        const std::string limit = LimitOf(text);
        if (!limit.empty())
            ++limits[limit];
        if (text.find("is written without what was not read of it") != std::string::npos)
            incompletePages.insert(PageOf(entry.place));
    }
    outcome["active_errors"] = errors.size();
    outcome["error_texts"] = texts;
    outcome["limits"] = limits;
    outcome["incomplete_pages"] = incompletePages;
}

/// The high-water mark of this process, which that of its resources does not tell: it begins with the memory
/// of the program that started this one.
double PeakMebibytes()
{
    std::ifstream status("/proc/self/status");
    const std::string key = "VmHWM:";
    for (std::string line; std::getline(status, line);) {
        if (line.compare(0, key.size(), key) == 0)
            return std::stod(line.substr(key.size())) / 1024.0;
    }
    return 0.0;
}

} // namespace

std::string LimitOf(const std::string& errorText)
{
    static const std::regex pattern("(?:^|[ (])limit ([A-Za-z]+)(?::| of) [0-9]");
    std::smatch match;
    return std::regex_search(errorText, match, pattern) ? match.str(1) : std::string();
}

nlohmann::json TryDocument(const TrialRequest& request)
{
    OrvDoc::ReadOptions readOptions;
    readOptions.password = request.password;
    auto document = OrvDoc::Document::Create(request.file, readOptions);
    if (request.rewrites)
        Examples::MarkAllContentsChanged(*document);
    // Saving destroys the document and its errors with it, so the errors of writing are asked for before.
    document->Flush();
    nlohmann::json outcome;
    outcome["objects"] = CountObjects(*document);
    AddErrors(outcome, Examples::ListActiveErrors(*document));
    SaveAndReopen(document, "try_document", OrvDoc::WriteOptions(OrvDoc::WriteOptions::Flavour::Full),
                  readOptions);
    // The temporary file goes with the document.
    std::filesystem::copy_file(document->GetFilePath().string(), request.savedFile,
                               std::filesystem::copy_options::overwrite_existing);

    const std::unique_ptr<const OrvDoc::Document> original =
        OrvDoc::Document::Create(request.file, readOptions);
    outcome["pages"] = std::distance(original->GetPagesBegin(), original->GetPagesEnd());
    TrialReporter reporter(*original, *document);
    Comparators::Compare(reporter, *original, *document, Examples::StrictestOptions());
    outcome["differences"] = reporter.differences;
    outcome["on_purpose"] = reporter.onPurpose;
    outcome["labels"] = reporter.labels;
    outcome["difference_texts"] = reporter.GetTexts();
    outcome["peak_mebibytes"] = PeakMebibytes();
    return outcome;
}

} // namespace HarrowSupport::Corpus
