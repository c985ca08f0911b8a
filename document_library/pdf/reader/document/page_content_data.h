#pragma once

#include <string>
#include <vector>

#include <qpdf/QPDFObjectHandle.hh>

#include "pdf/decoded_bytes.h"

namespace OrvPdf
{

class SourceFile;

/// The decoded content stream of a page.
struct PageContentData
{
    DecodedBytes bytes;
    /// Problems with the streams, each naming its object; the bytes are what could be read nonetheless.
    std::vector<std::string> problems;
};

/// Decodes the parts of a page's content and joins them with a line feed in between, since a part ends an
/// operator or operand (ISO 32000-1, 7.8.2). Takes access to the file only while it fetches bytes. Throws
/// `std::bad_alloc` alone.
PageContentData ReadPageContent(const SourceFile& file, QPDFObjectHandle page);

} // namespace OrvPdf
