#include "pdf/reader/pictures/picture_decoding.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "orv_img/sample_packing.h"
#include "pdf/pictures/dct_decoder.h"
#include "pdf/pictures/dct_frame.h"
#include "pdf/pictures/fax_decoder.h"
#include "pdf/pictures/jpx_decoder.h"
#include "pdf/reader/file/filter_stage.h"
#include "pdf/reader/file/source_file.h"

namespace OrvPdf
{

namespace
{

using OrvImg::PictureBuffer;
using Type = OrvImg::PictureStream::Type;

void AddProblem(std::string& text, const std::string& more)
{
    if (!more.empty()) {
        text += (text.empty() ? "" : "; ") + more;
    }
}

std::size_t FindPictureFilter(const std::vector<FilterStage>& stages)
{
    const auto found = std::find_if(stages.begin(), stages.end(), [](const FilterStage& stage) {
        return stage.name != "Crypt" && !CanDecode(stage);
    });
    return static_cast<std::size_t>(found - stages.begin());
}

std::string GetSizeText(std::size_t width, std::size_t height)
{
    return std::to_string(width) + " by " + std::to_string(height);
}

bool FitsAsItIs(const Raster& raster, const PictureShape& shape, std::size_t bytesPerRow)
{
    return raster.width == shape.width && raster.channels == shape.channels && raster.bits == shape.bits &&
           raster.rows.GetSize() / std::max<std::size_t>(bytesPerRow, 1) >= shape.height;
}

std::shared_ptr<const PictureBuffer> Adopt(Raster raster, const PictureShape& shape)
{
    const auto owner = std::make_shared<DecodedBytes>(std::move(raster.rows));
    return PictureBuffer::Adopt(shape.width, shape.height, shape.channels, shape.bits,
                                std::shared_ptr<const unsigned char>(
                                    owner, reinterpret_cast<const unsigned char*>(owner->View().data())));
}

/// Copies the part that both have, sample by sample where rows differ in more than their number.
std::shared_ptr<const PictureBuffer> Copy(const Raster& raster, const PictureShape& shape)
{
    PictureBuffer::Factory factory(shape.width, shape.height, shape.channels, shape.bits);
    if (raster.bits != shape.bits || raster.channels == 0) {
        return factory.GetResult();
    }
    const std::size_t rowSize = PictureBuffer::BytesOfRow(raster.width, raster.channels, raster.bits);
    const auto* const bytes = reinterpret_cast<const unsigned char*>(raster.rows.View().data());
    const std::size_t available = raster.rows.GetSize();
    const bool isSameRow = raster.width == shape.width && raster.channels == shape.channels;
    const std::size_t columns = std::min(raster.width, shape.width);
    const std::size_t channels = std::min(raster.channels, shape.channels);
    for (std::size_t row = 0; row < shape.height && row * rowSize < available; ++row) {
        const unsigned char* const source = bytes + row * rowSize;
        const std::size_t size = std::min(rowSize, available - row * rowSize);
        unsigned char* const target = factory.GetRowPtr(row);
        if (isSameRow) {
            std::memcpy(target, source, size);
            continue;
        }
        const std::size_t wholeSamples = size * 8 / raster.bits;
        for (std::size_t column = 0; column < columns; ++column) {
            for (std::size_t channel = 0; channel < channels; ++channel) {
                const std::size_t index = column * raster.channels + channel;
                if (index < wholeSamples) {
                    OrvImg::Detail::WriteSample(target, column * shape.channels + channel, shape.bits,
                                                OrvImg::Detail::ReadSample(source, index, raster.bits));
                }
            }
        }
    }
    return factory.GetResult();
}

std::string CompareWithShape(const Raster& raster, const PictureShape& shape, bool mayHaveMore)
{
    if (raster.width == 0 || raster.height == 0) {
        return {};
    }
    std::string problem;
    if (raster.width != shape.width || raster.height != shape.height) {
        problem = "its data has " + GetSizeText(raster.width, raster.height) + " pixels instead of " +
                  GetSizeText(shape.width, shape.height);
    }
    const bool hasOtherChannels =
        mayHaveMore ? raster.channels < shape.channels : raster.channels != shape.channels;
    if (hasOtherChannels || raster.bits != shape.bits) {
        AddProblem(problem, "its data has " + std::to_string(raster.channels) + " channels of " +
                                std::to_string(raster.bits) + " bits instead of " +
                                std::to_string(shape.channels) + " of " + std::to_string(shape.bits));
    }
    return problem;
}

RasterLimits GetLimits(const SourceFile& file)
{
    const OrvDoc::ReadOptions::Limits& limits = file.GetOptions().limits;
    const std::uint64_t left = file.GetDecodedBytesLeft();
    if (left < limits.streamBytes) {
        return {limits.pictureSamples, left, "documentBytes", limits.documentBytes};
    }
    return {limits.pictureSamples, limits.streamBytes};
}

std::string FindUndecodableDct(const SourceFile& file, const EncodedStream& encoded, std::size_t own)
{
    // Most JPEG data stands in the file without another filter, and is looked at where it is.
    const DecodedStream head = own == 0 ? DecodedStream() : UndoByteFilters(file, encoded);
    const DctFrame frame = FindDctFrame(own == 0 ? encoded.View() : head.bytes.View());
    if (!frame.isFound) {
        return "its JPEG data has no picture in it";
    }
    return frame.precision == 8 ? std::string()
                                : "its samples cannot be decoded, as its JPEG data has " +
                                      std::to_string(frame.precision) + " bits a component instead of 8";
}

Raster DecodeRaster(const SourceFile& file, const FilterStage& stage, std::string_view data,
                    const PictureShape& shape)
{
    Raster raster;
    if (stage.name == "DCTDecode") {
        raster = DecodeDct(data, stage.colorTransform, GetLimits(file));
    } else if (stage.name == "JPXDecode") {
        raster = DecodeJpx(data, GetLimits(file));
    } else {
        raster = DecodeFax(data, stage.fax, shape.height, GetLimits(file));
    }
    file.CountDecodedBytes(raster.rows.GetSize());
    return raster;
}

} // namespace

Type GetStreamType(const std::vector<FilterStage>& stages)
{
    const std::size_t own = FindPictureFilter(stages);
    if (own == stages.size()) {
        return Type::Samples;
    }
    const std::string& name = stages[own].name;
    if (name == "DCTDecode") {
        return Type::Dct;
    }
    if (name == "JPXDecode") {
        return Type::Jpx;
    }
    return name == "CCITTFaxDecode" ? Type::Fax : Type::Jbig2;
}

std::string FindUndecodable(const SourceFile& file, const EncodedStream& encoded)
{
    const std::vector<FilterStage>& stages = encoded.stages;
    const std::size_t own = FindPictureFilter(stages);
    if (own == stages.size()) {
        return {};
    }
    const std::string& name = stages[own].name;
    if (own + 1 != stages.size()) {
        return "the filter " + name + " is followed by others";
    }
    if (name == "DCTDecode") {
        return FindUndecodableDct(file, encoded, own);
    }
    const bool isKnown = name == "JPXDecode" || name == "CCITTFaxDecode";
    return isKnown ? std::string() : "its samples cannot be decoded, as there is no decoder for " + name;
}

DecodedStream UndoByteFilters(const SourceFile& file, const EncodedStream& encoded,
                              std::uint64_t expectedBytes)
{
    EncodedStream head = encoded;
    head.stages.resize(FindPictureFilter(encoded.stages));
    const std::uint64_t largest = file.GetOptions().limits.streamBytes;
    return DecodeStream(file, head, {largest, "streamBytes", largest}, expectedBytes);
}

std::shared_ptr<const PictureBuffer> DecodePicture(const SourceFile& file, const EncodedStream& encoded,
                                                   const PictureShape& shape, std::string& problem)
{
    const std::size_t bytesPerRow = PictureBuffer::BytesOfRow(shape.width, shape.channels, shape.bits);
    const std::size_t own = FindPictureFilter(encoded.stages);
    const bool isPlain = own == encoded.stages.size();
    DecodedStream decoded =
        UndoByteFilters(file, encoded, isPlain ? std::uint64_t{bytesPerRow} * shape.height : 0);
    problem = decoded.problem;
    Raster raster;
    if (!isPlain) {
        raster = DecodeRaster(file, encoded.stages[own], decoded.bytes.View(), shape);
        AddProblem(problem, raster.problem);
        AddProblem(problem, CompareWithShape(raster, shape, GetStreamType(encoded.stages) == Type::Jpx));
    } else {
        raster.width = shape.width;
        raster.height = shape.height;
        raster.channels = shape.channels;
        raster.bits = shape.bits;
        raster.rows = std::move(decoded.bytes);
    }
    if (FitsAsItIs(raster, shape, bytesPerRow)) {
        return Adopt(std::move(raster), shape);
    }
    if (problem.empty() && raster.rows.GetSize() / std::max<std::size_t>(bytesPerRow, 1) < shape.height) {
        problem = "its data ends after " + std::to_string(raster.rows.GetSize()) + " bytes of samples";
    }
    return Copy(raster, shape);
}

} // namespace OrvPdf
