#include "object_type_name.h"

#include <orv_doc/content_object.h>

#include <cxxabi.h>

#include <cstdlib>
#include <memory>
#include <typeinfo>

namespace HarrowSupport::Comparators
{

std::string ObjectTypeName(const OrvDoc::ContentObject& object)
{
    const char* mangled = typeid(object).name();
    int status = 0;
    const std::unique_ptr<char, void (*)(void*)> demangled(
        abi::__cxa_demangle(mangled, nullptr, nullptr, &status), std::free);
    std::string name = demangled != nullptr ? demangled.get() : mangled;

    // Run-time type information that names a class with the word for it in front is told apart from the name
    // by the blank behind the word.
    const std::string word = "class ";
    if (name.compare(0, word.size(), word) == 0)
        name.erase(0, word.size());
    return name;
}

} // namespace HarrowSupport::Comparators
