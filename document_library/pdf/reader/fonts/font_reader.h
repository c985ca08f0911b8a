#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include <qpdf/QPDFObjGen.hh>
#include <qpdf/QPDFObjectHandle.hh>

#include <orv_font/font.h>

#include "pdf/fonts/cmap.h"
#include "pdf/reader/file/source_file.h"

namespace OrvPdf
{

/// Reads the font dictionaries of a file (ISO 32000-1, 9.5), each once: all contents share the fonts. The
/// source of each font is a `FileFont`. Needs an access to the file, which also keeps threads apart.
///
/// What a font keeps of its program and its maps is the streams' place in the file: see `FileFont`.
class FontReader
{
public:
    explicit FontReader(std::shared_ptr<const SourceFile> givenFile);
    ~FontReader();

    /// The font of a dictionary: the same one for one object, and for dictionaries that stand in others if
    /// they say the same. Null if it is no font. What is wrong is appended to `problems`: of a font in words
    /// that name it, when it is read and not again, so that a font that is not embedded is told once for the
    /// document; of what is no font each time. What only its program or an outline shows goes to the warnings
    /// of the file. Throws `std::bad_alloc` alone.
    std::shared_ptr<const OrvFont::Font> Read(QPDFObjectHandle dictionary,
                                              std::vector<std::string>& problems);

private:
    std::shared_ptr<const OrvFont::Font> Make(QPDFObjectHandle dictionary,
                                              std::vector<std::string>& problems);

    std::shared_ptr<const SourceFile> file;
    std::map<QPDFObjGen, std::shared_ptr<const OrvFont::Font>> fonts;
    /// Of dictionaries that stand in others, by their text.
    std::map<std::string, std::shared_ptr<const OrvFont::Font>> directFonts;
};

} // namespace OrvPdf
