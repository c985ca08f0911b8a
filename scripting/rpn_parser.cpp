#include <harrow_support/rpn_parser.h>

#include <exception>
#include <iostream>
#include <stdexcept>
#include <utility>

#include <boost/algorithm/string/erase.hpp>
#include <boost/algorithm/string/predicate.hpp>
#include <boost/algorithm/string/trim.hpp>

namespace HarrowSupport
{

RPNParser::RPNParser(std::istream& script) : stream(&script) {}

RPNParser::RPNParser(const RPNParser& other) = default;

RPNParser& RPNParser::operator=(const RPNParser& other) = default;

RPNParser::~RPNParser() = default;

void RPNParser::Register(std::string name, std::function<void()> function)
{
    commands[std::move(name)] = std::move(function);
}

void RPNParser::Parse()
{
    try {
        std::string token;
        // A last line without a line end sets the end-of-file bit alone and counts.
        while (std::getline(*stream, token, stream->widen('\n')))
            HandleLine(token);
        finished = true;
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
    }
}

void RPNParser::HandleLine(std::string& token)
{
    // Before the trimming, so that an operand can begin with a '#' by having a blank in front.
    if (boost::algorithm::starts_with(token, "#"))
        return;
    boost::algorithm::trim(token);
    if (boost::algorithm::starts_with(token, "$")) {
        boost::algorithm::erase_head(token, 1);
        const auto command = commands.find(token);
        if (command == commands.end())
            throw std::runtime_error("unknown command");
        command->second();
        return;
    }
    operands.push_back(token);
}

std::string RPNParser::Pop()
{
    if (operands.empty())
        throw std::runtime_error("no operand");
    std::string operand = operands.back();
    operands.pop_back();
    return operand;
}

bool RPNParser::DidFinish() const
{
    return finished;
}

} // namespace HarrowSupport
