#pragma once

#include "file_outcome.h"

#include <cstddef>
#include <string>
#include <vector>

namespace HarrowSupport::Corpus
{

/// The share of pixels of a page that may differ for it to be the same picture.
constexpr double shareTolerance = 0.005;

/// What is asked of the files of a folder, and how many hold it.
struct Bar
{
    /// What each file is to be: "clean to qpdf".
    std::string name;
    /// The files that it is asked of.
    std::size_t files = 0;
    /// Those of them that fail it.
    std::vector<std::string> failures;
    /// The share of the files that has to hold.
    double needed = 1.0;

    std::size_t GetHeld() const { return files - failures.size(); }
    /// Also if it is asked of no file.
    bool IsHeld() const { return static_cast<double>(GetHeld()) >= needed * static_cast<double>(files); }
};

/// Whether the file is the same picture on every page that was compared, and has the same text.
bool IsSamePicture(const LookOutcome& look);
bool IsSameText(const LookOutcome& look);

/// The bars of one way through the model. Damaged files are asked for an answer, and to be equal and clean
/// where they open; sound ones for everything. Pages that are incomplete, and files that no witness can show,
/// are not asked for looks.
std::vector<Bar> RaiseBars(const std::vector<FileOutcome>& outcomes, TripOutcome FileOutcome::*way);

} // namespace HarrowSupport::Corpus
