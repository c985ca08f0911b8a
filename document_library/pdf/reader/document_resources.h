#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include <qpdf/QPDFObjGen.hh>
#include <qpdf/QPDFObjectHandle.hh>

#include <orv_color/color_space.h>

#include "pdf/reader/form_reader.h"
#include "pdf/reader/mask_reader.h"
#include "pdf/reader/object_conversion.h"
#include "pdf/reader/source_file.h"

namespace OrvDoc
{
class Document;
class LayerProperties;
} // namespace OrvDoc

namespace OrvPdf
{

/// What the contents of one document share: colour spaces that are made once, and its layers by object
/// number. Everything here needs an access to the file.
class DocumentResources
{
public:
    explicit DocumentResources(std::shared_ptr<const SourceFile> givenFile);

    const SourceFile& GetFile() const { return *file; }
    ObjectConverter& GetConverter() { return converter; }

    /// The colour space of a definition; equal definitions give the same object. Null, with the reason in
    /// `problem`, if it is malformed.
    OrvColor::ColorSpace::Pointer GetColorSpace(QPDFObjectHandle definition, std::string& problem);

    /// The document that the contents are read into. Set once, before any of them is read.
    OrvDoc::Document& GetDocument() const { return *document; }
    void SetDocument(OrvDoc::Document& value) { document = &value; }

    /// The form XObject in a stream; the same one for one object. `around` are the resources of the content
    /// that names it.
    std::shared_ptr<PdfForm> GetForm(QPDFObjectHandle stream, QPDFObjectHandle around);
    /// The soft mask of a dictionary with a form; the same one for one object.
    std::shared_ptr<PdfMask> GetMask(QPDFObjectHandle dictionary, QPDFObjectHandle around);
    NestedContentLock& GetNestedContents() { return nestedContents; }

    void AddLayer(int objectNumber, std::shared_ptr<OrvDoc::LayerProperties> layer);
    /// Null if no layer of the document has that object number.
    std::shared_ptr<OrvDoc::LayerProperties> FindLayer(int objectNumber) const;

private:
    struct KnownSpace
    {
        OrvColor::ColorSpace::Pointer space;
        std::string problem;
    };

    KnownSpace MakeColorSpace(QPDFObjectHandle definition);

    std::shared_ptr<const SourceFile> file;
    ObjectConverter converter;
    std::map<QPDFObjGen, KnownSpace> spacesByObject;
    std::unordered_map<std::uint64_t, std::vector<OrvColor::ColorSpace::Pointer>> spacesByDigest;
    std::map<int, std::shared_ptr<OrvDoc::LayerProperties>> layers;
    OrvDoc::Document* document = nullptr;
    std::map<QPDFObjGen, std::shared_ptr<PdfForm>> forms;
    std::map<QPDFObjGen, std::shared_ptr<PdfMask>> masks;
    NestedContentLock nestedContents;
};

} // namespace OrvPdf
