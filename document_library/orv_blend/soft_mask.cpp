#include <orv_blend/soft_mask.h>

#include <stdexcept>
#include <utility>

#include <orv_doc/content.h>
#include <orv_paint/flat_paint.h>

#include "orv_doc/content_release.h"

namespace OrvBlend
{

using OrvDoc::Content;

namespace
{

std::shared_ptr<Content> RequireDrawing(std::shared_ptr<Content> content)
{
    if (!content || content->GetType() != Content::Type::SoftMaskContent)
        throw std::invalid_argument("A soft mask needs a content of a soft mask's type.");
    return content;
}

} // namespace

SoftMask::SoftMask(Fields givenFields) : fields(std::move(givenFields)) {}

SoftMask::~SoftMask()
{
    OrvDoc::Detail::ReleaseContent(std::move(fields.content));
}

SoftMask::Factory::Factory(std::shared_ptr<Content> content)
{
    SetContent(std::move(content));
}

SoftMask::Factory::Factory(const SoftMask& mask) : fields(mask.fields) {}

SoftMask::Factory::~Factory() = default;

SoftMask::Factory& SoftMask::Factory::SetTransformation(
    const Plexa::TransformationBase<Plexa::MilliPointCoordinateSystem>& transformation)
{
    fields.transformation = transformation;
    return *this;
}

SoftMask::Factory&
SoftMask::Factory::SetBoundingBox(const Plexa::RectangleBase<Plexa::MilliPointCoordinateSystem>& box)
{
    fields.boundingBox = box;
    return *this;
}

SoftMask::Factory& SoftMask::Factory::SetBackdropColor(OrvColor::ColorList<OrvColor::ColorPolicy> color)
{
    fields.backdrop = std::move(color);
    fields.nativeBackdrop = nullptr;
    return *this;
}

SoftMask::Factory&
SoftMask::Factory::SetBackdropColor(const std::shared_ptr<const OrvPaint::FlatPaint>& paint)
{
    fields.backdrop = paint ? paint->GetColor() : OrvColor::ColorList<OrvColor::ColorPolicy>();
    fields.nativeBackdrop = paint;
    return *this;
}

SoftMask::Factory& SoftMask::Factory::SetAlpha(bool isAlpha)
{
    fields.isAlpha = isAlpha;
    return *this;
}

SoftMask::Factory& SoftMask::Factory::SetTransferFunction(TransferFunction transferFunction)
{
    const auto* function = boost::get<std::shared_ptr<const OrvPaint::Function>>(&transferFunction);
    if (function && !*function)
        throw std::invalid_argument("The transfer function of a soft mask is null.");
    fields.transferFunction = std::move(transferFunction);
    return *this;
}

SoftMask::Factory& SoftMask::Factory::SetKnockout(bool isKnockout)
{
    fields.isKnockout = isKnockout;
    return *this;
}

SoftMask::Factory& SoftMask::Factory::SetContent(std::shared_ptr<Content> content)
{
    fields.content = RequireDrawing(std::move(content));
    return *this;
}

std::shared_ptr<const SoftMask> SoftMask::Factory::Get() const
{
    return std::shared_ptr<const SoftMask>(new SoftMask(fields));
}

} // namespace OrvBlend
