#pragma once

#include <memory>
#include <string>

#include "orv_font/font_kind.h"
#include "orv_font/font_program.h"

namespace OrvFont::Detail
{

/// One of the library's own fonts.
struct LibraryFont
{
    std::shared_ptr<const FontProgram> program;
    /// Its PostScript name, such as `LiberationSans-Bold`.
    std::string name;
};

/// The font of the library that stands in for the one of that name: with the advances of the standard 14
/// fonts for their names and aliases, and the most similar one for others, as `FindFontKind` says. The same
/// answer for the same arguments, always; a program is loaded when it is first asked for and shared from then
/// on.
///
/// Its files are those of the Debian packages fonts-liberation2 and fonts-dejavu-core. The environment
/// variable `ORV_FONT_PATH` names other folders for them, separated by colons. Safe to call from several
/// threads.
/// @throws std::runtime_error that names file, folders and package if a file is not there, or cannot be read
LibraryFont ReplacementFor(const std::string& name, const FontHints& hints = {});

} // namespace OrvFont::Detail
