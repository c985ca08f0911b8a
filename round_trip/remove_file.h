#pragma once

#include <boost/filesystem/path.hpp>

namespace HarrowSupport
{

/// Deletes a file when it goes itself. Held by a shared pointer in a document's properties, it ties the
/// file's life to the document's.
struct RemoveFile
{
    explicit RemoveFile(boost::filesystem::path&& file);

    /// Tells nobody whether there was a file to delete, or why it could not be.
    ~RemoveFile();

    RemoveFile(const RemoveFile&) = delete;
    RemoveFile& operator=(const RemoveFile&) = delete;

    boost::filesystem::path path;
};

/// The property under which a document owns its temporary file.
inline constexpr const char* RemoveFileKey = "Harrow.RoundTripTester.RemoveTempFile";

} // namespace HarrowSupport
