#include "pdf/writer/pictures/pictures_writer.h"

#include <algorithm>
#include <sstream>
#include <utility>

#include <orv_img/buffered_picture_source.h>

#include "orv_img/sample_packing.h"
#include "pdf/opi_link.h"
#include "pdf/picture_keys.h"
#include "pdf/reader/pictures/file_picture.h"
#include "pdf/writer/file/object_maker.h"
#include "pdf/writer/pictures/picture_colors_writer.h"
#include "pdf/writer/pictures/picture_problems.h"

namespace OrvPdf
{

namespace
{

using OrvColor::RenderingIntent;
using OrvImg::MaskKind;
using OrvImg::PaintedPicture;
using OrvImg::PictureBuffer;
using OrvImg::PictureData;
using OrvImg::PictureSource;
using OrvSys::PdfObject;
using Entries = PdfObject::Entries;

PdfObject MakeInteger(std::size_t value)
{
    return PdfObject::Integer(static_cast<std::int64_t>(value));
}

std::string GetIntentName(RenderingIntent intent)
{
    std::ostringstream name;
    name << intent;
    return name.str();
}

const FilePicture* FindFilePicture(const PictureData& data)
{
    return dynamic_cast<const FilePicture*>(data.GetPictureSource().get());
}

/// Rows of these channels alone.
std::shared_ptr<const PictureBuffer> Extract(const PictureBuffer& buffer, std::size_t first,
                                             std::size_t count)
{
    PictureBuffer::Factory factory(buffer.width, buffer.height, count, buffer.bitsPerChannel);
    for (std::size_t row = 0; row < buffer.height; ++row) {
        const unsigned char* const samples = buffer.GetRowPtr(row);
        unsigned char* const target = factory.GetRowPtr(row);
        for (std::size_t column = 0; column < buffer.width; ++column) {
            for (std::size_t channel = 0; channel < count; ++channel) {
                OrvImg::Detail::WriteSample(
                    target, column * count + channel, buffer.bitsPerChannel,
                    OrvImg::Detail::ReadSample(samples, column * buffer.channels + first + channel,
                                               buffer.bitsPerChannel));
            }
        }
    }
    return factory.GetResult();
}

std::string_view GetRows(const PictureBuffer& buffer)
{
    return {reinterpret_cast<const char*>(buffer.GetRowPtr(0)), buffer.GetBytesPerRow() * buffer.height};
}

/// The whole picture of a file with other entries in its dictionary. Null if it can't be copied.
PdfObject CopyOfFile(const PictureData& data)
{
    std::string problem;
    const FilePicture* const picture = FindFilePicture(data);
    return picture ? picture->Convert(problem) : PdfObject();
}

PdfObject Replace(const PdfObject& stream, Entries entries)
{
    return PdfObject::Stream(PdfObject::Dictionary(std::move(entries)), stream.GetRawBytes());
}

/// The same samples with channels that are named for what they stand for.
std::shared_ptr<const PictureData> Rename(const PaintedPicture& picture, const OrvDoc::Document& document,
                                          std::shared_ptr<const PictureBuffer> samples)
{
    const PictureData& data = *picture.GetPictureData(false);
    const PictureSource& source = *data.GetPictureSource();
    PictureData::Factory factory(document, std::make_shared<const OrvImg::BufferedPictureSource>(
                                               std::move(samples), OrvImg::DeviceN(), *NameByMapping(picture),
                                               nullptr, source.GetXDpi(), source.GetYDpi(), nullptr));
    if (data.GetLink()) {
        factory.SetLink(*data.GetLink());
    }
    return factory.Get();
}

PdfObject MakeColorKey(const std::vector<std::array<std::size_t, 2>>& key)
{
    PdfObject::Items items;
    for (const std::array<std::size_t, 2>& range : key) {
        items.push_back(MakeInteger(range[0]));
        items.push_back(MakeInteger(range[1]));
    }
    return PdfObject::Array(std::move(items));
}

PdfObject MakeMatte(const std::vector<double>& matte)
{
    PdfObject::Items items;
    for (const double component : matte) {
        items.push_back(PdfObject::Real(component));
    }
    return items.empty() ? PdfObject() : PdfObject::Array(std::move(items));
}

/// Samples of 16 bits and JPEG 2000 came with PDF 1.5.
bool IsOfVersion15(QPDFObjectHandle object)
{
    if (!object.isStream()) {
        return false;
    }
    QPDFObjectHandle bits = object.getDict().getKey("/BitsPerComponent");
    return (bits.isInteger() && bits.getIntValue() > 8) ||
           object.getDict().getKey("/Filter").unparse().find("/JPXDecode") != std::string::npos;
}

} // namespace

QPDFObjectHandle PicturesWriter::Get(const UsedPicture& picture)
{
    QPDFObjectHandle& object =
        picture.painted ? pictures[picture.painted.get()] : stencils[picture.stencil.get()];
    if (!object.isInitialized()) {
        kept.push_back(picture);
        object = picture.painted ? Make(*picture.painted) : MakeStencil(*picture.stencil);
        NoteVersion(object);
    }
    return object;
}

void PicturesWriter::NoteVersion(QPDFObjectHandle object)
{
    if (IsOfVersion15(object) || IsOfVersion15(object.getDict().getKey("/SMask"))) {
        version = "1.5";
    }
}

QPDFObjectHandle PicturesWriter::FindKept(const FilePicture& picture)
{
    return source ? maker.FindSourceObject(picture.GetObjectNumber(*source)) : QPDFObjectHandle::newNull();
}

QPDFObjectHandle PicturesWriter::Make(const PaintedPicture& picture)
{
    const PictureData& data = *picture.GetPictureData(false);
    const RenderingIntent intent = picture.GetRenderingIntent();
    if (const FilePicture* const ofFile = FindFilePicture(data)) {
        const bool saysIntent =
            ofFile->GetOwnIntent().value_or(RenderingIntent::RelativeColorimetric) == intent;
        QPDFObjectHandle object = FindKept(*ofFile);
        if (saysIntent && object.isStream() && IsAsInFile(picture)) {
            return object;
        }
    }
    const PdfObject stream =
        HasDefaultMapping(picture)
            ? MakePlain(data)
            : MakePlain(*Rename(picture, document, GetSamples(*data.GetPictureSource())));
    Entries entries = stream.GetEntries();
    if (!FindFilePicture(data) || !IsAsInFile(picture)) {
        SetMask(entries, picture);
    }
    entries["Intent"] = PdfObject::Name(GetIntentName(intent));
    return maker.MakeShared(Replace(stream, std::move(entries)));
}

QPDFObjectHandle PicturesWriter::MakeStencil(const PictureData& data)
{
    if (const FilePicture* const ofFile = FindFilePicture(data)) {
        QPDFObjectHandle object = FindKept(*ofFile);
        if (object.isStream()) {
            return object;
        }
    }
    return maker.MakeShared(MakeStencilStream(data));
}

Entries PicturesWriter::BeginEntries(const PictureData& data) const
{
    const PictureSource& picture = *data.GetPictureSource();
    Entries entries = {{"Type", PdfObject::Name("XObject")},
                       {"Subtype", PdfObject::Name("Image")},
                       {"Width", MakeInteger(picture.GetWidth())},
                       {"Height", MakeInteger(picture.GetHeight())},
                       {"BitsPerComponent", MakeInteger(picture.GetBitsPerChannel())},
                       {"ColorSpace", PdfObject::Name("DeviceGray")}};
    if (data.GetLink()) {
        const OrvImg::PictureLink& link = *data.GetLink();
        entries["OPI"] = link.definition.IsNull() ? MakeOpiDictionary(link.uri) : link.definition;
    }
    if (picture.GetXDpi() != 0.0 || picture.GetYDpi() != 0.0) {
        entries[PictureKeys::dpi] = MakeRange({picture.GetXDpi(), picture.GetYDpi()});
    }
    return entries;
}

std::shared_ptr<const PictureBuffer> PicturesWriter::GetSamples(const PictureSource& picture)
{
    auto samples = picture.GetPictureBuffer();
    const auto* const ofFile = dynamic_cast<const FilePicture*>(&picture);
    if (ofFile && !(source && ofFile->IsFrom(*source))) {
        std::string problem = ofFile->GetDamage();
        if (!problem.empty() && std::find(problems.begin(), problems.end(), problem) == problems.end()) {
            problems.push_back(std::move(problem));
        }
    }
    return samples;
}

PdfObject PicturesWriter::MakeStream(Entries entries, const PictureData& data, std::size_t firstChannel,
                                     std::size_t count)
{
    auto buffer = GetSamples(*data.GetPictureSource());
    if (firstChannel != 0 || count != buffer->channels) {
        buffer = Extract(*buffer, firstChannel, count);
    }
    entries["Filter"] = PdfObject::Name("FlateDecode");
    return PdfObject::Stream(PdfObject::Dictionary(std::move(entries)),
                             compressor.Compress(GetRows(*buffer)));
}

PdfObject PicturesWriter::MakePlain(const PictureData& data)
{
    PdfObject copy = CopyOfFile(data);
    if (copy.IsStream()) {
        return copy;
    }
    const PictureSource& picture = *data.GetPictureSource();
    const std::size_t colors = CountColorChannels(picture);
    Entries entries = BeginEntries(data);
    entries["ColorSpace"] = MakePictureSpace(picture, separations);
    entries["Decode"] = MakePictureDecode(picture);
    const std::vector<OrvImg::ChannelInfo>& channels = picture.GetChannelInfos();
    PdfObject::Items extra;
    for (std::size_t channel = colors; !picture.GetColorTable() && channel < channels.size(); ++channel) {
        extra.push_back(PdfObject::Dictionary(
            {{PictureKeys::channelName, PdfObject::String(channels[channel].GetName())},
             {PictureKeys::channelType,
              PdfObject::Integer(static_cast<std::int64_t>(channels[channel].GetType()))},
             {PictureKeys::channelPicture, MakeChannel(data, channel)}}));
    }
    if (!extra.empty()) {
        entries[PictureKeys::channels] = PdfObject::Array(std::move(extra));
    }
    return MakeStream(std::move(entries), data, 0, picture.GetColorTable() ? 1 : colors);
}

PdfObject PicturesWriter::MakeChannel(const PictureData& data, std::size_t channel)
{
    Entries entries = BeginEntries(data);
    entries.erase("OPI");
    entries["Decode"] = MakeRange(data.GetPictureSource()->GetChannelInfos()[channel].GetDecode());
    return MakeStream(std::move(entries), data, channel, 1);
}

PdfObject PicturesWriter::MakeSoftMask(const PictureData& data, const Value& mapping)
{
    const bool isSingle = data.GetPictureSource()->GetChannelInfos().size() == 1;
    const PdfObject copy = isSingle ? CopyOfFile(data) : PdfObject();
    Entries entries = copy.IsStream() ? copy.GetEntries() : BeginEntries(data);
    for (const char* const key : {"Mask", "SMask", "SMaskInData", "Intent"}) {
        entries.erase(key);
    }
    entries["ColorSpace"] = PdfObject::Name("DeviceGray");
    entries["Decode"] = MakeRange(mapping.decode);
    entries["Matte"] = MakeMatte(data.GetMatte());
    return copy.IsStream() ? Replace(copy, std::move(entries))
                           : MakeStream(std::move(entries), data, mapping.index, 1);
}

PdfObject PicturesWriter::MakeStencilStream(const PictureData& data)
{
    const PdfObject copy = CopyOfFile(data);
    if (copy.IsStream()) {
        return copy;
    }
    Entries entries = BeginEntries(data);
    entries.erase("ColorSpace");
    entries["ImageMask"] = PdfObject::Boolean(true);
    const std::array<double, 2>& decode = data.GetPictureSource()->GetChannelInfos().front().GetDecode();
    if (decode != std::array<double, 2>{0.0, 1.0}) {
        entries["Decode"] = MakeRange(decode);
    }
    return MakeStream(std::move(entries), data, 0, 1);
}

void PicturesWriter::SetMask(Entries& entries, const PaintedPicture& picture)
{
    const auto& data = picture.GetPictureData(false);
    const auto& mask = picture.GetMaskData(false);
    entries.erase("Mask");
    entries.erase("SMask");
    if (picture.GetMaskKind(false) != MaskKind::SoftMask || mask != data) {
        entries.erase("SMaskInData");
    }
    switch (picture.GetMaskKind(false)) {
    case MaskKind::SoftMask:
        if (mask != data) {
            entries["SMask"] = MakeSoftMask(*mask, picture.GetSoftMaskMapping(false));
        } else if (entries.count(PictureKeys::channels) > 0) {
            for (const PdfObject& channel : entries[PictureKeys::channels].GetItems()) {
                if (entries["SMask"].IsNull() && channel.Find(PictureKeys::channelType).IsInteger() &&
                    channel.Find(PictureKeys::channelType).GetInteger() == 1) {
                    entries["SMask"] = channel.Find(PictureKeys::channelPicture);
                }
            }
        }
        break;
    case MaskKind::StencilMask:
        entries["Mask"] = MakeStencilStream(*mask);
        break;
    case MaskKind::ColorKey:
        entries["Mask"] = MakeColorKey(picture.GetColorKey(false));
        break;
    case MaskKind::None:
        break;
    }
}

} // namespace OrvPdf
