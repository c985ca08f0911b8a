#pragma once

#include <vector>

#include <qpdf/QPDFObjectHandle.hh>

#include <orv_doc/read_options.h>

#include "pdf/reader/document/error_list.h"
#include "pdf/reader/document/page_locator.h"

class QPDF;

namespace OrvPdf
{

/// What a page may have from a node above it in the page tree (ISO 32000-1, 7.7.3.4).
struct InheritedEntries
{
    QPDFObjectHandle resources;
    QPDFObjectHandle mediaBox;
    QPDFObjectHandle cropBox;
    QPDFObjectHandle rotate;
};

/// A page as the tree lists it. What it doesn't have, neither itself nor from above, is a null object.
struct PageEntry
{
    QPDFObjectHandle dictionary;
    PageLocator locator;
    InheritedEntries entries; // Its own, and otherwise those from above.
};

/// Whether the file has something that a page tree can be read from. Cheap for a file that has a root of its
/// tree; without one, all objects are looked at for pages.
bool HasPages(QPDF& file);

/// Walks the page tree in order. What a node is, its `Kids` tell and not its `Type`, and `Count` isn't looked
/// at: real files get both wrong. Nodes that were met before are left out, pages are not: one page object
/// listed twice is two pages. A file without a root of the tree has its page objects in order of their
/// numbers. Problems are told with the node's object. Throws `std::bad_alloc` alone.
std::vector<PageEntry> ReadPageEntries(QPDF& file, const OrvDoc::ReadOptions::Limits& limits,
                                       ErrorList& errors);

} // namespace OrvPdf
