#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace OrvPdf
{

struct CMapToken
{
    enum class Kind
    {
        End,
        Number,
        Name,   ///< The text is without the slash.
        String, ///< Of either kind; the text is what it stands for.
        ArrayBegin,
        ArrayEnd,
        Word, ///< Whatever else; also braces and the brackets of a dictionary.
    };

    Kind kind = Kind::End;
    /// That of a string is good until the lexer's next token, any other as long as the file's bytes.
    std::string_view text;
    /// Cut off behind the point.
    std::int64_t number = 0;
};

/// Splits a CMap file into tokens: as much of PostScript's syntax as such files have. Any bytes are accepted,
/// in time linear in their number.
class CMapLexer
{
public:
    explicit CMapLexer(std::string_view bytes) : rest(bytes) {}

    CMapToken Next();

private:
    void SkipSpace();
    std::string_view TakeRegular();
    CMapToken TakeHexString();
    CMapToken TakeLiteralString();
    void AppendEscape();

    std::string_view rest;
    std::string decoded;
};

} // namespace OrvPdf
