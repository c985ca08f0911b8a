#pragma once

#include <memory>
#include <string>

#include <orv_doc/transfer_function_set.h>
#include <orv_sys/pdf_object.h>

namespace OrvPdf
{

// Transfer functions as a graphics state dictionary has them (ISO 32000-1, 10.4), both ways. One function is
// the default function; an array of four gives the named functions Cyan, Magenta, Yellow and Black, where
// Identity is null. Four times Identity is the same as none.

/// A key of our own for the sets that PDF has no word for. It counts before the standard keys, which then say
/// the same as far as they can. A dictionary of `Default` (a function; missing for the identity), `Names` (an
/// array of strings: the bytes of the names) and `Functions` (an array of a function or the name Identity for
/// each of the names).
inline constexpr const char* transferFunctionsKey = "OrvTransferFunctions";

/// Whether a function may stand in a set: one input, one output.
bool IsTransferFunction(const OrvPaint::Function& function);

/// What a graphics state dictionary says of transfer functions, of `TR` and `TR2` the one that counts. The
/// null object if it says nothing.
OrvSys::PdfObject SelectTransferEntries(const OrvSys::PdfObject& parameters);

/// The functions of entries that were selected; null for those of the device, which `Identity` and `Default`
/// are taken for. A problem is told in words that can follow "transfer functions: ", and the result is null.
std::shared_ptr<const OrvDoc::TransferFunctionSet> ReadTransferFunctions(const OrvSys::PdfObject& entries,
                                                                         std::string& problem);

/// The entries that read back as the set. Each function must be a transfer function.
OrvSys::PdfObject::Entries DefineTransferFunctions(const OrvDoc::TransferFunctionSet& functions);

} // namespace OrvPdf
