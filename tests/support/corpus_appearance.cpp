// The program that rewrites names the pages that lose something: those are not compared, and a file of which
// every page loses something is not rendered at all.

#include "corpus_appearance.h"

#include "corpus_run.h"
#include "page_images.h"
#include "temporary_folder.h"

#include <boost/filesystem/operations.hpp>

#include <algorithm>
#include <iomanip>
#include <numeric>
#include <ostream>
#include <sstream>

namespace HarrowSupport::Testing
{

namespace
{

/// The pages of errors `error <tab> page <number> <tab> ...` that tell of a loss.
std::set<std::size_t> LossyPages(const std::string& output)
{
    const std::string start = "error\tpage ";
    std::set<std::size_t> pages;
    std::istringstream lines(output);
    for (std::string line; std::getline(lines, line);) {
        if (line.compare(0, start.size(), start) == 0 &&
            line.find("is written without what was not read of it") != std::string::npos)
            pages.insert(std::stoul(line.substr(start.size())));
    }
    return pages;
}

double ShareOf(const PageImages& left, const PageImages& right, std::size_t page)
{
    const auto leftImage = left.find(page);
    const auto rightImage = right.find(page);
    if (leftImage == left.end() || rightImage == right.end())
        return 1.0;
    return ShareOfDifferentPixels(leftImage->second, rightImage->second, channelTolerance);
}

/// The text of each page, in order; none if the program cannot read the file.
std::vector<std::string> ReadTexts(const std::string& file, const ProcessLimits& limits)
{
    const std::string text = RunProcess({"pdftotext", "-layout", file, "-"}, limits).output;
    std::vector<std::string> pages;
    for (std::size_t begin = 0, end = 0; (end = text.find('\f', begin)) != std::string::npos; begin = end + 1)
        pages.push_back(text.substr(begin, end - begin));
    return pages;
}

void CompareTexts(const std::string& original, const std::string& rewritten, const ProcessLimits& limits,
                  AppearanceOutcome& outcome)
{
    const std::vector<std::string> before = ReadTexts(original, limits);
    if (before.empty())
        return;
    std::vector<std::string> after = ReadTexts(rewritten, limits);
    after.resize(std::max(after.size(), before.size()));
    for (std::size_t index = 0; index < before.size(); ++index) {
        if (outcome.lossyPages.count(index + 1) != 0)
            continue;
        outcome.pagesWithText += before[index].empty() ? 0 : 1;
        if (after[index] != before[index])
            outcome.pagesOfOtherText.insert(index + 1);
    }
}

/// The pictures of each page in order: kind, width, height, channels and bits of a channel.
std::map<std::size_t, std::vector<std::string>> ListPictures(const std::string& file,
                                                             const ProcessLimits& limits)
{
    std::map<std::size_t, std::vector<std::string>> pages;
    std::istringstream lines(RunProcess({"pdfimages", "-list", file}, limits).output);
    for (std::string line; std::getline(lines, line);) {
        std::istringstream fields(line);
        std::size_t page = 0;
        std::string number, kind, width, height, color, channels, bits;
        // The head of the table has no number there.
        if (fields >> page >> number >> kind >> width >> height >> color >> channels >> bits)
            pages[page].push_back(kind + " " + width + " x " + height + ", " + channels + " of " + bits);
    }
    return pages;
}

void ComparePictures(const std::string& original, const std::string& rewritten, const ProcessLimits& limits,
                     AppearanceOutcome& outcome)
{
    auto after = ListPictures(rewritten, limits);
    for (const auto& [page, pictures] : ListPictures(original, limits)) {
        if (outcome.lossyPages.count(page) != 0)
            continue;
        outcome.pictures += pictures.size();
        if (after[page] != pictures)
            outcome.pagesOfOtherPictures.insert(page);
    }
}

AppearanceOutcome LookAt(const std::string& folder, const std::string& file, const ProcessLimits& limits)
{
    // A process that is stopped leaves its temporary files behind; they go with this folder.
    const TemporaryFolder scratch;
    const std::string original = folder + "/" + file;
    const std::string rewritten = scratch.NameOf("rewritten.pdf");
    AppearanceOutcome outcome;
    outcome.file = file;
    const ProcessResult rewriting =
        RunProcess({ExampleProgram("save_and_reopen"), "--rewrite", "--keep", rewritten, original}, limits,
                   {"TMPDIR=" + scratch.GetPath().string()});
    outcome.isSaved = boost::filesystem::exists(rewritten);
    if (!outcome.isSaved)
        return outcome;
    outcome.lossyPages = LossyPages(rewriting.output);
    const std::size_t pages = CountPages(rewritten, limits);
    if (outcome.lossyPages.size() >= pages)
        return outcome;

    CompareTexts(original, rewritten, limits, outcome);
    ComparePictures(original, rewritten, limits, outcome);
    const PageImages before = RenderPages(original, limits);
    const PageImages after = RenderPages(rewritten, limits);
    for (std::size_t page = 1; page <= pages; ++page) {
        if (outcome.lossyPages.count(page) != 0)
            continue;
        // A file that the renderer cannot open has no page to compare with.
        if (before.empty() || (before.count(page) == 0 && after.count(page) == 0))
            outcome.pagesNotShown.insert(page);
        else
            outcome.shares[page] = ShareOf(before, after, page);
    }
    return outcome;
}

std::string Percent(double share)
{
    std::ostringstream stream;
    stream << std::fixed << std::setprecision(4) << 100.0 * share;
    return stream.str();
}

std::string Verdict(const AppearanceOutcome& outcome)
{
    if (!outcome.isSaved)
        return "not saved";
    if (outcome.shares.empty())
        return outcome.lossyPages.empty() ? "not shown" : "not modelled";
    return outcome.GetWorstShare() > shareTolerance ? "different" : "the same";
}

} // namespace

double AppearanceOutcome::GetWorstShare() const
{
    double worst = 0.0;
    for (const auto& page : shares)
        worst = std::max(worst, page.second);
    return worst;
}

std::string WhyNotRendered()
{
#if defined(__SANITIZE_ADDRESS__)
    return "the renderers are the same under a sanitizer, and slow";
#else
    if (!boost::filesystem::is_directory(CorpusFolder())) {
        return "there is no folder " + CorpusFolder() +
               "; HARROW_CORPUS_DIR names another folder of PDF files";
    }
    return CanRenderPages() ? "" : "install poppler-utils to run this test";
#endif
}

std::vector<AppearanceOutcome> CompareAppearances(const std::string& folder, const ProcessLimits& limits)
{
    const std::vector<std::string> files = ListCorpusFiles(folder);
    std::vector<AppearanceOutcome> outcomes(files.size());
    ForEachAtOnce(files.size(), [&](std::size_t i) { outcomes[i] = LookAt(folder, files[i], limits); });
    return outcomes;
}

void WriteTable(std::ostream& stream, const std::vector<AppearanceOutcome>& outcomes)
{
    std::vector<std::vector<std::string>> rows{{"file", "verdict", "pages compared", "pages not modelled",
                                                "pages not shown", "worst share %", "pages with text",
                                                "of other text", "pictures", "of other pictures"}};
    for (const AppearanceOutcome& outcome : outcomes) {
        rows.push_back(
            {outcome.file, Verdict(outcome), std::to_string(outcome.shares.size()),
             std::to_string(outcome.lossyPages.size()), std::to_string(outcome.pagesNotShown.size()),
             outcome.shares.empty() ? "-" : Percent(outcome.GetWorstShare()),
             std::to_string(outcome.pagesWithText), std::to_string(outcome.pagesOfOtherText.size()),
             std::to_string(outcome.pictures), std::to_string(outcome.pagesOfOtherPictures.size())});
    }
    WriteTabbed(stream, rows);
}

std::string Summary(const std::vector<AppearanceOutcome>& outcomes)
{
    const auto filesWith = [&](const char* verdict) {
        return std::count_if(outcomes.begin(), outcomes.end(),
                             [&](const AppearanceOutcome& outcome) { return Verdict(outcome) == verdict; });
    };
    const std::size_t pages = std::accumulate(
        outcomes.begin(), outcomes.end(), std::size_t(0),
        [](std::size_t sum, const AppearanceOutcome& outcome) { return sum + outcome.shares.size(); });
    std::ostringstream stream;
    stream << "appearance: " << outcomes.size() << " files, " << pages
           << " pages compared: files that look the same " << filesWith("the same") << ", different "
           << filesWith("different") << ", not modelled " << filesWith("not modelled") << ", not shown "
           << filesWith("not shown") << ", not saved " << filesWith("not saved");
    return stream.str();
}

} // namespace HarrowSupport::Testing
