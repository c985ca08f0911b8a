#include "orv_font/library_fonts.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <mutex>
#include <stdexcept>
#include <system_error>

namespace OrvFont::Detail
{

namespace
{

using Design = FontKind::Design;

constexpr const char* folderVariable = "ORV_FONT_PATH";
constexpr const char* usualFolders = "/usr/share/fonts/truetype/liberation2:"
                                     "/usr/share/fonts/truetype/liberation:"
                                     "/usr/share/fonts/truetype/dejavu";

struct FontFile
{
    std::string name;
    const char* package = nullptr;
};

FontFile FileOf(const FontKind& kind)
{
    if (kind.design == Design::Symbols || kind.design == Design::Dingbats)
        return {"DejaVuSans.ttf", "fonts-dejavu-core"};
    std::string name = "Liberation";
    if (kind.design == Design::Serif)
        name += "Serif";
    else
        name += kind.design == Design::FixedPitch ? "Mono" : "Sans";
    name += '-';
    if (kind.isBold)
        name += "Bold";
    if (kind.isItalic)
        name += "Italic";
    if (!kind.isBold && !kind.isItalic)
        name += "Regular";
    return {name + ".ttf", "fonts-liberation2"};
}

std::string GetFolders()
{
    const char* given = std::getenv(folderVariable);
    return given && *given ? given : usualFolders;
}

std::string FindFile(const FontFile& file)
{
    const std::string folders = GetFolders();
    for (std::size_t begin = 0; begin <= folders.size();) {
        const std::size_t end = std::min(folders.find(':', begin), folders.size());
        const std::string folder = folders.substr(begin, end - begin);
        begin = end + 1;
        const std::filesystem::path path = std::filesystem::path(folder) / file.name;
        std::error_code problem;
        if (!folder.empty() && std::filesystem::is_regular_file(path, problem))
            return path.string();
    }
    throw std::runtime_error("The font file " + file.name + " is in none of the folders " + folders +
                             ": the Debian package " + file.package + " has it, and the variable " +
                             folderVariable + " can name other folders.");
}

std::shared_ptr<const FontProgram> LoadOnce(const std::string& path)
{
    static std::mutex mutex;
    static std::map<std::string, std::shared_ptr<const FontProgram>> programs;
    const std::lock_guard<std::mutex> lock(mutex);
    std::shared_ptr<const FontProgram>& program = programs[path];
    if (!program)
        program = FontProgram::Load(path);
    return program;
}

} // namespace

LibraryFont ReplacementFor(const std::string& name, const FontHints& hints)
{
    LibraryFont font;
    font.program = LoadOnce(FindFile(FileOf(FindFontKind(name, hints))));
    font.name = font.program->GetNames().name;
    return font;
}

} // namespace OrvFont::Detail
