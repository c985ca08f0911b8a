#include <boost/network/uri.hpp>

#include <ostream>
#include <string_view>
#include <utility>

#include <vantry/uri_parts.h>

namespace boost
{
namespace network
{
namespace uri
{

uri::uri(const std::string& text) : text_(text)
{
    Parse();
}

uri::uri(const char* text) : text_(text ? text : "")
{
    Parse();
}

// A string that is moved from may keep its text, and the parts would then not fit it; swapping leaves no
// doubt.
uri::uri(uri&& other) noexcept
{
    swap(other);
}

uri& uri::operator=(uri&& other) noexcept
{
    uri taken(std::move(other));
    swap(taken);
    return *this;
}

uri& uri::operator=(const std::string& text)
{
    uri parsed(text);
    swap(parsed);
    return *this;
}

void uri::swap(uri& other) noexcept
{
    text_.swap(other.text_);
    std::swap(parts_, other.parts_);
}

void uri::Parse()
{
    Vantry::URIParts split;
    if (text_.empty() || !Vantry::SplitURI(text_, split))
        return;
    const auto locate = [this](std::string_view component) {
        Range range;
        if (!component.empty()) {
            range.begin = static_cast<std::size_t>(component.data() - text_.data());
            range.length = component.size();
        }
        return range;
    };
    parts_.isValid = true;
    parts_.scheme = locate(split.scheme);
    parts_.userInfo = locate(split.userInfo);
    parts_.host = locate(split.host);
    parts_.port = locate(split.port);
    parts_.path = locate(split.path);
    parts_.query = locate(split.query);
    parts_.fragment = locate(split.fragment);
}

bool operator==(const uri& left, const uri& right)
{
    return left.text_ == right.text_;
}

bool operator!=(const uri& left, const uri& right)
{
    return !(left == right);
}

bool operator<(const uri& left, const uri& right)
{
    return left.text_ < right.text_;
}

std::ostream& operator<<(std::ostream& stream, const uri& value)
{
    return stream << value.text_;
}

std::size_t hash_value(const uri& value)
{
    return std::hash<std::string>()(value.text_);
}

bool is_absolute(const uri& value)
{
    return value.is_valid() && !value.scheme().empty();
}

bool is_relative(const uri& value)
{
    return value.is_valid() && value.scheme().empty();
}

} // namespace uri
} // namespace network
} // namespace boost
