#include "pdf/reader/content/paint_cache.h"

#include <cstdint>
#include <cstring>

namespace OrvPdf
{

bool PaintCache::Key::operator==(const Key& other) const
{
    return overprint == other.overprint && nonzeroOverprint == other.nonzeroOverprint &&
           color->space == other.color->space && color->components == other.color->components;
}

std::size_t PaintCache::Hash::operator()(const Key& key) const
{
    // The address of the space makes the sum unpredictable, so that no file can choose colours that collide.
    std::uint64_t hash = reinterpret_cast<std::uintptr_t>(key.color->space.get());
    const auto mix = [&hash](std::uint64_t bits) {
        hash = (hash ^ bits) * UINT64_C(0x9E3779B97F4A7C15);
        hash ^= hash >> 29;
    };
    for (const float component : key.color->components) {
        // Adding zero gives both zeros, which are equal, the same bits.
        const float sum = component + 0.0F;
        std::uint32_t bits = 0;
        std::memcpy(&bits, &sum, sizeof bits);
        mix(bits);
    }
    mix((key.overprint ? 2 : 0) + (key.nonzeroOverprint ? 1 : 0));
    return static_cast<std::size_t>(hash);
}

std::shared_ptr<const OrvPaint::FlatPaint> PaintCache::Get(const std::shared_ptr<const Color>& color,
                                                           bool overprint, bool nonzeroOverprint)
{
    // Without overprint its mode says nothing, and paints that differ in it alone would be different for no
    // reason.
    Key key{color, overprint, overprint && nonzeroOverprint};
    const auto found = paints.find(key);
    if (found != paints.end()) {
        return found->second;
    }
    auto paint =
        OrvPaint::FlatPaint::Factory(color->space, color->components, key.overprint, key.nonzeroOverprint)
            .Get();
    paints.emplace(std::move(key), paint);
    return paint;
}

} // namespace OrvPdf
