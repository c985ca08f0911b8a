#include "pdf/reader/document/links_reader.h"

#include <utility>

#include "pdf/reader/file/qpdf_text.h"

namespace OrvPdf
{

std::vector<OrvDoc::NormalizedPDFLink> ReadNormalizedLinks(QPDFObjectHandle catalogue, ErrorList& errors)
{
    std::vector<OrvDoc::NormalizedPDFLink> links;
    QPDFObjectHandle entries = GetEntry(catalogue, "/OrvLinks");
    if (entries.isNull())
        return links;
    if (!entries.isDictionary()) {
        errors.Add("the catalogue's OrvLinks is no dictionary");
        return links;
    }
    for (const auto& [key, handle] : entries.getDictAsMap()) {
        QPDFObjectHandle specification = handle;
        if (!specification.isIndirect() || !specification.isDictionary()) {
            errors.Add("OrvLinks: " + WithoutSlash(key) + " refers to no file specification");
            continue;
        }
        OrvDoc::NormalizedPDFLink link;
        link.key = WithoutSlash(key);
        link.sourceObject = specification.getObjectID();
        links.push_back(std::move(link));
    }
    return links;
}

} // namespace OrvPdf
