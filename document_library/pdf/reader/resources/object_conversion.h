#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <set>
#include <string>

#include <qpdf/QPDFObjGen.hh>
#include <qpdf/QPDFObjectHandle.hh>

#include <orv_sys/pdf_object.h>

namespace OrvPdf
{

class SourceFile;

/// Turns objects of a file into self-contained values. Needs an access to the file.
///
/// References are resolved, and streams decoded as far as their filters give bytes: a function or a profile
/// is the same however a writer compressed it. A damaged one is what comes out of it, since that is what is
/// written of it. Streams of other filters are kept as they stand.
class ObjectConverter
{
public:
    explicit ObjectConverter(const SourceFile& givenFile) : file(givenFile) {}

    /// The value of an object. A problem is told in words that can follow "object 12 0: ", and the result is
    /// then null: it refers to itself, is nested too deeply or is too large, or the document has had too many
    /// objects converted already. Throws `std::bad_alloc` alone.
    OrvSys::PdfObject Convert(QPDFObjectHandle object, std::string& problem);

private:
    using Finished = std::map<QPDFObjGen, OrvSys::PdfObject>;

    /// The state of one conversion.
    struct Run
    {
        std::set<QPDFObjGen> open; // What the conversion is in the middle of.
        Finished finished;         // So that an object that is referred to twice is converted once.
        std::size_t nodes = 0;
        std::size_t depth = 0;
        std::size_t functions = 0; // How many of what is open are functions.
    };

    OrvSys::PdfObject ConvertNode(QPDFObjectHandle object, Run& run);
    OrvSys::PdfObject ConvertValue(QPDFObjectHandle object, Run& run);
    OrvSys::PdfObject ConvertContainer(QPDFObjectHandle object, Run& run);
    OrvSys::PdfObject ConvertDictionary(QPDFObjectHandle dictionary, Run& run);
    OrvSys::PdfObject ConvertStream(QPDFObjectHandle stream, Run& run);

    const SourceFile& file;
    std::uint64_t allNodes = 0;
    // Profiles and functions that many definitions refer to are decoded once.
    Finished streams;
    std::uint64_t streamBytes = 0;
};

} // namespace OrvPdf
