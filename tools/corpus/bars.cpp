#include "bars.h"

#include <functional>

namespace HarrowSupport::Corpus
{

namespace
{

using Question = std::function<bool(const FileOutcome&)>;

Bar Raise(const std::vector<FileOutcome>& outcomes, std::string name, double needed, const Question& isAsked,
          const Question& holds)
{
    Bar bar;
    bar.name = std::move(name);
    bar.needed = needed;
    for (const FileOutcome& outcome : outcomes) {
        if (!isAsked(outcome))
            continue;
        ++bar.files;
        if (!holds(outcome))
            bar.failures.push_back(outcome.file);
    }
    return bar;
}

} // namespace

bool IsSamePicture(const LookOutcome& look)
{
    return look.GetWorstShare() <= shareTolerance;
}

bool IsSameText(const LookOutcome& look)
{
    return look.pagesOfOtherText.empty();
}

std::vector<Bar> RaiseBars(const std::vector<FileOutcome>& outcomes, TripOutcome FileOutcome::*way)
{
    const auto isThrough = [way](const FileOutcome& outcome) { return (outcome.*way).IsThrough(); };
    const auto isSound = [](const FileOutcome& outcome) { return outcome.IsSound(); };
    const auto isSoundAndThrough = [&](const FileOutcome& outcome) {
        return outcome.IsSound() && isThrough(outcome);
    };
    const auto isDamagedAndThrough = [&](const FileOutcome& outcome) {
        return !outcome.IsSound() && isThrough(outcome);
    };
    const auto isEqual = [way](const FileOutcome& outcome) { return (outcome.*way).IsEqual(); };
    const auto isClean = [way](const FileOutcome& outcome) { return (outcome.*way).check == "clean"; };
    const auto isWitnessed = [way](const FileOutcome& outcome) {
        return (outcome.*way).IsThrough() && (outcome.*way).check != "no qpdf";
    };

    std::vector<Bar> bars;
    bars.push_back(Raise(
        outcomes, "any file: answers within the limits, leaves nothing behind", 1.0,
        [](const FileOutcome&) { return true; },
        [way](const FileOutcome& outcome) {
            return (outcome.*way).IsAnswer() && (outcome.*way).leftFiles.empty();
        }));
    bars.push_back(Raise(outcomes, "any saved file: clean to qpdf", 1.0, isWitnessed, isClean));
    bars.push_back(Raise(outcomes, "sound: opens", 1.0, isSound, isThrough));
    bars.push_back(Raise(outcomes, "sound: comes back equal", 0.99, isSoundAndThrough, isEqual));
    bars.push_back(Raise(
        outcomes, "sound: a difference has an active error", 1.0,
        [&](const FileOutcome& outcome) { return isSoundAndThrough(outcome) && !isEqual(outcome); },
        [way](const FileOutcome& outcome) { return (outcome.*way).activeErrors > 0; }));
    bars.push_back(Raise(
        outcomes, "sound: the same picture", 0.98,
        [&](const FileOutcome& outcome) {
            return isSoundAndThrough(outcome) && !(outcome.*way).look.shares.empty();
        },
        [way](const FileOutcome& outcome) { return IsSamePicture((outcome.*way).look); }));
    bars.push_back(Raise(
        outcomes, "sound: the same text", 0.98,
        [&](const FileOutcome& outcome) {
            return isSoundAndThrough(outcome) && (outcome.*way).look.pagesWithText > 0;
        },
        [way](const FileOutcome& outcome) { return IsSameText((outcome.*way).look); }));
    bars.push_back(Raise(
        outcomes, "sound: pictures of the same sizes and depths", 0.98,
        [&](const FileOutcome& outcome) {
            return isSoundAndThrough(outcome) && (outcome.*way).look.pictures > 0;
        },
        [way](const FileOutcome& outcome) { return (outcome.*way).look.pagesOfOtherPictures.empty(); }));
    bars.push_back(
        Raise(outcomes, "damaged, but opens: comes back equal", 1.0, isDamagedAndThrough, isEqual));
    return bars;
}

} // namespace HarrowSupport::Corpus
