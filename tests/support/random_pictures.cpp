#include "support/random_pictures.h"

#include "support/random_objects.h"
#include "support/random_states.h"

#include <orv_color/gen_color_profiles.h>
#include <orv_doc/halftone_set.h>

#include <algorithm>
#include <string>
#include <utility>

namespace HarrowSupport::Testing
{

namespace
{

using OrvImg::ChannelInfo;
using OrvImg::MaskKind;
using OrvImg::PaintedPicture;
using OrvImg::PictureBuffer;
using OrvImg::PictureData;
using Random = std::mt19937;

constexpr std::size_t depths[] = {1, 2, 4, 8, 16};

std::size_t Below(std::size_t bound, Random& random)
{
    return random() % bound;
}

Range RandomDecode(Random& random)
{
    const auto number = [&random] { return static_cast<double>(random() % 1001) / 1000.0; };
    switch (random() % 6) {
    case 0:
        return inverted;
    case 1:
        return {0.0, 0.5};
    case 2: {
        const double low = number();
        return {low, number()};
    }
    default:
        return identity;
    }
}

/// Whole rows of noise, or rows that a filter makes short; the bits behind the last sample are zero.
BufferPointer RandomBuffer(std::size_t width, std::size_t height, std::size_t channels, std::size_t bits,
                           std::size_t values, Random& random)
{
    PictureBuffer::Factory factory(width, height, channels, bits);
    const bool isPlain = random() % 4 == 0;
    for (std::size_t row = 0; row < height; ++row) {
        for (std::size_t index = 0; index < width * channels; ++index) {
            const auto sample = static_cast<unsigned>(isPlain ? row % values : Below(values, random));
            PutSample(factory.GetRowPtr(row), index, bits, sample);
        }
    }
    return factory.GetResult();
}

OrvImg::ColorSpace RandomPictureSpace(Random& random)
{
    const OrvColor::GenColorProfiles& profiles = OrvColor::GenColorProfiles::Instance();
    switch (random() % 9) {
    case 0:
        return OrvImg::DeviceGray();
    case 1:
        return OrvImg::DeviceRGB();
    case 2: {
        OrvImg::CalGray space;
        space.gamma = 1.0 + static_cast<double>(random() % 200) / 97.0;
        return space;
    }
    case 3: {
        OrvImg::CalRGB space;
        space.gamma = {2.2, 1.0 + static_cast<double>(random() % 10) / 9.0, 1.8};
        return space;
    }
    case 4: {
        OrvImg::Lab space;
        space.range = {-100.0, 99.5, -static_cast<double>(1 + random() % 128), 127.0};
        return space;
    }
    case 5:
        return profiles.GetDefaultRgbProfile(true);
    case 6:
        return profiles.GetDefaultCmykProfile(true);
    default:
        return OrvImg::DeviceN();
    }
}

/// A separation looks the same wherever it is named, as documents list each once.
ChannelInfo SeparationChannel(const std::string& name, const Range& decode)
{
    ChannelInfo channel = ColorChannel(name, decode);
    if (name == "Copper") {
        OrvColor::Representation look;
        look.SetCmyk({0.0F, 0.5F, 0.75F, 0.25F});
        channel.SetRepresentation(look);
    }
    return channel;
}

std::vector<ChannelInfo> RandomChannels(const OrvImg::ColorSpace& space, Random& random)
{
    static const std::vector<std::vector<std::string>> names = {
        {"Cyan", "Magenta", "Yellow", "Black"},
        {"Black"},
        {"All"},
        {"None"},
        {"Copper"},
        {"Copper", "None"},
        {"Silver", "Copper", "Cyan"},
        {"A name (with) <odd> bytes \xC3\xA9 #/%", "Black"},
        {"Black", "Yellow", "Magenta", "Cyan", "Copper", "Silver"}};
    std::vector<ChannelInfo> channels = OrvImg::GetChannelInfosForColorSpace(space);
    const bool isPlain = random() % 2 == 0;
    for (ChannelInfo& channel : channels) {
        channel.SetDecode(isPlain ? identity : RandomDecode(random));
    }
    if (channels.empty()) {
        for (const std::string& name : names[random() % names.size()]) {
            channels.push_back(SeparationChannel(name, isPlain ? identity : RandomDecode(random)));
        }
    }
    return channels;
}

std::vector<ChannelInfo> RandomExtraChannels(const OrvImg::ColorSpace& space, Random& random)
{
    std::vector<ChannelInfo> channels;
    if (random() % 2 == 0) {
        channels.push_back(AlphaChannel(RandomDecode(random)));
    }
    // Among separations a colour channel would be one more of them.
    const bool isSeparations = boost::get<OrvImg::DeviceN>(&space) != nullptr;
    if ((!isSeparations || !channels.empty()) && random() % 3 == 0) {
        channels.push_back(SeparationChannel("Silver", RandomDecode(random)));
    }
    return channels;
}

TablePointer RandomTable(std::size_t channels, std::size_t bits, Random& random)
{
    const std::size_t entries = 1 + Below(std::size_t(1) << bits, random);
    std::vector<unsigned char> bytes(entries * channels);
    for (unsigned char& byte : bytes) {
        byte = static_cast<unsigned char>(random());
    }
    return MakeTable(channels, bytes, random() % 3 == 0 ? RandomDecode(random) : identity);
}

OrvImg::PictureLink RandomLink(Random& random)
{
    static const std::vector<std::string> names = {"pictures/leaf.tif", "http://example.com/a%20b.tif",
                                                   "name (with) brackets.eps"};
    OrvImg::PictureLink link;
    link.uri = names[random() % names.size()];
    return link;
}

std::vector<std::array<std::size_t, 2>> RandomColorKey(const PictureData& picture, Random& random)
{
    const auto& source = *picture.GetPictureSource();
    const std::size_t highest = (std::size_t(1) << source.GetBitsPerChannel()) - 1;
    std::vector<std::array<std::size_t, 2>> key(source.GetColorTable() ? 1
                                                                       : picture.GetChannelInfos().size());
    for (std::array<std::size_t, 2>& range : key) {
        range = {Below(highest + 1, random), Below(highest + 1, random)};
        std::sort(range.begin(), range.end());
    }
    return key;
}

bool HasExtraChannels(const PictureData& picture)
{
    const auto& source = *picture.GetPictureSource();
    const std::vector<ChannelInfo>& channels = source.GetChannelInfos();
    const std::size_t standard = OrvImg::GetChannelInfosForColorSpace(source.GetColorSpace()).size();
    return std::any_of(channels.begin(), channels.end(),
                       [](const ChannelInfo& channel) {
                           return channel.GetType() == ChannelInfo::ChannelType::Alpha;
                       }) ||
           (standard > 0 && channels.size() > standard);
}

/// An element that is there already, for one in `rarity`; null otherwise.
template <typename Pointer>
Pointer Again(const std::vector<Pointer>& pool, unsigned rarity, Random& random)
{
    return !pool.empty() && random() % rarity == 0 ? pool[random() % pool.size()] : nullptr;
}

void SetRandomPlace(OrvDoc::Blendable& object, Random& random)
{
    object.SetTransformation(RandomMatrix(random));
    SetRandomBlending(object, random);
    if (random() % 8 == 0) {
        object.SetName(RandomName(random));
    }
}

} // namespace

PicturePointer RandomPictures::NextPicture(Random& random)
{
    if (const PicturePointer known = Again(pictures, 4, random)) {
        return known;
    }
    const OrvImg::ColorSpace space = RandomPictureSpace(random);
    std::vector<ChannelInfo> channels = RandomChannels(space, random);
    std::size_t bits = depths[random() % 5];
    TablePointer table;
    if (bits < 16 && random() % 4 == 0) {
        for (ChannelInfo& channel : channels) {
            channel.SetDecode(identity);
        }
        table = RandomTable(channels.size(), bits, random);
    } else if (random() % 3 == 0) {
        const std::vector<ChannelInfo> extra = RandomExtraChannels(space, random);
        channels.insert(channels.end(), extra.begin(), extra.end());
    }
    const std::size_t width = 1 + Below(9, random);
    const std::size_t height = 1 + Below(5, random);
    const double resolution = random() % 2 == 0 ? 0.0 : 72.0 + static_cast<double>(random() % 1000) / 7.0;
    const auto source = std::make_shared<OrvImg::BufferedPictureSource>(
        RandomBuffer(width, height, table ? 1 : channels.size(), bits, std::size_t(1) << bits, random), space,
        channels, table, resolution, resolution, nullptr);
    PictureData::Factory factory(document, source);
    if (random() % 6 == 0) {
        factory.SetLink(RandomLink(random));
    }
    pictures.push_back(factory.Get());
    return pictures.back();
}

PicturePointer RandomPictures::NextSoftMask(const PictureData& picture, Random& random)
{
    if (const PicturePointer known = Again(softMasks, 4, random)) {
        return known;
    }
    const bool isBlended =
        random() % 6 == 0 && !picture.GetPictureSource()->GetColorTable() && !HasExtraChannels(picture);
    const std::size_t width = isBlended ? picture.GetWidth() : 1 + Below(9, random);
    const std::size_t height = isBlended ? picture.GetHeight() : 1 + Below(5, random);
    const std::size_t bits = depths[random() % 5];
    const auto source = std::make_shared<OrvImg::BufferedPictureSource>(
        RandomBuffer(width, height, 1, bits, std::size_t(1) << bits, random), OrvImg::DeviceGray(),
        OrvImg::GetChannelInfosForColorSpace(OrvImg::DeviceGray()), nullptr, 0.0, 0.0, nullptr);
    PictureData::Factory factory(document, source);
    if (isBlended) {
        std::vector<double> matte;
        while (matte.size() < picture.GetChannelInfos().size()) {
            matte.push_back(static_cast<double>(random() % 9) / 8.0);
        }
        return factory.SetMatte(std::move(matte)).Get();
    }
    softMasks.push_back(factory.Get());
    return softMasks.back();
}

PicturePointer RandomPictures::NextStencil(Random& random)
{
    if (const PicturePointer known = Again(stencils, 3, random)) {
        return known;
    }
    const std::size_t width = 1 + Below(9, random);
    const auto source = std::make_shared<OrvImg::BufferedPictureSource>(
        RandomBuffer(width, 1 + Below(5, random), 1, 1, 2, random), OrvImg::DeviceN(),
        std::vector<ChannelInfo>{StencilChannel(random() % 2 == 0 ? identity : inverted)}, nullptr, 0.0, 0.0,
        nullptr);
    PictureData::Factory factory(document, source);
    stencils.push_back(factory.Get());
    return stencils.back();
}

void RandomPictures::SetRandomMask(PaintedPicture::Factory& factory, const PicturePointer& picture,
                                   Random& random)
{
    const bool hasAlpha = picture->GetDefaultSoftMaskMapping().index != OrvColor::Unmapped;
    switch (random() % 6) {
    case 0:
        factory.SetMaskKind(MaskKind::SoftMask)
            .SetMaskData(NextSoftMask(*picture, random))
            .SetSoftMaskMapping(ChannelAt(0, RandomDecode(random)));
        return;
    case 1:
        factory.SetMaskKind(MaskKind::StencilMask).SetMaskData(NextStencil(random));
        return;
    case 2:
        if (!HasExtraChannels(*picture)) {
            factory.SetMaskKind(MaskKind::ColorKey).SetColorKey(RandomColorKey(*picture, random));
            return;
        }
        break;
    default:
        break;
    }
    if (hasAlpha && random() % 3 != 0) {
        factory.SetMaskKind(MaskKind::SoftMask)
            .SetMaskData(picture)
            .SetSoftMaskMapping(picture->GetDefaultSoftMaskMapping());
    }
}

PaintedPointer RandomPictures::NextPainted(Random& random)
{
    if (const PaintedPointer known = Again(painted, 4, random)) {
        return known;
    }
    const PicturePointer picture = NextPicture(random);
    PaintedPicture::Factory factory(document, picture, random() % 3 == 0);
    SetRandomMask(factory, picture, random);
    if (random() % 2 == 0) {
        factory.SetRenderingIntent(static_cast<OrvColor::RenderingIntent>(random() % 4));
    }
    painted.push_back(factory.Get());
    return painted.back();
}

std::unique_ptr<OrvDoc::Image> RandomPictures::NextImage(Random& random)
{
    auto image = std::make_unique<OrvDoc::Image>(NextPainted(random));
    SetRandomPlace(*image, random);
    SetRandomHalftones(*image, random);
    return image;
}

std::unique_ptr<OrvDoc::ImageMask> RandomPictures::NextImageMask(Random& random)
{
    auto mask = std::make_unique<OrvDoc::ImageMask>(NextStencil(random));
    SetRandomPlace(*mask, random);
    if (random() % 6 != 0) {
        mask->SetFillPaint(RandomPaintOfAnyKind(random));
    }
    SetRandomHalftones(*mask, random);
    return mask;
}

} // namespace HarrowSupport::Testing
