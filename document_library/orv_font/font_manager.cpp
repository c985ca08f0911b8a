#include <orv_font/font_manager.h>

#include <orv_font/font.h>

#include "orv_font/library_fonts.h"
#include "orv_font/program_font.h"

namespace OrvFont
{

ID GetFontIDForFontName(const std::string& name)
{
    return ID(name);
}

FontManager::FontManager() = default;
FontManager::~FontManager() = default;

std::shared_ptr<const Font> FontManager::GetOrCreateFont(ID id, WritingMode mode)
{
    const std::lock_guard<std::mutex> lock(mutex);
    const auto key = std::make_pair(id, mode);
    const auto known = fonts.find(key);
    if (known != fonts.end())
        return known->second;
    std::shared_ptr<const Font> font =
        Detail::MakeProgramFont(Detail::ReplacementFor(id.GetName()).program, mode);
    // Two names of one font, so that a text in either is written with one font.
    for (const auto& [otherKey, other] : fonts) {
        if (otherKey.second == mode && HaveSameOutlines(*font, *other)) {
            font = other;
            break;
        }
    }
    fonts.emplace(key, font);
    return font;
}

} // namespace OrvFont
