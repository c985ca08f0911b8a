#pragma once

#include <string>

#include <orv_sys/pdf_object.h>

namespace OrvPdf
{

/// Whether a parameter of the graphics state (ISO 32000-1, table 58) has its initial value, so that setting
/// it changes nothing that the model would have to know.
bool IsNeutralParameter(const std::string& key, const OrvSys::PdfObject& value);

} // namespace OrvPdf
