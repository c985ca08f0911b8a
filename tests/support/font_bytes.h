#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace HarrowSupport::Testing
{

/// Numbers with the highest byte first, as font programs have them.
class FontBytes
{
public:
    FontBytes& Add8(std::int64_t number) { return AddNumber(number, 1); }
    FontBytes& Add16(std::int64_t number) { return AddNumber(number, 2); }
    FontBytes& Add32(std::int64_t number) { return AddNumber(number, 4); }
    FontBytes& AddText(const std::string& bytes)
    {
        text += bytes;
        return *this;
    }

    std::string text;

private:
    FontBytes& AddNumber(std::int64_t number, int size)
    {
        for (int shift = 8 * (size - 1); shift >= 0; shift -= 8)
            text.push_back(static_cast<char>(number >> shift));
        return *this;
    }
};

using FontTables = std::map<std::string, std::string>;

/// The file of these tables; `kind` is its first four bytes.
std::string JoinTables(const std::string& kind, const FontTables& tables);

/// The tables of a file that has no collection of fonts.
FontTables SplitTables(const std::string& file);

/// From codes to glyphs, all below 65535.
struct MadeCharacterMap
{
    int platform = 3;
    int encoding = 1;
    std::map<int, int> glyphs;
};

/// The table `cmap`, its maps in the format 4.
std::string MakeCharacterMaps(const std::vector<MadeCharacterMap>& maps);

/// The table `name` with records for Windows in American English.
std::string MakeNameTable(const std::map<int, std::string>& names);

} // namespace HarrowSupport::Testing
