#pragma once

#include <array>
#include <cstddef>
#include <memory>
#include <string>

#include <boost/filesystem/path.hpp>

#include <orv_doc/document.h>

#include "support/text_layout.h"

namespace Benchmarks
{

/// Names of fonts that a document's font manager knows, one for each style.
using StyleNames = std::array<std::string, StyleCount>;

/// Times, Helvetica and Courier.
StyleNames UsualFonts();

StyleFonts FindFonts(const OrvDoc::Document& document, const StyleNames& names);

/// A document of so many pages of text, as `TextLayout` sets them in the usual fonts; the same at each call.
/// It shows them in the fonts of `names`, letter for letter at the same places as far as these advance alike.
/// `lastWords` stand on a line of their own at the end, in each style, and so have their letters in all
/// subsets.
std::unique_ptr<OrvDoc::Document> MakeTextDocument(std::size_t pages, const StyleNames& names = UsualFonts(),
                                                   const std::string& lastWords = "End");

/// The same pages set by Ghostscript in its fonts, so that none of our own code has a hand in the file.
/// Throws `std::runtime_error` if it can't be started or fails.
void WriteTextByGhostscript(const boost::filesystem::path& file, std::size_t pages);

} // namespace Benchmarks
