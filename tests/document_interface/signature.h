#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <type_traits>
#include <typeinfo>
#include <utility>
#include <vector>

#include <boost/core/demangle.hpp>

namespace InterfaceTests
{

/// For static assertions: compiles only if an overload of the operation has this very type, constness,
/// references and all.
template <typename Signature>
constexpr bool Has(Signature)
{
    return true;
}

template <typename Member>
struct MemberOwner;

template <typename Type, typename Class>
struct MemberOwner<Type Class::*>
{
    using Result = Class;
};

/// The class that declares what a member pointer of this type points to. `&Path::GetName` points to a member
/// of `ContentObject` unless `Path` has a `GetName` of its own.
template <typename Member>
using OwnerOf = typename MemberOwner<Member>::Result;

/// The name of a type without its namespaces.
template <typename Type>
std::string GetShortName()
{
    const std::string name = boost::core::demangle(typeid(Type).name());
    const std::size_t colon = name.rfind(':');
    return colon == std::string::npos ? name : name.substr(colon + 1);
}

/// Places of virtual operations in the table of their class, counted from its start, where a virtual
/// destructor takes the first two. For the C++ ABI of g++ and clang, in which the first word of a member
/// pointer is the distance in bytes, on some machines plus one.
template <typename... Members>
std::vector<std::size_t> GetSlots(Members... members)
{
    const auto getSlot = [](const auto& member) {
        std::uintptr_t word = 0;
        static_assert(sizeof(member) >= sizeof word);
        std::memcpy(&word, &member, sizeof word);
        return std::size_t{word / sizeof(void*)};
    };
    return {getSlot(members)...};
}

/// As many numbers from `first` on.
inline std::vector<std::size_t> CountFrom(std::size_t first, std::size_t count)
{
    std::vector<std::size_t> numbers;
    while (numbers.size() < count)
        numbers.push_back(first + numbers.size());
    return numbers;
}

} // namespace InterfaceTests
