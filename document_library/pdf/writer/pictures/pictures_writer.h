#pragma once

#include <cstddef>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include <orv_color/color_list.h>
#include <orv_img/painted_picture.h>
#include <orv_img/picture_data.h>
#include <orv_img/picture_source.h>
#include <orv_sys/pdf_object.h>
#include <qpdf/QPDFObjectHandle.hh>

#include "pdf/writer/file/flate_compressor.h"

namespace OrvDoc
{
class Document;
}

namespace OrvPdf
{

class FilePicture;
class ObjectMaker;
class SeparationSpaces;
class SourceFile;

/// A picture that a content paints: either of them.
struct UsedPicture
{
    std::shared_ptr<const OrvImg::PaintedPicture> painted;
    std::shared_ptr<const OrvImg::PictureData> stencil;
};

/// Writes pictures as image XObjects (ISO 32000-1, 8.9.5). One that was read from a file keeps its encoded
/// bytes: it stays the object that it is if that file is written again and nobody changed it, and is copied
/// otherwise. Equal pictures are one object.
class PicturesWriter
{
public:
    /// `givenSource` is the file that is written again; null for none.
    PicturesWriter(const OrvDoc::Document& givenDocument, ObjectMaker& givenMaker,
                   SeparationSpaces& givenSeparations, const SourceFile* givenSource)
        : document(givenDocument), maker(givenMaker), separations(givenSeparations), source(givenSource)
    {}

    /// The object of a picture that can be written.
    QPDFObjectHandle Get(const UsedPicture& picture);

    /// What was wrong with samples that had to be decoded and come from another file, whose document may be
    /// gone. What is wrong with those of the document's own file is told to the document where it is found.
    const std::vector<std::string>& GetProblems() const { return problems; }

    /// The lowest version of PDF that knows what was written; "1.4" if nothing was.
    const std::string& GetVersion() const { return version; }

private:
    using Entries = OrvSys::PdfObject::Entries;
    using Value = OrvColor::ChannelMappingPolicy::Value;

    void NoteVersion(QPDFObjectHandle object);
    std::shared_ptr<const OrvImg::PictureBuffer> GetSamples(const OrvImg::PictureSource& picture);
    QPDFObjectHandle Make(const OrvImg::PaintedPicture& picture);
    QPDFObjectHandle MakeStencil(const OrvImg::PictureData& data);
    /// The object as it stands in the file that is written again; null if it doesn't.
    QPDFObjectHandle FindKept(const FilePicture& picture);
    /// Width, height and what all streams of pictures have; samples of one channel in DeviceGray.
    Entries BeginEntries(const OrvImg::PictureData& data) const;
    /// These channels of the samples, compressed.
    OrvSys::PdfObject MakeStream(Entries entries, const OrvImg::PictureData& data, std::size_t firstChannel,
                                 std::size_t count);
    OrvSys::PdfObject MakePlain(const OrvImg::PictureData& data);
    OrvSys::PdfObject MakeChannel(const OrvImg::PictureData& data, std::size_t channel);
    OrvSys::PdfObject MakeSoftMask(const OrvImg::PictureData& data, const Value& mapping);
    OrvSys::PdfObject MakeStencilStream(const OrvImg::PictureData& data);
    void SetMask(Entries& entries, const OrvImg::PaintedPicture& picture);

    const OrvDoc::Document& document;
    ObjectMaker& maker;
    SeparationSpaces& separations;
    const SourceFile* source;
    FlateCompressor compressor;
    std::string version = "1.4";
    std::vector<std::string> problems;
    std::map<const OrvImg::PaintedPicture*, QPDFObjectHandle> pictures;
    std::map<const OrvImg::PictureData*, QPDFObjectHandle> stencils;
    /// So that no address is that of another picture before the end.
    std::vector<UsedPicture> kept;
};

} // namespace OrvPdf
