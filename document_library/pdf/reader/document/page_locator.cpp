#include "pdf/reader/document/page_locator.h"

#include <qpdf/QPDF.hh>

#include "pdf/reader/file/qpdf_text.h"

namespace OrvPdf
{

QPDFObjectHandle FindPage(QPDF& file, const PageLocator& locator)
{
    QPDFObjectHandle page;
    if (locator.objectNumber != 0) {
        page = file.getObject(locator.objectNumber, locator.generation);
    } else {
        page = file.getRoot().getKey("/Pages");
        for (const int index : locator.kidPath) {
            QPDFObjectHandle kids = GetEntry(page, "/Kids");
            if (!kids.isArray() || index >= kids.getArrayNItems())
                return QPDFObjectHandle::newNull();
            page = kids.getArrayItem(index);
        }
    }
    return page.isDictionary() ? page : QPDFObjectHandle::newNull();
}

} // namespace OrvPdf
