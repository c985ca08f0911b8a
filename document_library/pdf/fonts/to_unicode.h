#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>

namespace OrvPdf
{

/// The texts of codes that a `ToUnicode` CMap gives (ISO 32000-1, 9.10.3). Immutable.
class ToUnicodeMap
{
public:
    /// Damage leaves what can be read.
    static std::shared_ptr<const ToUnicodeMap> Parse(std::string_view bytes);
    virtual ~ToUnicodeMap() = default;
    /// Empty if the map has none.
    virtual std::u16string Find(std::uint32_t code, std::uint32_t codeBytes) const = 0;
};

/// The bytes of a `ToUnicode` CMap for codes of `codeBytes` bytes.
std::string MakeToUnicode(const std::map<std::uint32_t, std::u16string>& texts, std::uint32_t codeBytes);

/// The code point of a CID of one of Adobe's collections (`Japan1`, `GB1`, `CNS1`, `Korea1`, `KR`), found in
/// the machine's CMap resources; zero if unknown.
char32_t FindCodePointOfCid(const std::string& ordering, std::uint32_t cid);

} // namespace OrvPdf
