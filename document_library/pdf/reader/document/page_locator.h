#pragma once

#include <vector>

#include <qpdf/QPDFObjectHandle.hh>

class QPDF;

namespace OrvPdf
{

/// Where a page's dictionary stands in a file, so that it can be found in a second opening of the same file.
struct PageLocator
{
    /// Of the page's own object; 0 if its dictionary stands directly in the page tree.
    int objectNumber = 0;
    int generation = 0;
    /// For a page without an object number: indices into `Kids` from the root of the page tree downwards.
    std::vector<int> kidPath;
};

/// The page's dictionary; a null object if there is none at that place.
QPDFObjectHandle FindPage(QPDF& file, const PageLocator& locator);

} // namespace OrvPdf
