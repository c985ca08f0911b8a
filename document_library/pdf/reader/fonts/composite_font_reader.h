#pragma once

#include <memory>

#include <qpdf/QPDFObjectHandle.hh>

#include <orv_font/font.h>

#include "pdf/fonts/cid_widths.h"
#include "pdf/fonts/cmap.h"
#include "pdf/reader/fonts/font_parts.h"

namespace OrvPdf
{

/// The CIDFont of a Type 0 font; a null object if it has none.
QPDFObjectHandle FindDescendant(QPDFObjectHandle dictionary);

/// A Type 0 font with its CIDFont (ISO 32000-1, 9.7). Needs an access to the file.
std::shared_ptr<const OrvFont::Font> ReadCompositeFont(const FontParts& parts, FontProblems& problems);

/// The entries of `W`: CIDs with their widths, and ranges of CIDs with one width.
void ReadCidWidths(QPDFObjectHandle array, CidWidths& widths, FontProblems& problems);

/// The entries of `W2`, of three numbers each.
void ReadCidVerticalMetrics(QPDFObjectHandle array, CidVerticalMetrics& metrics, FontProblems& problems);

/// The CMap of `Encoding`, named or embedded, with the CMaps that it stands on. Never null: what cannot be
/// read is told, and `Identity-H` or `Identity-V` takes its place.
std::shared_ptr<const CMap> ReadCMap(const std::shared_ptr<const SourceFile>& file, QPDFObjectHandle encoding,
                                     FontProblems& problems);

} // namespace OrvPdf
