#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include <qpdf/Buffer.hh>
#include <qpdf/QPDFObjectHandle.hh>

#include "pdf/decoded_bytes.h"
#include "pdf/pictures/fax_decoder.h"
#include "pdf/reader/file/byte_limit.h"

namespace OrvPdf
{

class SourceFile;

/// One filter of a stream with its parameters (ISO 32000-1, 7.4).
struct FilterStage
{
    std::string name; // Without slash, never abbreviated.
    long long predictor = 1;
    long long colors = 1;
    long long bitsPerComponent = 8;
    long long columns = 1;
    long long earlyChange = 1;
    /// Of DCTDecode; -1 if it isn't given.
    long long colorTransform = -1;
    FaxParameters fax;
};

/// The name of a filter that an inline image may abbreviate (ISO 32000-1, Table 94).
std::string ExpandFilterName(const std::string& name);

/// The bytes of a stream as the file has them, but decrypted, and how they are encoded.
struct EncodedStream
{
    std::shared_ptr<Buffer> raw;
    std::vector<FilterStage> stages;
    /// What is wrong with the stream's dictionary or data; empty if nothing is.
    std::string problem;

    std::string_view View() const;
};

/// Takes a stream's bytes out of the file. Needs an access to it; what follows doesn't. Throws nothing for
/// what the file holds.
EncodedStream FetchStream(QPDFObjectHandle stream);

/// The filters that a dictionary names, in order. What is wrong with them is returned, and empty if nothing
/// is.
std::string ReadFilterStages(QPDFObjectHandle dictionary, std::vector<FilterStage>& stages);

struct DecodedStream
{
    DecodedBytes bytes;
    /// What was wrong, in words that can follow "object 12 0: "; empty if nothing was. The bytes are then as
    /// much as came out.
    std::string problem;
    /// Whether all filters were applied, though perhaps to damaged data. Pictures' own filters are not: they
    /// give samples and no bytes.
    bool isDecoded = true;
};

/// Applies the filters in order. No stage of it gives more bytes than the limit, nor than the document has
/// left, so that neither memory nor time is taken without a bound. Counts the bytes for the document. Where
/// it is known how many bytes will come, decoding them takes one attempt. Throws `std::bad_alloc` alone.
DecodedStream DecodeStream(const SourceFile& file, const EncodedStream& encoded, const ByteLimit& limit,
                           std::uint64_t expectedBytes = 0);

} // namespace OrvPdf
