#pragma once

#include <memory>

#include <orv_blend/blend_mode.h>
#include <orv_color/component.h>
#include <orv_sys/export.h>

namespace OrvBlend
{

class SoftMask;

/// How an object joins what is below it (ISO 32000-1, 11.6.4 and 11.6.6). Immutable when handed around, which
/// is as shared pointer to const.
struct ORV_EXPORT Transparency
{
    class Factory;

    BlendMode blendMode = BlendMode::Normal;
    OrvColor::Component fillAlpha = 1.0f;
    OrvColor::Component strokeAlpha = 1.0f;
    bool isolated = false;
    bool knockout = false;
    bool alphaIsShape = false;
    std::shared_ptr<const SoftMask> softMask; ///< May be null.
};

/// Begins with the fields of an opaque object: Normal, both alphas 1, no flag, no soft mask.
class ORV_EXPORT Transparency::Factory
{
public:
    /// The transparency of an object that is opaque: one object for all, alive until the program ends.
    static const std::shared_ptr<const Transparency>& GetDefault();

    // For makers of documents.

    Factory& SetBlendMode(BlendMode blendMode);
    Factory& SetFillAlpha(OrvColor::Component alpha);
    Factory& SetStrokeAlpha(OrvColor::Component alpha);
    Factory& SetIsolated(bool isolated);
    Factory& SetKnockout(bool knockout);
    Factory& SetAlphaIsShape(bool alphaIsShape);
    Factory& SetSoftMask(std::shared_ptr<const SoftMask> softMask);

    /// A new object with the fields as they are now; GetDefault's one if they are the default.
    std::shared_ptr<const Transparency> Get() const;

private:
    Transparency fields;
};

// For makers of documents.

/// All fields equal; soft masks by identity.
ORV_EXPORT bool operator==(const Transparency& left, const Transparency& right);
inline bool operator!=(const Transparency& left, const Transparency& right)
{
    return !(left == right);
}

} // namespace OrvBlend
