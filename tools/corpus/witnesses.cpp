#include "witnesses.h"

#include "support/page_images.h"

#include <algorithm>
#include <map>
#include <sstream>

namespace HarrowSupport::Corpus
{

namespace
{

using Testing::PageImages;
using Testing::ProcessLimits;
using Testing::ProcessResult;
using Testing::RunProcess;

/// The text of each page, in order; none if the program cannot read the file.
std::vector<std::string> ReadTexts(const std::string& file, const ProcessLimits& limits)
{
    const std::string text = RunProcess({"pdftotext", "-layout", file, "-"}, limits).output;
    std::vector<std::string> pages;
    for (std::size_t begin = 0, end = 0; (end = text.find('\f', begin)) != std::string::npos; begin = end + 1)
        pages.push_back(text.substr(begin, end - begin));
    return pages;
}

void CompareTexts(const std::vector<std::string>& before, const Copy& copy, const ProcessLimits& limits)
{
    if (before.empty())
        return;
    std::vector<std::string> after = ReadTexts(copy.file, limits);
    after.resize(std::max(after.size(), before.size()));
    for (std::size_t index = 0; index < before.size(); ++index) {
        if (copy.incompletePages.count(index + 1) != 0)
            continue;
        copy.outcome->pagesWithText += before[index].empty() ? 0 : 1;
        if (after[index] != before[index])
            copy.outcome->pagesOfOtherText.insert(index + 1);
    }
}

using Pictures = std::map<std::size_t, std::vector<std::string>>;

/// The pictures of each page in order: kind, width, height, channels and bits of a channel.
Pictures ListPictures(const std::string& file, const ProcessLimits& limits)
{
    Pictures pages;
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

void ComparePictures(const Pictures& before, const Copy& copy, const ProcessLimits& limits)
{
    Pictures after = ListPictures(copy.file, limits);
    for (const auto& [page, pictures] : before) {
        if (copy.incompletePages.count(page) != 0)
            continue;
        copy.outcome->pictures += pictures.size();
        if (after[page] != pictures)
            copy.outcome->pagesOfOtherPictures.insert(page);
    }
}

double ShareOf(const PageImages& left, const PageImages& right, std::size_t page)
{
    const auto leftImage = left.find(page);
    const auto rightImage = right.find(page);
    if (leftImage == left.end() || rightImage == right.end())
        return 1.0;
    return Testing::ShareOfDifferentPixels(leftImage->second, rightImage->second, channelTolerance);
}

void ComparePages(const PageImages& before, const PageImages& after, const Copy& copy)
{
    std::set<std::size_t> pages;
    for (const PageImages* const images : {&before, &after}) {
        for (const auto& page : *images)
            pages.insert(page.first);
    }
    for (const std::size_t page : pages) {
        if (copy.incompletePages.count(page) == 0)
            copy.outcome->shares[page] = ShareOf(before, after, page);
    }
}

} // namespace

std::string CheckByQpdf(const std::string& file, const ProcessLimits& limits)
{
    const ProcessResult check = RunProcess({"qpdf", "--check", file}, limits);
    switch (check.exitCode) {
    case 0:
        return "clean";
    case 2:
        return "errors";
    case 3:
        return "warnings";
    case 127:
        return "no qpdf";
    default:
        return check.timedOut ? "out of time" : "signal " + std::to_string(check.signal);
    }
}

std::vector<std::string> ListMissingWitnesses()
{
    std::vector<std::string> missing;
    for (const char* const program : {"pdftoppm", "pdftotext", "pdfimages", "pdfinfo", "qpdf"}) {
        const std::string option = std::string(program) == "qpdf" ? "--version" : "-v";
        if (RunProcess({program, option}).exitCode == 127)
            missing.push_back(program);
    }
    return missing;
}

void CompareLooks(const std::string& original, const std::vector<Copy>& copies, const ProcessLimits& limits)
{
    const std::vector<std::string> texts = ReadTexts(original, limits);
    const Pictures pictures = ListPictures(original, limits);
    std::size_t pageCount = Testing::CountPages(original, limits);
    for (const Copy& copy : copies) {
        CompareTexts(texts, copy, limits);
        ComparePictures(pictures, copy, limits);
        // A file that the renderer cannot open has no page to compare with.
        if (pageCount != 0)
            pageCount = std::max(pageCount, Testing::CountPages(copy.file, limits));
    }
    constexpr std::size_t pagesAtOnce = 16;
    for (std::size_t first = 1; first <= pageCount; first += pagesAtOnce) {
        const Testing::PageRange range{first, std::min(first + pagesAtOnce - 1, pageCount)};
        const PageImages before = Testing::RenderPages(original, limits, range);
        for (const Copy& copy : copies)
            ComparePages(before, Testing::RenderPages(copy.file, limits, range), copy);
    }
}

} // namespace HarrowSupport::Corpus
