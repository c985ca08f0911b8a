#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include <qpdf/QPDFObjGen.hh>
#include <qpdf/QPDFObjectHandle.hh>

#include <orv_color/color_space.h>

#include "pdf/reader/file/source_file.h"
#include "pdf/reader/fonts/font_reader.h"
#include "pdf/reader/pictures/picture_reader.h"
#include "pdf/reader/resources/form_reader.h"
#include "pdf/reader/resources/glyph_reader.h"
#include "pdf/reader/resources/mask_reader.h"
#include "pdf/reader/resources/object_conversion.h"
#include "pdf/reader/resources/tiling_reader.h"

namespace OrvDoc
{
class Document;
class LayerProperties;
} // namespace OrvDoc

namespace OrvPdf
{

class ShadingResource;

/// What the contents of one document share: colour spaces that are made once, and its layers by object
/// number. Everything here needs an access to the file.
class DocumentResources
{
public:
    explicit DocumentResources(std::shared_ptr<const SourceFile> givenFile);

    const SourceFile& GetFile() const { return *file; }
    const std::shared_ptr<const SourceFile>& GetSharedFile() const { return file; }
    ObjectConverter& GetConverter() { return converter; }
    FontReader& GetFonts() { return fonts; }
    PictureReader& GetPictures() { return pictures; }

    /// The colour space of a definition; equal definitions give the same object. Null, with the reason in
    /// `problem`, if it is malformed.
    OrvColor::ColorSpace::Pointer GetColorSpace(QPDFObjectHandle definition, std::string& problem);

    /// The document that the contents are read into. Set once, before any of them is read.
    OrvDoc::Document& GetDocument() const { return *document; }
    void SetDocument(OrvDoc::Document& value) { document = &value; }

    /// The form XObject in a stream; the same one for one object. `around` are the resources of the content
    /// that names it.
    std::shared_ptr<PdfForm> GetForm(QPDFObjectHandle stream, QPDFObjectHandle around);
    /// The tiling pattern in a stream; the same one for one object.
    std::shared_ptr<PdfTiling> GetTiling(QPDFObjectHandle stream, QPDFObjectHandle around);
    /// The soft mask of a dictionary with a form; the same one for one object.
    std::shared_ptr<PdfMask> GetMask(QPDFObjectHandle dictionary, QPDFObjectHandle around);
    /// The glyph of a Type 3 font of the document; null if the font has none for the character.
    std::shared_ptr<PdfGlyph> GetGlyph(const std::shared_ptr<const OrvFont::Font>& font,
                                       const OrvFont::Character& character, QPDFObjectHandle around);
    NestedContentLock& GetNestedContents() { return nestedContents; }

    /// The shading of a definition in the colour space that its `ColorSpace` means where it is used. `owner`
    /// is the object that the definition is or stands in, none if it stands in resources themselves: the same
    /// owner gives the same shading. Null, with the reason in `problem`, if it is malformed.
    std::shared_ptr<const ShadingResource> GetShading(QPDFObjectHandle definition, QPDFObjGen owner,
                                                      const OrvColor::ColorSpace::Pointer& space,
                                                      std::string& problem);

    void AddLayer(QPDFObjGen object, std::shared_ptr<OrvDoc::LayerProperties> layer);
    /// Null if that is no layer of the document.
    std::shared_ptr<OrvDoc::LayerProperties> FindLayer(QPDFObjectHandle object) const;

private:
    struct KnownSpace
    {
        OrvColor::ColorSpace::Pointer space;
        std::string problem;
    };

    struct KnownShading
    {
        std::shared_ptr<const ShadingResource> shading;
        std::string problem;
    };

    KnownSpace MakeColorSpace(QPDFObjectHandle definition);
    KnownShading MakeShading(QPDFObjectHandle definition, const OrvColor::ColorSpace::Pointer& space);

    std::shared_ptr<const SourceFile> file;
    ObjectConverter converter;
    FontReader fonts;
    PictureReader pictures;
    std::map<QPDFObjGen, KnownSpace> spacesByObject;
    std::unordered_map<std::uint64_t, std::vector<OrvColor::ColorSpace::Pointer>> spacesByDigest;
    std::map<std::pair<QPDFObjGen, OrvColor::ColorSpace::Pointer>, KnownShading> shadings;
    std::map<QPDFObjGen, std::shared_ptr<OrvDoc::LayerProperties>> layers;
    OrvDoc::Document* document = nullptr;
    std::map<QPDFObjGen, std::shared_ptr<PdfForm>> forms;
    std::map<QPDFObjGen, std::shared_ptr<PdfTiling>> tilings;
    std::map<std::pair<std::shared_ptr<const OrvFont::Font>, std::uint32_t>, std::shared_ptr<PdfGlyph>>
        glyphs;
    std::map<QPDFObjGen, std::shared_ptr<PdfMask>> masks;
    std::map<QPDFObjGen, std::shared_ptr<MaskDrawing>> maskDrawings;
    NestedContentLock nestedContents;
};

} // namespace OrvPdf
