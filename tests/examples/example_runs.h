#pragma once

#include "support/child_process.h"
#include "support/pdf_text.h"

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

/// Writes an encrypted copy of the first leaflet, with the password "secret", by means of qpdf. The exit code
/// is 127 if that is not installed.
inline ProcessResult WriteEncryptedLeaflet(const std::string& file)
{
    return RunProcess(
        {"qpdf", "--encrypt", "secret", "owner", "256", "--", ExampleFile("leaflet-v1.pdf"), file});
}

/// A number of path operators: a triangle whose corner lies at the given place.
inline std::string Triangle(const std::string& corner)
{
    return corner + " m 90 10 l 90 90 l f\n";
}

/// A file with a page that sets automatic stroke adjustment, for which the model has no place, before the
/// given content.
inline std::string FileWithStrokeAdjustment(const std::string& content)
{
    return PdfFileOfPages({"/Adjusted gs " + content}, "", "/ExtGState << /Adjusted << /SA true >> >>");
}

} // namespace HarrowSupport::Testing
