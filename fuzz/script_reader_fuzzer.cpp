// Any bytes as a script. The parser has to do with it what a second, plain reader does, which stands here:
// the same commands in the same order, with the same operands, the same error texts, and the same rest on the
// stack.
//
// The commands: `pop` takes an operand, `none` does nothing, `fail` throws, `odd` throws what is no standard
// exception, `empty` is an empty function, `make` pops a name x and registers the command `made x`, `nest`
// runs the rest of the script inside itself, `copy` lets a copy of the reader do that.

#include "fuzz_target.h"

#include <harrow_support/rpn_parser.h>

#include <algorithm>
#include <cstddef>
#include <exception>
#include <functional>
#include <iostream>
#include <map>
#include <sstream>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace HarrowSupport::Fuzzing
{

namespace
{

/// The exception that is no standard one.
struct Oddity
{};

/// The lines of a script that are left, for a reader and its copies.
struct Lines
{
    explicit Lines(const std::string& script)
    {
        for (std::size_t begin = 0; begin < script.size();) {
            const std::size_t end = std::min(script.find('\n', begin), script.size());
            lines.push_back(script.substr(begin, end - begin));
            begin = end + 1;
        }
    }

    std::vector<std::string> lines;
    std::size_t next = 0;
};

/// The second reader.
class PlainReader
{
public:
    explicit PlainReader(Lines& linesToRead) : script(&linesToRead) {}

    void Register(const std::string& name, std::function<void()> function)
    {
        commands[name] = std::move(function);
    }

    void Parse()
    {
        try {
            while (script->next < script->lines.size())
                Handle(script->lines[script->next++]);
            finished = true;
        } catch (const std::exception& error) {
            std::cerr << error.what() << "\n";
        }
    }

    std::string Pop()
    {
        if (operands.empty())
            throw std::runtime_error("no operand");
        std::string operand = operands.back();
        operands.pop_back();
        return operand;
    }

    bool DidFinish() const { return finished; }

private:
    static std::string Trimmed(const std::string& line)
    {
        constexpr const char* blanks = " \t\n\v\f\r";
        const std::size_t begin = line.find_first_not_of(blanks);
        if (begin == std::string::npos)
            return {};
        return line.substr(begin, line.find_last_not_of(blanks) - begin + 1);
    }

    void Handle(const std::string& line)
    {
        if (!line.empty() && line[0] == '#')
            return;
        const std::string token = Trimmed(line);
        if (token.empty() || token[0] != '$') {
            operands.push_back(token);
            return;
        }
        const std::string name = token.substr(1);
        if (commands.count(name) == 0)
            throw std::runtime_error("unknown command");
        commands.at(name)();
    }

    bool finished = false;
    Lines* script;
    std::vector<std::string> operands;
    std::map<std::string, std::function<void()>> commands;
};

/// What a run does, in order.
using Trace = std::vector<std::string>;

/// The call stack is bounded, so commands in commands are as well.
constexpr int maximalNesting = 64;

template <typename Reader>
void RegisterCommands(Reader& reader, Trace& trace, int& nesting)
{
    const auto nested = [&trace, &nesting](const char* name, const std::function<void()>& run) {
        trace.push_back(name);
        if (nesting == maximalNesting)
            throw std::runtime_error("too deep");
        ++nesting;
        try {
            run();
        } catch (const Oddity&) {
            --nesting;
            throw;
        }
        --nesting;
        trace.push_back(std::string("end of ") + name);
    };

    reader.Register("pop", [&] { trace.push_back("pop " + reader.Pop()); });
    reader.Register("none", [&] { trace.push_back("none"); });
    reader.Register("fail", [&] {
        trace.push_back("fail");
        throw std::out_of_range("failed");
    });
    reader.Register("odd", [&] {
        trace.push_back("odd");
        throw Oddity();
    });
    reader.Register("empty", nullptr);
    reader.Register("make", [&] {
        const std::string name = "made " + reader.Pop();
        reader.Register(name, [&trace, name] { trace.push_back(name); });
    });
    reader.Register("nest", [&reader, nested] { nested("nest", [&] { reader.Parse(); }); });
    reader.Register("copy", [&reader, &trace, nested] {
        nested("copy", [&] {
            Reader copy(reader);
            copy.Parse();
            trace.push_back(copy.DidFinish() ? "copy finished" : "copy stopped");
        });
    });
}

/// Catches what goes to std::cerr.
class CaughtErrors
{
public:
    CaughtErrors() : old(std::cerr.rdbuf(text.rdbuf())) {}
    ~CaughtErrors() { std::cerr.rdbuf(old); }
    CaughtErrors(const CaughtErrors&) = delete;
    CaughtErrors& operator=(const CaughtErrors&) = delete;

    std::string Take()
    {
        std::string taken = text.str();
        text.str(std::string());
        return taken;
    }

private:
    std::ostringstream text;
    std::streambuf* old;
};

/// Parses until the script has run to its end and tells all that happened.
template <typename Reader>
Trace Run(Reader& reader, std::size_t lineCount)
{
    CaughtErrors errors;
    Trace trace;
    int nesting = 0;
    RegisterCommands(reader, trace, nesting);
    // Each call that stops has used up a line.
    for (std::size_t calls = 0; calls <= lineCount && !reader.DidFinish(); ++calls) {
        try {
            reader.Parse();
            trace.push_back(reader.DidFinish() ? "finished" : "stopped");
        } catch (const Oddity&) {
            trace.push_back("oddity");
        }
        trace.push_back("printed " + errors.Take());
    }
    trace.push_back(reader.DidFinish() ? "at the end" : "not at the end");
    try {
        for (;;)
            trace.push_back("left " + reader.Pop());
    } catch (const std::runtime_error& error) {
        trace.push_back(error.what());
    }
    return trace;
}

void PrintDifference(const Trace& parser, const Trace& plain)
{
    const std::size_t common = std::min(parser.size(), plain.size());
    std::size_t i = 0;
    while (i < common && parser[i] == plain[i])
        ++i;
    std::cerr << "Event " << i << "; the parser: " << (i < parser.size() ? parser[i] : "(none)")
              << "; the plain reader: " << (i < plain.size() ? plain[i] : "(none)") << std::endl;
}

} // namespace

} // namespace HarrowSupport::Fuzzing

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace HarrowSupport;
    using namespace HarrowSupport::Fuzzing;

    const std::string script(data, data + size);
    Lines lines(script);
    std::istringstream stream(script);
    RPNParser parser(stream);
    PlainReader plain(lines);
    const Trace parserTrace = Run(parser, lines.lines.size());
    const Trace plainTrace = Run(plain, lines.lines.size());
    if (parserTrace != plainTrace)
        PrintDifference(parserTrace, plainTrace);
    Require(parser.DidFinish(), "a script comes to its end when each stop is followed by another call");
    Require(parserTrace == plainTrace, "the parser does what the plain reader does");
    return 0;
}
