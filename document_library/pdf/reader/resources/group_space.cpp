#include "pdf/reader/resources/group_space.h"

#include <stdexcept>
#include <string>

#include <orv_doc/content.h>

#include "pdf/reader/file/qpdf_text.h"
#include "pdf/reader/resources/document_resources.h"

namespace OrvPdf
{

void ReadGroupSpace(QPDFObjectHandle group, DocumentResources& document, OrvDoc::Content& content,
                    ErrorList& errors)
{
    if (GetEntry(group, "/S").isNameAndEquals("/Transparency"))
        ReadBlendSpace(GetEntry(group, "/CS"), document, content, errors);
}

void ReadBlendSpace(QPDFObjectHandle definition, DocumentResources& document, OrvDoc::Content& content,
                    ErrorList& errors)
{
    if (definition.isNull())
        return;
    std::string problem;
    const OrvColor::ColorSpace::Pointer space = document.GetColorSpace(definition, problem);
    try {
        if (space)
            content.SetBlendColorSpace(OrvDoc::BlendColorSpace(space));
    } catch (const std::invalid_argument& failure) {
        problem = failure.what();
    }
    if (!problem.empty())
        errors.Add("Group: CS is left out: " + problem);
}

} // namespace OrvPdf
