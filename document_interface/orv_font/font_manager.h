#pragma once

#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

#include <orv_font/id.h>
#include <orv_font/writing_mode.h>
#include <orv_sys/export.h>

namespace OrvFont
{

class Font;

/// Makes the library's own fonts for a document and shares them there. Safe to use from several threads.
///
/// The names that it knows are "QuorleSerif" and those of the standard 14 fonts (ISO 32000-1, 9.6.2.2) with
/// their usual aliases, such as "TimesNewRoman,Bold". Each leads to a free font with the same advances.
class ORV_EXPORT FontManager
{
public:
    FontManager();
    ~FontManager();
    FontManager(const FontManager&) = delete;
    FontManager& operator=(const FontManager&) = delete;

    /// The font of that ID, the same object for the same arguments. A name that no font has gives the one
    /// whose name is most like it: serif or not, fixed width or not, bold, italic.
    /// @throws std::runtime_error with the font's file if that cannot be read
    std::shared_ptr<const Font> GetOrCreateFont(ID id, WritingMode mode);

private:
    std::mutex mutex;
    std::map<std::pair<ID, WritingMode>, std::shared_ptr<const Font>> fonts;
};

} // namespace OrvFont
