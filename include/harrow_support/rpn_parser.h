#pragma once

#include <harrow_support/export.h>

#include <deque>
#include <functional>
#include <iosfwd>
#include <map>
#include <string>

namespace OrvDoc
{
class ContentObject;
class Visitable;
} // namespace OrvDoc

namespace HarrowSupport
{

/// Reads a script in reverse Polish notation, line by line: operands go on a stack, and a command takes them
/// from there. The parser knows no command; the whole language is what the test program registers.
///
/// | line | meaning |
/// |---|---|
/// | `#` in the very first column | comment |
/// | `$name`, also behind blanks | runs the command `name` |
/// | anything else, the empty line too | operand: the line without the blanks at its ends |
///
/// Blanks are what the global locale calls space, a carriage return included. Blanks inside a line stay; one
/// behind the `$` belongs to the command's name.
///
///     RPNParser parser(script);
///     parser.Register("rename", [&] {
///         const std::string name = parser.Pop();
///         Rename(parser.Pop(), name);
///     });
///     parser.Parse();
///     if (!parser.DidFinish()) ...
class HARROW_EXPORT RPNParser
{
public:
    /// Reads nothing yet. The stream must outlive the parser.
    explicit RPNParser(std::istream& script);
    /// Shares the stream; operands and commands are copied. A function that refers to the other parser still
    /// takes its operands from there.
    RPNParser(const RPNParser& other);
    RPNParser& operator=(const RPNParser& other);
    ~RPNParser();

    /// Makes a command known, in the place of one of the same name. Names are compared byte by byte. A
    /// command must not replace itself while it runs.
    void Register(std::string name, std::function<void()> function);

    /// Runs the script to its end, or to the first failure: an unknown command, or an exception out of one.
    ///
    /// What derives from `std::exception` is caught. Its text goes to `std::cerr` as a line, and the rest of
    /// the script is not read; only DidFinish tells. The operands that are there stay, and another call goes
    /// on with the line behind the one that failed. Any other exception passes through.
    void Parse();

    /// Takes the newest operand away and returns it. To be called from commands.
    ///
    /// @throws std::runtime_error "no operand" if there is none, so that a script that lacks an operand ends
    /// like one with any other mistake
    std::string Pop();

    /// Whether a Parse came to the end of the script.
    bool DidFinish() const;

private:
    void HandleLine(std::string& token);

    bool finished = false;
    std::istream* stream;
    std::deque<std::string> operands;
    std::map<std::string, std::function<void()>> commands;
};

/// Calls a function for the objects that an index path names.
///
/// A path is a sequence of numbers with dots between, such as "1.3.2". The first one stands for the page; it
/// must be there, but selects nothing. The others are positions, counted from one, from the outermost list of
/// objects inward: "1.3.2" is the second child of the third object of each page. Groups, layers and text
/// groups count as one object of their level. A zero or a negative number names nothing.
///
/// The walk goes over everything below the root and can call the function more than once:
/// - for an object on each page;
/// - for a plain object where the path goes on: there is nothing inside it, so the path stops there;
/// - behind a group that was hit: the siblings that follow it are counted on with the count of the level
///   around theirs (at the top of a page, that of the pages so far) and may meet the path's number once more.
///   A caller who wants that group alone heeds the first call on each page.
///
/// The function may change the object. It must not take it or the next one out of its list while the walk is
/// under way (see `OrvDoc::VisitorBase`): note the object, and do that afterwards.
///
/// A path that names nothing calls nothing. What the function throws passes through.
///
/// @param path the index path
/// @param root a document, a page, a content or an object
/// @param action the function to call; an empty one is a `std::bad_function_call` at the first hit
/// @throws boost::bad_lexical_cast for a part that is no 32-bit integer, an empty one included, before
/// anything is visited
/// @throws std::runtime_error "invalid target" for a path of a single number, likewise
HARROW_EXPORT void ApplyOnIndexedObject(const std::string& path, OrvDoc::Visitable& root,
                                        std::function<void(OrvDoc::ContentObject&)> action);

} // namespace HarrowSupport
