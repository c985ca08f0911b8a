#include "pdf/pictures/dct_decoder.h"

#include <algorithm>
#include <cstdint>
#include <string>
#include <utility>

#include "pdf/pictures/dct_frame.h"
#include "pdf/pictures/dct_session.h"
#include "pdf/pictures/raster_size.h"

namespace OrvPdf
{

namespace
{

bool IsTransformed(const jpeg_decompress_struct& info, long long colorTransform)
{
    if (info.saw_Adobe_marker)
        return info.Adobe_transform != 0;
    return colorTransform >= 0 ? colorTransform != 0 : info.num_components == 3;
}

void ChooseColors(jpeg_decompress_struct& info, long long colorTransform)
{
    const bool isTransformed = IsTransformed(info, colorTransform);
    switch (info.num_components) {
    case 1:
        info.jpeg_color_space = info.out_color_space = JCS_GRAYSCALE;
        break;
    case 3:
        info.jpeg_color_space = isTransformed ? JCS_YCbCr : JCS_RGB;
        info.out_color_space = JCS_RGB;
        break;
    case 4:
        info.jpeg_color_space = isTransformed ? JCS_YCCK : JCS_CMYK;
        info.out_color_space = JCS_CMYK;
        break;
    default:
        info.jpeg_color_space = info.out_color_space = JCS_UNKNOWN;
        break;
    }
}

/// Files of several scans are held as coefficients as a whole, of two bytes each.
std::uint64_t CoefficientBytes(jpeg_decompress_struct& info)
{
    if (!jpeg_has_multiple_scans(&info))
        return 0;
    std::uint64_t blocks = 0;
    for (int i = 0; i < info.num_components; ++i) {
        const jpeg_component_info& component = info.comp_info[i];
        // Rows and columns are filled up to whole interleaved units.
        blocks += (std::uint64_t{component.width_in_blocks} + MAX_SAMP_FACTOR) *
                  (std::uint64_t{component.height_in_blocks} + MAX_SAMP_FACTOR);
    }
    return blocks * sizeof(JBLOCK);
}

struct Outcome
{
    Raster raster;
    /// What stands before the place where the library gave up; everything if it did not.
    std::string_view soundData;
};

Outcome DecodeOnce(std::string_view data, long long colorTransform, const RasterLimits& limits)
{
    Outcome outcome;
    Raster& raster = outcome.raster;
    outcome.soundData = data;
    DctSession session(data);
    jpeg_decompress_struct& info = session.info;
    const auto giveUp = [&] {
        outcome.soundData = session.GetSoundData();
        TellProblem(raster, session.GetProblem());
    };
    if (!session.Try([&info] { jpeg_read_header(&info, TRUE); })) {
        giveUp();
        return outcome;
    }
    raster.width = info.image_width;
    raster.height = info.image_height;
    raster.channels = static_cast<std::size_t>(info.num_components);
    raster.bits = 8;
    if (!FitsLimits(raster, CoefficientBytes(info), limits))
        return outcome;
    ChooseColors(info, colorTransform);
    if (!session.Try([&info] { jpeg_start_decompress(&info); })) {
        giveUp();
        return outcome;
    }

    const std::size_t rowBytes = raster.width * raster.channels;
    raster.rows = DecodedBytes(rowBytes * raster.height);
    std::size_t row = 0;
    for (; row < std::min(raster.height, session.CountSoundRows()); ++row) {
        auto* target = reinterpret_cast<JSAMPLE*>(raster.rows.GetData() + row * rowBytes);
        if (!session.Try([&info, target] {
                JSAMPROW rows[] = {target};
                jpeg_read_scanlines(&info, rows, 1);
            })) {
            giveUp();
            break;
        }
    }
    raster.rows.SetSize(row * rowBytes);
    TellProblem(raster, session.GetProblem());
    return outcome;
}

} // namespace

Raster DecodeDct(std::string_view data, long long colorTransform, const RasterLimits& limits)
{
    const DctFrame frame = FindDctFrame(data);
    Raster raster;
    if (frame.isFound && frame.precision != 8) {
        raster.width = frame.width;
        raster.height = frame.height;
        raster.channels = frame.channels;
        raster.problem = "the JPEG data has " + std::to_string(frame.precision) +
                         " bits per component; only 8 can be decoded";
        return raster;
    }
    data = SkipToImage(data);
    if (data.empty()) {
        raster.problem = "the JPEG data has no image in it";
        return raster;
    }
    Outcome outcome = DecodeOnce(data, colorTransform, limits);
    // The scans before the damage may be enough for a picture.
    if (outcome.raster.rows.GetSize() == 0 && outcome.soundData.size() < data.size()) {
        Outcome before = DecodeOnce(outcome.soundData, colorTransform, limits);
        before.raster.problem = outcome.raster.problem;
        return std::move(before.raster);
    }
    return std::move(outcome.raster);
}

} // namespace OrvPdf
