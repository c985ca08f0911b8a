#include "pdf/pictures/jpx_planes.h"

#include <algorithm>
#include <cstring>
#include <memory>
#include <new>

#include <openjpeg.h>

#include "pdf/pictures/jpx_channels.h"

namespace OrvPdf
{

namespace
{

/// The codestream as the library reads it.
struct Source
{
    std::string_view data;
    std::size_t place = 0;
};

constexpr auto endOfStream = static_cast<OPJ_SIZE_T>(-1);

OPJ_SIZE_T Read(void* target, OPJ_SIZE_T count, void* user)
{
    Source& source = *static_cast<Source*>(user);
    const std::size_t left = source.data.size() - source.place;
    if (left == 0)
        return endOfStream;
    const std::size_t taken = std::min<std::size_t>(count, left);
    std::memcpy(target, source.data.data() + source.place, taken);
    source.place += taken;
    return taken;
}

OPJ_OFF_T Skip(OPJ_OFF_T count, void* user)
{
    Source& source = *static_cast<Source*>(user);
    if (count < 0)
        return -1;
    const std::size_t left = source.data.size() - source.place;
    const std::size_t taken = std::min(static_cast<std::size_t>(count), left);
    source.place += taken;
    return taken == 0 && count > 0 ? -1 : static_cast<OPJ_OFF_T>(taken);
}

OPJ_BOOL Seek(OPJ_OFF_T place, void* user)
{
    Source& source = *static_cast<Source*>(user);
    if (place < 0 || static_cast<std::size_t>(place) > source.data.size())
        return OPJ_FALSE;
    source.place = static_cast<std::size_t>(place);
    return OPJ_TRUE;
}

void KeepMessage(const char* message, void* user)
{
    constexpr std::size_t longest = 200;
    std::string& problem = *static_cast<std::string*>(user);
    if (!problem.empty())
        return;
    // No exception may go through the library.
    try {
        problem.assign(message, std::min(std::strlen(message), longest));
        while (!problem.empty() && (problem.back() == '\n' || problem.back() == '.'))
            problem.pop_back();
    } catch (const std::bad_alloc&) {
        problem.clear();
    }
}

struct CodecDeleter
{
    void operator()(opj_codec_t* codec) const { opj_destroy_codec(codec); }
};
struct StreamDeleter
{
    void operator()(opj_stream_t* stream) const { opj_stream_destroy(stream); }
};
struct ImageDeleter
{
    void operator()(opj_image_t* image) const { opj_image_destroy(image); }
};

struct TileHeader
{
    OPJ_UINT32 index = 0;
    OPJ_UINT32 bytes = 0;
    OPJ_INT32 left = 0;
    OPJ_INT32 top = 0;
    OPJ_INT32 right = 0;
    OPJ_INT32 bottom = 0;
    OPJ_UINT32 components = 0;
};

class TileDecoder
{
public:
    TileDecoder(std::string_view codestream, const JpxSize& givenSize)
        : parts(MendTileParts(codestream)),
          source{parts.mended.empty() ? codestream : parts.mended},
          size(givenSize)
    {
        result.planes.resize(size.components.size());
        for (std::size_t i = 0; i < size.components.size(); ++i) {
            const JpxSize::Component& component = size.components[i];
            JpxPlane& plane = result.planes[i];
            plane.width =
                SamplesBefore(size.right, component.stepX) - SamplesBefore(size.left, component.stepX);
            plane.height =
                SamplesBefore(size.bottom, component.stepY) - SamplesBefore(size.top, component.stepY);
            plane.samples.resize(plane.width * plane.height);
        }
    }

    JpxPlanes Decode()
    {
        if (Open())
            DecodeTiles();
        const std::size_t tiles = std::size_t{size.tilesAcross} * size.tilesDown;
        if (parts.endsEarly)
            result.problem = "the JPEG 2000 data ends early";
        else if (!said.empty())
            result.problem = "the JPEG 2000 data is damaged: " + said;
        else if (decodedTiles < tiles)
            result.problem = "the JPEG 2000 data has " + std::to_string(decodedTiles) + " whole tiles of " +
                             std::to_string(tiles);
        return std::move(result);
    }

private:
    bool Open()
    {
        constexpr std::size_t bufferBytes = 65536;
        codec.reset(opj_create_decompress(OPJ_CODEC_J2K));
        stream.reset(opj_stream_create(bufferBytes, OPJ_TRUE));
        if (!codec || !stream)
            throw std::bad_alloc();
        opj_stream_set_read_function(stream.get(), Read);
        opj_stream_set_skip_function(stream.get(), Skip);
        opj_stream_set_seek_function(stream.get(), Seek);
        opj_stream_set_user_data(stream.get(), &source, nullptr);
        opj_stream_set_user_data_length(stream.get(), source.data.size());
        opj_set_error_handler(codec.get(), KeepMessage, &said);
        opj_set_warning_handler(codec.get(), KeepMessage, &said);

        opj_dparameters_t parameters;
        opj_set_default_decoder_parameters(&parameters);
        if (!opj_setup_decoder(codec.get(), &parameters) ||
            !opj_decoder_set_strict_mode(codec.get(), OPJ_FALSE))
            return false;
        opj_image_t* opened = nullptr;
        const bool isRead = opj_read_header(stream.get(), codec.get(), &opened) != OPJ_FALSE;
        image.reset(opened);
        return isRead && image && image->numcomps == size.components.size() &&
               opj_set_decode_area(codec.get(), image.get(), 0, 0, 0, 0) != OPJ_FALSE;
    }

