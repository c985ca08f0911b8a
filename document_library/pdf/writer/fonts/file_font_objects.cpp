#include "pdf/writer/fonts/file_font_objects.h"

#include <qpdf/QPDF.hh>

#include "pdf/fonts/file_font.h"
#include "pdf/fonts/font_origin.h"
#include "pdf/writer/file/object_maker.h"

namespace OrvPdf
{

QPDFObjectHandle MakeFileFontObject(const FileFont& font, const SourceFile* source, ObjectMaker& maker,
                                    std::string& problem)
{
    const FontOrigin& origin = font.GetOrigin();
    if (source) {
        QPDFObjectHandle known = maker.FindSourceObject(origin.GetObjectNumber(*source));
        if (!known.isNull())
            return known;
        const std::string text = origin.GetDirectText(*source);
        if (!text.empty())
            return maker.GetFile().makeIndirectObject(
                QPDFObjectHandle::parse(&maker.GetFile(), text, "a font in the resources"));
    }
    const OrvSys::PdfObject dictionary = origin.Convert(problem);
    return dictionary.IsDictionary() ? maker.MakeShared(dictionary) : QPDFObjectHandle::newNull();
}

} // namespace OrvPdf
