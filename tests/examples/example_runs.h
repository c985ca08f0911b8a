#pragma once

#include "support/child_process.h"

#include <string>
#include <vector>

namespace HarrowSupport::Testing
{

/// Runs one of the example programs.
inline ProcessResult RunExample(const std::string& program, const std::vector<std::string>& arguments,
                                const std::vector<std::string>& environment = {})
{
    std::vector<std::string> command{std::string(HARROW_EXAMPLES_FOLDER) + "/" + program};
    command.insert(command.end(), arguments.begin(), arguments.end());
    return RunProcess(command, {}, environment);
}

/// A file of examples/data.
inline std::string ExampleFile(const std::string& name)
{
    return std::string(HARROW_SOURCE_FOLDER) + "/examples/data/" + name;
}

/// A number of path operators: a triangle whose corner lies at the given place.
inline std::string Triangle(const std::string& corner)
{
    return corner + " m 90 10 l 90 90 l f\n";
}

} // namespace HarrowSupport::Testing
