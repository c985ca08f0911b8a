#pragma once

#include <string>
#include <vector>

#include "orv_doc/late_errors.h"
#include "pdf/reader/file/source_file.h"

namespace ReaderTests
{

/// The problems of a file that were found since the last call, and while nobody was reading a part of it.
inline std::vector<std::string> TakeLateTexts(const OrvPdf::SourceFile& file)
{
    {
        // Its end tells what the parser has not told yet.
        const OrvPdf::SourceFile::Access access(file);
    }
    std::vector<std::string> texts;
    file.GetLateErrors()->TakeOver([&](const std::vector<std::string>& waiting) { texts = waiting; });
    return texts;
}

} // namespace ReaderTests
