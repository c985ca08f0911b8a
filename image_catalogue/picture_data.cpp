#include "image_catalogue/picture_data.h"

#include <cstdint>
#include <utility>
#include <vector>

#include <orv_color/color_functions.h>
#include <orv_img/buffered_picture_source.h>

#include "image_catalogue/channels.h"
#include "image_catalogue/color_spaces.h"
#include "image_catalogue/decode_pair.h"
#include "image_catalogue/picture_samples.h"

namespace HarrowSupport::GenerateImage
{

namespace
{

constexpr double DotsPerInch = 300.0;

std::vector<OrvImg::ChannelInfo> MakeChannels(const TestCase& testCase)
{
    std::vector<OrvImg::ChannelInfo> channels;
    if (testCase.isImageMask)
        channels.emplace_back("None", OrvImg::ChannelInfo::ChannelType::Stencil,
                              std::array<double, 2>{0.0, 1.0});
    else
        channels =
            MakeChannelInfos(testCase.colorSpace.value(), testCase.maskKind == TestMaskKind::SoftMaskViaTB);
    if (!IsIndexedImage(testCase)) {
        for (OrvImg::ChannelInfo& channel : channels)
            channel.SetDecode(OrvColor::Concatenate(channel.GetDecode(), GetDecodePair(testCase.decode)));
    }
    return channels;
}

} // namespace

std::shared_ptr<const OrvImg::PictureData> MakePictureData(const OrvDoc::Document& document,
                                                           const TestCase& testCase, bool flat)
{
    PictureSamples samples = flat ? MakeFlatPictureBuffer(testCase) : MakeRampPictureBuffer(testCase);
    const OrvImg::ColorSpace space =
        testCase.isImageMask ? OrvImg::ColorSpace()
                             : MakeColorSpace(static_cast<std::uint32_t>(testCase.colorSpace.value()));
    const auto source = std::make_shared<const OrvImg::BufferedPictureSource>(
        std::move(samples.buffer), space, MakeChannels(testCase), std::move(samples.table), DotsPerInch,
        DotsPerInch, nullptr);
    return OrvImg::PictureData::Factory(document, source).Get();
}

} // namespace HarrowSupport::GenerateImage
