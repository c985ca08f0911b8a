#pragma once

#include <nlohmann/json_fwd.hpp>

#include <string>

namespace HarrowSupport::Corpus
{

/// How a file is taken through the model and back.
struct TrialRequest
{
    std::string file;
    /// What is saved is kept under this name; a file of that name is replaced.
    std::string savedFile;
    std::string password;
    /// Writes every content anew from the model, and does not keep those of the file that nobody changed.
    bool rewrites = false;
};

/// Opens a file, saves it to a temporary file, opens that one and compares all pages with those of the file
/// as it stands. What became of it as an object:
///
/// | key | value |
/// |---|---|
/// | `pages` | how many |
/// | `objects` | object: how many of each class are on the pages and in their forms, patterns and soft masks
/// | | `active_errors` | how many there are of reading and writing | | `error_texts` | array: the first of
/// them, `page 2: text` | | `limits` | object: how many errors tell of each limit that was reached | |
/// `incomplete_pages` | array: pages that were written without what was not read of them | | `differences` |
/// how many, those on purpose left out | | `on_purpose` | reports that come even from equal sides | |
/// `labels` | object: how many differences of each label | | `difference_texts` | array: the first of them,
/// as LineReporter writes them | | `peak_mebibytes` | the largest resident memory of this process |
///
/// @throws what opening, saving and opening again throw
nlohmann::json TryDocument(const TrialRequest& request);

/// The name of the limit that an error's text tells of, such as `formNesting`; empty if it tells of none.
std::string LimitOf(const std::string& errorText);

} // namespace HarrowSupport::Corpus
