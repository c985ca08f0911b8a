#pragma once

#include <map>
#include <stdexcept>
#include <string>
#include <vector>

namespace Examples
{

/// A command line that the program does not understand. The text says what is wrong with it.
class UsageError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// What a program takes on its command line.
struct CommandLineForm
{
    /// Options, with their hyphens, that are followed by a value.
    std::vector<std::string> optionsWithValue;
    /// Options, with their hyphens, that stand alone.
    std::vector<std::string> flags;
    /// What the operands mean, in their order; as many are needed. A last one that ends in "..." stands for
    /// one or more.
    std::vector<std::string> operands;
};

/// The words of a command line, sorted into options and the rest.
struct CommandLine
{
    /// The options that were given, with their values; a flag has an empty one.
    std::map<std::string, std::string> options;
    std::vector<std::string> operands;

    /// The value of an option; empty if it was not given.
    std::string GetOption(const std::string& name) const;
    bool HasOption(const std::string& name) const { return options.count(name) != 0; }
};

/// Sorts the arguments, which are what was given without the program's name. An option that is given twice
/// has the last value. What follows "--" is no option, whatever it begins with.
///
/// @throws UsageError for an unknown option, one without its value, or another number of operands
CommandLine ReadCommandLine(const std::vector<std::string>& arguments, const CommandLineForm& form);

} // namespace Examples
