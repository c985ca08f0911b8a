#pragma once

#include <cstddef>
#include <functional>
#include <iosfwd>
#include <string>

#include <orv_sys/export.h>

/// A uniform resource identifier, under the name and with the interface that users of cpp-netlib know. It
/// stands in for that library's header on machines that do not have it, so it lives in that library's
/// namespace.
namespace boost
{
namespace network
{
namespace uri
{

class uri;
ORV_EXPORT bool operator==(const uri& left, const uri& right);
ORV_EXPORT bool operator!=(const uri& left, const uri& right);
ORV_EXPORT bool operator<(const uri& left, const uri& right);
ORV_EXPORT std::ostream& operator<<(std::ostream& stream, const uri& value);
ORV_EXPORT std::size_t hash_value(const uri& value);

/// The text of a URI or of a relative reference (RFC 3986, 4.1), with its components.
///
/// A value: it owns its text, is cheap to move, and copies as a string does. The text is kept exactly as
/// given; nothing is normalised, encoded or decoded. A text that the grammar refuses makes an invalid object,
/// never an exception: its components are empty, and string() still gives the text. The empty text counts as
/// invalid. Bytes outside ASCII are not part of the grammar; they have to be percent-encoded.
///
/// Components come without their delimiters: "https" and not "https:", "page=2" and not "?page=2". An absent
/// component and an empty one both read as the empty string. An IPv6 host keeps its brackets.
///
/// The only exception that leaves a function here is std::bad_alloc. Parsing is linear in the text; the
/// components are cut out of it when asked for.
class ORV_EXPORT uri
{
public:
    using string_type = std::string;
    using value_type = char;
    using const_iterator = std::string::const_iterator;
    using iterator = const_iterator;

    /// The invalid URI of empty text.
    uri() = default;
    uri(const std::string& text);
    /// A null pointer counts as the empty text.
    uri(const char* text);
    template <typename Iterator>
    uri(Iterator first, Iterator last) : uri(std::string(first, last))
    {}

    uri(const uri&) = default;
    uri& operator=(const uri&) = default;
    /// The object that is moved from is the invalid URI of empty text afterwards.
    uri(uri&& other) noexcept;
    uri& operator=(uri&& other) noexcept;
    uri& operator=(const std::string& text);
    ~uri() = default;

    /// The text keeps to the grammar, as a URI with a scheme or as a relative reference.
    bool is_valid() const { return parts_.isValid; }
    bool empty() const { return text_.empty(); }

    std::string scheme() const { return Cut(parts_.scheme); }
    std::string user_info() const { return Cut(parts_.userInfo); }
    std::string host() const { return Cut(parts_.host); }
    std::string port() const { return Cut(parts_.port); }
    std::string path() const { return Cut(parts_.path); }
    std::string query() const { return Cut(parts_.query); }
    std::string fragment() const { return Cut(parts_.fragment); }

    /// The text as it was given.
    std::string string() const { return text_; }
    std::string to_string() const { return text_; }

    const_iterator begin() const { return text_.begin(); }
    const_iterator end() const { return text_.end(); }

    void swap(uri& other) noexcept;

    /// @name The whole text, byte by byte.
    /// Two texts that name one resource in different spellings are different URIs here.
    /// @{
    friend bool operator==(const uri& left, const uri& right);
    friend bool operator!=(const uri& left, const uri& right);
    friend bool operator<(const uri& left, const uri& right);
    friend std::ostream& operator<<(std::ostream& stream, const uri& value);
    friend std::size_t hash_value(const uri& value);
    /// @}

private:
    struct Range
    {
        std::size_t begin = 0;
        std::size_t length = 0;
    };

    struct Parts
    {
        bool isValid = false;
        Range scheme;
        Range userInfo;
        Range host;
        Range port;
        Range path;
        Range query;
        Range fragment;
    };

    std::string Cut(const Range& range) const { return text_.substr(range.begin, range.length); }
    void Parse();

    std::string text_;
    Parts parts_;
};

inline void swap(uri& left, uri& right) noexcept
{
    left.swap(right);
}

/// @name The components and the kind of a URI as free functions.
/// @{
inline std::string scheme(const uri& value)
{
    return value.scheme();
}
inline std::string user_info(const uri& value)
{
    return value.user_info();
}
inline std::string host(const uri& value)
{
    return value.host();
}
inline std::string port(const uri& value)
{
    return value.port();
}
inline std::string path(const uri& value)
{
    return value.path();
}
inline std::string query(const uri& value)
{
    return value.query();
}
inline std::string fragment(const uri& value)
{
    return value.fragment();
}
inline bool is_valid(const uri& value)
{
    return value.is_valid();
}
inline bool valid(const uri& value)
{
    return value.is_valid();
}
/// Valid, and with a scheme.
ORV_EXPORT bool is_absolute(const uri& value);
/// Valid, and without a scheme.
ORV_EXPORT bool is_relative(const uri& value);
/// @}

} // namespace uri
} // namespace network
} // namespace boost

namespace std
{

template <>
struct hash<boost::network::uri::uri>
{
    size_t operator()(const boost::network::uri::uri& value) const
    {
        return boost::network::uri::hash_value(value);
    }
};

} // namespace std
