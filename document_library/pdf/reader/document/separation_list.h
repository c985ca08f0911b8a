#pragma once

#include <set>
#include <string>
#include <utility>
#include <vector>

#include <qpdf/QPDFObjectHandle.hh>

#include <orv_doc/separation.h>

#include "pdf/reader/resources/document_resources.h"

namespace OrvPdf
{

/// Separations in order of their first occurrence. Needs an access to the file.
class SeparationList
{
public:
    explicit SeparationList(DocumentResources& givenDocument) : document(givenDocument) {}

    /// Adds the entries of the catalogue's `OrvSeparations`.
    void AddListed(QPDFObjectHandle array);
    /// Adds the colorants of a colour space and of those below it. A malformed space still names them.
    void AddSpace(QPDFObjectHandle definition);

    std::vector<OrvDoc::Separation::Entry> Take() { return std::move(entries); }

private:
    void AddEntry(QPDFObjectHandle listed);
    void AddNames(QPDFObjectHandle definition);
    void Add(const std::string& name, OrvColor::Representation alternate,
             OrvColor::ColorSpace::Pointer space);
    void AddColorants(const OrvColor::ColorSpace::Pointer& space);

    DocumentResources& document;
    std::vector<OrvDoc::Separation::Entry> entries;
    std::set<std::string> names;
    std::set<QPDFObjGen> visited;
};

} // namespace OrvPdf
