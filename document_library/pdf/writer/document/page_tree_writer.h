#pragma once

#include <vector>

#include <qpdf/QPDFObjectHandle.hh>

#include "pdf/reader/document/page_tree.h"

namespace OrvDoc
{
class Document;
class Page;
} // namespace OrvDoc

namespace OrvPdf
{

class ObjectMaker;
class PdfDocumentSource;

/// The page objects of a document in a file that is being written, in the document's order. Those that were
/// read from the file are its own; one that the document has twice is copied, and new pages are new. What
/// they inherit from the tree is told with each of them. `source` is the file that the document was read
/// from, or null.
std::vector<PageEntry> FindPageObjects(const OrvDoc::Document& document, const PdfDocumentSource* source,
                                       ObjectMaker& maker);

/// Makes the page tree (ISO 32000-1, 7.7.3) one list of these pages. The root keeps its object and what it
/// has beside the tree, but hands nothing down.
void WritePageTree(const std::vector<PageEntry>& pages, QPDFObjectHandle catalogue, ObjectMaker& maker);

} // namespace OrvPdf
