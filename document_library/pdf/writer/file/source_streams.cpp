#include "pdf/writer/file/source_streams.h"

#include <algorithm>
#include <exception>
#include <new>
#include <string_view>

#include <qpdf/Pl_Discard.hh>
#include <qpdf/Pl_String.hh>
#include <qpdf/QPDF.hh>
#include <qpdf/QPDFExc.hh>

#include "pdf/reader/file/qpdf_text.h"
#include "pdf/reader/file/source_file.h"
#include "pdf/reader/file/stream_data.h"
#include "pdf/writer/file/object_maker.h"

namespace OrvPdf
{

namespace
{

/// The data of pictures (DCT and the like) isn't tried: the library that would do it prints its warnings, and
/// a picture that other programs still show in part is best left alone.
bool CanBeDecoded(QPDFObjectHandle stream)
{
    // What the PDF library hasn't read from a file it decodes without a guard, so all that it throws is
    // caught.
    if (stream.getDict().getKey("/Filter").isNull() && stream.getDict().getKey("/DecodeParms").isNull()) {
        return true;
    }
    try {
        Pl_Discard nowhere;
        return stream.pipeStreamData(&nowhere, nullptr, 0, qpdf_dl_specialized, true, false);
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const std::exception&) {
        return false;
    }
}

/// Whether the filters are given by names. What they stand for doesn't matter here.
bool HasFilterNames(QPDFObjectHandle dictionary)
{
    QPDFObjectHandle filter = dictionary.getKey("/Filter");
    if (!filter.isArray()) {
        return filter.isNull() || filter.isName();
    }
    const int count = filter.getArrayNItems();
    for (int index = 0; index < count; ++index) {
        if (!filter.getArrayItem(index).isName()) {
            return false;
        }
    }
    return true;
}

/// The data stay as unreadable as they were, but in a form that other programs know. False if nothing is
/// changed.
bool NameUnknownFilter(QPDFObjectHandle stream)
{
    QPDFObjectHandle dictionary = stream.getDict();
    if (HasFilterNames(dictionary)) {
        return false;
    }
    dictionary.replaceKey("/Filter", QPDFObjectHandle::newName("/OrvUnknown"));
    return true;
}

bool IsJpegPicture(QPDFObjectHandle stream)
{
    QPDFObjectHandle filter = stream.getDict().getKey("/Filter");
    const bool isSingle = filter.isArray() && filter.getArrayNItems() == 1;
    return (isSingle ? filter.getArrayItem(0) : filter).isNameAndEquals("/DCTDecode");
}

/// Takes white space from before the data of a picture, where some programs write a line feed that others
/// stop at. False if there is none.
bool TrimPicture(QPDFObjectHandle stream)
{
    if (!IsJpegPicture(stream)) {
        return false;
    }
    try {
        const auto buffer = stream.getRawStreamData();
        const std::string_view data(reinterpret_cast<const char*>(buffer->getBuffer()), buffer->getSize());
        const std::size_t start = data.find_first_not_of(" \t\r\n\f");
        if (start == 0 || start == std::string_view::npos || data.substr(start, 2) != "\xFF\xD8") {
            return false;
        }
        QPDFObjectHandle dictionary = stream.getDict();
        stream.replaceStreamData(std::string(data.substr(start)), dictionary.getKey("/Filter"),
                                 dictionary.getKey("/DecodeParms"));
        return true;
    } catch (const QPDFExc&) {
        return false;
    }
}

/// What comes out of a picture's own filter before the place where it fails.
std::string DecodePicture(QPDFObjectHandle stream)
{
    std::string samples;
    try {
        Pl_String output("samples", nullptr, samples);
        stream.pipeStreamData(&output, nullptr, 0, qpdf_dl_all, true, false);
    } catch (const std::exception&) {
        // What came before is all that there is.
    }
    return samples;
}

std::string Replace(QPDFObjectHandle stream, ObjectMaker& maker, const SourceFile& source)
{
    const std::uint64_t limit = source.GetOptions().limits.streamBytes;
    const EncodedStream encoded = FetchStream(stream);
    DecodedStream decoded = DecodeStream(source, encoded, {limit, "streamBytes", limit});
    const std::string problem = encoded.problem.empty() ? decoded.problem : encoded.problem;
    const std::string text =
        DescribeObject(stream) + ": a damaged stream is written as far as it can be decoded";
    const std::string data = decoded.isDecoded ? std::string(decoded.bytes.View()) : DecodePicture(stream);
    maker.ReplaceData(stream, data);
    return problem.empty() ? text : text + ": " + problem;
}

} // namespace

std::vector<std::string> CheckSourceStreams(std::vector<QPDFObjectHandle> streams, ObjectMaker& maker,
                                            const SourceFile& source)
{
    std::sort(streams.begin(), streams.end(),
              [](const QPDFObjectHandle& left, const QPDFObjectHandle& right) {
                  return left.getObjGen() < right.getObjGen();
              });
    std::vector<std::string> errors;
    for (QPDFObjectHandle& stream : streams) {
        if (TrimPicture(stream)) {
            errors.push_back(DescribeObject(stream) + ": white space before the picture's data is left out");
        }
        if (NameUnknownFilter(stream)) {
            errors.push_back(DescribeObject(stream) +
                             ": the filter, which has no name, is written as OrvUnknown");
        } else if (!CanBeDecoded(stream)) {
            errors.push_back(Replace(stream, maker, source));
        }
        stream.setFilterOnWrite(false);
    }
    return errors;
}

} // namespace OrvPdf
