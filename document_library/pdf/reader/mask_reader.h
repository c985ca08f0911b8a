#pragma once

#include <memory>
#include <string>
#include <vector>

#include <orv_blend/soft_mask.h>

#include "pdf/reader/nested_stream.h"

namespace OrvPdf
{

/// A soft mask dictionary of a file (ISO 32000-1, 11.6.5.2). Its drawing is read when somebody sets it.
class PdfMask : public MaskDefinition
{
public:
    /// `around` are the resources of the content that names the mask first. Needs an access to the file.
    PdfMask(DocumentResources& givenDocument, QPDFObjectHandle givenDictionary, QPDFObjectHandle around);

    std::shared_ptr<const MaskUse> Use(const Matrix& matrix, std::string& problem) override;

private:
    struct Variant
    {
        Matrix matrix;
        std::shared_ptr<const MaskUse> use;
    };

    std::shared_ptr<OrvDoc::Content> GetDrawing(std::string& problem);
    /// What doesn't depend on where the mask is set.
    bool ReadFields(OrvBlend::SoftMask::Factory& factory, std::string& problem);
    bool ReadBackdrop(OrvBlend::SoftMask::Factory& factory, std::string& problem);
    bool ReadTransferFunction(OrvBlend::SoftMask::Factory& factory, std::string& problem);
    Matrix FindTransformation(const Matrix& matrix);

    DocumentResources& document;
    QPDFObjectHandle dictionary;
    NestedStream stream;
    std::shared_ptr<OrvDoc::Content> drawing;
    std::shared_ptr<const NestedReading> told;
    std::unique_ptr<OrvBlend::SoftMask::Factory> fields;
    std::vector<Variant> variants;
};

} // namespace OrvPdf
