#include "command_line.h"

#include <boost/algorithm/string/erase.hpp>
#include <boost/algorithm/string/predicate.hpp>

#include <algorithm>
#include <cstddef>

namespace Examples
{

namespace
{

bool LooksLikeOption(const std::string& argument)
{
    // A hyphen alone is a file name to many programs, so it is no option here.
    return argument.size() > 1 && argument[0] == '-';
}

bool Contains(const std::vector<std::string>& names, const std::string& name)
{
    return std::find(names.begin(), names.end(), name) != names.end();
}

/// Takes the dots from the name of operands that can be repeated. Returns whether there were any.
bool TakeDots(std::string& operandName)
{
    const bool hasDots = boost::algorithm::ends_with(operandName, "...");
    if (hasDots)
        boost::algorithm::erase_tail(operandName, 3);
    return hasDots;
}

void CheckOperands(const std::vector<std::string>& operands, std::vector<std::string> operandNames)
{
    const bool canBeMore = !operandNames.empty() && TakeDots(operandNames.back());
    if (operands.size() < operandNames.size())
        throw UsageError("no " + operandNames[operands.size()] + " is given");
    if (operands.size() > operandNames.size() && !canBeMore)
        throw UsageError("there is an argument too many: '" + operands[operandNames.size()] + "'");
}

} // namespace

std::string CommandLine::GetOption(const std::string& name) const
{
    const auto found = options.find(name);
    return found == options.end() ? std::string() : found->second;
}

CommandLine ReadCommandLine(const std::vector<std::string>& arguments, const CommandLineForm& form)
{
    CommandLine result;
    bool optionsEnded = false;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string& argument = arguments[i];
        if (optionsEnded || !LooksLikeOption(argument)) {
            result.operands.push_back(argument);
        } else if (argument == "--") {
            optionsEnded = true;
        } else if (Contains(form.flags, argument)) {
            result.options[argument].clear();
        } else if (!Contains(form.optionsWithValue, argument)) {
            throw UsageError("there is no option '" + argument + "'");
        } else if (i + 1 == arguments.size()) {
            throw UsageError("the option '" + argument + "' needs a value");
        } else {
            ++i;
            result.options[argument] = arguments[i];
        }
    }
    CheckOperands(result.operands, form.operands);
    return result;
}

} // namespace Examples
