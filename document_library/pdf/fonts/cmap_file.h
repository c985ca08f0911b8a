#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "pdf/fonts/cmap_lexer.h"

namespace OrvPdf
{

/// Codes of `bytes` bytes, 1 to 4, from `low` to `high`, which is not below `low`.
struct CMapCodes
{
    std::uint32_t bytes = 1;
    std::uint32_t low = 0;
    std::uint32_t high = 0;
};

/// Is told what a CMap file says, in the order of the file.
class CMapFileHandler
{
public:
    virtual ~CMapFileHandler() = default;

    virtual void OnCodespace(const CMapCodes&) {}
    /// The first code has the CID `cid`, which is not below 0, each further one the next CID.
    virtual void OnCids(const CMapCodes&, std::int64_t) {}
    /// All codes have the CID.
    virtual void OnNotdef(const CMapCodes&, std::int64_t) {}
    /// The first code has the text, each further one a text whose last character is the next one.
    virtual void OnTexts(const CMapCodes&, const std::u16string&) {}
    virtual void OnUseCMap(std::string_view) {}
    /// A name with the name, string or number behind it, as in `/WMode 1 def`.
    virtual void OnEntry(std::string_view, const CMapToken&) {}
};

/// What is wrong with a file: the first thing in words, the others by their number.
class CMapProblems
{
public:
    void Add(std::string_view text)
    {
        if (count++ == 0)
            first = text;
    }
    /// Empty if there are none.
    std::string GetText() const;

private:
    std::string first;
    std::size_t count = 0;
};

/// Reads a CMap file (Adobe Technical Note #5014; ISO 32000-1, 9.7.5.4 and 9.10.3). Whatever cannot be
/// understood is a problem, and reading goes on behind it. In time linear in the bytes.
void ReadCMapFile(std::string_view bytes, CMapFileHandler& handler, CMapProblems& problems);

} // namespace OrvPdf
