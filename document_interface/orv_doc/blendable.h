#pragma once

#include <memory>

#include <orv_doc/clippable.h>

namespace OrvBlend
{
struct Transparency;
}

namespace OrvDoc
{

/// An object that can be blended with what lies below it (ISO 32000-1, 11.3).
class ORV_EXPORT Blendable : public Clippable
{
public:
    /// Null if the object has no transparency.
    const std::shared_ptr<const OrvBlend::Transparency>& GetTransparency() const { return transparency; }

    // For makers of documents.

    void SetTransparency(std::shared_ptr<const OrvBlend::Transparency> value);

protected:
    Blendable() = default;
    void TransformationChangedSelf(const Plexa::TransformationBase<Plexa::MilliPointCoordinateSystem>& change,
                                   TransformationMode mode) override;

private:
    std::shared_ptr<const OrvBlend::Transparency> transparency;
};

} // namespace OrvDoc
