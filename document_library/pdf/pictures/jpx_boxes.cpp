#include "pdf/pictures/jpx_boxes.h"

#include <optional>
#include <stdexcept>
#include <string>

#include "pdf/pictures/big_endian.h"

namespace OrvPdf
{

namespace
{

using namespace std::string_view_literals;

constexpr std::string_view codestreamStart = "\xFF\x4F\xFF\x51"sv;

struct Box
{
    std::string_view type;
    std::string_view body;
};

/// Takes a box off the front; one that is cut short has what is there.
std::optional<Box> TakeBox(std::string_view& data)
{
    constexpr std::size_t shortHeader = 8;
    constexpr std::size_t longHeader = 16;
    if (data.size() < shortHeader)
        return std::nullopt;
    std::uint64_t length = BigEndian(data, 0, 4);
    std::size_t header = shortHeader;
    if (length == 1 && data.size() >= longHeader) {
        length = BigEndian(data, 8, 8);
        header = longHeader;
    }
    if (length == 0 || length > data.size())
        length = data.size();
    if (length < header)
        return std::nullopt;
    const Box box = {data.substr(4, 4), data.substr(header, static_cast<std::size_t>(length) - header)};
    data.remove_prefix(static_cast<std::size_t>(length));
    return box;
}

void ReadEnumeratedSpace(std::uint64_t number, JpxBoxes& boxes)
{
    using Space = JpxHeader::Space;
    switch (number) {
    case 12:
        boxes.space = Space::Cmyk;
        break;
    case 14:
        boxes.space = Space::Lab;
        break;
    case 16:
        boxes.space = Space::Rgb;
        break;
    case 17:
        boxes.space = Space::Gray;
        break;
    case 18:
        boxes.space = Space::Rgb;
        boxes.isYcc = true;
        break;
    default:
        break;
    }
}

/// Several such boxes say the same in different words; the first that is understood counts.
void ReadColor(std::string_view body, JpxBoxes& boxes)
{
    constexpr std::size_t fixedBytes = 3;
    constexpr std::uint64_t enumerated = 1;
    constexpr std::uint64_t restrictedProfile = 2;
    constexpr std::uint64_t anyProfile = 3;
    if (boxes.space != JpxHeader::Space::None || body.size() < fixedBytes)
        return;
    const std::uint64_t method = BigEndian(body, 0, 1);
    if (method == enumerated && body.size() >= fixedBytes + 4) {
        ReadEnumeratedSpace(BigEndian(body, fixedBytes, 4), boxes);
    } else if (method == restrictedProfile || method == anyProfile) {
        try {
            boxes.profile = std::make_shared<OrvColor::ICCProfile>(std::string(body.substr(fixedBytes)));
            boxes.space = JpxHeader::Space::Profile;
        } catch (const std::invalid_argument&) {
            // Another box may say it better.
        }
    }
}

void ReadPalette(std::string_view body, JpxBoxes::Palette& palette)
{
    constexpr std::size_t fixedBytes = 3;
    constexpr std::size_t maximalPrecision = 38;
    if (body.size() < fixedBytes)
        return;
    const std::size_t entries = BigEndian(body, 0, 2);
    const std::size_t columns = BigEndian(body, 2, 1);
    std::size_t at = fixedBytes + columns;
    if (body.size() < at || columns == 0)
        return;
    JpxBoxes::Palette read;
    for (std::size_t i = 0; i < columns; ++i) {
        const std::uint64_t depth = BigEndian(body, fixedBytes + i, 1);
        read.columns.push_back({(depth & 0x7F) + 1, depth > 0x7F});
        if (read.columns.back().precision > maximalPrecision)
            return;
    }
    for (std::size_t entry = 0; entry < entries; ++entry) {
        for (const auto& column : read.columns) {
            const std::size_t bytes = (column.precision + 7) / 8;
            if (body.size() - at < bytes) {
                read.numbers.resize(entry * columns);
                palette = std::move(read);
                return;
            }
            read.numbers.push_back(BigEndian(body, at, bytes));
            at += bytes;
        }
    }
    palette = std::move(read);
}

void ReadMappings(std::string_view body, std::vector<JpxBoxes::Mapping>& mappings)
{
    constexpr std::size_t entryBytes = 4;
    mappings.clear();
    for (std::size_t at = 0; at + entryBytes <= body.size(); at += entryBytes)
        mappings.push_back(
            {BigEndian(body, at, 2), BigEndian(body, at + 2, 1) == 1, BigEndian(body, at + 3, 1)});
}

void ReadDefinitions(std::string_view body, std::vector<JpxBoxes::Definition>& definitions)
{
    constexpr std::size_t countBytes = 2;
    constexpr std::size_t entryBytes = 6;
    definitions.clear();
    if (body.size() < countBytes)
        return;
    const std::size_t count = BigEndian(body, 0, countBytes);
    for (std::size_t at = countBytes; definitions.size() < count && at + entryBytes <= body.size();
         at += entryBytes)
        definitions.push_back({BigEndian(body, at, 2), static_cast<std::uint32_t>(BigEndian(body, at + 2, 2)),
                               static_cast<std::uint32_t>(BigEndian(body, at + 4, 2))});
}

void ReadHeaderBoxes(std::string_view data, JpxBoxes& boxes)
{
    while (const std::optional<Box> box = TakeBox(data)) {
        if (box->type == "colr")
            ReadColor(box->body, boxes);
        else if (box->type == "pclr")
            ReadPalette(box->body, boxes.palette);
        else if (box->type == "cmap")
            ReadMappings(box->body, boxes.mappings);
        else if (box->type == "cdef")
            ReadDefinitions(box->body, boxes.definitions);
    }
}

} // namespace

JpxBoxes ReadJpxBoxes(std::string_view data)
{
    JpxBoxes boxes;
    const std::string_view all = data;
    if (data.substr(0, codestreamStart.size()) == codestreamStart) {
        boxes.codestream = data;
        return boxes;
    }
    while (const std::optional<Box> box = TakeBox(data)) {
        if (box->type == "jp2h")
            ReadHeaderBoxes(box->body, boxes);
        else if (box->type == "jp2c" && boxes.codestream.empty())
            boxes.codestream = box->body;
    }
    if (boxes.codestream.substr(0, codestreamStart.size()) != codestreamStart) {
        const std::size_t begin = all.find(codestreamStart);
        boxes.codestream = begin == std::string_view::npos ? std::string_view() : all.substr(begin);
    }
    return boxes;
}

} // namespace OrvPdf
