#pragma once

#include <string>

#include <qpdf/QPDFObjectHandle.hh>

namespace OrvPdf
{

class FileFont;
class ObjectMaker;
class SourceFile;

/// The dictionary of a font that was read from a file, whole, as an object of the file that is being written:
/// the one that stands there if that file is `source` written again, a copy otherwise. `source` may be null.
/// A null object, with the reason in `problem`, for a font of another file that cannot be copied.
QPDFObjectHandle MakeFileFontObject(const FileFont& font, const SourceFile* source, ObjectMaker& maker,
                                    std::string& problem);

} // namespace OrvPdf
