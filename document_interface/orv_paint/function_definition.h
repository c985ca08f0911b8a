#pragma once

#include <memory>

#include <orv_paint/function.h>
#include <orv_sys/export.h>
#include <orv_sys/pdf_object.h>

namespace OrvPaint
{

// For makers of documents.

/// The function that a file defines, of any type (ISO 32000-1, 7.10). References must be resolved. Throws
/// std::invalid_argument that tells what is wrong, std::length_error if functions are nested too deeply.
ORV_EXPORT std::shared_ptr<const Function> MakeFunction(const OrvSys::PdfObject& definition);

/// The definition that goes into a file: reading it back gives an equal function.
ORV_EXPORT OrvSys::PdfObject GetFunctionDefinition(const Function& function);

} // namespace OrvPaint
