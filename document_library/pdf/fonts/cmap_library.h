#pragma once

#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "pdf/fonts/cmap.h"

namespace OrvPdf
{

/// The CMap resources in some folders: files named for their CMaps, in the folders themselves or in folders
/// in these, one for each character collection. Where a name comes twice, the earlier folder has it. Safe to
/// use from several threads at once.
class CMapLibrary
{
public:
    /// That of the machine: the folders of the environment variable `ORV_CMAP_PATH`, which colons separate,
    /// or, without one, those where the package poppler-data puts them. They are listed at the first use.
    static CMapLibrary& GetDefault();
    /// The folders of such a list; empty parts name none.
    static std::vector<std::string> SplitPath(const std::string& path);

    /// Lists the folders. One that cannot be read has nothing.
    explicit CMapLibrary(const std::vector<std::string>& folders);

    /// Read when it is first asked for and kept. Null if there is none of that name.
    std::shared_ptr<const CMap> Find(const std::string& name) { return Find(name, 1); }
    /// The bytes of the file of that name. Nothing if there is none or it is too large to be a CMap.
    std::optional<std::string> ReadFile(const std::string& name) const;

private:
    std::shared_ptr<const CMap> Find(const std::string& name, unsigned depth);

    std::map<std::string, std::string> files;
    std::mutex mutex;
    std::map<std::string, std::shared_ptr<const CMap>> maps;
};

} // namespace OrvPdf
