#pragma once

#include <string>

#include <orv_sys/pdf_object.h>

namespace OrvPdf
{

/// The OPI dictionary of a link of which no more than the URI is known (ISO 32000-1, 14.11.7, version 2.0).
OrvSys::PdfObject MakeOpiDictionary(const std::string& uri);

} // namespace OrvPdf
