#pragma once

#include <map>
#include <memory>

#include <orv_blend/transparency.h>

namespace OrvPdf
{

/// The transparencies of a content, each value once: objects in a row mostly have the same one.
class TransparencyCache
{
public:
    /// No alpha may be NaN. The default value gives the object that the factory has for it.
    std::shared_ptr<const OrvBlend::Transparency> Get(const OrvBlend::Transparency& value);

private:
    struct Order
    {
        bool operator()(const OrvBlend::Transparency& left, const OrvBlend::Transparency& right) const;
    };

    std::map<OrvBlend::Transparency, std::shared_ptr<const OrvBlend::Transparency>, Order> transparencies;
};

} // namespace OrvPdf
