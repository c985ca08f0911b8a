#pragma once

#include <cstdint>
#include <memory>
#include <unordered_map>
#include <utility>
#include <vector>

#include <orv_paint/paint.h>

#include "pdf/writer/content/paint_color.h"
#include "pdf/writer/resources/shading_definition.h"

namespace OrvPdf
{

/// A pattern of a content's resources (ISO 32000-1, 8.7). Of one kind exactly.
struct WrittenPattern
{
    std::shared_ptr<const OrvPaint::Paint> paint;
    /// Nothing for a tiling pattern.
    boost::optional<ShadingDefinition> shading;
};

/// The patterns of one content, each paint once.
class PaintPatterns
{
public:
    explicit PaintPatterns(SeparationSpaces& separations) : separationSpaces(separations) {}

    /// The settings that paint with a shading. Null if there are none, with the reason in the plural in
    /// `problem`. Good until the next call.
    const PaintSettings* FindShading(const std::shared_ptr<const OrvPaint::Paint>& paint,
                                     const char*& problem);

    /// The same for a tiling pattern; `colors` are those of the content.
    const PaintSettings* FindTiling(const std::shared_ptr<const OrvPaint::Paint>& paint, PaintColors& colors,
                                    const char*& problem);

    /// The patterns of the resources, in order of their numbers. None are left.
    std::vector<WrittenPattern> TakeAll() { return std::move(patterns); }

private:
    SeparationSpaces& separationSpaces;
    std::vector<WrittenPattern> patterns;
    std::unordered_map<const OrvPaint::Paint*, std::uint32_t> numbers;
    PaintSettings settings;
};

} // namespace OrvPdf
