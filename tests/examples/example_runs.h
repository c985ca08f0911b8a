#pragma once

#include "support/child_process.h"
#include "support/pdf_text.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace HarrowSupport::Testing
{

/// Runs one of the example programs, with the input to read on standard input.
inline ProcessResult RunExample(const std::string& program, const std::vector<std::string>& arguments,
                                const std::vector<std::string>& environment = {},
                                const std::string& input = {})
{
    std::vector<std::string> command{std::string(HARROW_EXAMPLES_FOLDER) + "/" + program};
    command.insert(command.end(), arguments.begin(), arguments.end());
    return RunProcess(command, {}, environment, input);
}

/// A file of examples/data.
inline std::string ExampleFile(const std::string& name)
{
    return std::string(HARROW_SOURCE_FOLDER) + "/examples/data/" + name;
}

/// Writes an encrypted copy of the first leaflet, with the password "secret", by means of qpdf. To be called
/// by the set-up of a test, which is skipped if that is not installed.
inline void WriteEncryptedLeaflet(const std::string& file)
{
    const ProcessResult made = RunProcess(
        {"qpdf", "--encrypt", "secret", "owner", "256", "--", ExampleFile("leaflet-v1.pdf"), file});
    if (made.exitCode == 127)
        GTEST_SKIP() << "qpdf, which encrypts the file of this test, is not installed";
    ASSERT_EQ(made.exitCode, 0) << made.errors;
}

/// A number of path operators: a triangle whose corner lies at the given place.
inline std::string Triangle(const std::string& corner)
{
    return corner + " m 90 10 l 90 90 l f\n";
}

/// A part of a content for which the model has no place: an operator of a program's own, as the standard
/// allows it.
constexpr const char* unmodelled = "BX wobble EX\n";

/// A file with a page that begins with such a part, before the given content.
inline std::string FileWithUnmodelled(const std::string& content)
{
    return PdfFileOfPages({unmodelled + content});
}

/// A file with a page that does not stay as it is even if nobody changes it: its pattern may be shared with
/// another page that is written anew.
inline std::string FileThatIsWrittenAnew(const std::string& content)
{
    return PdfFileOfPages(
        {"/Pattern cs /P scn " + content}, "", "/Pattern << /P 5 0 R >>",
        {PdfStream("0 0 1 1 re f", "/PatternType 1 /PaintType 1 /TilingType 1 /BBox [0 0 2 2] "
                                   "/XStep 2 /YStep 2 /Resources << >>")});
}

} // namespace HarrowSupport::Testing
