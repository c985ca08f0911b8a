#pragma once

#include <iosfwd>
#include <string>

#include <orv_sys/export.h>

namespace OrvSys
{
namespace Core
{

/// One problem that was met and did not stop the work.
///
/// Immutable, and shared as `std::shared_ptr<Error>`. An error is told from others by its address alone: two
/// errors of the same text are two errors. So it can be neither copied nor assigned.
class ORV_EXPORT Error
{
public:
    // For makers of documents.

    /// An error of the given text.
    explicit Error(std::string text);

    /// An error whose text is "where: what: why", for instance "page 3, operator Do: the picture is left out:
    /// its colour space is unknown". A part that is empty is left out together with its colon.
    Error(const std::string& what, const std::string& where, const std::string& why);

    Error(const Error&) = delete;
    Error& operator=(const Error&) = delete;
    ~Error();

    /// UTF-8, one line, without an end mark.
    const std::string& GetText() const { return text_; }

private:
    const std::string text_;
};

/// Writes the text.
ORV_EXPORT std::ostream& operator<<(std::ostream& stream, const Error& error);

} // namespace Core
} // namespace OrvSys