    void DecodeTiles()
    {
        std::vector<bool> isDone(std::size_t{size.tilesAcross} * size.tilesDown);
        for (;;) {
            TileHeader tile;
            OPJ_BOOL goesOn = OPJ_FALSE;
            if (!opj_read_tile_header(codec.get(), stream.get(), &tile.index, &tile.bytes, &tile.left,
                                      &tile.top, &tile.right, &tile.bottom, &tile.components, &goesOn) ||
                !goesOn)
                return;
            // Decoding it again and again would cost time for next to no data.
            if (tile.index >= isDone.size() || isDone[tile.index]) {
                KeepMessage("a tile comes twice", &said);
                return;
            }
            isDone[tile.index] = true;
            if (!IsSound(tile)) {
                KeepMessage("a tile has another size than its place", &said);
                return;
            }
            bytes.resize(tile.bytes);
            if (!opj_decode_tile_data(codec.get(), tile.index, bytes.data(), tile.bytes, stream.get()))
                return;
            Store(tile);
            ++decodedTiles;
        }
    }

    /// Bytes that the library gives for a sample.
    static std::size_t BytesOfSample(const JpxSize::Component& component)
    {
        return component.precision <= 8 ? 1 : component.precision <= 16 ? 2 : 4;
    }

    struct Area
    {
        std::size_t left;
        std::size_t top;
        std::size_t width;
        std::size_t height;
    };

    Area FindArea(const TileHeader& tile, const JpxSize::Component& component) const
    {
        const auto before = [](OPJ_INT32 point, std::uint32_t step) {
            return SamplesBefore(static_cast<std::uint32_t>(point), step);
        };
        const std::uint32_t left = before(tile.left, component.stepX);
        const std::uint32_t top = before(tile.top, component.stepY);
        return {left - SamplesBefore(size.left, component.stepX),
                top - SamplesBefore(size.top, component.stepY), before(tile.right, component.stepX) - left,
                before(tile.bottom, component.stepY) - top};
    }

    bool IsSound(const TileHeader& tile) const
    {
        const auto inside = [](OPJ_INT32 begin, OPJ_INT32 end, std::uint32_t low, std::uint32_t high) {
            return begin >= 0 && end > begin && static_cast<std::uint32_t>(begin) >= low &&
                   static_cast<std::uint32_t>(end) <= high;
        };
        if (tile.components != size.components.size() ||
            !inside(tile.left, tile.right, size.left, size.right) ||
            !inside(tile.top, tile.bottom, size.top, size.bottom))
            return false;
        std::uint64_t expected = 0;
        for (const JpxSize::Component& component : size.components) {
            const Area area = FindArea(tile, component);
            expected += std::uint64_t{area.width} * area.height * BytesOfSample(component);
        }
        return expected == tile.bytes;
    }

    void Store(const TileHeader& tile)
    {
        const OPJ_BYTE* from = bytes.data();
        for (std::size_t i = 0; i < size.components.size(); ++i) {
            const JpxSize::Component& component = size.components[i];
            const Area area = FindArea(tile, component);
            switch (BytesOfSample(component)) {
            case 1:
                from = component.isSigned ? StoreAs<std::int8_t>(from, area, i)
                                          : StoreAs<std::uint8_t>(from, area, i);
                break;
            case 2:
                from = component.isSigned ? StoreAs<std::int16_t>(from, area, i)
                                          : StoreAs<std::uint16_t>(from, area, i);
                break;
            default:
                from = StoreAs<std::int32_t>(from, area, i);
                break;
            }
        }
        result.rows = std::max(result.rows, static_cast<std::size_t>(tile.bottom) - size.top);
    }

    template <typename Number>
    const OPJ_BYTE* StoreAs(const OPJ_BYTE* from, const Area& area, std::size_t index)
    {
        const JpxSize::Component& component = size.components[index];
        JpxPlane& plane = result.planes[index];
        const std::int64_t raise = component.isSigned ? std::int64_t{1} << (component.precision - 1) : 0;
        const std::int64_t largest = (std::int64_t{1} << component.precision) - 1;
        const std::size_t lost = component.precision - std::min(component.precision, maximalJpxPrecision);
        for (std::size_t y = 0; y < area.height; ++y) {
            std::uint16_t* to = plane.samples.data() + (area.top + y) * plane.width + area.left;
            for (std::size_t x = 0; x < area.width; ++x) {
                Number number;
                std::memcpy(&number, from, sizeof number);
                from += sizeof number;
                const std::int64_t value = std::clamp<std::int64_t>(number + raise, 0, largest);
                to[x] = static_cast<std::uint16_t>(value >> lost);
            }
        }
        return from;
    }

    JpxTileParts parts;
    Source source;
    const JpxSize& size;
    JpxPlanes result;
    std::string said;
    std::size_t decodedTiles = 0;
    std::vector<OPJ_BYTE> bytes;
    std::unique_ptr<opj_codec_t, CodecDeleter> codec;
    std::unique_ptr<opj_stream_t, StreamDeleter> stream;
    std::unique_ptr<opj_image_t, ImageDeleter> image;
};

} // namespace

std::uint64_t BytesOfPlanes(const JpxSize& size)
{
    std::uint64_t samples = 0;
    for (const JpxSize::Component& component : size.components)
        samples += (size.Width() / component.stepX + std::uint64_t{1}) *
                   (size.Height() / component.stepY + std::uint64_t{1});
    return samples * sizeof(std::uint16_t);
}

JpxPlanes DecodePlanes(std::string_view codestream, const JpxSize& size)
{
    return TileDecoder(codestream, size).Decode();
}

} // namespace OrvPdf
