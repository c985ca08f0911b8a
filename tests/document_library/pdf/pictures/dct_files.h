#pragma once

#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include <jpeglib.h>

/// Makes JPEG files. The maker's samples are those that are written: no colours are converted unless told.
namespace DctFiles
{

struct Settings
{
    /// What the samples are, and what they are stored as.
    J_COLOR_SPACE given = JCS_RGB;
    J_COLOR_SPACE stored = JCS_RGB;
    bool hasAdobeMarker = false;
    int quality = 100;
    bool isProgressive = false;
    bool isArithmetic = false;
    int restartRows = 0;
    /// How often the first component's samples stand for one of the others, across and down.
    int sampling = 1;
};

/// Smooth samples, so that the loss is small, and others in each channel.
inline std::string Smooth(std::size_t width, std::size_t height, std::size_t channels)
{
    std::string samples;
    for (std::size_t y = 0; y < height; ++y) {
        for (std::size_t x = 0; x < width; ++x) {
            for (std::size_t channel = 0; channel < channels; ++channel)
                samples += static_cast<char>((x * (channel + 1) + y * (channels - channel) + 60 * channel) /
                                             2 % 240);
        }
    }
    return samples;
}

/// One colour everywhere.
inline std::string Plain(std::size_t pixels, const std::vector<int>& color)
{
    std::string samples;
    for (std::size_t i = 0; i < pixels; ++i) {
        for (const int sample : color)
            samples += static_cast<char>(sample);
    }
    return samples;
}

inline std::string Encoded(const std::string& samples, std::size_t width, std::size_t height,
                           std::size_t channels, const Settings& settings)
{
    jpeg_compress_struct info = {};
    jpeg_error_mgr errors = {};
    info.err = jpeg_std_error(&errors);
    jpeg_create_compress(&info);
    unsigned char* buffer = nullptr;
    unsigned long size = 0;
    jpeg_mem_dest(&info, &buffer, &size);
    info.image_width = static_cast<JDIMENSION>(width);
    info.image_height = static_cast<JDIMENSION>(height);
    info.input_components = static_cast<int>(channels);
    info.in_color_space = settings.given;
    jpeg_set_defaults(&info);
    jpeg_set_colorspace(&info, settings.stored);
    info.write_Adobe_marker = settings.hasAdobeMarker ? TRUE : FALSE;
    info.write_JFIF_header = FALSE;
    jpeg_set_quality(&info, settings.quality, TRUE);
    for (int i = 0; i < info.num_components; ++i) {
        const int factor = i == 0 ? settings.sampling : 1;
        info.comp_info[i].h_samp_factor = factor;
        info.comp_info[i].v_samp_factor = factor;
    }
    if (settings.isProgressive)
        jpeg_simple_progression(&info);
    info.arith_code = settings.isArithmetic ? TRUE : FALSE;
    info.restart_in_rows = settings.restartRows;
    jpeg_start_compress(&info, TRUE);
    std::string copy = samples;
    for (std::size_t row = 0; row < height; ++row) {
        JSAMPROW rows[] = {reinterpret_cast<JSAMPROW>(copy.data() + row * width * channels)};
        jpeg_write_scanlines(&info, rows, 1);
    }
    jpeg_finish_compress(&info);
    std::string file(reinterpret_cast<char*>(buffer), size);
    jpeg_destroy_compress(&info);
    std::free(buffer);
    return file;
}

/// Where the frame header's marker stands.
inline std::size_t FindFrame(const std::string& file, char kind = '\xC0')
{
    return file.find(std::string("\xFF") + kind);
}

/// Where a scan's data begins, the first being number 0.
inline std::size_t FindScan(const std::string& file, std::size_t number = 0)
{
    std::size_t at = 0;
    for (std::size_t i = 0; i <= number; ++i)
        at = file.find("\xFF\xDA", at) + 2;
    return at + static_cast<unsigned char>(file[at]) * 256u + static_cast<unsigned char>(file[at + 1]);
}

inline int LargestError(std::string_view left, std::string_view right)
{
    if (left.size() != right.size())
        return 256;
    int largest = 0;
    for (std::size_t i = 0; i < left.size(); ++i) {
        const int error =
            std::abs(int{static_cast<unsigned char>(left[i])} - int{static_cast<unsigned char>(right[i])});
        largest = error > largest ? error : largest;
    }
    return largest;
}

} // namespace DctFiles
