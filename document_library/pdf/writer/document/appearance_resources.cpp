#include "pdf/writer/document/appearance_resources.h"

#include "pdf/reader/file/qpdf_text.h"

namespace OrvPdf
{

namespace
{

void GiveResources(QPDFObjectHandle appearance, QPDFObjectHandle resources)
{
    QPDFObjectHandle dictionary = appearance.getDict();
    if (!dictionary.hasKey("/Resources")) {
        dictionary.replaceKey("/Resources", resources.shallowCopy());
    }
}

} // namespace

void GiveResourcesToAppearances(QPDFObjectHandle page, QPDFObjectHandle resources)
{
    QPDFObjectHandle annotations = page.getKey("/Annots");
    if (!annotations.isArray() || !resources.isDictionary()) {
        return;
    }
    for (QPDFObjectHandle& annotation : annotations.getArrayAsVector()) {
        QPDFObjectHandle kinds = GetEntry(annotation, "/AP");
        for (const char* const kind : {"/N", "/R", "/D"}) {
            QPDFObjectHandle appearance = GetEntry(kinds, kind);
            if (appearance.isStream()) {
                GiveResources(appearance, resources);
            } else if (appearance.isDictionary()) {
                // One for each state of the annotation.
                for (const std::string& state : appearance.getKeys()) {
                    QPDFObjectHandle ofState = appearance.getKey(state);
                    if (ofState.isStream()) {
                        GiveResources(ofState, resources);
                    }
                }
            }
        }
    }
}

} // namespace OrvPdf
