#include <vantry/uri_parts.h>

#include <new>

#include <uriparser/Uri.h>

namespace Vantry
{

namespace
{

bool KeepsToGrammar(std::string_view text)
{
    // The parser takes no null pointer, which an empty view may hold.
    if (text.empty())
        return true;
    UriUriA parsed;
    const char* errorPlace = nullptr;
    const int result = uriParseSingleUriExA(&parsed, text.data(), text.data() + text.size(), &errorPlace);
    if (result == URI_ERROR_MALLOC)
        throw std::bad_alloc();
    if (result != URI_SUCCESS)
        return false;
    uriFreeUriMembersA(&parsed);
    return true;
}

// Takes what stands in front of the first of the delimiters off the text, which keeps the delimiter.
std::string_view TakeUntil(std::string_view& text, const char* delimiters)
{
    const std::string_view taken = text.substr(0, text.find_first_of(delimiters));
    text.remove_prefix(taken.size());
    return taken;
}

void SplitAuthority(URIParts& parts)
{
    std::string_view rest = parts.authority;
    const std::size_t at = rest.find('@');
    if (at != std::string_view::npos) {
        parts.userInfo = rest.substr(0, at);
        rest.remove_prefix(at + 1);
    }
    const bool isLiteral = !rest.empty() && rest.front() == '[';
    const std::size_t hostEnd = isLiteral ? rest.find(']') + 1 : rest.find(':');
    parts.host = rest.substr(0, hostEnd);
    rest.remove_prefix(parts.host.size());
    if (!rest.empty())
        parts.port = rest.substr(1);
}

} // namespace

// The parser decides whether the text is a URI reference at all. Where it is one, the delimiters alone say
// where each component stands (RFC 3986, appendix B).
bool SplitURI(std::string_view text, URIParts& parts)
{
    if (!KeepsToGrammar(text))
        return false;
    parts = URIParts();
    std::string_view rest = text;

    const std::size_t schemeEnd = rest.find_first_of(":/?#");
    if (schemeEnd != std::string_view::npos && rest[schemeEnd] == ':') {
        parts.hasScheme = true;
        parts.scheme = rest.substr(0, schemeEnd);
        rest.remove_prefix(schemeEnd + 1);
    }
    if (rest.substr(0, 2) == "//") {
        parts.hasAuthority = true;
        rest.remove_prefix(2);
        parts.authority = TakeUntil(rest, "/?#");
        SplitAuthority(parts);
    }
    parts.path = TakeUntil(rest, "?#");
    if (!rest.empty() && rest.front() == '?') {
        parts.hasQuery = true;
        rest.remove_prefix(1);
        parts.query = TakeUntil(rest, "#");
    }
    if (!rest.empty()) {
        parts.hasFragment = true;
        parts.fragment = rest.substr(1);
    }
    return true;
}

} // namespace Vantry
