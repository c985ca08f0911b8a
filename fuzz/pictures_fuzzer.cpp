// Any bytes as the data of a picture's filter. The input is a line that names the filter, and its data behind
// it:
//
//     d1              DCT with that ColorTransform; d alone for none
//     x               JPX
//     f4ab64          fax: 4 for Group 4, 1 and 2 for Group 3 of one dimension and mixed; letters for
//                     EncodedByteAlign, EndOfLine, no EndOfBlock and BlackIs1 (a, e, n, b); the columns
//
// Laws:
// - nothing is printed, and no more samples or bytes come than the limits allow, in whole rows;
// - the header that is read alone tells the sizes that decoding gives;
// - no sample of JPX data goes beyond the precision that its header tells;
// - fax rows with the colours exchanged are the other way round in each bit of a pixel;
// - what is cut off behind some fax data changes no row before the last one that is left.

#include "fuzz_target.h"

#include "pdf/pictures/dct_decoder.h"
#include "pdf/pictures/fax_decoder.h"
#include "pdf/pictures/jpx_decoder.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace HarrowSupport::Fuzzing
{

namespace
{

using OrvPdf::Raster;
using OrvPdf::RasterLimits;

/// Small, so that no input takes long.
constexpr RasterLimits limits = {std::uint64_t{1} << 17, std::uint64_t{1} << 24};

std::size_t RowBytes(const Raster& raster)
{
    return (raster.width * raster.channels * raster.bits + 7) / 8;
}

void RequireSizes(const Raster& raster)
{
    if (raster.rows.GetSize() == 0)
        return;
    Require(raster.rows.GetCapacity() <= limits.bytes, "rows take no more bytes than the limit");
    Require(raster.width * raster.height * raster.channels <= limits.samples,
            "a picture has no more samples than the limit");
    Require(raster.rows.GetSize() % RowBytes(raster) == 0, "rows are whole");
    Require(raster.rows.GetSize() / RowBytes(raster) <= raster.height, "no more rows come than there are");
    Require(!raster.problem.empty() || raster.rows.GetSize() == RowBytes(raster) * raster.height,
            "rows are missing only where something is wrong");
}

void RequireDct(std::string_view options, std::string_view data)
{
    const long long transform = options.empty() ? -1 : options[0] - '0';
    const Raster raster = OrvPdf::DecodeDct(data, transform, limits);
    RequireSizes(raster);
    if (raster.rows.GetSize() == 0)
        return;
    const OrvPdf::DctHeader header = OrvPdf::ReadDctHeader(data);
    Require(header.isValid, "what can be decoded has a header");
    Require(header.width == raster.width && header.height == raster.height &&
                header.channels == raster.channels,
            "the header tells the sizes of the picture");
}

void RequireJpx(std::string_view data)
{
    const OrvPdf::JpxHeader header = OrvPdf::ReadJpxHeader(data);
    const Raster raster = OrvPdf::DecodeJpx(data, limits);
    RequireSizes(raster);
    if (raster.rows.GetSize() == 0)
        return;
    Require(header.isValid, "what can be decoded has a header");
    Require(header.width == raster.width && header.height == raster.height &&
                header.precisions.size() == raster.channels,
            "the header tells the sizes of the picture");
    const std::string_view rows = raster.rows.View();
    const std::size_t bytes = raster.bits / 8;
    for (std::size_t i = 0; i < rows.size() / bytes; ++i) {
        std::size_t sample = static_cast<unsigned char>(rows[i * bytes]);
        if (bytes == 2)
            sample = sample << 8 | static_cast<unsigned char>(rows[i * bytes + 1]);
        Require(sample >> header.precisions[i % raster.channels] == 0, "a sample keeps to its precision");
    }
}

OrvPdf::FaxParameters ReadFaxParameters(std::string_view options)
{
    OrvPdf::FaxParameters parameters;
    parameters.columns = 0;
    for (const char option : options.substr(std::min<std::size_t>(1, options.size()))) {
        parameters.encodedByteAlign = parameters.encodedByteAlign || option == 'a';
        parameters.endOfLine = parameters.endOfLine || option == 'e';
        parameters.endOfBlock = parameters.endOfBlock && option != 'n';
        parameters.blackIs1 = parameters.blackIs1 || option == 'b';
        constexpr long long mostColumns = 1 << 18;
        if (option >= '0' && option <= '9')
            parameters.columns = std::min(mostColumns, parameters.columns * 10 + (option - '0'));
    }
    const char kind = options.empty() ? '4' : options[0];
    parameters.k = kind == '1' ? 0 : kind == '2' ? 4 : -1;
    return parameters;
}

void RequireOpposite(const Raster& raster, const Raster& opposite)
{
    const std::string_view rows = raster.rows.View();
    const std::string_view others = opposite.rows.View();
    Require(rows.size() == others.size(), "exchanged colours leave the sizes");
    const std::size_t rowBytes = RowBytes(raster);
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const bool isLast = i % rowBytes == rowBytes - 1 && raster.width % 8 != 0;
        const unsigned pixels = isLast ? 0xFFu & 0xFFu << (8 - raster.width % 8) : 0xFFu;
        const unsigned changed = static_cast<unsigned char>(rows[i]) ^ static_cast<unsigned char>(others[i]);
        Require(changed == pixels, "exchanged colours change each pixel and nothing else");
    }
}

void RequireFax(std::string_view options, std::string_view data)
{
    OrvPdf::FaxParameters parameters = ReadFaxParameters(options);
    const Raster raster = OrvPdf::DecodeFax(data, parameters, 0, limits);
    RequireSizes(raster);
    RequireSizes(OrvPdf::DecodeFax(data, parameters, 7, limits));

    const Raster part = OrvPdf::DecodeFax(data.substr(0, data.size() / 2), parameters, 0, limits);
    Require(part.height <= raster.height, "less data has no more rows");
    const std::size_t sound = part.height == 0 ? 0 : (part.height - 1) * RowBytes(part);
    Require(part.rows.View().substr(0, sound) == raster.rows.View().substr(0, sound),
            "what is cut off changes no row before the last");

    parameters.blackIs1 = !parameters.blackIs1;
    RequireOpposite(raster, OrvPdf::DecodeFax(data, parameters, 0, limits));
}

} // namespace

} // namespace HarrowSupport::Fuzzing

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace HarrowSupport::Fuzzing;

    const std::string bytes(data, data + size);
    const std::string_view input = bytes;
    const std::size_t end = std::min(input.find('\n'), input.size());
    const std::string_view line = input.substr(0, end);
    const std::string_view rest = input.substr(std::min(end + 1, input.size()));
    const std::string_view options = line.substr(std::min<std::size_t>(1, line.size()));
    const char filter = line.empty() ? 'x' : line[0];
    if (filter == 'd')
        RequireDct(options, rest);
    else if (filter == 'f')
        RequireFax(options, rest);
    else
        RequireJpx(rest);
    return 0;
}
