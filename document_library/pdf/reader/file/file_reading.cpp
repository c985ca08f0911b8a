#include "pdf/reader/file/file_reading.h"

#include <new>
#include <utility>

#include "orv_doc/late_errors.h"
#include "pdf/reader/file/source_file.h"

namespace OrvPdf
{

namespace
{

thread_local FileReading* innermost = nullptr;

} // namespace

FileReading::FileReading(const SourceFile& givenFile, std::string givenPlace)
    : file(givenFile), place(std::move(givenPlace)), around(innermost)
{
    innermost = this;
}

FileReading::~FileReading()
{
    innermost = around;
    try {
        for (std::string& problem : problems)
            file.Tell(std::move(problem));
    } catch (const std::bad_alloc&) {
        // Nobody could be told of this either.
    }
}

FileReading* FileReading::FindCurrent(const SourceFile& file)
{
    FileReading* reading = innermost;
    while (reading != nullptr && &reading->file != &file)
        reading = reading->around;
    return reading;
}

std::vector<std::string> FileReading::TakeProblems()
{
    {
        // Its end tells what the parser has not told yet.
        const SourceFile::Access access(file);
    }
    return std::exchange(problems, {});
}

std::string FileReading::NameInlineImage()
{
    ++inlineImages;
    return "inline image " + std::to_string(inlineImages) + " of " + place;
}

} // namespace OrvPdf
