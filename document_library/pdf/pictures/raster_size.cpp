#include "pdf/pictures/raster_size.h"

#include <limits>

#include "pdf/limit_text.h"

namespace OrvPdf
{

namespace
{

// The largest number stands for everything that is too large.
std::uint64_t Multiply(std::uint64_t left, std::uint64_t right)
{
    constexpr std::uint64_t largest = std::numeric_limits<std::uint64_t>::max();
    return right != 0 && left > largest / right ? largest : left * right;
}

} // namespace

std::uint64_t BytesOfRasterRow(std::uint64_t width, std::uint64_t channels, std::uint64_t bits)
{
    const std::uint64_t rowBits = Multiply(Multiply(width, channels), bits);
    return rowBits / 8 + (rowBits % 8 != 0 ? 1 : 0);
}

bool FitsLimits(Raster& raster, std::uint64_t working, const RasterLimits& limits)
{
    const std::uint64_t samples = Multiply(Multiply(raster.width, raster.height), raster.channels);
    if (samples > limits.samples) {
        TellProblem(raster, LimitText("pictureSamples", limits.samples,
                                      "the data has " + std::to_string(raster.width) + " by " +
                                          std::to_string(raster.height) + " pixels of " +
                                          std::to_string(raster.channels) + " channels"));
        return false;
    }
    const std::uint64_t bytes =
        Multiply(BytesOfRasterRow(raster.width, raster.channels, raster.bits), raster.height);
    if (bytes > limits.bytes || working > limits.bytes - bytes) {
        TellProblem(raster, LimitText(limits.bytesName, limits.bytesValue, "the data is not decoded"));
        return false;
    }
    return true;
}

void TellProblem(Raster& raster, const std::string& problem)
{
    if (raster.problem.empty())
        raster.problem = problem;
}

} // namespace OrvPdf
