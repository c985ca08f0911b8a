#pragma once

#include <array>
#include <cstddef>
#include <memory>
#include <vector>

#include <orv_color/color_list.h>
#include <orv_color/rendering_intent.h>
#include <orv_img/mask_kind.h>
#include <orv_sys/export.h>

namespace OrvDoc
{
class Document;
}

namespace OrvImg
{

class PictureData;

/// A picture as an image shows it: with its mask, what its channels stand for and the rendering intent.
/// Immutable; handed around as shared pointer to const.
///
/// The getters' argument asks for what is shown in print instead. No picture has anything else to show there,
/// so that it changes nothing.
class ORV_EXPORT PaintedPicture
{
public:
    using ChannelMapping = OrvColor::ColorList<OrvColor::ChannelMappingPolicy>;
    class Factory;

    ~PaintedPicture();
    PaintedPicture(const PaintedPicture&) = delete;
    PaintedPicture& operator=(const PaintedPicture&) = delete;

    const std::shared_ptr<const PictureData>& GetPictureData(bool) const { return data; }
    const ChannelMapping& GetChannelMapping(bool) const { return channelMapping; }
    MaskKind GetMaskKind(bool) const { return maskKind; }

    /// Of a soft mask or stencil mask; the picture's own data if it is its own mask, otherwise null.
    const std::shared_ptr<const PictureData>& GetMaskData(bool) const { return maskData; }

    /// Which channel of the mask's picture holds the opacity, 0 to 1. Of a soft mask.
    const OrvColor::ChannelMappingPolicy::Value& GetSoftMaskMapping(bool) const { return softMaskMapping; }

    OrvColor::RenderingIntent GetRenderingIntent() const { return intent; }

    // For makers of documents.

    /// Of a colour key mask: for each channel the lowest and the highest sample that are not painted. Pixels
    /// are hidden where all samples lie inside.
    const std::vector<std::array<std::size_t, 2>>& GetColorKey(bool) const { return colorKey; }

private:
    explicit PaintedPicture(std::shared_ptr<const PictureData> givenData);

    std::shared_ptr<const PictureData> data;
    ChannelMapping channelMapping;
    MaskKind maskKind = MaskKind::None;
    std::shared_ptr<const PictureData> maskData;
    OrvColor::ChannelMappingPolicy::Value softMaskMapping;
    std::vector<std::array<std::size_t, 2>> colorKey;
    OrvColor::RenderingIntent intent = OrvColor::RenderingIntent::RelativeColorimetric;
};

/// Makes one painted picture.
class ORV_EXPORT PaintedPicture::Factory
{
public:
    /// Begins with the picture's default channel mapping, no mask and the relative colorimetric intent.
    /// `overprint` is the overprint flag of the mapping. Throws std::invalid_argument if the picture is null.
    Factory(const OrvDoc::Document& document, const std::shared_ptr<const PictureData>& data, bool overprint);
    ~Factory();
    Factory(const Factory&) = delete;
    Factory& operator=(const Factory&) = delete;

    Factory& SetMaskKind(MaskKind kind);
    Factory& SetMaskData(std::shared_ptr<const PictureData> mask);
    Factory& SetSoftMaskMapping(const OrvColor::ChannelMappingPolicy::Value& mapping);
    Factory& SetRenderingIntent(OrvColor::RenderingIntent intent);

    // For makers of documents.

    Factory& SetChannelMapping(ChannelMapping mapping);
    Factory& SetColorKey(std::vector<std::array<std::size_t, 2>> key);

    /// The picture; the same one each time. Setting anything after that throws std::logic_error. Throws
    /// std::logic_error if a soft mask or stencil mask has no data.
    std::shared_ptr<const PaintedPicture> Get();

private:
    PaintedPicture& Change();

    std::shared_ptr<PaintedPicture> picture;
    bool isFinished = false;
};

} // namespace OrvImg
