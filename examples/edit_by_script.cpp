// Edits a PDF file by a script in reverse Polish notation: registers commands with a parser, and finds the
// objects that a script names by their index paths.

#include "support/command_line.h"
#include "support/error_list.h"
#include "support/find_object.h"
#include "support/object_list.h"
#include "support/run_program.h"

#include <harrow_support/rpn_parser.h>

#include <orv_doc/content_object.h>
#include <orv_doc/document.h>
#include <orv_doc/read_options.h>
#include <orv_doc/separation.h>
#include <orv_doc/strokable.h>
#include <orv_doc/write_options.h>
#include <orv_paint/flat_paint.h>

#include <algorithm>
#include <cstddef>
#include <exception>
#include <fstream>
#include <functional>
#include <iostream>
#include <iterator>
#include <locale>
#include <memory>
#include <sstream>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace
{

constexpr char usage[] = R"(usage: edit_by_script [OPTION...] FILE SCRIPT OUT

Reads a PDF file, runs a script on it, and saves the result to OUT, which may be FILE itself. The script is a file, or
standard input if "-" is given. A line of it is an operand, or a command if it begins with "$"; a command takes the
operands before it. Lines that begin with "#" are comments; an empty line is an empty operand. The commands, with
their operands in order:

    $list                           writes a line for each object to standard output: path, kind, name and fill
    PATH, NAME, $set-name           gives an object a name; a layer is renamed on all pages
    PATH, SEPARATION, TINT, $set-fill
                                    fills an object with a separation, with a tint of 0 (no ink) to 1
    PATH, SEPARATION, TINT, $set-stroke
                                    the same for its outline
    PATH, DX, DY, $move             moves an object by points, in the coordinates of its page or group
    PATH, $delete                   takes an object out, with all that is in it

A path leads to an object: "2.3.1" is the first child of the third object of the second page. Each command counts
anew, so what stands behind a deleted object has another path afterwards.

    --password TEXT         password of the file, if it is encrypted
    --accept-loss           saves also if something is lost that could not be read into the model; that is
                            otherwise an error. Standard error names it in both cases.
    --help                  writes this text

Exit code: 0 if the result was saved, 2 if something went wrong; standard error then says what, OUT is left as it was,
and nothing is written to standard output.
)";

/// An object as one of a class that has what a command is about.
template <typename Class>
Class& As(OrvDoc::ContentObject& object, const std::string& property)
{
    auto* const result = dynamic_cast<Class*>(&object);
    if (result == nullptr)
        throw std::runtime_error("a " + object.DumpInfo().first + " has no " + property);
    return *result;
}

double ReadNumber(const std::string& text)
{
    std::istringstream stream(text);
    // A number means the same wherever the script is run.
    stream.imbue(std::locale::classic());
    double number = 0.0;
    stream >> number;
    if (stream.fail() || !stream.eof())
        throw std::runtime_error("'" + text + "' is no number");
    return number;
}

/// Makes a separation one of the document's own. What a paint alone names is not taken for one.
void AddSeparation(OrvDoc::Document& document, const std::string& name)
{
    std::vector<OrvDoc::Separation::Entry> entries = document.GetSeparationInfo();
    const bool isThere = std::any_of(entries.begin(), entries.end(),
                                     [&name](const auto& entry) { return entry.GetName() == name; });
    if (isThere)
        return;
    entries.emplace_back(name, OrvColor::Representation());
    document.SetSeparationInfo(std::move(entries));
}

std::shared_ptr<const OrvPaint::Paint> MakePaint(OrvDoc::Document& document, const std::string& separation,
                                                 const std::string& tint)
{
    const double value = ReadNumber(tint);
    if (value < 0.0 || value > 1.0)
        throw std::runtime_error("the tint " + tint + " is not between 0 and 1");
    AddSeparation(document, separation);
    OrvColor::ColorList<OrvColor::ColorPolicy> color;
    color.Add(separation, static_cast<float>(value));
    return OrvPaint::GetFlatPaint(color, nullptr);
}

using Operands = std::vector<std::string>;
using Edit = std::function<void(OrvDoc::ContentObject&, const Operands&)>;

/// Makes a command known that takes a path and so many operands behind it.
void RegisterEdit(HarrowSupport::RPNParser& parser, OrvDoc::Document& document, const std::string& name,
                  std::size_t operandCount, const Edit& edit)
{
    parser.Register(name, [&parser, &document, name, operandCount, edit] {
        std::string place = "$" + name;
        try {
            Operands operands(operandCount);
            // The newest operand comes first.
            std::generate(operands.rbegin(), operands.rend(), [&parser] { return parser.Pop(); });
            const std::string path = parser.Pop();
            place += " " + path;
            edit(Examples::FindObject(document, path), operands);
        } catch (const std::exception& error) {
            throw std::runtime_error(place + ": " + error.what());
        }
    });
}

