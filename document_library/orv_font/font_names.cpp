#include "orv_font/font_names.h"

#include <algorithm>

namespace OrvFont::Detail
{

namespace
{

constexpr std::size_t tagLength = 6;

// Of ASCII alone, whatever the locale.
bool IsCapital(char letter)
{
    return letter >= 'A' && letter <= 'Z';
}

bool IsSmall(char letter)
{
    return letter >= 'a' && letter <= 'z';
}

/// `BoldItalic` as `Bold Italic`.
std::string SplitWords(const std::string& words)
{
    std::string split;
    for (const char letter : words) {
        if (IsCapital(letter) && !split.empty() && IsSmall(split.back()))
            split += ' ';
        split += letter;
    }
    return split;
}

} // namespace

std::string WithoutSubsetTag(const std::string& name)
{
    const bool hasTag = name.size() > tagLength + 1 && name[tagLength] == '+' &&
                        std::all_of(name.begin(), name.begin() + tagLength, IsCapital);
    return hasTag ? name.substr(tagLength + 1) : name;
}

Font::Names NamesFromPostScriptName(const std::string& name)
{
    Font::Names names;
    names.name = WithoutSubsetTag(name);
    const std::size_t end = names.name.find_first_of("-,", 1);
    names.family = names.name.substr(0, end);
    if (end != std::string::npos)
        names.style = SplitWords(names.name.substr(end + 1));
    if (names.style.empty())
        names.style = "Regular";
    return names;
}

} // namespace OrvFont::Detail
