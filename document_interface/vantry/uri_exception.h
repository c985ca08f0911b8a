#pragma once

#include <stdexcept>
#include <string>

#include <orv_sys/export.h>

namespace Vantry
{

/// A path or a URI that cannot be what was asked of it. The text says what was wrong, in which path or URI,
/// and why.
class ORV_EXPORT URIException : public std::runtime_error
{
public:
    explicit URIException(const std::string& text);
    URIException(const URIException&) = default;
    URIException& operator=(const URIException&) = default;
    // Out of line, so that the class has one type information, and a handler in another library sees it.
    ~URIException() override;
};

} // namespace Vantry
