#include "round_trip_report.h"

#include "count.h"
#include "line_reporter.h"

#include <orv_sys/error.h>

#include <ostream>

namespace Examples
{

void RoundTripReport::AddResult(const std::string& file, const HarrowSupport::RoundTripResult& result)
{
    const std::string start = EscapeField(file) + '\t';
    for (const HarrowSupport::Difference& difference : result.differences) {
        stream << start << "difference\t" << EscapeField(difference.label) << '\t'
               << EscapeField(difference.message) << '\n';
    }
    for (const auto& error : result.documentErrors)
        stream << start << "document error\t" << EscapeField(error->GetText()) << '\n';
    for (const auto& error : result.contentErrors)
        stream << start << "content error\t" << EscapeField(error->GetText()) << '\n';
    ++files;
    differences += result.differences.size();
    documentErrors += result.documentErrors.size();
    contentErrors += result.contentErrors.size();
}

void RoundTripReport::AddFailure()
{
    ++files;
    ++failedFiles;
}

ExitCode RoundTripReport::Finish()
{
    stream << Count(files, "file") << ", " << Count(differences, "difference") << ", "
           << Count(documentErrors, "new error") << " of documents, " << Count(contentErrors, "new error")
           << " of contents";
    if (failedFiles != 0)
        stream << ", " << Count(failedFiles, "file") << " failed";
    stream << '\n';
    if (failedFiles != 0)
        return ExitCode::Trouble;
    return differences == 0 ? ExitCode::Equal : ExitCode::Different;
}

} // namespace Examples
