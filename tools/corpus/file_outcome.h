#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace HarrowSupport::Corpus
{

/// What programs that are not ours say of the two files of a trip. Pages count from one.
struct LookOutcome
{
    /// The share of pixels that differ, of each page that was rendered of either file. A page that only one
    /// of them shows has the share one.
    std::map<std::size_t, double> shares;
    /// The pages of which another text is read than before, and how many have any.
    std::set<std::size_t> pagesOfOtherText;
    std::size_t pagesWithText = 0;
    /// The pages of which other pictures are listed than before, by size, kind, channels or depth, and how
    /// many pictures there are.
    std::set<std::size_t> pagesOfOtherPictures;
    std::size_t pictures = 0;

    /// The largest share; zero if no page was rendered.
    double GetWorstShare() const;
};

/// What became of one file that was saved, opened again and compared.
struct TripOutcome
{
    /// How the process ended in a word or two: "0", "1" and "2" as try_document tells it, "signal 11", "out
    /// of time".
    std::string ending;
    /// What the process wrote on standard error: why a file could not be read or saved.
    std::string message;
    /// `qpdf --check` of what was saved: "clean", "warnings", "errors", "signal 11", "-" if nothing was
    /// saved, "no qpdf" if it is not installed.
    std::string check;
    /// Files that the process left in its temporary folder although it came to its end.
    std::vector<std::string> leftFiles;

    std::size_t pages = 0;
    std::map<std::string, std::uint64_t> objects;
    std::uint64_t activeErrors = 0;
    std::vector<std::string> errorTexts;
    std::map<std::string, std::uint64_t> limits;
    /// Pages that were written without what was not read of them. Their looks and texts are not compared.
    std::set<std::size_t> incompletePages;
    std::uint64_t differences = 0;
    std::uint64_t onPurpose = 0;
    std::map<std::string, std::uint64_t> labels;
    std::vector<std::string> differenceTexts;
    LookOutcome look;
    double seconds = 0.0;
    double peakMebibytes = 0.0;

    /// Whether the process came to an end of its own, with an outcome or with a reason.
    bool IsAnswer() const;
    /// Whether the file was read, saved and read again.
    bool IsThrough() const { return ending == "0" || ending == "1"; }
    bool IsEqual() const { return IsThrough() && differences == 0; }
};

/// What became of one file.
struct FileOutcome
{
    /// Relative to the folder, with forward slashes.
    std::string file;
    std::uint64_t bytes = 0;
    /// `qpdf --check` of the file as it is, in the words of TripOutcome::check.
    std::string check;
    /// Contents that nobody changed stay as they are in the file.
    TripOutcome kept;
    /// Every content is written anew.
    TripOutcome rewritten;

    /// Whether qpdf finds nothing worse than something to warn of.
    bool IsSound() const { return check == "clean" || check == "warnings"; }
};

/// The outcome as one line of JSON, without the end of the line. The keys are the names of the fields, with
/// underscores.
std::string ToJsonLine(const FileOutcome& outcome);

/// Takes over the object that try_document writes.
/// @throws nlohmann::json::exception if it is none
void ReadTrial(const std::string& json, TripOutcome& outcome);

} // namespace HarrowSupport::Corpus
