#pragma once

#include <cstdint>
#include <memory>
#include <mutex>
#include <unordered_map>

#include <orv_font/character.h>

namespace Plexa
{
class Compound;
}

namespace OrvFont::Detail
{

class FontSource;

/// The outlines of a font's characters, each made once, when it is first asked for.
class OutlineCache
{
public:
    /// Never null.
    std::shared_ptr<const Plexa::Compound> Get(const FontSource& source, const Character& character);

private:
    std::mutex mutex;
    std::unordered_map<std::uint64_t, std::shared_ptr<const Plexa::Compound>> outlines;
};

} // namespace OrvFont::Detail
