#include "support/font_bytes.h"

namespace HarrowSupport::Testing
{

namespace
{

constexpr std::size_t headerSize = 12;
constexpr std::size_t recordSize = 16;

std::uint32_t SumOf(const std::string& table)
{
    std::uint32_t sum = 0;
    for (std::size_t index = 0; index < table.size(); ++index)
        sum += std::uint32_t{static_cast<unsigned char>(table[index])} << (24 - 8 * (index % 4));
    return sum;
}

std::size_t NumberAt(const std::string& bytes, std::size_t offset, int size)
{
    std::size_t number = 0;
    for (int index = 0; index < size; ++index)
        number = number << 8 | static_cast<unsigned char>(bytes.at(offset + static_cast<std::size_t>(index)));
    return number;
}

std::string MakeMap(const std::map<int, int>& glyphs)
{
    std::map<int, int> all = glyphs;
    all[0xFFFF] = 0;
    const auto count = static_cast<int>(all.size());
    FontBytes ends;
    FontBytes starts;
    FontBytes deltas;
    FontBytes offsets;
    for (const auto& [code, glyph] : all) {
        ends.Add16(code);
        starts.Add16(code);
        deltas.Add16(glyph - code);
        offsets.Add16(0);
    }
    FontBytes map;
    map.Add16(4).Add16(16 + 8 * count).Add16(0).Add16(2 * count).Add16(0).Add16(0).Add16(0);
    map.AddText(ends.text).Add16(0).AddText(starts.text + deltas.text + offsets.text);
    return map.text;
}

} // namespace

std::string JoinTables(const std::string& kind, const FontTables& tables)
{
    FontBytes directory;
    FontBytes data;
    const auto count = static_cast<std::int64_t>(tables.size());
    const std::size_t start = headerSize + recordSize * tables.size();
    std::int64_t power = 1;
    std::int64_t exponent = 0;
    for (; 2 * power <= count; power *= 2)
        ++exponent;
    directory.AddText(kind).Add16(count).Add16(16 * power).Add16(exponent).Add16(16 * (count - power));
    for (const auto& [tag, table] : tables) {
        directory.AddText(tag).Add32(SumOf(table)).Add32(static_cast<std::int64_t>(start + data.text.size()));
        directory.Add32(static_cast<std::int64_t>(table.size()));
        data.AddText(table).AddText(std::string((4 - table.size() % 4) % 4, '\0'));
    }
    return directory.text + data.text;
}

FontTables SplitTables(const std::string& file)
{
    FontTables tables;
    const std::size_t count = NumberAt(file, 4, 2);
    for (std::size_t index = 0; index < count; ++index) {
        const std::size_t record = headerSize + recordSize * index;
        tables[file.substr(record, 4)] =
            file.substr(NumberAt(file, record + 8, 4), NumberAt(file, record + 12, 4));
    }
    return tables;
}

std::string MakeCharacterMaps(const std::vector<MadeCharacterMap>& maps)
{
    FontBytes header;
    FontBytes data;
    const std::size_t start = 4 + 8 * maps.size();
    header.Add16(0).Add16(static_cast<std::int64_t>(maps.size()));
    for (const MadeCharacterMap& map : maps) {
        header.Add16(map.platform).Add16(map.encoding);
        header.Add32(static_cast<std::int64_t>(start + data.text.size()));
        data.AddText(MakeMap(map.glyphs));
    }
    return header.text + data.text;
}

std::string MakeNameTable(const std::map<int, std::string>& names)
{
    FontBytes records;
    FontBytes texts;
    for (const auto& [id, text] : names) {
        records.Add16(3).Add16(1).Add16(0x409).Add16(id);
        records.Add16(static_cast<std::int64_t>(2 * text.size()));
        records.Add16(static_cast<std::int64_t>(texts.text.size()));
        for (const char letter : text)
            texts.Add16(letter);
    }
    const auto count = static_cast<std::int64_t>(names.size());
    return FontBytes().Add16(0).Add16(count).Add16(6 + 12 * count).AddText(records.text + texts.text).text;
}

} // namespace HarrowSupport::Testing
