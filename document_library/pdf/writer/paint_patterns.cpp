#include "pdf/writer/paint_patterns.h"

#include "pdf/writer/content_text.h"

namespace OrvPdf
{

const PaintSettings* PaintPatterns::FindShading(const std::shared_ptr<const OrvPaint::Paint>& paint,
                                                const char*& problem)
{
    const auto& shading = static_cast<const OrvPaint::ShadingPaint&>(*paint);
    auto known = numbers.find(paint.get());
    if (known == numbers.end()) {
        if (!IsFinite(shading.GetTransformation())) {
            problem = "shadings with infinite numbers in their matrix cannot be written";
            return nullptr;
        }
        WrittenPattern pattern{paint, DefineShading(shading, separationSpaces, problem)};
        if (!pattern.shading) {
            return nullptr;
        }
        patterns.push_back(std::move(pattern));
        known = numbers.emplace(paint.get(), static_cast<std::uint32_t>(patterns.size())).first;
    }
    settings.color.space = PaintColor::patterns;
    settings.color.components.clear();
    settings.color.pattern = known->second;
    settings.overprint = shading.GetSeparationMapping().overprint;
    settings.nonzeroOverprint = shading.IsNonzeroOverprint();
    return &settings;
}

} // namespace OrvPdf
