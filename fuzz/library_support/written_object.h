#pragma once

#include <memory>
#include <string>
#include <string_view>

#include <qpdf/QPDF.hh>
#include <qpdf/QPDFObjectHandle.hh>

namespace HarrowSupport::Fuzzing
{

/// An object in PDF syntax, with streams where they are wanted: a dictionary whose entry `Stream` is a string
/// becomes a stream of its bytes, and one where it is the name `Rest` a stream of the bytes that are given.
class WrittenObject
{
public:
    WrittenObject(const std::string& text, std::string_view rest);

    /// Null if the text is no object.
    QPDFObjectHandle Get() const { return object; }
    QPDF& GetFile() { return *workshop; }

private:
    QPDFObjectHandle WithStreams(QPDFObjectHandle part, std::string_view rest);
    QPDFObjectHandle MakeStream(QPDFObjectHandle dictionary, std::string_view rest);

    std::unique_ptr<QPDF> workshop;
    QPDFObjectHandle object;
};

/// A file without objects in memory, which prints nothing.
std::unique_ptr<QPDF> MakeEmptyFile();

} // namespace HarrowSupport::Fuzzing
