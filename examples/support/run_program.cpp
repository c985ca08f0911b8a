#include "run_program.h"

#include "command_line.h"

#include <exception>
#include <iostream>
#include <new>
#include <sstream>

namespace Examples
{

namespace
{

void WriteToStandardOutput(const std::ostringstream& output)
{
    std::cout << output.str() << std::flush;
    if (!std::cout)
        throw std::runtime_error("standard output can't be written");
}

int Trouble(const std::string& name, const std::string& message)
{
    std::cerr << name << ": " << message << "\n";
    return static_cast<int>(ExitCode::Trouble);
}

} // namespace

const char* NoMemory()
{
    return "there is not enough memory for it";
}

int RunProgram(const std::string& name, const std::string& usage, int argumentCount, char** arguments,
               const Program& program)
{
    try {
        const std::vector<std::string> given(arguments + (argumentCount > 0 ? 1 : 0),
                                             arguments + argumentCount);
        // Held back, so that a run that ends in trouble does not look like one that found a few differences.
        std::ostringstream output;
        ExitCode answer = ExitCode::Equal;
        if (!given.empty() && given.front() == "--help")
            output << usage;
        else
            answer = program(given, output);
        WriteToStandardOutput(output);
        return static_cast<int>(answer);
    } catch (const UsageError& error) {
        return Trouble(name, std::string(error.what()) + "; " + name + " --help tells how to call it");
    } catch (const std::bad_alloc&) {
        return Trouble(name, NoMemory());
    } catch (const std::exception& error) {
        return Trouble(name, error.what());
    } catch (...) {
        return Trouble(name, "an exception of an unknown type came");
    }
}

} // namespace Examples
