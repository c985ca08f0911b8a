#pragma once

#include <memory>
#include <unordered_map>

#include <qpdf/QPDFObjectHandle.hh>

#include "pdf/writer/content/paint_patterns.h"

namespace OrvPdf
{

class ObjectMaker;

/// Makes the objects of shading patterns (ISO 32000-1, 8.7.4). A paint has one object in the whole file;
/// paints that differ in their matrix alone share the shading, and equal functions and colour spaces are one
/// object each.
class ShadingWriter
{
public:
    explicit ShadingWriter(ObjectMaker& givenMaker) : maker(givenMaker) {}

    /// The pattern dictionary of a pattern that is a shading.
    QPDFObjectHandle GetPattern(const WrittenPattern& pattern);

private:
    /// A paint, which is kept so that no other one can have its address.
    struct Known
    {
        std::shared_ptr<const OrvPaint::Paint> paint;
        QPDFObjectHandle object;
    };

    QPDFObjectHandle MakeShading(const WrittenPattern& pattern);
    QPDFObjectHandle MakeFunction(const OrvSys::PdfObject& function);

    ObjectMaker& maker;
    std::unordered_map<const OrvPaint::Paint*, Known> known;
};

} // namespace OrvPdf
