#include "pdf/reader/pictures/pdf_picture.h"

#include <utility>

#include "orv_img/sample_packing.h"
#include "orv_img/samples_stream.h"
#include "pdf/reader/file/source_file.h"
#include "pdf/reader/pictures/sample_cache.h"

namespace OrvPdf
{

namespace
{

using OrvImg::PictureBuffer;
using OrvImg::PictureStream;
using OrvSys::PdfObject;
using Samples = std::shared_ptr<const PictureBuffer>;

class EncodedPictureStream : public PictureStream
{
public:
    EncodedPictureStream(Type givenType, DecodedBytes givenBytes)
        : type(givenType), bytes(std::move(givenBytes))
    {}

    Type GetType() const override { return type; }
    std::string_view GetBytes() const override { return bytes.View(); }

private:
    Type type;
    DecodedBytes bytes;
};

/// Pixels that have the channels of all of these, which are of one size and depth.
Samples Join(const std::vector<Samples>& parts)
{
    const PictureBuffer& first = *parts.front();
    std::size_t channels = 0;
    for (const Samples& part : parts) {
        channels += part->channels;
    }
    PictureBuffer::Factory factory(first.width, first.height, channels, first.bitsPerChannel);
    for (std::size_t row = 0; row < first.height; ++row) {
        unsigned char* const target = factory.GetRowPtr(row);
        std::size_t offset = 0;
        for (const Samples& part : parts) {
            const unsigned char* const source = part->GetRowPtr(row);
            for (std::size_t column = 0; column < first.width; ++column) {
                for (std::size_t channel = 0; channel < part->channels; ++channel) {
                    OrvImg::Detail::WriteSample(
                        target, column * channels + offset + channel, first.bitsPerChannel,
                        OrvImg::Detail::ReadSample(source, column * part->channels + channel,
                                                   first.bitsPerChannel));
                }
            }
            offset += part->channels;
        }
    }
    return factory.GetResult();
}

} // namespace

PdfPicture::PdfPicture(std::shared_ptr<const SourceFile> givenFile, std::shared_ptr<SampleCache> givenCache,
                       std::shared_ptr<const PictureOrigin> givenOrigin, PictureDescription givenDescription)
    : file(std::move(givenFile)),
      cache(std::move(givenCache)),
      origin(std::move(givenOrigin)),
      about(std::move(givenDescription))
{}

std::shared_ptr<const PictureBuffer> PdfPicture::GetPictureBuffer() const
{
    const std::lock_guard<std::mutex> lock(mutex);
    if (auto buffer = known.lock()) {
        return buffer;
    }
    auto buffer = Decode();
    known = buffer;
    cache->Keep(buffer);
    return buffer;
}

std::shared_ptr<const PictureBuffer> PdfPicture::Decode() const
{
    const PictureShape& shape = about.shape;
    std::vector<Samples> parts;
    if (about.isUndecodable) {
        parts.push_back(
            PictureBuffer::Factory(shape.width, shape.height, shape.channels, shape.bits).GetResult());
    } else {
        std::string problem;
        parts.push_back(DecodePicture(*file, origin->Fetch(), shape, problem));
        Tell(problem);
    }
    for (const auto& channel : about.extraChannels) {
        parts.push_back(channel->GetPictureBuffer());
    }
    return parts.size() == 1 ? parts.front() : Join(parts);
}

void PdfPicture::Tell(const std::string& problem) const
{
    if (problem.empty() || !damage.empty()) {
        return;
    }
    damage = problem;
    file->Tell("the picture in " + origin->Describe() + ": " + problem);
}

std::string PdfPicture::GetDamage() const
{
    const std::lock_guard<std::mutex> lock(mutex);
    if (!damage.empty()) {
        return "the picture in " + origin->Describe() + " of " + file->GetPath().string() + ": " + damage;
    }
    for (const auto& channel : about.extraChannels) {
        std::string problem = channel->GetDamage();
        if (!problem.empty()) {
            return problem;
        }
    }
    return {};
}

std::unique_ptr<PictureStream> PdfPicture::GetPictureStream() const
{
    if (GetStreamType() == PictureStream::Type::Samples) {
        return OrvImg::Detail::MakeSamplesStream(GetPictureBuffer());
    }
    return std::make_unique<EncodedPictureStream>(about.type,
                                                  std::move(UndoByteFilters(*file, origin->Fetch()).bytes));
}

PictureStream::Type PdfPicture::GetStreamType() const
{
    return about.extraChannels.empty() ? about.type : PictureStream::Type::Samples;
}

bool PdfPicture::IsStoredLike(const StoredSamples& other) const
{
    const auto* const picture = dynamic_cast<const PdfPicture*>(&other);
    if (!picture) {
        return false;
    }
    const PictureDescription& left = about;
    const PictureDescription& right = picture->about;
    const bool isSameShape =
        left.shape.width == right.shape.width && left.shape.height == right.shape.height &&
        left.shape.channels == right.shape.channels && left.shape.bits == right.shape.bits;
    if (!isSameShape || left.filters != right.filters ||
        left.extraChannels.size() != right.extraChannels.size()) {
        return false;
    }
    for (std::size_t index = 0; index < left.extraChannels.size(); ++index) {
        if (!left.extraChannels[index]->IsStoredLike(*right.extraChannels[index])) {
            return false;
        }
    }
    if (origin == picture->origin) {
        return true;
    }
    const EncodedStream mine = origin->Fetch();
    const EncodedStream theirs = picture->origin->Fetch();
    return mine.raw && theirs.raw && mine.View() == theirs.View();
}

int PdfPicture::GetObjectNumber(const SourceFile& other) const
{
    return about.mayStand ? origin->GetObjectNumber(other) : 0;
}

PdfObject PdfPicture::Convert(std::string& problem) const
{
    const PdfObject stream = origin->Convert(problem);
    if (!stream.IsStream() || !about.native) {
        return stream;
    }
    PdfObject::Entries entries = stream.GetEntries();
    entries["ColorSpace"] = about.native->GetDefinition();
    return PdfObject::Stream(PdfObject::Dictionary(std::move(entries)), stream.GetRawBytes());
}

} // namespace OrvPdf
