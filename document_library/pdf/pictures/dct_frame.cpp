#include "pdf/pictures/dct_frame.h"

#include <cstdint>

namespace OrvPdf
{

namespace
{

enum Marker : unsigned
{
    Temporary = 0x01,
    FirstFrame = 0xC0,
    HuffmanTables = 0xC4,
    Extension = 0xC8,
    ArithmeticConditions = 0xCC,
    LastFrame = 0xCF,
    FirstRestart = 0xD0,
    StartOfImage = 0xD8,
    EndOfImage = 0xD9,
    StartOfScan = 0xDA
};

bool IsFrame(unsigned marker)
{
    return marker >= FirstFrame && marker <= LastFrame && marker != HuffmanTables && marker != Extension &&
           marker != ArithmeticConditions;
}

bool StandsAlone(unsigned marker)
{
    return marker == Temporary || (marker >= FirstRestart && marker <= StartOfImage);
}

} // namespace

std::string_view SkipToImage(std::string_view data)
{
    // A third byte makes it likelier that it is no accident.
    std::size_t begin = data.find("\xFF\xD8\xFF");
    if (begin == std::string_view::npos)
        begin = data.find("\xFF\xD8");
    return begin == std::string_view::npos ? std::string_view() : data.substr(begin);
}

DctFrame FindDctFrame(std::string_view data)
{
    data = SkipToImage(data);
    const auto byteAt = [data](std::size_t at) -> std::size_t {
        return static_cast<unsigned char>(data[at]);
    };
    const auto numberAt = [byteAt](std::size_t at) { return byteAt(at) << 8 | byteAt(at + 1); };
    std::size_t at = 0;
    while ((at = data.find('\xFF', at)) != std::string_view::npos && at + 1 < data.size()) {
        const auto marker = static_cast<unsigned>(byteAt(at + 1));
        if (marker == 0xFF || marker == 0 || StandsAlone(marker)) {
            at += marker == 0xFF ? 1 : 2;
            continue;
        }
        if (marker == EndOfImage || marker == StartOfScan || at + 3 >= data.size())
            break;
        if (IsFrame(marker)) {
            if (at + 9 >= data.size())
                break;
            return {numberAt(at + 7), numberAt(at + 5), byteAt(at + 9), byteAt(at + 4), true};
        }
        at += 2 + numberAt(at + 2);
    }
    return {};
}

DctHeader ReadDctHeader(std::string_view data)
{
    const DctFrame frame = FindDctFrame(data);
    DctHeader header;
    header.width = frame.width;
    header.height = frame.height;
    header.channels = frame.channels;
    header.isValid = frame.isFound && frame.width > 0 && frame.height > 0 && frame.channels > 0;
    return header;
}

} // namespace OrvPdf
