#include "pdf/reader/content/transparency_cache.h"

#include <tuple>

namespace OrvPdf
{

bool TransparencyCache::Order::operator()(const OrvBlend::Transparency& left,
                                          const OrvBlend::Transparency& right) const
{
    const auto key = [](const OrvBlend::Transparency& value) {
        return std::make_tuple(value.blendMode, static_cast<float>(value.fillAlpha),
                               static_cast<float>(value.strokeAlpha), value.isolated, value.knockout,
                               value.alphaIsShape, value.softMask.get());
    };
    return key(left) < key(right);
}

std::shared_ptr<const OrvBlend::Transparency> TransparencyCache::Get(const OrvBlend::Transparency& value)
{
    if (value == *OrvBlend::Transparency::Factory::GetDefault()) {
        return OrvBlend::Transparency::Factory::GetDefault();
    }
    auto& known = transparencies[value];
    if (!known) {
        known = std::make_shared<const OrvBlend::Transparency>(value);
    }
    return known;
}

} // namespace OrvPdf
