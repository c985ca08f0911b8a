#include "pdf/fonts/cmap_file.h"

#include "pdf/fonts/codespace.h"
#include "pdf/fonts/glyph_names.h"
#include "pdf/fonts/utf16.h"

#include <algorithm>

namespace OrvPdf
{

namespace
{

enum class Target
{
    None,
    Cid,
    Notdef,
    Text,
};

/// What the entries between `begin...` and `end...` consist of.
struct Block
{
    std::string_view name;
    bool hasRanges;
    Target target;
};

constexpr Block blocks[] = {
    {"codespacerange", true, Target::None}, {"cidrange", true, Target::Cid},
    {"cidchar", false, Target::Cid},        {"notdefrange", true, Target::Notdef},
    {"notdefchar", false, Target::Notdef},  {"bfrange", true, Target::Text},
    {"bfchar", false, Target::Text},
};

constexpr std::string_view beginWord = "begin";
constexpr std::string_view endWord = "end";

bool StartsWith(std::string_view text, std::string_view start)
{
    return text.substr(0, start.size()) == start;
}

const Block* FindBlock(const CMapToken& token)
{
    if (token.kind != CMapToken::Kind::Word || !StartsWith(token.text, beginWord))
        return nullptr;
    const std::string_view name = token.text.substr(beginWord.size());
    const auto* const block = std::find_if(std::begin(blocks), std::end(blocks),
                                           [name](const Block& other) { return other.name == name; });
    return block == std::end(blocks) ? nullptr : block;
}

/// No bytes at all if the string has none or more than a code can have.
CMapCodes ReadCode(std::string_view text)
{
    CMapCodes code{0, 0, 0};
    if (text.size() > maximalCodeBytes)
        return code;
    for (const char byte : text)
        code.low = code.low << 8 | static_cast<unsigned char>(byte);
    code.high = code.low;
    code.bytes = static_cast<std::uint32_t>(text.size());
    return code;
}

std::u16string ReadText(std::string_view bytes)
{
    // A single byte is no UTF-16, but can only be meant as a character.
    if (bytes.size() == 1)
        return std::u16string(1, static_cast<unsigned char>(bytes[0]));
    std::u16string text;
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2)
        text += static_cast<char16_t>(static_cast<unsigned char>(bytes[i]) << 8 |
                                      static_cast<unsigned char>(bytes[i + 1]));
    return text;
}

class FileReader
{
public:
    FileReader(std::string_view bytes, CMapFileHandler& handlerToTell, CMapProblems& problemsToFill)
        : lexer(bytes), handler(handlerToTell), problems(problemsToFill)
    {}

    void Read()
    {
        Advance();
        std::string_view key;
        while (current.kind != CMapToken::Kind::End) {
            if (const Block* const block = FindBlock(current)) {
                Advance();
                ReadBlock(*block);
                key = {};
                continue;
            }
            key = ReadOther(key);
            Advance();
        }
    }

private:
    void Advance() { current = lexer.Next(); }

    bool Is(CMapToken::Kind kind) const { return current.kind == kind; }

    /// `key` is the name right before; the result is that for the next token.
    std::string_view ReadOther(std::string_view key)
    {
        const bool isValue =
            Is(CMapToken::Kind::Name) || Is(CMapToken::Kind::Number) || Is(CMapToken::Kind::String);
        if (!key.empty() && isValue)
            handler.OnEntry(key, current);
        if (!key.empty() && Is(CMapToken::Kind::Word) && current.text == "usecmap")
            handler.OnUseCMap(key);
        return Is(CMapToken::Kind::Name) ? current.text : std::string_view();
    }

    void ReadBlock(const Block& block)
    {
        while (!IsAtEnd(block)) {
            CMapCodes codes;
            if (!TakeCodes(block, codes))
                continue;
            const bool isUsable = codes.bytes != 0 && codes.low <= codes.high;
            if (!isUsable)
                Complain(block, "has codes that are empty, longer than four bytes or in the wrong order");
            switch (block.target) {
            case Target::None:
                if (isUsable)
                    handler.OnCodespace(codes);
                break;
            case Target::Cid:
            case Target::Notdef:
                TakeCid(block, codes, isUsable);
                break;
            case Target::Text:
                TakeTexts(block, codes, isUsable);
                break;
            }
        }
    }

