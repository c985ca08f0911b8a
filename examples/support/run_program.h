#pragma once

#include <functional>
#include <iosfwd>
#include <string>
#include <vector>

namespace Examples
{

/// What a comparing program answers with its exit code.
enum class ExitCode
{
    Equal = 0,
    Different = 1,
    Trouble = 2,
};

/// What is told when memory runs out.
const char* NoMemory();

/// A program: gets its arguments without its own name, writes its output to the stream, and answers.
using Program = std::function<ExitCode(const std::vector<std::string>& arguments, std::ostream& output)>;

/// Runs a program and returns its exit code, to be returned from main.
///
/// The output goes to standard output when the program is through, all or nothing. An exception of any type
/// is trouble: its text goes to standard error behind the program's name, with a hint to "--help" if it is a
/// UsageError. So is a standard output that cannot be written. With "--help" as the first argument the usage
/// text is the output, and the program is not run.
int RunProgram(const std::string& name, const std::string& usage, int argumentCount, char** arguments,
               const Program& program);

} // namespace Examples
