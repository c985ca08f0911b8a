#include "pdf/writer/content/paint_patterns.h"

#include <orv_paint/flat_paint.h>
#include <orv_paint/pattern_paint.h>

#include "pdf/matrix_numbers.h"

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
    settings.isProcessPattern = false;
    settings.overprint = shading.GetSeparationMapping().overprint;
    settings.nonzeroOverprint = shading.IsNonzeroOverprint();
    return &settings;
}

const PaintSettings* PaintPatterns::FindTiling(const std::shared_ptr<const OrvPaint::Paint>& paint,
                                               PaintColors& colors, const char*& problem)
{
    const auto& tiling = static_cast<const OrvPaint::PatternPaint&>(*paint);
    if (!IsFinite(tiling.GetTransformation())) {
        problem = "tiling patterns with infinite numbers in their matrix cannot be written";
        return nullptr;
    }
    settings = PaintSettings();
    settings.color.space = PaintColor::patterns;
    settings.color.components.clear();
    if (const auto& color = tiling.GetColor()) {
        const auto native =
            tiling.GetNativeColor() ? tiling.GetNativeColor() : OrvPaint::GetFlatPaint(*color, nullptr);
        const PaintSettings* const found = colors.Find(*native, problem);
        if (!found) {
            return nullptr;
        }
        settings = *found;
        settings.isProcessPattern = found->color.space == PaintColor::cmyk;
        colors.MoveToPatterns(settings.color);
    }
    const auto [known, isNew] = numbers.emplace(paint.get(), static_cast<std::uint32_t>(patterns.size() + 1));
    if (isNew) {
        patterns.push_back({paint, boost::none});
    }
    settings.color.pattern = known->second;
    return &settings;
}

} // namespace OrvPdf
