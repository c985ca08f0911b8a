#include "pdf/writer/content/used_fonts.h"

namespace OrvPdf
{

std::size_t UsedFonts::Add(const std::shared_ptr<const OrvFont::Font>& font)
{
    const auto [found, isNew] = places.emplace(font.get(), fonts.size());
    if (isNew)
        fonts.push_back({font, {}});
    return found->second;
}

} // namespace OrvPdf
