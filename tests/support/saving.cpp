#include "saving.h"

#include <algorithm>
#include <exception>
#include <random>

#include <boost/algorithm/string/join.hpp>
#include <boost/algorithm/string/replace.hpp>
#include <boost/filesystem/operations.hpp>
#include <boost/filesystem/path.hpp>

#include "document_makers.h"
#include "picture_makers.h"
#include "support/file_bytes.h"
#include "support/temporary_folder.h"

namespace HarrowSupport::Testing
{

std::unique_ptr<OrvDoc::Document> DocumentOfBytes(std::size_t bytes)
{
    auto document = NewDocument(1);
    std::mt19937 random(1);
    std::string samples(bytes, '\0');
    for (char& sample : samples)
        sample = static_cast<char>(random());
    const PicturePointer picture = MakePicture(*document, OfSeparations({"Black"}, samples));
    Place(ContentOf(*document), ImageOf(Painted(*document, picture)));
    return document;
}

void Save(OrvDoc::Document& document, const std::string& file)
{
    document.Save(file, OrvDoc::WriteOptions(OrvDoc::WriteOptions::Flavour::Full));
}

std::string SavedBytes(OrvDoc::Document& document)
{
    const TemporaryFolder folder;
    const std::string file = folder.NameOf("saved.pdf");
    Save(document, file);
    return FileBytes(file);
}

std::vector<std::string> NamesIn(const std::string& folder)
{
    std::vector<std::string> names;
    for (const auto& entry : boost::filesystem::directory_iterator(folder))
        names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
}

std::string OutcomeOf(const std::function<void()>& action, const std::string& file,
                      const std::string& oldBytes, const std::string& newBytes)
{
    std::string error = "no error";
    try {
        action();
    } catch (const std::exception& problem) {
        error = problem.what();
    }
    const boost::filesystem::path path = file;
    std::vector<std::string> others = NamesIn(path.parent_path().string());
    const auto found = std::find(others.begin(), others.end(), path.filename().string());
    std::string what = "no";
    if (found != others.end()) {
        others.erase(found);
        boost::system::error_code ignored;
        const std::string bytes =
            boost::filesystem::is_regular_file(path, ignored) ? FileBytes(file) : std::string();
        what = bytes == newBytes ? "new" : bytes == oldBytes ? "old" : "other";
    }
    const std::string rest = others.empty() ? "nothing else" : boost::algorithm::join(others, ", ");
    boost::algorithm::replace_all(error, path.parent_path().string() + "/", "");
    return what + " file; " + rest + "; " + error;
}

} // namespace HarrowSupport::Testing
