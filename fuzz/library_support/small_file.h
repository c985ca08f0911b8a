#pragma once

#include "pdf/reader/file/source_file.h"

#include <memory>

namespace HarrowSupport::Fuzzing
{

/// A file without pages whose streams may decode to any number of bytes in all: for readers of single
/// objects, which ask a file for its limits and tell it problems. The same one in each call.
const std::shared_ptr<const OrvPdf::SourceFile>& GetSmallFile();

} // namespace HarrowSupport::Fuzzing
