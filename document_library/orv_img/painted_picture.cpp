#include <orv_img/painted_picture.h>

#include <stdexcept>
#include <utility>

#include <orv_img/picture_data.h>

namespace OrvImg
{

PaintedPicture::PaintedPicture(std::shared_ptr<const PictureData> givenData) : data(std::move(givenData)) {}

PaintedPicture::~PaintedPicture() = default;

PaintedPicture::Factory::Factory(const OrvDoc::Document&, const std::shared_ptr<const PictureData>& data,
                                 bool overprint)
{
    if (!data)
        throw std::invalid_argument("A painted picture needs a picture.");
    picture.reset(new PaintedPicture(data));
    picture->channelMapping = data->GetDefaultChannelMapping(overprint);
}

PaintedPicture::Factory::~Factory() = default;

PaintedPicture& PaintedPicture::Factory::Change()
{
    if (isFinished)
        throw std::logic_error("The picture is finished.");
    return *picture;
}

PaintedPicture::Factory& PaintedPicture::Factory::SetMaskKind(MaskKind kind)
{
    Change().maskKind = kind;
    return *this;
}

PaintedPicture::Factory& PaintedPicture::Factory::SetMaskData(std::shared_ptr<const PictureData> mask)
{
    Change().maskData = std::move(mask);
    return *this;
}

PaintedPicture::Factory&
PaintedPicture::Factory::SetSoftMaskMapping(const OrvColor::ChannelMappingPolicy::Value& mapping)
{
    Change().softMaskMapping = mapping;
    return *this;
}

PaintedPicture::Factory& PaintedPicture::Factory::SetRenderingIntent(OrvColor::RenderingIntent given)
{
    Change().intent = given;
    return *this;
}

PaintedPicture::Factory& PaintedPicture::Factory::SetChannelMapping(ChannelMapping mapping)
{
    Change().channelMapping = std::move(mapping);
    return *this;
}

PaintedPicture::Factory& PaintedPicture::Factory::SetColorKey(std::vector<std::array<std::size_t, 2>> key)
{
    Change().colorKey = std::move(key);
    return *this;
}

std::shared_ptr<const PaintedPicture> PaintedPicture::Factory::Get()
{
    const bool needsData =
        picture->maskKind == MaskKind::SoftMask || picture->maskKind == MaskKind::StencilMask;
    if (needsData && !picture->maskData)
        throw std::logic_error("A mask needs a picture.");
    isFinished = true;
    return picture;
}

} // namespace OrvImg
