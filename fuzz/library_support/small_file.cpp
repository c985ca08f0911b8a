#include "library_support/small_file.h"

#include <cstdint>
#include <fstream>
#include <stdexcept>
#include <string>

#include <boost/filesystem/operations.hpp>

#include <orv_doc/read_options.h>

namespace HarrowSupport::Fuzzing
{

namespace
{

constexpr const char* fileText = "%PDF-1.4\n"
                                 "1 0 obj\n<< /Type /Catalog /Pages 2 0 R >>\nendobj\n"
                                 "2 0 obj\n<< /Type /Pages /Kids [] /Count 0 >>\nendobj\n"
                                 "xref\n0 3\n"
                                 "0000000000 65535 f \n0000000009 00000 n \n0000000058 00000 n \n"
                                 "trailer\n<< /Size 3 /Root 1 0 R >>\nstartxref\n110\n%%EOF\n";

std::shared_ptr<const OrvPdf::SourceFile> OpenSmallFile()
{
    const auto path = boost::filesystem::temp_directory_path() / boost::filesystem::unique_path();
    if (!(std::ofstream(path.string(), std::ios_base::binary) << fileText))
        throw std::runtime_error(path.string() + " can't be written.");
    OrvDoc::ReadOptions options;
    options.limits.documentBytes = UINT64_MAX;
    // The bytes are read at once, so that nothing has to be left behind.
    auto file = OrvPdf::SourceFile::Open(path, options);
    boost::filesystem::remove(path);
    return file;
}

} // namespace

const std::shared_ptr<const OrvPdf::SourceFile>& GetSmallFile()
{
    // Never destroyed: the library that reads it may be gone by then.
    static const auto& file = *new auto(OpenSmallFile());
    return file;
}

} // namespace HarrowSupport::Fuzzing
