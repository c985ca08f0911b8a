#include "pdf/writer/file/object_maker.h"

#include <qpdf/QPDF.hh>

#include "pdf/number_text.h"
#include "pdf/writer/content/content_text.h"

namespace OrvPdf
{

using OrvSys::PdfObject;

namespace
{

QPDFObjectHandle MakeNumberObject(const std::string& text)
{
    const bool isInteger = text.find('.') == std::string::npos && text.size() < 10 && text != "-0";
    return isInteger ? QPDFObjectHandle::newInteger(std::stoll(text)) : QPDFObjectHandle::newReal(text);
}

} // namespace

ObjectMaker::ObjectMaker(QPDF& givenFile, bool isRewritten) : file(givenFile)
{
    if (!isRewritten) {
        return;
    }
    for (const auto& entry : file.getXRefTable()) {
        generations.emplace(entry.first.getObj(), entry.first.getGen());
    }
}

QPDFObjectHandle ObjectMaker::FindSourceObject(int number)
{
    const auto found = generations.find(number);
    return found == generations.end() ? QPDFObjectHandle::newNull()
                                      : file.getObjectByID(number, found->second);
}

bool ObjectMaker::IsSourceObject(QPDFObjectHandle object) const
{
    return object.isIndirect() && generations.count(object.getObjectID()) > 0;
}

QPDFObjectHandle ObjectMaker::Make(const PdfObject& value)
{
    switch (value.GetKind()) {
    case PdfObject::Kind::Null:
        return QPDFObjectHandle::newNull();
    case PdfObject::Kind::Boolean:
        return QPDFObjectHandle::newBool(value.GetBoolean());
    case PdfObject::Kind::Integer:
        return QPDFObjectHandle::newInteger(value.GetInteger());
    case PdfObject::Kind::Real:
        return QPDFObjectHandle::newReal(value.GetText());
    case PdfObject::Kind::String:
        return QPDFObjectHandle::newString(value.GetText());
    case PdfObject::Kind::Name:
        return MakeName(value.GetText());
    case PdfObject::Kind::Stream:
        return MakeShared(value);
    case PdfObject::Kind::Array:
    case PdfObject::Kind::Dictionary:
        break;
    }
    return MakeContainer(value);
}

// The nesting of values is bounded.
QPDFObjectHandle ObjectMaker::MakeContainer(const PdfObject& value)
{
    if (value.IsArray()) {
        std::vector<QPDFObjectHandle> items;
        for (const PdfObject& item : value.GetItems()) {
            items.push_back(Make(item));
        }
        return QPDFObjectHandle::newArray(items);
    }
    QPDFObjectHandle dictionary = QPDFObjectHandle::newDictionary();
    for (const auto& [key, item] : value.GetEntries()) {
        dictionary.replaceKey('/' + key, Make(item));
    }
    return dictionary;
}

QPDFObjectHandle ObjectMaker::MakeShared(const PdfObject& value)
{
    if (!value.IsArray() && !value.IsDictionary() && !value.IsStream()) {
        return Make(value);
    }
    for (const Known& candidate : known[value.GetDigest()]) {
        if (candidate.value == value) {
            return candidate.object;
        }
    }
    const QPDFObjectHandle object =
        value.IsStream() ? MakeStreamObject(value) : file.makeIndirectObject(MakeContainer(value));
    known[value.GetDigest()].push_back({value, object});
    return object;
}

QPDFObjectHandle ObjectMaker::MakeStreamObject(const PdfObject& value)
{
    const bool isEncoded = !value.Find("Filter").IsNull();
    QPDFObjectHandle stream =
        isEncoded ? QPDFObjectHandle::newStream(&file, value.GetRawBytes()) : MakeStream(value.GetRawBytes());
    for (const auto& [key, item] : value.GetEntries()) {
        stream.getDict().replaceKey('/' + key, Make(item));
    }
    return stream;
}

QPDFObjectHandle ObjectMaker::MakeStream(std::string_view data)
{
    QPDFObjectHandle stream = QPDFObjectHandle::newStream(&file);
    ReplaceData(stream, data);
    return stream;
}

void ObjectMaker::ReplaceData(QPDFObjectHandle stream, std::string_view data)
{
    stream.replaceStreamData(compressor.Compress(data), QPDFObjectHandle::newName("/FlateDecode"),
                             QPDFObjectHandle::newNull());
}

QPDFObjectHandle ObjectMaker::MakeText(const std::string& utf8)
{
    return QPDFObjectHandle::newString(EncodeTextString(utf8));
}

QPDFObjectHandle ObjectMaker::MakeName(const std::string& name)
{
    return QPDFObjectHandle::newName('/' + name);
}

QPDFObjectHandle ObjectMaker::MakeLength(double milliPoints)
{
    std::string text;
    AppendLength(text, milliPoints);
    return MakeNumberObject(text);
}

QPDFObjectHandle ObjectMaker::MakeNumber(double number)
{
    std::string text;
    AppendNumber(text, number, 0);
    return MakeNumberObject(text);
}

} // namespace OrvPdf
