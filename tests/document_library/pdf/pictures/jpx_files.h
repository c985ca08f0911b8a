#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include <openjpeg.h>

/// Makes JPEG 2000 data without loss: codestreams by the library's encoder, boxes by hand.
namespace JpxFiles
{

struct Component
{
    std::uint32_t precision = 8;
    bool isSigned = false;
    std::uint32_t stepX = 1;
    std::uint32_t stepY = 1;
    /// One number for each sample; wide and high as the step leaves of the picture.
    std::vector<int> samples;
};

struct Settings
{
    std::uint32_t left = 0;
    std::uint32_t top = 0;
    /// 0 for one tile.
    int tileWidth = 0;
    int tileHeight = 0;
    int resolutions = 3;
    bool isFile = false;
    OPJ_COLOR_SPACE space = OPJ_CLRSPC_UNSPECIFIED;
};

namespace Detail
{

struct Memory
{
    std::string bytes;
    std::size_t place = 0;
};

inline OPJ_SIZE_T Write(void* from, OPJ_SIZE_T count, void* user)
{
    auto& memory = *static_cast<Memory*>(user);
    if (memory.bytes.size() < memory.place + count)
        memory.bytes.resize(memory.place + count);
    std::memcpy(memory.bytes.data() + memory.place, from, count);
    memory.place += count;
    return count;
}

inline OPJ_OFF_T Skip(OPJ_OFF_T count, void* user)
{
    static_cast<Memory*>(user)->place += static_cast<std::size_t>(count);
    return count;
}

inline OPJ_BOOL Seek(OPJ_OFF_T place, void* user)
{
    static_cast<Memory*>(user)->place = static_cast<std::size_t>(place);
    return OPJ_TRUE;
}

inline void Fail(const char* message, void* user)
{
    *static_cast<std::string*>(user) += message;
}

} // namespace Detail

/// The picture spans the grid from the settings' corner, `width` by `height`.
inline std::string Encoded(std::uint32_t width, std::uint32_t height,
                           const std::vector<Component>& components, const Settings& settings = {})
{
    std::vector<opj_image_cmptparm_t> shapes(components.size());
    const auto before = [](std::uint32_t point, std::uint32_t step) { return (point + step - 1) / step; };
    for (std::size_t i = 0; i < components.size(); ++i) {
        const Component& component = components[i];
        shapes[i] = {};
        shapes[i].dx = component.stepX;
        shapes[i].dy = component.stepY;
        shapes[i].w = before(settings.left + width, component.stepX) - before(settings.left, component.stepX);
        shapes[i].h = before(settings.top + height, component.stepY) - before(settings.top, component.stepY);
        shapes[i].x0 = settings.left;
        shapes[i].y0 = settings.top;
        shapes[i].prec = component.precision;
        shapes[i].sgnd = component.isSigned ? 1 : 0;
        if (component.samples.size() != std::size_t{shapes[i].w} * shapes[i].h)
            throw std::invalid_argument("a component needs " + std::to_string(shapes[i].w * shapes[i].h) +
                                        " samples");
    }
    const std::unique_ptr<opj_image_t, void (*)(opj_image_t*)> image(
        opj_image_create(static_cast<OPJ_UINT32>(components.size()), shapes.data(), settings.space),
        opj_image_destroy);
    image->x0 = settings.left;
    image->y0 = settings.top;
    image->x1 = settings.left + width;
    image->y1 = settings.top + height;
    for (std::size_t i = 0; i < components.size(); ++i) {
        for (std::size_t at = 0; at < components[i].samples.size(); ++at)
            image->comps[i].data[at] = components[i].samples[at];
    }
    opj_cparameters_t parameters;
    opj_set_default_encoder_parameters(&parameters);
    parameters.tcp_numlayers = 1;
    parameters.cp_disto_alloc = 1;
    // The library takes no more than the sides can be halved.
    constexpr std::uint32_t smallest = 4;
    parameters.numresolution = std::min(width, height) < smallest ? 1 : settings.resolutions;
    parameters.tcp_mct = 0;
    if (settings.tileWidth > 0) {
        parameters.tile_size_on = OPJ_TRUE;
        parameters.cp_tdx = settings.tileWidth;
        parameters.cp_tdy = settings.tileHeight;
    }
    Detail::Memory memory;
    std::string problem;
    const std::unique_ptr<opj_codec_t, void (*)(opj_codec_t*)> codec(
        opj_create_compress(settings.isFile ? OPJ_CODEC_JP2 : OPJ_CODEC_J2K), opj_destroy_codec);
    const std::unique_ptr<opj_stream_t, void (*)(opj_stream_t*)> stream(opj_stream_create(65536, OPJ_FALSE),
                                                                        opj_stream_destroy);
    opj_set_error_handler(codec.get(), Detail::Fail, &problem);
    opj_stream_set_write_function(stream.get(), Detail::Write);
    opj_stream_set_skip_function(stream.get(), Detail::Skip);
    opj_stream_set_seek_function(stream.get(), Detail::Seek);
    opj_stream_set_user_data(stream.get(), &memory, nullptr);
    if (!opj_setup_encoder(codec.get(), &parameters, image.get()) ||
        !opj_start_compress(codec.get(), image.get(), stream.get()) ||
        !opj_encode(codec.get(), stream.get()) || !opj_end_compress(codec.get(), stream.get()))
        throw std::runtime_error("the encoder failed: " + problem);
    return memory.bytes;
}

/// The numbers 0 to 2^precision - 1 without rule, but the same each time.
inline Component Varied(std::size_t count, std::uint32_t precision, std::uint32_t seed)
{
    Component component;
    component.precision = precision;
    std::uint32_t state = seed;
    for (std::size_t i = 0; i < count; ++i) {
        state = state * 1664525u + 1013904223u;
        component.samples.push_back(static_cast<int>(state >> (32 - precision)));
    }
    return component;
}

inline std::string Number(std::uint64_t value, std::size_t bytes)
{
    std::string text;
    for (std::size_t i = bytes; i-- > 0;)
        text += static_cast<char>(value >> (8 * i) & 0xFF);
    return text;
}

inline std::string Box(std::string_view type, std::string_view body)
{
    return Number(body.size() + 8, 4).append(type).append(body);
}

inline std::string EnumeratedSpace(std::uint32_t number)
{
    return Box("colr", std::string("\1\0\0", 3) + Number(number, 4));
}

struct Definition
{
    unsigned channel;
    unsigned type;
    unsigned association;
};

inline std::string ChannelDefinitions(const std::vector<Definition>& definitions)
{
    std::string body = Number(definitions.size(), 2);
    for (const Definition& definition : definitions)
        body +=
            Number(definition.channel, 2) + Number(definition.type, 2) + Number(definition.association, 2);
    return Box("cdef", body);
}

/// Boxes of the header, and the codestream behind them.
inline std::string File(const std::string& headerBoxes, const std::string& codestream)
{
    return Box("jP  ", "\r\n\x87\n") + Box("ftyp", std::string("jp2 \0\0\0\0jp2 ", 12)) +
           Box("jp2h", headerBoxes) + Box("jp2c", codestream);
}

} // namespace JpxFiles
