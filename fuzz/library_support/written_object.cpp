#include "library_support/written_object.h"

#include <exception>

namespace HarrowSupport::Fuzzing
{

std::unique_ptr<QPDF> MakeEmptyFile()
{
    auto file = std::make_unique<QPDF>();
    file->setSuppressWarnings(true);
    file->emptyPDF();
    return file;
}

WrittenObject::WrittenObject(const std::string& text, std::string_view rest)
    : workshop(MakeEmptyFile()), object(QPDFObjectHandle::newNull())
{
    try {
        object = WithStreams(QPDFObjectHandle::parse(workshop.get(), text, "the object"), rest);
    } catch (const std::exception&) {
        // It stays null.
    }
}

// The parser bounds how deep objects are nested.
QPDFObjectHandle WrittenObject::WithStreams(QPDFObjectHandle part, std::string_view rest)
{
    if (part.isIndirect())
        return part;
    if (part.isArray()) {
        for (int index = 0; index < part.getArrayNItems(); ++index)
            part.setArrayItem(index, WithStreams(part.getArrayItem(index), rest));
    } else if (part.isDictionary()) {
        for (const std::string& key : part.getKeys())
            part.replaceKey(key, WithStreams(part.getKey(key), rest));
        return MakeStream(part, rest);
    }
    return part;
}

QPDFObjectHandle WrittenObject::MakeStream(QPDFObjectHandle dictionary, std::string_view rest)
{
    QPDFObjectHandle bytes = dictionary.getKey("/Stream");
    const bool isRest = bytes.isNameAndEquals("/Rest");
    if (!bytes.isString() && !isRest)
        return dictionary;
    dictionary.removeKey("/Stream");
    QPDFObjectHandle stream =
        QPDFObjectHandle::newStream(workshop.get(), isRest ? std::string(rest) : bytes.getStringValue());
    for (const auto& [key, value] : dictionary.getDictAsMap())
        stream.getDict().replaceKey(key, value);
    return stream;
}

} // namespace HarrowSupport::Fuzzing
