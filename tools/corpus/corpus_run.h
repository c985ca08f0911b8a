#pragma once

#include "file_outcome.h"

#include "support/child_process.h"

#include <chrono>
#include <functional>
#include <string>
#include <vector>

namespace HarrowSupport::Corpus
{

/// How a folder is run over.
struct RunSettings
{
    /// The program try_document.
    std::string trialProgram;
    /// What it may use for one file. Ten seconds and a gibibyte are far more than a file needs that is not
    /// out for harm. Under the address sanitizer, which reserves terabytes and is slow, no memory limit and a
    /// minute.
    Testing::ProcessLimits trialLimits = DefaultTrialLimits();
    /// What each run of a witness may use.
    Testing::ProcessLimits witnessLimits{std::chrono::seconds(60), 0};
    /// Whether pages are rendered, and their texts and pictures listed.
    bool looks = true;
    /// Files at once; zero for as many as the machine has cores.
    unsigned filesAtOnce = 0;
    /// Where the saved files are kept, as `NAME.kept.pdf` and `NAME.rewritten.pdf` below the folders that the
    /// originals have; empty to keep none.
    std::string keepFolder;

    static Testing::ProcessLimits DefaultTrialLimits();
};

/// Tries one file of a folder, each way in a process of its own.
/// @throws what RunProcess and the file system throw
FileOutcome RunOverFile(const std::string& folder, const std::string& file, const RunSettings& settings);

/// Tries the files, several at once, and tells of each as soon as it is through, never two at a time. The
/// result is in the order of the files.
/// @throws what RunOverFile and `tell` throw
std::vector<FileOutcome> RunOverFiles(const std::string& folder, const std::vector<std::string>& files,
                                      const RunSettings& settings,
                                      const std::function<void(const FileOutcome&)>& tell = {});

} // namespace HarrowSupport::Corpus
