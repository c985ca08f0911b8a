#pragma once

#include <string_view>

namespace Vantry
{

/// The components of a URI reference (RFC 3986, 3 and 4.1), without their delimiters, as views of its text.
/// An absent component is empty; where that makes a difference, a flag tells it from an empty one.
struct URIParts
{
    std::string_view scheme;
    std::string_view authority;
    std::string_view userInfo;
    /// With its brackets, if it is an IP literal.
    std::string_view host;
    std::string_view port;
    std::string_view path;
    std::string_view query;
    std::string_view fragment;
    bool hasScheme = false;
    bool hasAuthority = false;
    bool hasQuery = false;
    bool hasFragment = false;
};

/// Splits @p text. Linear in its length.
/// @return whether the text is a URI reference; if not, @p parts is left alone
bool SplitURI(std::string_view text, URIParts& parts);

} // namespace Vantry
