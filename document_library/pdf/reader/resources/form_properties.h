#pragma once

#include <string>
#include <vector>

#include <qpdf/QPDFObjectHandle.hh>

#include <orv_paint/form_paint.h>

namespace OrvPdf
{

class DocumentResources;

/// Reads what a form XObject says about itself beside its content: the page of another file that it stands
/// for
/// (`Ref`, ISO 32000-1, 8.10.4), and its scope and unique ID (`GTS_Scope` and `GTS_XID`, ISO 16612-2). A file
/// that is named relative to the document's own becomes an absolute path. Needs an access to the file.
void ReadFormProperties(QPDFObjectHandle form, DocumentResources& document,
                        OrvPaint::FormPaint::Factory& factory, std::vector<std::string>& problems);

/// The names of the scopes in a file, in order of their values.
extern const char* const formScopeNames[6];

} // namespace OrvPdf
