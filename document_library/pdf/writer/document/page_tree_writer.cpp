#include "pdf/writer/document/page_tree_writer.h"

#include <algorithm>
#include <map>
#include <tuple>

#include <qpdf/QPDF.hh>

#include <orv_doc/document.h>

#include "pdf/reader/document/page_source.h"
#include "pdf/reader/document/pdf_document_source.h"
#include "pdf/writer/file/object_maker.h"

namespace OrvPdf
{

namespace
{

using LocatorKey = std::tuple<int, int, std::vector<int>>;

LocatorKey GetKey(const PageLocator& locator)
{
    return {locator.objectNumber, locator.generation, locator.kidPath};
}

PageEntry MakeEmptyEntry(ObjectMaker& maker)
{
    PageEntry entry;
    entry.dictionary = maker.GetFile().makeIndirectObject(QPDFObjectHandle::newDictionary());
    return entry;
}

} // namespace

std::vector<PageEntry> FindPageObjects(const OrvDoc::Document& document, const PdfDocumentSource* source,
                                       ObjectMaker& maker)
{
    // A tree can lead to one page several times, each time with other inherited entries.
    std::map<LocatorKey, std::vector<PageEntry>> entries;
    if (source) {
        // Problems of the tree were told when it was read.
        ErrorList errors(0);
        for (PageEntry& entry :
             ReadPageEntries(maker.GetFile(), source->GetFile().GetOptions().limits, errors)) {
            LocatorKey key = GetKey(entry.locator);
            entries[std::move(key)].push_back(std::move(entry));
        }
    }
    std::vector<PageEntry> found;
    std::map<LocatorKey, std::size_t> used;
    for (auto page = document.GetPagesBegin(); page != document.GetPagesEnd(); ++page) {
        const auto* const pageSource = dynamic_cast<const PdfPageSource*>(page->GetSource());
        const auto entry = pageSource ? entries.find(GetKey(pageSource->GetLocator())) : entries.end();
        if (entry == entries.end()) {
            found.push_back(MakeEmptyEntry(maker));
            continue;
        }
        const std::size_t turn = used[entry->first]++;
        PageEntry taken = entry->second[std::min(turn, entry->second.size() - 1)];
        if (turn > 0 || !taken.dictionary.isIndirect()) {
            taken.dictionary = maker.GetFile().makeIndirectObject(taken.dictionary.shallowCopy());
        }
        found.push_back(std::move(taken));
    }
    return found;
}

void WritePageTree(const std::vector<PageEntry>& pages, QPDFObjectHandle catalogue, ObjectMaker& maker)
{
    QPDFObjectHandle root = catalogue.getKey("/Pages");
    // A file may name its only page there.
    if (!root.isDictionary() || !root.getKey("/Kids").isArray()) {
        root = QPDFObjectHandle::newDictionary();
    }
    if (!root.isIndirect()) {
        root = maker.GetFile().makeIndirectObject(root);
    }
    catalogue.replaceKey("/Pages", root);
    for (const char* const key : {"/Resources", "/MediaBox", "/CropBox", "/Rotate", "/Parent"}) {
        root.removeKey(key);
    }
    std::vector<QPDFObjectHandle> kids;
    kids.reserve(pages.size());
    for (const PageEntry& page : pages) {
        QPDFObjectHandle dictionary = page.dictionary;
        dictionary.replaceKey("/Parent", root);
        kids.push_back(dictionary);
    }
    root.replaceKey("/Type", QPDFObjectHandle::newName("/Pages"));
    root.replaceKey("/Count", QPDFObjectHandle::newInteger(static_cast<long long>(kids.size())));
    root.replaceKey("/Kids", QPDFObjectHandle::newArray(kids));
}

} // namespace OrvPdf
