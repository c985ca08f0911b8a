#include "file_outcome.h"

#include <nlohmann/json.hpp>

#include <algorithm>

namespace HarrowSupport::Corpus
{

namespace
{

nlohmann::json ToJson(const LookOutcome& look)
{
    return {{"pages_compared", look.shares.size()},
            {"worst_share", look.GetWorstShare()},
            {"pages_with_text", look.pagesWithText},
            {"pages_of_other_text", look.pagesOfOtherText},
            {"pictures", look.pictures},
            {"pages_of_other_pictures", look.pagesOfOtherPictures}};
}

nlohmann::json ToJson(const TripOutcome& trip)
{
    return {{"ending", trip.ending},
            {"opened", trip.IsThrough()},
            {"message", trip.message},
            {"qpdf_check", trip.check},
            {"left_files", trip.leftFiles},
            {"pages", trip.pages},
            {"objects", trip.objects},
            {"active_errors", trip.activeErrors},
            {"error_texts", trip.errorTexts},
            {"limits", trip.limits},
            {"incomplete_pages", trip.incompletePages},
            {"differences", trip.differences},
            {"on_purpose", trip.onPurpose},
            {"labels", trip.labels},
            {"difference_texts", trip.differenceTexts},
            {"look", ToJson(trip.look)},
            {"seconds", trip.seconds},
            {"peak_mebibytes", trip.peakMebibytes}};
}

} // namespace

double LookOutcome::GetWorstShare() const
{
    double worst = 0.0;
    for (const auto& page : shares)
        worst = std::max(worst, page.second);
    return worst;
}

bool TripOutcome::IsAnswer() const
{
    // Exhausted memory is told by a limit of the reader, before the system has to refuse it.
    return (IsThrough() || (ending == "2" && !message.empty())) &&
           message.find("bad_alloc") == std::string::npos;
}

std::string ToJsonLine(const FileOutcome& outcome)
{
    const nlohmann::json line = {{"file", outcome.file},         {"bytes", outcome.bytes},
                                 {"qpdf_check", outcome.check},  {"sound", outcome.IsSound()},
                                 {"kept", ToJson(outcome.kept)}, {"rewritten", ToJson(outcome.rewritten)}};
    // Texts and names of files need not be UTF-8, but JSON has to be.
    return line.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
}

void ReadTrial(const std::string& json, TripOutcome& outcome)
{
    const nlohmann::json trial = nlohmann::json::parse(json);
    trial.at("pages").get_to(outcome.pages);
    trial.at("objects").get_to(outcome.objects);
    trial.at("active_errors").get_to(outcome.activeErrors);
    trial.at("error_texts").get_to(outcome.errorTexts);
    trial.at("limits").get_to(outcome.limits);
    trial.at("incomplete_pages").get_to(outcome.incompletePages);
    trial.at("differences").get_to(outcome.differences);
    trial.at("on_purpose").get_to(outcome.onPurpose);
    trial.at("labels").get_to(outcome.labels);
    trial.at("difference_texts").get_to(outcome.differenceTexts);
    trial.at("peak_mebibytes").get_to(outcome.peakMebibytes);
}

} // namespace HarrowSupport::Corpus
