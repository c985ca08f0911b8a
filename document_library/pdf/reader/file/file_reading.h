#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace OrvPdf
{

class SourceFile;

/// A part of a file that this thread is reading, for as long as this object lives on its stack: a page, the
/// page tree. What the thread finds wrong with the file meanwhile comes here, so that it is told with that
/// part; what other threads find does not.
class FileReading
{
public:
    /// `place` is how messages call the part: "page 3".
    FileReading(const SourceFile& givenFile, std::string givenPlace);
    /// Problems that nobody took become late ones of the file.
    ~FileReading();
    FileReading(const FileReading&) = delete;
    FileReading& operator=(const FileReading&) = delete;

    /// The innermost part of that file that this thread is reading; null if it reads none.
    static FileReading* FindCurrent(const SourceFile& file);

    void Add(std::string problem) { problems.push_back(std::move(problem)); }
    /// The problems since the last call.
    std::vector<std::string> TakeProblems();

    /// A name for the next inline image of the part, which has no object to be named by: "inline image 2 of
    /// page 3".
    std::string NameInlineImage();

private:
    const SourceFile& file;
    std::string place;
    std::vector<std::string> problems;
    std::size_t inlineImages = 0;
    FileReading* around;
};

} // namespace OrvPdf
