#pragma once

#include <string>
#include <vector>

namespace HarrowSupport::Testing
{

/// The bytes of a PDF file of the given objects, numbered from 1 in their order, with a cross-reference table
/// that is right. The first object is the catalog.
std::string PdfFile(const std::vector<std::string>& objects);

/// The text of a stream object without filters.
std::string PdfStream(const std::string& data, const std::string& dictionaryEntries = "");

/// A file with a page of 100 by 100 points for each content stream. The entries go into the catalog and into
/// the resources of every page; the additional objects follow those of the pages, the first with the number
/// 3 + 2 * number of contents.
std::string PdfFileOfPages(const std::vector<std::string>& contents, const std::string& catalogEntries = "",
                           const std::string& resourceEntries = "",
                           const std::vector<std::string>& additionalObjects = {});

} // namespace HarrowSupport::Testing
