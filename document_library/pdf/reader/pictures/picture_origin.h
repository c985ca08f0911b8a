#pragma once

#include <memory>
#include <string>

#include <orv_sys/pdf_object.h>
#include <qpdf/QPDFObjectHandle.hh>

#include "pdf/reader/file/stream_data.h"

namespace OrvPdf
{

class SourceFile;

/// Where the data of a picture stands.
class PictureOrigin
{
public:
    virtual ~PictureOrigin() = default;

    /// The bytes as they are encoded.
    virtual EncodedStream Fetch() const = 0;

    /// The object number in that file; 0 in another one, and for inline images.
    virtual int GetObjectNumber(const SourceFile& file) const = 0;

    /// The picture as a stream without references, as `FilePicture::Convert` gives it, with the colour space
    /// as it is called there.
    virtual OrvSys::PdfObject Convert(std::string& problem) const = 0;

    /// How a message names it.
    virtual std::string Describe() const = 0;
};

/// An image XObject.
std::shared_ptr<const PictureOrigin> MakeXObjectOrigin(std::shared_ptr<const SourceFile> file,
                                                       QPDFObjectHandle stream);

/// An inline image: its dictionary with keys and names in full, and its bytes. Messages call it by the name.
std::shared_ptr<const PictureOrigin> MakeInlineOrigin(OrvSys::PdfObject stream, std::string name);

} // namespace OrvPdf
