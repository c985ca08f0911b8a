#pragma once

#include <cstddef>
#include <memory>
#include <vector>

#include <boost/optional.hpp>

#include <orv_color/color_list.h>
#include <orv_img/channel_info.h>
#include <orv_img/picture_link.h>
#include <orv_sys/export.h>

namespace OrvDoc
{
class Document;
}

namespace OrvImg
{

class PictureSource;

/// A picture that a document knows. Immutable; handed around as shared pointer to const.
///
/// Mappings number its channels by their position in the pixel, but for a picture in a device-independent
/// space. There 0 to 3 are the process inks that the colour is converted to, and 4 + k is the extra channel
/// k, which stands behind the channels of the space.
class ORV_EXPORT PictureData
{
public:
    class Factory;

    ~PictureData();
    PictureData(const PictureData&) = delete;
    PictureData& operator=(const PictureData&) = delete;

    /// Pixels.
    std::size_t GetWidth() const;
    std::size_t GetHeight() const;

    const boost::optional<PictureLink>& GetLink() const { return link; }
    const std::shared_ptr<const PictureSource>& GetPictureSource() const { return source; }
    std::vector<ChannelInfo> GetChannelInfos() const;

    /// Which channel stands for which separation when nobody says otherwise; alpha and stencil channels stand
    /// for none.
    ///
    /// - DeviceN: each colour channel for the separation of its name, with its decode range. A single channel
    ///   "All" sets the all flag; "None", which is no ink, is left out.
    /// - DeviceGray: the channel is Black, with the decode range turned round, as ink is the absence of
    /// light.
    /// - DeviceRGB: "DeviceRGB Red", "DeviceRGB Green" and "DeviceRGB Blue".
    /// - Device-independent spaces: Cyan, Magenta, Yellow and Black, and then the extra colour channels.
    OrvColor::ColorList<OrvColor::ChannelMappingPolicy> GetDefaultChannelMapping(bool overprint) const;

    /// The first alpha channel with its decode range; unmapped if there is none.
    OrvColor::ChannelMappingPolicy::Value GetDefaultSoftMaskMapping() const;

    // For makers of documents.

    /// Of a soft mask: the colour that the samples of its picture were blended with beforehand, in components
    /// of that picture's colour space (ISO 32000-1, 11.6.5.3). Empty if they were not.
    const std::vector<double>& GetMatte() const { return matte; }

private:
    explicit PictureData(std::shared_ptr<const PictureSource> givenSource);

    std::shared_ptr<const PictureSource> source;
    boost::optional<PictureLink> link;
    std::vector<double> matte;
};

/// Makes one picture.
class ORV_EXPORT PictureData::Factory
{
public:
    /// Throws std::invalid_argument if the source is null. The source is not asked for samples.
    Factory(const OrvDoc::Document& document, std::shared_ptr<const PictureSource> source);
    ~Factory();
    Factory(const Factory&) = delete;
    Factory& operator=(const Factory&) = delete;

    // For makers of documents.

    Factory& SetLink(PictureLink newLink);
    Factory& SetMatte(std::vector<double> newMatte);

    /// The picture; the same one each time. Setting anything after that throws std::logic_error.
    std::shared_ptr<const PictureData> Get();

private:
    PictureData& Change();

    std::shared_ptr<PictureData> data;
    bool isFinished = false;
};

} // namespace OrvImg
