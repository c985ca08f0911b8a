#pragma once

#include <map>
#include <memory>
#include <string>

#include <orv_blend/soft_mask.h>

#include "pdf/reader/resources/matrix_key.h"
#include "pdf/reader/resources/nested_stream.h"

namespace OrvPdf
{

/// The drawing of soft masks of a file. Any number of dictionaries may name one.
class MaskDrawing
{
public:
    /// `around` are the resources of the content that names it first. Needs an access to the file.
    MaskDrawing(DocumentResources& givenDocument, QPDFObjectHandle givenStream, QPDFObjectHandle around);

    /// Read when it is first asked for. Null, with the reason in `problem`, if it can't be read now.
    std::shared_ptr<OrvDoc::Content> Get(std::string& problem);
    /// What reading it met; null for nothing.
    const std::shared_ptr<const NestedReading>& GetTold() const { return told; }

private:
    /// Whether the drawing names a layer, which shows or hides it as a whole.
    bool HasLayer() const;

    DocumentResources& document;
    NestedStream stream;
    std::shared_ptr<OrvDoc::Content> content;
    std::shared_ptr<const NestedReading> told;
};

/// A soft mask dictionary of a file (ISO 32000-1, 11.6.5.2). Its drawing is read when somebody sets it.
class PdfMask : public MaskDefinition
{
public:
    PdfMask(DocumentResources& givenDocument, QPDFObjectHandle givenDictionary,
            std::shared_ptr<MaskDrawing> givenDrawing);

    std::shared_ptr<const MaskUse> Use(const Matrix& matrix, std::string& problem) override;

private:
    /// What doesn't depend on where the mask is set.
    bool ReadFields(OrvBlend::SoftMask::Factory& factory, std::string& problem);
    bool ReadBackdrop(OrvBlend::SoftMask::Factory& factory, std::string& problem);
    bool ReadTransferFunction(OrvBlend::SoftMask::Factory& factory, std::string& problem);
    Matrix FindTransformation(const Matrix& matrix);

    DocumentResources& document;
    QPDFObjectHandle dictionary;
    std::shared_ptr<MaskDrawing> drawing;
    std::unique_ptr<OrvBlend::SoftMask::Factory> fields;
    std::map<MatrixKey, std::shared_ptr<const MaskUse>> variants;
};

} // namespace OrvPdf
