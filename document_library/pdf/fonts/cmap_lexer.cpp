#include "pdf/fonts/cmap_lexer.h"

#include "pdf/content_characters.h"

#include <charconv>
#include <cstddef>
#include <system_error>

namespace OrvPdf
{

namespace
{

bool ReadNumber(std::string_view word, std::int64_t& number)
{
    if (!word.empty() && word.front() == '+')
        word.remove_prefix(1);
    const char* const end = word.data() + word.size();
    const auto result = std::from_chars(word.data(), end, number);
    return result.ec == std::errc() && (result.ptr == end || *result.ptr == '.');
}

} // namespace

void CMapLexer::SkipSpace()
{
    while (!rest.empty()) {
        if (IsWhite(rest.front())) {
            rest.remove_prefix(1);
        } else if (rest.front() == '%') {
            const std::size_t end = rest.find_first_of("\r\n");
            rest.remove_prefix(end == std::string_view::npos ? rest.size() : end);
        } else {
            return;
        }
    }
}

std::string_view CMapLexer::TakeRegular()
{
    std::size_t length = 0;
    while (length < rest.size() && IsRegular(rest[length]))
        ++length;
    const std::string_view taken = rest.substr(0, length);
    rest.remove_prefix(length);
    return taken;
}

CMapToken CMapLexer::TakeHexString()
{
    decoded.clear();
    int high = -1;
    while (!rest.empty()) {
        const char c = rest.front();
        rest.remove_prefix(1);
        if (c == '>')
            break;
        const int digit = HexValue(c);
        if (digit < 0)
            continue;
        if (high < 0) {
            high = digit;
        } else {
            decoded += static_cast<char>(high * 16 + digit);
            high = -1;
        }
    }
    if (high >= 0)
        decoded += static_cast<char>(high * 16);
    return {CMapToken::Kind::String, decoded};
}

void CMapLexer::AppendEscape()
{
    if (rest.empty())
        return;
    const char c = rest.front();
    rest.remove_prefix(1);
    if (c >= '0' && c <= '7') {
        int value = c - '0';
        for (int i = 0; i < 2 && !rest.empty() && rest.front() >= '0' && rest.front() <= '7'; ++i) {
            value = value * 8 + (rest.front() - '0');
            rest.remove_prefix(1);
        }
        decoded += static_cast<char>(value);
        return;
    }
    switch (c) {
    case 'n':
        decoded += '\n';
        break;
    case 'r':
        decoded += '\r';
        break;
    case 't':
        decoded += '\t';
        break;
    case 'b':
        decoded += '\b';
        break;
    case 'f':
        decoded += '\f';
        break;
    case '\r':
        if (!rest.empty() && rest.front() == '\n')
            rest.remove_prefix(1);
        break;
    case '\n':
        break;
    default:
        decoded += c;
    }
}

CMapToken CMapLexer::TakeLiteralString()
{
    decoded.clear();
    for (std::size_t depth = 1; !rest.empty();) {
        const char c = rest.front();
        rest.remove_prefix(1);
        if (c == '\\') {
            AppendEscape();
            continue;
        }
        if (c == '(')
            ++depth;
        if (c == ')' && --depth == 0)
            break;
        decoded += c;
    }
    return {CMapToken::Kind::String, decoded};
}

CMapToken CMapLexer::Next()
{
    SkipSpace();
    if (rest.empty())
        return {};
    if (IsRegular(rest.front())) {
        CMapToken token{CMapToken::Kind::Word, TakeRegular()};
        if (ReadNumber(token.text, token.number))
            token.kind = CMapToken::Kind::Number;
        return token;
    }
    const std::string_view mark = rest.substr(0, 1);
    const bool isDoubled = rest.size() > 1 && rest[1] == rest[0];
    rest.remove_prefix(1);
    switch (mark[0]) {
    case '/':
        return {CMapToken::Kind::Name, TakeRegular()};
    case '[':
        return {CMapToken::Kind::ArrayBegin, mark};
    case ']':
        return {CMapToken::Kind::ArrayEnd, mark};
    case '(':
        return TakeLiteralString();
    case '<':
        if (!isDoubled)
            return TakeHexString();
        [[fallthrough]];
    case '>':
        if (isDoubled)
            rest.remove_prefix(1);
        [[fallthrough]];
    default:
        return {CMapToken::Kind::Word, mark};
    }
}

} // namespace OrvPdf
