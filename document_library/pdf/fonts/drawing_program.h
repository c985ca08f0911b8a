#pragma once

#include <memory>
#include <mutex>
#include <string>

#include "orv_font/font_kind.h"
#include "orv_font/font_program.h"
#include "pdf/fonts/font_stream.h"
#include "pdf/fonts/lazy_value.h"

namespace OrvPdf
{

/// The program that draws a font of a file: the embedded one, or the library's own that stands in where there
/// is none or it is damaged. Opened when it is first asked for.
class DrawingProgram
{
public:
    struct Description
    {
        /// How messages call the font.
        std::string name;
        /// What its replacement is chosen by.
        std::string postScriptName;
        OrvFont::Detail::FontHints hints;
    };

    /// Without a stream the font is not embedded, which is told here, in `problem`. What is wrong with a
    /// program that is embedded is told where and when it is opened.
    DrawingProgram(Description givenDescription, std::unique_ptr<const FontStream> givenStream,
                   std::shared_ptr<const LateProblems> givenProblems, std::string& problem);
    ~DrawingProgram();

    /// Equal programs of several fonts and documents are one object. Null where neither the font's own nor
    /// the library's can be read.
    const OrvFont::Detail::FontProgram* Get() const { return Open().program.get(); }
    /// Whether it is the library's own.
    bool IsReplaced() const { return !stream || Open().isReplaced; }
    /// What the library's font is chosen by, whether it stands in or not.
    OrvFont::Detail::FontKind GetKind() const
    {
        return OrvFont::Detail::FindFontKind(description.postScriptName, description.hints);
    }
    /// Whether the font has a program, damaged or not.
    bool IsEmbedded() const { return stream != nullptr; }
    /// Whether both draw with the same program, and in the same role. Opens both.
    bool IsSameAs(const DrawingProgram& other) const;

private:
    struct Opened
    {
        std::shared_ptr<const OrvFont::Detail::FontProgram> program;
        bool isReplaced = false;
        /// What was found wrong with a program that is embedded.
        std::string problem;
    };

    const Opened& Open() const;
    Opened OpenEmbedded() const;
    /// `state` is what is wrong with the font; the sentence about it goes to `problem`.
    Opened Replace(const std::string& state, std::string& problem) const;

    Description description;
    std::unique_ptr<const FontStream> stream;
    std::shared_ptr<const LateProblems> problems;
    LazyValue<Opened> opened;
    // Two threads may open the program at once.
    mutable std::once_flag toldOnce;
};

} // namespace OrvPdf
