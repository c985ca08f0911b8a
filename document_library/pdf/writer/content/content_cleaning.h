#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "pdf/reader/content/content_interpreter.h"

namespace OrvPdf
{

/// A content stream that is kept, made fit for all readers: without the damaged ranges, and with operands
/// that were odd but readable in proper form. Nothing if the bytes are fine as they stand. Linear in the
/// bytes.
std::optional<std::string> CleanContent(std::string_view bytes, const std::vector<ByteRange>& damaged);

} // namespace OrvPdf
