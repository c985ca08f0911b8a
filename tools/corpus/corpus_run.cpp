#include "corpus_run.h"

#include "witnesses.h"

#include "support/parallel.h"
#include "support/temporary_folder.h"

#include <boost/filesystem/operations.hpp>

#include <cstdint>
#include <filesystem>
#include <mutex>

namespace HarrowSupport::Corpus
{

namespace
{

using boost::filesystem::path;
using Testing::ProcessResult;
using Testing::TemporaryFolder;

std::string EndingOf(const ProcessResult& process)
{
    if (process.timedOut)
        return "out of time";
    if (process.signal != 0)
        return "signal " + std::to_string(process.signal);
    return std::to_string(process.exitCode);
}

/// What is left in the folder, if the process had the chance to take it away.
std::vector<std::string> ListLeftFiles(const path& folder, const ProcessResult& process)
{
    std::vector<std::string> files;
    if (process.timedOut || process.signal != 0)
        return files;
    for (const auto& entry : boost::filesystem::directory_iterator(folder))
        files.push_back(entry.path().filename().string());
    return files;
}

TripOutcome MakeTrip(const std::string& original, const std::string& saved, bool rewrites,
                     const RunSettings& settings)
{
    // A process that is stopped leaves its temporary files behind; they go with this folder.
    const TemporaryFolder temporary;
    std::vector<std::string> command{settings.trialProgram, original, saved};
    if (rewrites)
        command.insert(command.begin() + 1, "--rewrite");
    const ProcessResult process =
        RunProcess(command, settings.trialLimits, {"TMPDIR=" + temporary.GetPath().string()});
    TripOutcome outcome;
    outcome.ending = EndingOf(process);
    outcome.message = process.errors;
    outcome.seconds = process.seconds;
    outcome.peakMebibytes = process.peakMebibytes;
    outcome.leftFiles = ListLeftFiles(temporary.GetPath(), process);
    if (outcome.IsThrough())
        ReadTrial(process.output, outcome);
    outcome.check = boost::filesystem::exists(saved) ? CheckByQpdf(saved, settings.witnessLimits) : "-";
    return outcome;
}

void Keep(const std::string& saved, const std::string& file, const std::string& way,
          const RunSettings& settings)
{
    if (settings.keepFolder.empty() || !boost::filesystem::exists(saved))
        return;
    const path kept = path(settings.keepFolder) / (file + "." + way + ".pdf");
    boost::filesystem::create_directories(kept.parent_path());
    std::filesystem::copy_file(saved, kept.string(), std::filesystem::copy_options::overwrite_existing);
}

} // namespace

Testing::ProcessLimits RunSettings::DefaultTrialLimits()
{
#if defined(__SANITIZE_ADDRESS__)
    return {std::chrono::seconds(60), 0};
#else
    return {std::chrono::seconds(10), std::uint64_t{1} << 30};
#endif
}

FileOutcome RunOverFile(const std::string& folder, const std::string& file, const RunSettings& settings)
{
    const TemporaryFolder scratch;
    const std::string original = (path(folder) / file).string();
    const std::string kept = scratch.NameOf("kept.pdf");
    const std::string rewritten = scratch.NameOf("rewritten.pdf");
    FileOutcome outcome;
    outcome.file = file;
    outcome.bytes = boost::filesystem::file_size(original);
    outcome.check = CheckByQpdf(original, settings.witnessLimits);
    outcome.kept = MakeTrip(original, kept, false, settings);
    outcome.rewritten = MakeTrip(original, rewritten, true, settings);
    // Each program mends a damaged file in a way of its own.
    if (settings.looks && outcome.IsSound()) {
        std::vector<Copy> copies;
        if (outcome.kept.IsThrough())
            copies.push_back({kept, {}, &outcome.kept.look});
        if (outcome.rewritten.IsThrough())
            copies.push_back({rewritten, outcome.rewritten.incompletePages, &outcome.rewritten.look});
        if (!copies.empty())
            CompareLooks(original, copies, settings.witnessLimits);
    }
    Keep(kept, file, "kept", settings);
    Keep(rewritten, file, "rewritten", settings);
    return outcome;
}

std::vector<FileOutcome> RunOverFiles(const std::string& folder, const std::vector<std::string>& files,
                                      const RunSettings& settings,
                                      const std::function<void(const FileOutcome&)>& tell)
{
    std::vector<FileOutcome> outcomes(files.size());
    std::mutex telling;
    Testing::ForEachAtOnce(
        files.size(),
        [&](std::size_t i) {
            outcomes[i] = RunOverFile(folder, files[i], settings);
            const std::lock_guard<std::mutex> lock(telling);
            if (tell)
                tell(outcomes[i]);
        },
        settings.filesAtOnce);
    return outcomes;
}

} // namespace HarrowSupport::Corpus
