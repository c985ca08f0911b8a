#pragma once

#include <cstddef>
#include <memory>
#include <unordered_map>

#include <orv_paint/flat_paint.h>

#include "pdf/reader/content/graphics_state.h"

namespace OrvPdf
{

/// The flat paints of a content, each colour once: drawings use few colours for many objects.
class PaintCache
{
public:
    std::shared_ptr<const OrvPaint::FlatPaint> Get(const std::shared_ptr<const Color>& color, bool overprint,
                                                   bool nonzeroOverprint);

private:
    struct Key
    {
        std::shared_ptr<const Color> color;
        bool overprint;
        bool nonzeroOverprint;

        bool operator==(const Key& other) const;
    };

    struct Hash
    {
        std::size_t operator()(const Key& key) const;
    };

    std::unordered_map<Key, std::shared_ptr<const OrvPaint::FlatPaint>, Hash> paints;
};

} // namespace OrvPdf
