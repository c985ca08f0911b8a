#include <orv_blend/transparency.h>

#include <utility>

namespace OrvBlend
{

const std::shared_ptr<const Transparency>& Transparency::Factory::GetDefault()
{
    static const auto opaque = std::make_shared<const Transparency>();
    return opaque;
}

Transparency::Factory& Transparency::Factory::SetBlendMode(BlendMode value)
{
    fields.blendMode = value;
    return *this;
}

Transparency::Factory& Transparency::Factory::SetFillAlpha(OrvColor::Component alpha)
{
    fields.fillAlpha = alpha;
    return *this;
}

Transparency::Factory& Transparency::Factory::SetStrokeAlpha(OrvColor::Component alpha)
{
    fields.strokeAlpha = alpha;
    return *this;
}

Transparency::Factory& Transparency::Factory::SetIsolated(bool value)
{
    fields.isolated = value;
    return *this;
}

Transparency::Factory& Transparency::Factory::SetKnockout(bool value)
{
    fields.knockout = value;
    return *this;
}

Transparency::Factory& Transparency::Factory::SetAlphaIsShape(bool value)
{
    fields.alphaIsShape = value;
    return *this;
}

Transparency::Factory& Transparency::Factory::SetSoftMask(std::shared_ptr<const SoftMask> value)
{
    fields.softMask = std::move(value);
    return *this;
}

std::shared_ptr<const Transparency> Transparency::Factory::Get() const
{
    if (fields == *GetDefault())
        return GetDefault();
    return std::make_shared<const Transparency>(fields);
}

bool operator==(const Transparency& left, const Transparency& right)
{
    return left.blendMode == right.blendMode && left.fillAlpha == right.fillAlpha &&
           left.strokeAlpha == right.strokeAlpha && left.isolated == right.isolated &&
           left.knockout == right.knockout && left.alphaIsShape == right.alphaIsShape &&
           left.softMask == right.softMask;
}

} // namespace OrvBlend