void RegisterCommands(HarrowSupport::RPNParser& parser, OrvDoc::Document& document, std::ostream& output)
{
    parser.Register("list", [&document, &output] { Examples::WriteObjectList(output, document); });
    RegisterEdit(
        parser, document, "set-name", 1,
        [](OrvDoc::ContentObject& object, const Operands& operands) { object.SetName(operands[0]); });
    RegisterEdit(
        parser, document, "set-fill", 2,
        [&document](OrvDoc::ContentObject& object, const Operands& operands) {
            As<OrvDoc::Fillable>(object, "fill").SetFillPaint(MakePaint(document, operands[0], operands[1]));
        });
    RegisterEdit(parser, document, "set-stroke", 2,
                 [&document](OrvDoc::ContentObject& object, const Operands& operands) {
                     As<OrvDoc::Strokable>(object, "stroke")
                         .SetStrokePaint(MakePaint(document, operands[0], operands[1]));
                 });
    RegisterEdit(parser, document, "move", 2, [](OrvDoc::ContentObject& object, const Operands& operands) {
        constexpr double milliPointsInPoint = 1000.0;
        const auto movement = Plexa::Translation<Plexa::MilliPointCoordinateSystem>(
            ReadNumber(operands[0]) * milliPointsInPoint, ReadNumber(operands[1]) * milliPointsInPoint);
        As<OrvDoc::Transformable>(object, "place").Transform(movement, OrvDoc::TransformationMode::Append);
    });
    RegisterEdit(parser, document, "delete", 0, [](OrvDoc::ContentObject& object, const Operands&) {
        const std::unique_ptr<OrvDoc::ContentObject> extracted(object.ExtractFromParent());
    });
}

std::string ReadText(const std::string& file)
{
    std::ifstream stream(file, std::ios::binary);
    std::istream& source = file == "-" ? std::cin : stream;
    const std::string text(std::istreambuf_iterator<char>(source), {});
    if (!source)
        throw std::runtime_error(file + " can't be read");
    return text;
}

/// The number, counted from one, of the line that was read last.
std::ptrdiff_t LineOf(std::istringstream& script)
{
    // At the end of the text there is no position before this.
    script.clear();
    const std::string text = script.str().substr(0, static_cast<std::size_t>(script.tellg()));
    return std::count(text.begin(), text.end(), '\n') + (text.back() == '\n' ? 0 : 1);
}

void RunScript(const std::string& file, OrvDoc::Document& document, std::ostream& output)
{
    std::istringstream script(ReadText(file));
    HarrowSupport::RPNParser parser(script);
    RegisterCommands(parser, document, output);
    parser.Parse();
    // The parser has told the reason.
    if (!parser.DidFinish())
        throw std::runtime_error("the script stopped at line " + std::to_string(LineOf(script)));
}

Examples::ExitCode EditFile(const std::vector<std::string>& arguments, std::ostream& output)
{
    const Examples::CommandLine commandLine =
        Examples::ReadCommandLine(arguments, {{"--password"}, {"--accept-loss"}, {"FILE", "SCRIPT", "OUT"}});
    OrvDoc::ReadOptions readOptions;
    readOptions.password = commandLine.GetOption("--password");
    const auto document = OrvDoc::Document::Create(commandLine.operands[0], readOptions);

    // What could not be written in any case is no loss by the script.
    document->Flush();
    const std::vector<Examples::PlacedError> errorsBefore = Examples::ListActiveErrors(*document);
    RunScript(commandLine.operands[1], *document, output);
    document->Flush();
    const std::vector<Examples::PlacedError> losses =
        Examples::FindNewErrors(errorsBefore, Examples::ListActiveErrors(*document));
    Examples::WriteErrors(std::cerr, losses);
    if (!losses.empty() && !commandLine.HasOption("--accept-loss"))
        throw std::runtime_error(
            "nothing is saved, since this would be lost; --accept-loss saves all the same");

    document->Save(commandLine.operands[2], OrvDoc::WriteOptions(OrvDoc::WriteOptions::Flavour::Full));
    return Examples::ExitCode::Equal;
}

} // namespace

int main(int argumentCount, char** arguments)
{
    return Examples::RunProgram("edit_by_script", usage, argumentCount, arguments, EditFile);
}
