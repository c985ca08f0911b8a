#include "pdf/writer/file/trailer_mending.h"

namespace OrvPdf
{

namespace
{

/// The PDF library fills in the number of objects, but only where a trailer has one: that of a damaged file
/// may not.
void RequireSize(QPDFObjectHandle trailer)
{
    if (!trailer.hasKey("/Size")) {
        trailer.replaceKey("/Size", QPDFObjectHandle::newInteger(0));
    }
}

/// The PDF library writes with the length of the key that the entry names, and reads with another one where
/// it is missing or odd.
void RequireKeyLength(QPDFObjectHandle trailer)
{
    QPDFObjectHandle encryption = trailer.getKey("/Encrypt");
    if (!encryption.isDictionary() || !encryption.getKey("/V").isInteger()) {
        return;
    }
    const auto version = encryption.getKey("/V").getIntValue();
    QPDFObjectHandle said = encryption.getKey("/Length");
    long long length = said.isInteger() ? said.getIntValue() : 0;
    if (version >= 4) {
        length = version == 4 ? 128 : 256;
    } else if (length < 40 || length > 128 || length % 8 != 0) {
        length = version <= 1 ? 40 : 128;
    }
    encryption.replaceKey("/Length", QPDFObjectHandle::newInteger(length));
}

/// Readers look for a dictionary there.
void RequireInfoDictionary(QPDFObjectHandle trailer, std::vector<std::string>& errors)
{
    QPDFObjectHandle information = trailer.getKey("/Info");
    if (information.isNull() || information.isDictionary()) {
        return;
    }
    trailer.removeKey("/Info");
    errors.push_back("the trailer's Info is left out: it is no dictionary");
}

/// The PDF library takes the first of two strings from there, and fails where it has none. An encrypted file
/// was read with the empty one then.
void RequireIdentifier(QPDFObjectHandle trailer)
{
    QPDFObjectHandle identifier = trailer.getKey("/ID");
    if (identifier.isArray() && identifier.getArrayNItems() == 2 && identifier.getArrayItem(0).isString()) {
        return;
    }
    trailer.removeKey("/ID");
    if (trailer.getKey("/Encrypt").isDictionary()) {
        const QPDFObjectHandle empty = QPDFObjectHandle::newString("");
        trailer.replaceKey("/ID", QPDFObjectHandle::newArray({empty, empty}));
    }
}

} // namespace

std::vector<std::string> MendTrailer(QPDFObjectHandle trailer)
{
    std::vector<std::string> errors;
    RequireSize(trailer);
    RequireKeyLength(trailer);
    RequireInfoDictionary(trailer, errors);
    RequireIdentifier(trailer);
    return errors;
}

} // namespace OrvPdf
