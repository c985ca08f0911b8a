#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include <qpdf/QPDFObjectHandle.hh>

#include <orv_sys/pdf_object.h>

#include "pdf/writer/file/flate_compressor.h"

class QPDF;

namespace OrvPdf
{

/// Makes objects of a file that is being written. Equal streams and shared values are made once.
class ObjectMaker
{
public:
    /// `isRewritten`: the file holds the objects of one that was read.
    ObjectMaker(QPDF& givenFile, bool isRewritten);

    QPDF& GetFile() { return file; }

    /// The value as an object, streams in it as objects of their own.
    QPDFObjectHandle Make(const OrvSys::PdfObject& value);
    /// The value as an object of its own that all who ask for an equal one share. Scalars stay direct.
    QPDFObjectHandle MakeShared(const OrvSys::PdfObject& value);
    /// A new compressed stream of the data.
    QPDFObjectHandle MakeStream(std::string_view data);

    /// Gives a stream other data, compressed. The rest of its dictionary stays.
    void ReplaceData(QPDFObjectHandle stream, std::string_view data);

    /// The object of that number in the file that is rewritten; null for 0 and for numbers that the file
    /// doesn't have.
    QPDFObjectHandle FindSourceObject(int number);

    /// Whether the object stood in the file that is rewritten.
    bool IsSourceObject(QPDFObjectHandle object) const;

    /// A text string of UTF-8.
    static QPDFObjectHandle MakeText(const std::string& utf8);
    /// A name without its solidus.
    static QPDFObjectHandle MakeName(const std::string& name);
    /// A length of milli-points, in points.
    static QPDFObjectHandle MakeLength(double milliPoints);
    /// A number as it is. It must be finite.
    static QPDFObjectHandle MakeNumber(double number);

private:
    struct Known
    {
        OrvSys::PdfObject value;
        QPDFObjectHandle object;
    };

    QPDFObjectHandle MakeContainer(const OrvSys::PdfObject& value);
    QPDFObjectHandle MakeStreamObject(const OrvSys::PdfObject& value);

    QPDF& file;
    /// Of the objects of the file as it was read, by number.
    std::unordered_map<int, int> generations;
    FlateCompressor compressor;
    std::unordered_map<std::uint64_t, std::vector<Known>> known;
};

} // namespace OrvPdf
