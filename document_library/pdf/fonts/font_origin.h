#pragma once

#include <string>

#include <orv_sys/pdf_object.h>

namespace OrvPdf
{

class SourceFile;

/// Where the dictionary of a font stands, for who writes it again. Keeps its file open.
class FontOrigin
{
public:
    virtual ~FontOrigin() = default;

    /// The object number of the dictionary if it was read from this file; 0 from another one, and for a
    /// dictionary that stands in others.
    virtual int GetObjectNumber(const SourceFile& file) const = 0;

    /// A dictionary that stands in others, in PDF syntax with its references to objects of this file; empty
    /// if it was read from another one or has an object number.
    virtual std::string GetDirectText(const SourceFile& file) const = 0;

    /// The whole dictionary without references, as `ObjectConverter` makes it: with the program, the
    /// character maps and the procedures of glyphs. Decoded anew at each call. Null, with the reason in
    /// `problem`, if it refers to itself, which the procedures of a Type 3 font can do, or is too large.
    virtual OrvSys::PdfObject Convert(std::string& problem) const = 0;
};

} // namespace OrvPdf
