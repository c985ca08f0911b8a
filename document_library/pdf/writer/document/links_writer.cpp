#include "pdf/writer/document/links_writer.h"

#include "pdf/writer/file/object_maker.h"

namespace OrvPdf
{

void WriteResolvedLinks(const std::vector<OrvDoc::NormalizedPDFLink>& links, QPDFObjectHandle catalogue)
{
    QPDFObjectHandle entries = catalogue.getKey("/OrvLinks");
    if (!entries.isDictionary()) {
        return;
    }
    for (const OrvDoc::NormalizedPDFLink& link : links) {
        QPDFObjectHandle specification = entries.getKey('/' + link.key);
        if (link.file.empty() || !specification.isDictionary() ||
            specification.getObjectID() != link.sourceObject) {
            continue;
        }
        const std::string path = link.file.generic_string();
        specification.replaceKey("/F", QPDFObjectHandle::newString(path));
        specification.replaceKey("/UF", ObjectMaker::MakeText(path));
        entries.removeKey('/' + link.key);
    }
    if (entries.getKeys().empty()) {
        catalogue.removeKey("/OrvLinks");
    }
}

} // namespace OrvPdf
