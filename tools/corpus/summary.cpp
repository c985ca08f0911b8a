#include "summary.h"

#include "bars.h"

#include <fmt/format.h>
#include <fmt/ostream.h>

#include <algorithm>
#include <map>
#include <ostream>
#include <tuple>
#include <utility>

namespace HarrowSupport::Corpus
{

namespace
{

/// How bad a trip is; more is worse.
enum class Severity
{
    Equal,
    Errors,
    OtherText,
    OtherPicture,
    NotClean,
    Different,
    RefusedDamaged,
    Refused,
    NoAnswer,
};

bool IsUnclean(const std::string& check)
{
    return check != "clean" && check != "-" && check != "no qpdf";
}

Severity SeverityOf(const FileOutcome& outcome, const TripOutcome& trip)
{
    if (!trip.IsAnswer() || !trip.leftFiles.empty())
        return Severity::NoAnswer;
    if (!trip.IsThrough())
        return outcome.IsSound() ? Severity::Refused : Severity::RefusedDamaged;
    if (trip.differences > 0)
        return Severity::Different;
    if (IsUnclean(trip.check))
        return Severity::NotClean;
    if (!IsSamePicture(trip.look) || !trip.look.pagesOfOtherPictures.empty())
        return Severity::OtherPicture;
    if (!IsSameText(trip.look))
        return Severity::OtherText;
    return trip.activeErrors > 0 ? Severity::Errors : Severity::Equal;
}

/// A number of things in words: `1 file`, `0 files`.
std::string Count(std::uint64_t count, const char* noun)
{
    return fmt::format("{} {}{}", count, noun, count == 1 ? "" : "s");
}

/// The first line of what a program wrote, without its name.
std::string Reason(const std::string& message)
{
    const std::string line = message.substr(0, message.find('\n'));
    const std::size_t colon = line.find(": ");
    return colon == std::string::npos ? line : line.substr(colon + 2);
}

std::vector<std::pair<std::string, std::string>> LimitsOf(const TripOutcome& trip)
{
    std::vector<std::pair<std::string, std::string>> limits;
    for (const auto& [name, count] : trip.limits)
        limits.emplace_back(name, std::to_string(count));
    return limits;
}

using Order = std::tuple<Severity, Severity, std::uint64_t, double>;

Order OrderOf(const FileOutcome& outcome)
{
    const Severity kept = SeverityOf(outcome, outcome.kept);
    const Severity rewritten = SeverityOf(outcome, outcome.rewritten);
    return {std::max(kept, rewritten), std::min(kept, rewritten),
            outcome.kept.differences + outcome.rewritten.differences, outcome.rewritten.seconds};
}

using Row = std::vector<std::string>;

Row RowOf(const FileOutcome& outcome)
{
    std::string limits;
    for (const auto& [name, count] : LimitsOf(outcome.rewritten))
        limits += fmt::format("{}{} {}", limits.empty() ? "" : ", ", name, count);
    return {outcome.file,
            outcome.check,
            std::to_string(outcome.rewritten.pages),
            Verdict(outcome, outcome.kept),
            Verdict(outcome, outcome.rewritten),
            std::to_string(outcome.rewritten.activeErrors),
            limits.empty() ? "-" : limits,
            fmt::format("{:.2f}", std::max(outcome.kept.seconds, outcome.rewritten.seconds)),
            fmt::format("{:.0f}", std::max(outcome.kept.peakMebibytes, outcome.rewritten.peakMebibytes))};
}

void WriteAligned(std::ostream& stream, const std::vector<Row>& rows)
{
    std::vector<std::size_t> widths(rows.front().size());
    for (const Row& row : rows) {
        for (std::size_t i = 0; i < row.size(); ++i)
            widths[i] = std::max(widths[i], row[i].size());
    }
    for (const Row& row : rows) {
        // Nothing stands behind the last column, so it needs no blanks.
        for (std::size_t i = 0; i + 1 < row.size(); ++i)
            fmt::print(stream, "{:<{}}  ", row[i], widths[i]);
        fmt::print(stream, "{}\n", row.back());
    }
}

template <typename Count>
void WriteCounts(std::ostream& stream, const char* title, const std::map<std::string, Count>& counts)
{
    fmt::print(stream, "{}:", title);
    const char* separator = " ";
    for (const auto& [name, count] : counts) {
        fmt::print(stream, "{}{} {}", separator, name, count);
        separator = ", ";
    }
    fmt::print(stream, "{}\n", counts.empty() ? " none" : "");
}

bool WriteBarsOf(std::ostream& stream, const char* title, const std::vector<Bar>& bars)
{
    bool areHeld = true;
    fmt::print(stream, "{}:\n", title);
    for (const Bar& bar : bars) {
        const double share =
            bar.files == 0 ? 1.0 : static_cast<double>(bar.GetHeld()) / static_cast<double>(bar.files);
        fmt::print(stream, "  {:<6}  {:<66}{:>6} of {:<6}{:7.2f} %, {:.0f} % needed\n",
                   bar.IsHeld() ? "held" : "FAILED", bar.name, bar.GetHeld(), bar.files, 100.0 * share,
                   100.0 * bar.needed);
        areHeld = areHeld && bar.IsHeld();
    }
    return areHeld;
}

} // namespace

std::string Verdict(const FileOutcome& outcome, const TripOutcome& trip)
{
    switch (SeverityOf(outcome, trip)) {
    case Severity::NoAnswer:
        return trip.leftFiles.empty() ? "no answer: " + trip.ending : "leaves " + trip.leftFiles.front();
    case Severity::Refused:
    case Severity::RefusedDamaged:
        return "refused: " + Reason(trip.message).substr(0, 100);
    case Severity::Different:
        return fmt::format("{}, {}", Count(trip.differences, "difference"), trip.labels.begin()->first);
    case Severity::NotClean:
        return "qpdf: " + trip.check;
    case Severity::OtherPicture:
        return trip.look.pagesOfOtherPictures.empty()
                   ? fmt::format("{:.2f} % of pixels", 100.0 * trip.look.GetWorstShare())
                   : "other pictures on " + Count(trip.look.pagesOfOtherPictures.size(), "page");
    case Severity::OtherText:
        return "other text on " + Count(trip.look.pagesOfOtherText.size(), "page");
    case Severity::Errors:
        return trip.incompletePages.empty()
                   ? "equal"
                   : "equal, " + Count(trip.incompletePages.size(), "page") + " incomplete";
    case Severity::Equal:
        break;
    }
    return "equal";
}

void WriteTable(std::ostream& stream, const std::vector<FileOutcome>& outcomes, std::size_t rows)
{
    std::vector<const FileOutcome*> sorted;
    for (const FileOutcome& outcome : outcomes)
        sorted.push_back(&outcome);
    std::stable_sort(sorted.begin(), sorted.end(), [](const FileOutcome* left, const FileOutcome* right) {
        return OrderOf(*left) > OrderOf(*right);
    });
    std::vector<Row> table{{"file", "qpdf", "pages", "contents kept", "contents written anew", "errors",
                            "limits", "seconds", "MiB"}};
    for (const FileOutcome* const outcome : sorted) {
        if (table.size() <= rows)
            table.push_back(RowOf(*outcome));
    }
    WriteAligned(stream, table);
    if (sorted.size() > rows)
        fmt::print(stream, "and {} no worse\n", Count(sorted.size() - rows, "file"));
}

bool WriteBars(std::ostream& stream, const std::vector<FileOutcome>& outcomes)
{
    std::map<std::string, std::uint64_t> objects;
    std::map<std::string, std::uint64_t> limits;
    std::size_t pages = 0;
    std::size_t sound = 0;
    std::size_t incomplete = 0;
    for (const FileOutcome& outcome : outcomes) {
        pages += outcome.rewritten.pages;
        sound += outcome.IsSound() ? 1 : 0;
        incomplete += outcome.rewritten.incompletePages.empty() ? 0 : 1;
        for (const auto& [name, count] : outcome.rewritten.objects)
            objects[name] += count;
        for (const auto& [name, count] : outcome.rewritten.limits)
            limits[name] += count;
    }
    fmt::print(stream, "{}, {} of them sound to qpdf; {}; {} with incomplete pages\n",
               Count(outcomes.size(), "file"), sound, Count(pages, "page"), Count(incomplete, "file"));
    WriteCounts(stream, "objects", objects);
    WriteCounts(stream, "limits reached", limits);
    const bool isKeptHeld = WriteBarsOf(stream, "contents kept", RaiseBars(outcomes, &FileOutcome::kept));
    const bool isRewrittenHeld =
        WriteBarsOf(stream, "contents written anew", RaiseBars(outcomes, &FileOutcome::rewritten));
    return isKeptHeld && isRewrittenHeld;
}

} // namespace HarrowSupport::Corpus
