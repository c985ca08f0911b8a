#include "image_catalogue/color_table.h"

#include <cstddef>
#include <vector>

#include "image_catalogue/channels.h"
#include "image_catalogue/decode_pair.h"

namespace HarrowSupport::GenerateImage
{

std::unique_ptr<const OrvImg::ColorTable> MakeColorTable(const TestCase& testCase, bool invert)
{
    const std::size_t entries = std::size_t{1} << testCase.bitsPerComponent;
    const std::size_t channels =
        ChannelCount(testCase.colorSpace.value(), testCase.maskKind == TestMaskKind::SoftMaskViaTB);
    std::vector<unsigned char> bytes(entries * channels);
    for (std::size_t entry = 0; entry < entries; ++entry) {
        const std::size_t row = testCase.decode == DecodeKind::DecodeInvert ? entries - 1 - entry : entry;
        for (std::size_t channel = 0; channel < channels; ++channel) {
            const std::size_t raw = channel % 2 == 0 ? 255 * entry / (entries - 1) : 0;
            bytes[row * channels + channel] = static_cast<unsigned char>(invert ? 255 - raw : raw);
        }
    }
    return std::make_unique<const OrvImg::ColorTable>(bytes.data(), entries, channels, 8,
                                                      GetDecodePair(testCase.decode));
}

} // namespace HarrowSupport::GenerateImage
