#include "pdf/fonts/file_font.h"

#include <utility>

namespace OrvPdf
{

namespace
{

std::uint64_t NextSerial()
{
    static std::atomic<std::uint64_t> last{0};
    return ++last;
}

} // namespace

FileFont::FileFont(std::shared_ptr<const FontOrigin> givenOrigin)
    : origin(std::move(givenOrigin)), serial(NextSerial())
{}

bool FileFont::HasSameOutlines(const FontSource& other) const
{
    if (this == &other)
        return true;
    const auto* const font = dynamic_cast<const FileFont*>(&other);
    if (!font || lastOther == font->serial)
        return false;
    if (lastSame == font->serial)
        return true;
    const bool isSame = DrawsLike(*font);
    (isSame ? lastSame : lastOther) = font->serial;
    return isSame;
}

const FileFont* GetFileFont(const OrvFont::Font& font)
{
    return dynamic_cast<const FileFont*>(&font.GetSource());
}

} // namespace OrvPdf
