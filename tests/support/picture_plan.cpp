#include "picture_plan.h"

#include "document_makers.h"

#include <orv_img/picture_stream.h>

#include <algorithm>

namespace HarrowSupport::Testing
{

namespace
{

/// Pictures belong to a document, and it does not matter to which one.
const OrvDoc::Document& AnyDocument()
{
    static const std::unique_ptr<OrvDoc::Document> document = NewDocument();
    return *document;
}

BufferPointer BufferOf(const PicturePlan& plan)
{
    return MakeBuffer(plan.width, plan.height, plan.table != nullptr ? 1 : plan.channels.size(), plan.bits,
                      plan.samples);
}

} // namespace

void PutSample(unsigned char* row, std::size_t index, std::size_t bits, unsigned sample)
{
    for (std::size_t bit = 0; bit < bits; ++bit) {
        const std::size_t place = index * bits + bit;
        const unsigned mask = 0x80u >> place % 8;
        const bool isSet = (sample >> (bits - 1 - bit) & 1u) != 0;
        row[place / 8] = static_cast<unsigned char>(isSet ? row[place / 8] | mask : row[place / 8] & ~mask);
    }
}

BufferPointer MakeBuffer(std::size_t width, std::size_t height, std::size_t channels, std::size_t bits,
                         const Samples& samples)
{
    OrvImg::PictureBuffer::Factory factory(width, height, channels, bits);
    const std::size_t perRow = width * channels;
    for (std::size_t i = 0; i < std::min(samples.size(), perRow * height); ++i)
        PutSample(factory.GetRowPtr(i / perRow), i % perRow, bits, samples[i]);
    return factory.GetResult();
}

OrvImg::ChannelInfo ColorChannel(const std::string& name, const Range& decode)
{
    return OrvImg::ChannelInfo(name, OrvImg::ChannelInfo::ChannelType::Color, decode);
}

OrvImg::ChannelInfo AlphaChannel(const Range& decode)
{
    return OrvImg::ChannelInfo("Alpha", OrvImg::ChannelInfo::ChannelType::Alpha, decode);
}

OrvImg::ChannelInfo StencilChannel(const Range& decode)
{
    return OrvImg::ChannelInfo("None", OrvImg::ChannelInfo::ChannelType::Stencil, decode);
}

ChannelPlace ChannelAt(std::size_t index, const Range& decode)
{
    ChannelPlace place;
    place.index = index;
    place.decode = decode;
    return place;
}

ChannelMap Places(std::initializer_list<std::pair<const char*, ChannelPlace>> entries, bool overprint)
{
    ChannelMap mapping;
    for (const auto& entry : entries)
        mapping.Add(entry.first, entry.second);
    mapping.overprint = overprint;
    return mapping;
}

ChannelMap PlaceForAll(const ChannelPlace& place)
{
    ChannelMap mapping;
    mapping.all = true;
    mapping.valueForAll = place;
    return mapping;
}

TablePointer MakeTable(std::size_t channels, const std::vector<unsigned char>& bytes, const Range& decode)
{
    return std::make_shared<OrvImg::ColorTable>(bytes.data(), bytes.size() / channels, channels, 8, decode);
}

PicturePlan MaskPlan(Samples samples)
{
    PicturePlan plan;
    plan.samples = std::move(samples);
    plan.space = OrvImg::DeviceGray();
    plan.channels = {ColorChannel("Gray")};
    return plan;
}

PicturePlan StencilPlan(std::size_t width, std::size_t height, Samples samples)
{
    PicturePlan plan;
    plan.width = width;
    plan.height = height;
    plan.bits = 1;
    plan.samples = std::move(samples);
    plan.channels = {StencilChannel()};
    return plan;
}

PicturePlan PlanIn(const OrvImg::ColorSpace& space, std::vector<OrvImg::ChannelInfo> extra)
{
    PicturePlan plan;
    plan.space = space;
    plan.channels = OrvImg::GetChannelInfosForColorSpace(space);
    plan.channels.insert(plan.channels.end(), extra.begin(), extra.end());
    plan.samples.clear();
    for (unsigned i = 0; i < plan.width * plan.height * plan.channels.size(); ++i)
        plan.samples.push_back(10 + 7 * i);
    return plan;
}

PicturePlan SoftMasked(PicturePlan plan, const PicturePlan& mask, const ChannelPlace& place)
{
    plan.maskKind = OrvImg::MaskKind::SoftMask;
    plan.mask = MakePicture(mask);
    plan.maskPlace = place;
    return plan;
}

PicturePlan StencilMasked(PicturePlan plan, const PicturePlan& mask)
{
    plan.maskKind = OrvImg::MaskKind::StencilMask;
    plan.mask = MakePicture(mask);
    return plan;
}

SourcePointer MakeSource(const PicturePlan& plan)
{
    return std::make_shared<OrvImg::BufferedPictureSource>(BufferOf(plan), plan.space, plan.channels,
                                                           plan.table, 72.0, 72.0, nullptr);
}

PicturePointer MakePicture(const PicturePlan& plan)
{
    OrvImg::PictureData::Factory factory(AnyDocument(), MakeSource(plan));
    if (plan.link)
        factory.SetLink(*plan.link);
    return factory.Get();
}

PicturePointer MakePicture(const SourcePointer& source)
{
    return OrvImg::PictureData::Factory(AnyDocument(), source).Get();
}

PaintedPointer Paint(const PicturePlan& plan)
{
    return Paint(MakePicture(plan), plan);
}

PaintedPointer Paint(const PicturePointer& picture, const PicturePlan& plan)
{
    OrvImg::PaintedPicture::Factory factory(AnyDocument(), picture, plan.overprint);
    if (plan.mapping)
        factory.SetChannelMapping(*plan.mapping);
    factory.SetMaskKind(plan.maskKind).SetMaskData(plan.mask).SetSoftMaskMapping(plan.maskPlace);
    return factory.SetRenderingIntent(plan.intent).Get();
}

std::unique_ptr<OrvDoc::Image> ImageOf(const PicturePlan& plan)
{
    return std::make_unique<OrvDoc::Image>(Paint(plan));
}

std::unique_ptr<OrvDoc::ImageMask> ImageMaskOf(const PicturePlan& plan)
{
    return std::make_unique<OrvDoc::ImageMask>(MakePicture(plan));
}

BufferPointer CountingSource::GetPictureBuffer() const
{
    BufferPointer buffer = last.lock();
    if (buffer == nullptr) {
        ++decodes;
        buffer = BufferOf(plan);
        last = buffer;
    }
    return buffer;
}

std::unique_ptr<OrvImg::PictureStream> CountingSource::GetPictureStream() const
{
    return inner->GetPictureStream();
}

} // namespace HarrowSupport::Testing
