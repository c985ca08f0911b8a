#pragma once

#include <orv_color/color_list.h>
#include <orv_color/rendering_intent.h>
#include <orv_doc/image.h>
#include <orv_doc/image_mask.h>
#include <orv_img/buffered_picture_source.h>
#include <orv_img/channel_info.h>
#include <orv_img/color_space.h>
#include <orv_img/color_table.h>
#include <orv_img/mask_kind.h>
#include <orv_img/painted_picture.h>
#include <orv_img/picture_buffer.h>
#include <orv_img/picture_data.h>
#include <orv_img/picture_link.h>
#include <orv_img/picture_source.h>

#include <boost/optional.hpp>

#include <array>
#include <cstddef>
#include <functional>
#include <initializer_list>
#include <memory>
#include <string>
#include <utility>
#include <vector>

/// Pictures that are made up for a test, in a line each.
namespace HarrowSupport::Testing
{

using BufferPointer = std::shared_ptr<const OrvImg::PictureBuffer>;
using SourcePointer = std::shared_ptr<const OrvImg::PictureSource>;
using PicturePointer = std::shared_ptr<const OrvImg::PictureData>;
using PaintedPointer = std::shared_ptr<const OrvImg::PaintedPicture>;
using TablePointer = std::shared_ptr<const OrvImg::ColorTable>;
using ChannelMap = OrvColor::ColorList<OrvColor::ChannelMappingPolicy>;
using ChannelPlace = OrvColor::ChannelMappingPolicy::Value;
using Range = std::array<double, 2>;
using Samples = std::vector<unsigned>;

constexpr Range identity = {0.0, 1.0};
constexpr Range inverted = {1.0, 0.0};

/// Sets a sample of a packed row, whatever stood there.
void PutSample(unsigned char* row, std::size_t index, std::size_t bits, unsigned sample);

/// Row after row, pixel after pixel. What the list doesn't have is 0, and what it has too much of is left
/// out.
BufferPointer MakeBuffer(std::size_t width, std::size_t height, std::size_t channels, std::size_t bits,
                         const Samples& samples);

OrvImg::ChannelInfo ColorChannel(const std::string& name, const Range& decode = identity);
OrvImg::ChannelInfo AlphaChannel(const Range& decode = identity);
OrvImg::ChannelInfo StencilChannel(const Range& decode = identity);

ChannelPlace ChannelAt(std::size_t index, const Range& decode = identity);
ChannelMap Places(std::initializer_list<std::pair<const char*, ChannelPlace>> entries,
                  bool overprint = false);
ChannelMap PlaceForAll(const ChannelPlace& place);

/// A table of 8 bits, whose default range for samples of the given depth takes a sample to the entry of its
/// own number.
TablePointer MakeTable(std::size_t channels, const std::vector<unsigned char>& bytes,
                       const Range& decode = identity);

/// All that a picture of a test is: two pixels by two rows in two separations unless a test says otherwise.
struct PicturePlan
{
    std::size_t width = 2;
    std::size_t height = 2;
    std::size_t bits = 8;
    Samples samples = {10, 20, 30, 40, 50, 60, 70, 80};
    OrvImg::ColorSpace space = OrvImg::DeviceN();
    std::vector<OrvImg::ChannelInfo> channels = {ColorChannel("Cyan"), ColorChannel("Spot")};
    TablePointer table = nullptr;
    boost::optional<OrvImg::PictureLink> link = boost::none;

    boost::optional<ChannelMap> mapping = boost::none; ///< The default one if there is none.
    bool overprint = false;                            ///< Of the default mapping.
    OrvImg::MaskKind maskKind = OrvImg::MaskKind::None;
    PicturePointer mask = nullptr;
    ChannelPlace maskPlace = ChannelAt(0);
    OrvColor::RenderingIntent intent = OrvColor::RenderingIntent::RelativeColorimetric;
};

/// One channel of opacities, two pixels by two rows.
PicturePlan MaskPlan(Samples samples = {255, 128, 64, 255});
/// One channel of one bit, of that size.
PicturePlan StencilPlan(std::size_t width = 2, std::size_t height = 2, Samples samples = {1, 0, 0, 1});
/// A picture of the default samples, in that space and with its standard channels and others behind them.
PicturePlan PlanIn(const OrvImg::ColorSpace& space, std::vector<OrvImg::ChannelInfo> extra = {});
/// The same as another plan, behind a soft mask.
PicturePlan SoftMasked(PicturePlan plan, const PicturePlan& mask, const ChannelPlace& place = ChannelAt(0));
/// The same behind a stencil mask.
PicturePlan StencilMasked(PicturePlan plan, const PicturePlan& mask);

SourcePointer MakeSource(const PicturePlan& plan);
PicturePointer MakePicture(const PicturePlan& plan);
/// The same over a source of one's own.
PicturePointer MakePicture(const SourcePointer& source);
PaintedPointer Paint(const PicturePlan& plan);
/// The same over a picture of one's own.
PaintedPointer Paint(const PicturePointer& picture, const PicturePlan& plan);
std::unique_ptr<OrvDoc::Image> ImageOf(const PicturePlan& plan);
std::unique_ptr<OrvDoc::ImageMask> ImageMaskOf(const PicturePlan& plan);

/// A source that counts how often it was asked, and keeps nothing: each call for samples decodes anew, unless
/// somebody holds those of the call before.
class CountingSource : public OrvImg::PictureSource
{
public:
    explicit CountingSource(const PicturePlan& givenPlan) : plan(givenPlan), inner(MakeSource(givenPlan)) {}

    /// How often samples were decoded.
    int GetDecodes() const { return decodes; }

    BufferPointer GetPictureBuffer() const override;
    std::unique_ptr<OrvImg::PictureStream> GetPictureStream() const override;
    OrvImg::PictureStream::Type GetStreamType() const override { return inner->GetStreamType(); }
    TablePointer GetColorTable() const override { return inner->GetColorTable(); }
    const OrvImg::ColorSpace& GetColorSpace() const override { return inner->GetColorSpace(); }
    std::size_t GetWidth() const override { return inner->GetWidth(); }
    std::size_t GetHeight() const override { return inner->GetHeight(); }
    double GetXDpi() const override { return inner->GetXDpi(); }
    double GetYDpi() const override { return inner->GetYDpi(); }
    std::size_t GetBitsPerChannel() const override { return inner->GetBitsPerChannel(); }
    const std::vector<OrvImg::ChannelInfo>& GetChannelInfos() const override
    {
        return inner->GetChannelInfos();
    }
    std::shared_ptr<const Plexa::Compound> GetClippingPath() const override
    {
        return inner->GetClippingPath();
    }

private:
    PicturePlan plan;
    SourcePointer inner;
    mutable std::weak_ptr<const OrvImg::PictureBuffer> last;
    mutable int decodes = 0;
};

} // namespace HarrowSupport::Testing
