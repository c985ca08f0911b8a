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

/// The function of a shading: that of a definition, or of an array of definitions with one output each (ISO
/// 32000-1, 8.7.4.5), which is one function with as many outputs, and WholeFunction only where no other is
/// exactly the same. Throws as MakeFunction does.
ORV_EXPORT std::shared_ptr<const Function> MakeFunctionOfShading(const OrvSys::PdfObject& definition);

/// The definition that goes into a file: reading it back gives an equal function.
ORV_EXPORT OrvSys::PdfObject GetFunctionDefinition(const Function& function);

} // namespace OrvPaint
