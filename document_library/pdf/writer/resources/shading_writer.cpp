#include "pdf/writer/resources/shading_writer.h"

#include <string>
#include <utility>
#include <vector>

#include <qpdf/QPDF.hh>

#include <orv_paint/whole_shading_paint.h>

#include "pdf/number_text.h"
#include "pdf/writer/file/object_maker.h"

namespace OrvPdf
{

namespace
{

using OrvSys::PdfObject;

PdfObject DefineMatrix(const Plexa::TransformationBase<Plexa::MilliPointCoordinateSystem>& matrix)
{
    PdfObject::Items items;
    const auto add = [&items](double number, int decimalShift) {
        std::string text;
        AppendNumber(text, number, decimalShift);
        items.push_back(PdfObject::Real(std::move(text)));
    };
    for (const double number : {matrix.a, matrix.b, matrix.c, matrix.d}) {
        add(number, 0);
    }
    for (const double length : {matrix.x.value, matrix.y.value}) {
        add(length, 3);
    }
    return PdfObject::Array(std::move(items));
}

} // namespace

QPDFObjectHandle ShadingWriter::GetPattern(const WrittenPattern& pattern)
{
    Known& found = known[pattern.paint.get()];
    if (!found.paint) {
        const auto& paint = static_cast<const OrvPaint::ShadingPaint&>(*pattern.paint);
        PdfObject::Entries entries = {{"Type", PdfObject::Name("Pattern")},
                                      {"PatternType", PdfObject::Integer(2)}};
        if (!Plexa::IsIdentity(paint.GetTransformation())) {
            entries["Matrix"] = DefineMatrix(paint.GetTransformation());
        }
        found.paint = pattern.paint;
        found.object =
            maker.GetFile().makeIndirectObject(maker.Make(PdfObject::Dictionary(std::move(entries))));
        found.object.replaceKey("/Shading", MakeShading(pattern));
    }
    return found.object;
}

QPDFObjectHandle ShadingWriter::MakeShading(const WrittenPattern& pattern)
{
    PdfObject definition = pattern.shading->dictionary;
    if (pattern.paint->GetType() == OrvPaint::Paint::Type::OtherShading) {
        const PdfObject& whole =
            static_cast<const OrvPaint::WholeShadingPaint&>(*pattern.paint).GetDefinition();
        if (whole.IsStream()) {
            definition = PdfObject::Stream(definition, whole.GetRawBytes());
        }
    }
    QPDFObjectHandle shading = maker.MakeShared(definition);
    QPDFObjectHandle dictionary = shading.isStream() ? shading.getDict() : shading;
    dictionary.replaceKey("/ColorSpace", maker.MakeShared(definition.Find("ColorSpace")));
    const PdfObject function = definition.Find("Function");
    if (!function.IsNull()) {
        dictionary.replaceKey("/Function", MakeFunction(function));
    }
    return shading;
}

QPDFObjectHandle ShadingWriter::MakeFunction(const PdfObject& function)
{
    if (!function.IsArray()) {
        return maker.MakeShared(function);
    }
    std::vector<QPDFObjectHandle> functions;
    for (const PdfObject& item : function.GetItems()) {
        functions.push_back(maker.MakeShared(item));
    }
    return QPDFObjectHandle::newArray(functions);
}

} // namespace OrvPdf
