#pragma once

#include "support/child_process.h"

#include <cstddef>
#include <iosfwd>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace HarrowSupport::Testing
{

/// How the pages of a file look after `save_and_reopen --rewrite`.
struct AppearanceOutcome
{
    /// Relative to the folder, with forward slashes.
    std::string file;
    /// Whether the file could be read and saved at all.
    bool isSaved = false;
    /// Pages that hold something that the model does not, so that writing them anew has to lose it.
    std::set<std::size_t> lossyPages;
    /// Pages that the renderer shows neither of the file nor of its rewritten form, and all pages of a file
    /// that it cannot open.
    std::set<std::size_t> pagesNotShown;
    /// The share of pixels that differ, of the pages that were compared. A page that is shown of one of the
    /// two files only has the share one.
    std::map<std::size_t, double> shares;
    /// The pages without loss of which `pdftotext -layout` reads another text than before, in order.
    std::set<std::size_t> pagesOfOtherText;
    /// The pages that it reads any text of, of those without loss.
    std::size_t pagesWithText = 0;
    /// The pages without loss of which `pdfimages -list` tells other pictures than before, by size, kind,
    /// channels or depth.
    std::set<std::size_t> pagesOfOtherPictures;
    /// How many pictures it tells of those without loss.
    std::size_t pictures = 0;

    /// The largest share; zero if no page was compared.
    double GetWorstShare() const;
};

/// How far a channel may be off, of 255, before its pixel counts as different: enough for other rounding of
/// a colour, less than the eye notices.
constexpr int channelTolerance = 8;

/// The share of pixels of a page that may differ. Edges that fall on the other side of a pixel's middle.
constexpr double shareTolerance = 0.001;

/// Why the pages of real files are not rendered here; empty if they are: there is no folder of them or no
/// renderer, or the tests run under the address sanitizer, where renderers are slow and no different.
std::string WhyNotRendered();

/// Looks at all files `*.pdf` below a folder, several at once. Sorted by file name.
/// @throws what RunProcess, RenderPages and the file system throw
std::vector<AppearanceOutcome> CompareAppearances(const std::string& folder, const ProcessLimits& limits);

/// A line for each file with tabs between the columns, below a line with the columns' names.
void WriteTable(std::ostream& stream, const std::vector<AppearanceOutcome>& outcomes);

/// How many files and pages were compared, and what became of the others, in one line.
std::string Summary(const std::vector<AppearanceOutcome>& outcomes);

} // namespace HarrowSupport::Testing
