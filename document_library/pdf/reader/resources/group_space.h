#pragma once

#include <qpdf/QPDFObjectHandle.hh>

#include "pdf/reader/document/error_list.h"

namespace OrvDoc
{
class Content;
}

namespace OrvPdf
{

class DocumentResources;

/// Gives a content the blend colour space of its transparency group, the dictionary of a page's or form's
/// `Group` (ISO 32000-1, 11.6.6). Needs an access to the file.
void ReadGroupSpace(QPDFObjectHandle group, DocumentResources& document, OrvDoc::Content& content,
                    ErrorList& errors);

/// The same of a definition that stands elsewhere; null for none.
void ReadBlendSpace(QPDFObjectHandle definition, DocumentResources& document, OrvDoc::Content& content,
                    ErrorList& errors);

} // namespace OrvPdf
