#include "orv_sys/stream_bytes.h"

#include <array>
#include <limits>
#include <memory>

#include <zlib.h>

namespace OrvSys::Detail
{

namespace
{

// The one element of an array, or the object itself.
PdfObject Single(const PdfObject& object)
{
    return object.IsArray() && object.GetItems().size() == 1 ? object.GetItems().front() : object;
}

bool IsUnfiltered(const PdfObject& filter)
{
    return filter.IsNull() || (filter.IsArray() && filter.GetItems().empty());
}

bool IsPlainFlate(const PdfObject& stream, const PdfObject& filter)
{
    if (!Single(filter).IsName("FlateDecode"))
        return false;
    const PdfObject predictor = Single(stream.Find("DecodeParms")).Find("Predictor");
    return predictor.IsNull() || (predictor.IsInteger() && predictor.GetInteger() == 1);
}

boost::optional<std::string> Inflate(const std::string& encoded, std::size_t maxBytes)
{
    if (encoded.size() > std::numeric_limits<uInt>::max())
        return boost::none;
    z_stream stream = {};
    stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(encoded.data()));
    stream.avail_in = static_cast<uInt>(encoded.size());
    if (inflateInit(&stream) != Z_OK)
        return boost::none;
    const std::unique_ptr<z_stream, int (*)(z_stream*)> end(&stream, inflateEnd);
    std::string decoded;
    std::array<char, 16384> buffer;
    for (;;) {
        stream.next_out = reinterpret_cast<Bytef*>(buffer.data());
        stream.avail_out = static_cast<uInt>(buffer.size());
        const int status = inflate(&stream, Z_NO_FLUSH);
        decoded.append(buffer.data(), buffer.size() - stream.avail_out);
        if (decoded.size() > maxBytes)
            return boost::none;
        if (status == Z_STREAM_END)
            return decoded;
        if (status != Z_OK)
            return boost::none;
    }
}

} // namespace

boost::optional<std::string> DecodeSmallStream(const PdfObject& stream, std::size_t maxBytes)
{
    if (!stream.IsStream())
        return boost::none;
    const PdfObject filter = stream.Find("Filter");
    if (IsUnfiltered(filter)) {
        if (stream.GetRawBytes().size() > maxBytes)
            return boost::none;
        return stream.GetRawBytes();
    }
    if (IsPlainFlate(stream, filter))
        return Inflate(stream.GetRawBytes(), maxBytes);
    return boost::none;
}

} // namespace OrvSys::Detail
