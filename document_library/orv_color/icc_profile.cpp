#include <orv_color/icc_profile.h>

#include "orv_sys/digest.h"

#include <stdexcept>
#include <utility>

namespace OrvColor
{

namespace
{

constexpr std::size_t HeaderSize = 128;

struct DataColorSpace
{
    const char* signature;
    std::size_t componentCount;
};

constexpr DataColorSpace DataColorSpaces[] = {
    {"GRAY", 1},  {"RGB ", 3},  {"CMYK", 4},  {"Lab ", 3},  {"XYZ ", 3}, {"Luv ", 3}, {"YCbr", 3},
    {"Yxy ", 3},  {"HSV ", 3},  {"HLS ", 3},  {"CMY ", 3},  {"1CLR", 1}, {"2CLR", 2}, {"3CLR", 3},
    {"4CLR", 4},  {"5CLR", 5},  {"6CLR", 6},  {"7CLR", 7},  {"8CLR", 8}, {"9CLR", 9}, {"ACLR", 10},
    {"BCLR", 11}, {"CCLR", 12}, {"DCLR", 13}, {"ECLR", 14}, {"FCLR", 15}};

std::size_t CountComponents(const std::string& data)
{
    if (data.size() < HeaderSize)
        throw std::invalid_argument("An ICC profile of " + std::to_string(data.size()) +
                                    " bytes is shorter than its header of 128.");
    for (const DataColorSpace& space : DataColorSpaces) {
        if (data.compare(16, 4, space.signature) == 0)
            return space.componentCount;
    }
    throw std::invalid_argument("An ICC profile has the unknown data colour space '" + data.substr(16, 4) +
                                "'.");
}

std::uint64_t DigestOf(const std::string& data)
{
    OrvSys::Detail::Digest digest;
    digest.Add(data);
    return digest.Get();
}

} // namespace

ICCProfile::ICCProfile(std::string bytes)
    : data(std::move(bytes)), componentCount(CountComponents(data)), digest(DigestOf(data))
{}

bool operator==(const ICCProfile& left, const ICCProfile& right)
{
    return &left == &right || (left.GetDigest() == right.GetDigest() && left.GetData() == right.GetData());
}

} // namespace OrvColor
