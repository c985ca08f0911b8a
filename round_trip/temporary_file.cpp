#include "round_trip/temporary_file.h"

#include <memory>
#include <utility>

#include <boost/filesystem/operations.hpp>

#include <orv_doc/document.h>
#include <orv_doc/properties.h>

#include "round_trip/remove_file.h"

namespace HarrowSupport
{

namespace
{

/// A share in the file's owner while the document is about to take it over. Unless it is let go of, it takes
/// the path away from the owner: a file that no document came to own stays on disk.
class PassingShare
{
public:
    explicit PassingShare(const std::shared_ptr<RemoveFile>& file) : owner(file) {}
    ~PassingShare()
    {
        if (owner != nullptr)
            owner->path.clear();
    }
    PassingShare(const PassingShare&) = delete;
    PassingShare& operator=(const PassingShare&) = delete;

    void LetGo() { owner.reset(); }

private:
    std::shared_ptr<RemoveFile> owner;
};

} // namespace

boost::filesystem::path MakeTemporaryPath(const std::string& model)
{
    const boost::filesystem::path unique =
        boost::filesystem::unique_path(boost::filesystem::path(model, boost::filesystem::path::codecvt()));
    boost::filesystem::path path = boost::filesystem::temp_directory_path();
    path /= unique;
    return path;
}

void GiveFileToDocument(boost::filesystem::path path, OrvDoc::Document& document)
{
    OrvDoc::Properties& properties = document.GetProperties();
    auto removeFile = std::make_shared<RemoveFile>(std::move(path));
    PassingShare share(removeFile);
    properties.Set(RemoveFileKey, std::move(removeFile));
    share.LetGo();
}

} // namespace HarrowSupport