    /// The word that ends a block is left for the caller, who takes no notice of it; so is one that begins
    /// another block.
    bool IsAtEnd(const Block& block)
    {
        const bool isWord = Is(CMapToken::Kind::Word);
        if (isWord && StartsWith(current.text, endWord))
            return true;
        if (Is(CMapToken::Kind::End) || FindBlock(current)) {
            Complain(block, "has no end");
            return true;
        }
        return false;
    }

    /// False, with the token that is wrong as the current one or behind it, if there are none.
    bool TakeCodes(const Block& block, CMapCodes& codes)
    {
        if (!Is(CMapToken::Kind::String)) {
            Complain(block, "has something else in the place of a code");
            Advance();
            return false;
        }
        codes = ReadCode(current.text);
        Advance();
        if (!block.hasRanges)
            return true;
        if (!Is(CMapToken::Kind::String)) {
            Complain(block, "has a range with one end only");
            return false;
        }
        const CMapCodes end = ReadCode(current.text);
        Advance();
        if (codes.bytes != end.bytes) {
            Complain(block, "has a range whose ends have different lengths");
            codes.bytes = codes.bytes == 0 || end.bytes == 0 ? 0 : std::max(codes.bytes, end.bytes);
        }
        codes.high = end.low;
        return true;
    }

    void TakeCid(const Block& block, const CMapCodes& codes, bool isUsable)
    {
        if (!Is(CMapToken::Kind::Number)) {
            Complain(block, "has a code without a CID");
            return;
        }
        if (current.number < 0)
            Complain(block, "has a CID below zero");
        else if (isUsable && block.target == Target::Cid)
            handler.OnCids(codes, current.number);
        else if (isUsable)
            handler.OnNotdef(codes, current.number);
        Advance();
    }

    void TakeTexts(const Block& block, const CMapCodes& codes, bool isUsable)
    {
        if (Is(CMapToken::Kind::ArrayBegin)) {
            Advance();
            TakeArray(block, codes, isUsable);
            return;
        }
        std::u16string text;
        if (!TakeText(text)) {
            Complain(block, "has a code without a text");
            return;
        }
        if (isUsable && !text.empty())
            handler.OnTexts(codes, text);
    }

    /// One text for each code.
    void TakeArray(const Block& block, const CMapCodes& codes, bool isUsable)
    {
        std::uint64_t code = codes.low;
        std::u16string text;
        while (TakeText(text)) {
            if (isUsable && code <= codes.high && !text.empty()) {
                const auto single = static_cast<std::uint32_t>(code);
                handler.OnTexts({codes.bytes, single, single}, text);
            }
            ++code;
        }
        if (Is(CMapToken::Kind::ArrayEnd))
            Advance();
        else
            Complain(block, "has an array of texts with something else in it");
    }

    bool TakeText(std::u16string& text)
    {
        if (Is(CMapToken::Kind::String))
            text = ReadText(current.text);
        else if (Is(CMapToken::Kind::Name))
            text = ToUtf16(GetTextOfGlyphName(current.text));
        else
            return false;
        Advance();
        return true;
    }

    void Complain(const Block& block, std::string_view text)
    {
        problems.Add(std::string(beginWord) + std::string(block.name) + " " + std::string(text));
    }

    CMapLexer lexer;
    CMapFileHandler& handler;
    CMapProblems& problems;
    CMapToken current;
};

} // namespace

std::string CMapProblems::GetText() const
{
    return count < 2 ? first : first + " (and " + std::to_string(count - 1) + " more)";
}

void ReadCMapFile(std::string_view bytes, CMapFileHandler& handler, CMapProblems& problems)
{
    FileReader(bytes, handler, problems).Read();
}

} // namespace OrvPdf
