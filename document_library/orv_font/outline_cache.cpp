#include "orv_font/outline_cache.h"

#include <cmath>

#include <orv_font/font.h>
#include <plexa/compound.h>

#include "orv_font/font_source.h"

namespace OrvFont::Detail
{

namespace
{

/// A damaged program may say anything, and what is beyond all pages would only make numbers infinite later.
bool IsWithinReach(const Plexa::Compound& outline)
{
    const auto isNear = [](double coordinate) { return std::fabs(coordinate) <= Font::outlineReach; };
    for (const std::shared_ptr<const Plexa::Subpath>& subpath : outline.GetSubpaths()) {
        for (const Plexa::Subpath::Point& point : subpath->GetPoints()) {
            if (!isNear(point.x.value) || !isNear(point.y.value))
                return false;
        }
    }
    return true;
}

} // namespace

std::shared_ptr<const Plexa::Compound> OutlineCache::Get(const FontSource& source, const Character& character)
{
    const std::uint64_t key = (std::uint64_t{character.code} << 32) | character.glyph;
    const std::lock_guard<std::mutex> lock(mutex);
    std::shared_ptr<const Plexa::Compound>& outline = outlines[key];
    if (!outline) {
        static const auto empty = std::make_shared<const Plexa::Compound>();
        outline = source.MakeOutline(character);
        if (!outline || !IsWithinReach(*outline))
            outline = empty;
    }
    return outline;
}

} // namespace OrvFont::Detail
