#pragma once

#include <string>
#include <vector>

#include <qpdf/QPDFObjectHandle.hh>

namespace OrvPdf
{

class ObjectMaker;
class SourceFile;

/// Sees to the streams that a rewritten file takes over from its source: they keep their filters, and those
/// that can't be decoded are replaced by what can be decoded of them. White space before the data of a JPEG
/// picture goes. Returns an error for each of these, by object numbers.
///
/// What lies under a picture's own filter (DCT and the like) isn't tried.
std::vector<std::string> CheckSourceStreams(std::vector<QPDFObjectHandle> streams, ObjectMaker& maker,
                                            const SourceFile& source);

} // namespace OrvPdf
