#pragma once

#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include <qpdf/QPDFObjectHandle.hh>

#include "pdf/writer/content/used_fonts.h"
#include "pdf/writer/fonts/font_subset.h"

namespace OrvPdf
{

class ObjectMaker;
class SourceFile;

/// Writes the fonts that contents show text in, each as one object of the file. The object is there when a
/// font is first asked for, empty, and filled in at the end: which glyphs a subset needs is known only when
/// all contents are written.
///
/// What a font becomes depends on its source: one that is drawn by a font program alone is embedded as a
/// composite font, and one of a file stays as that file has it. The same contents in the same order give the
/// same objects.
class FontsWriter
{
public:
    /// `givenSource` is the file that is written again; null for none.
    explicit FontsWriter(ObjectMaker& givenMaker, const SourceFile* givenSource = nullptr)
        : maker(givenMaker), source(givenSource)
    {}

    /// The object of the font, for the resources of the content that shows these characters of it. Null for a
    /// font that cannot be written.
    QPDFObjectHandle GetFont(const UsedFont& used);

    /// Fills in the objects that are empty. To be called once, after the last content. Returns the texts of
    /// the active errors.
    std::vector<std::string> WriteAll();

    /// The lowest version of PDF that knows what was written; "1.4" if nothing was.
    const std::string& GetVersion() const { return version; }

private:
    /// A font, or several that are the same.
    struct Known
    {
        std::shared_ptr<const OrvFont::Font> font;
        /// Null for one that cannot be written.
        QPDFObjectHandle object;
        GlyphSet glyphs;
    };

    std::size_t Add(const std::shared_ptr<const OrvFont::Font>& font);
    /// The object of a font that was never asked for.
    QPDFObjectHandle Reserve(const OrvFont::Font& font);

    ObjectMaker& maker;
    const SourceFile* source;
    std::vector<Known> fonts;
    std::unordered_map<const OrvFont::Font*, std::size_t> places;
    /// So that no address is that of another font before the end.
    std::vector<std::shared_ptr<const OrvFont::Font>> kept;
    std::vector<std::string> errors;
    std::string version = "1.4";
};

} // namespace OrvPdf
