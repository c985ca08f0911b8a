#include <vantry/uri_exception.h>

namespace Vantry
{

URIException::URIException(const std::string& text) : std::runtime_error(text) {}

URIException::~URIException() = default;

} // namespace Vantry
