#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include <qpdf/QPDFObjectHandle.hh>

#include <orv_doc/read_options.h>

namespace OrvPdf
{

/// Whether a dictionary, or that of a stream, defines a function.
bool IsFunction(QPDFObjectHandle object);

/// The limit that the definition of a function or a colour space goes beyond, as text; empty for none, and
/// for all other objects. Looks at the object itself alone, and takes no memory for what it asks for.
/// `functionsAround` counts the functions that the object is a part of. Needs an access to the file.
std::string FindDefinitionLimit(QPDFObjectHandle object, std::size_t functionsAround,
                                const OrvDoc::ReadOptions::Limits& limits);

/// The same for the program of a calculator function.
std::string FindCalculatorLimit(std::string_view program, const OrvDoc::ReadOptions::Limits& limits);

} // namespace OrvPdf
