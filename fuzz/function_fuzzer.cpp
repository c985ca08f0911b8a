// Any bytes as a function of a shading or of a colour space. The input is a line of input values, and the
// object in PDF syntax behind it, in which a string under `Stream` makes a stream of a dictionary:
//
//     0.5 0.25
//     << /FunctionType 4 /Domain [0 1 0 1] /Range [0 1] /Stream ({ mul }) >>
//
// Laws:
// - an object is a value or refused with a reason, and so is a function;
// - the definition of a function gives an equal one, is its own definition, and comes back from a file;
// - a function has a text of one line, no more depth than the largest, and equals itself alone;
// - its value has as many numbers as it has outputs, all finite and within its range, and zero where it
//   contributes nothing; the definition has the same value;
// - a sampled function has the value that a plain one has that goes through its inputs one by one;
// - a calculator gives what a plain one gives that runs it word by word, and does the same inside a condition
//   that is always or never true.

#include "fuzz_target.h"
#include "library_support/plain_calculator.h"
#include "library_support/plain_samples.h"
#include "library_support/small_file.h"
#include "library_support/written_object.h"

#include <orv_paint/function.h>
#include <orv_paint/function_definition.h>
#include <orv_sys/pdf_object.h>

#include "orv_color/calculator.h"
#include "orv_color/calculator_program.h"
#include "orv_color/function_numbers.h"
#include "orv_color/tint_transform.h"
#include "pdf/reader/file/file_reading.h"
#include "pdf/reader/resources/object_conversion.h"
#include "pdf/writer/file/object_maker.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace HarrowSupport::Fuzzing
{

namespace
{

using OrvPaint::Function;
using OrvSys::PdfObject;
using FunctionPointer = std::shared_ptr<const Function>;
using Numbers = std::vector<double>;
using Pairs = std::vector<std::array<double, 2>>;

Numbers ReadInputs(const std::string& line)
{
    constexpr std::size_t mostInputs = 12;
    Numbers inputs;
    std::istringstream words(line);
    for (double number = 0.0; inputs.size() < mostInputs && words >> number;)
        inputs.push_back(number);
    return inputs;
}

PdfObject Convert(QPDFObjectHandle object)
{
    const OrvPdf::SourceFile& file = *GetSmallFile();
    // The file stays open; what is found wrong in this run must not stay in it.
    OrvPdf::FileReading reading(file, "a function");
    const OrvPdf::SourceFile::Access access(file);
    std::string problem;
    const PdfObject converted = OrvPdf::ObjectConverter(file).Convert(object, problem);
    Require(problem.empty() || converted.IsNull(), "what has a problem has no value");
    reading.TakeProblems();
    return converted;
}

/// Null where the definition is refused.
FunctionPointer MakeFunction(const PdfObject& definition)
{
    try {
        return OrvPaint::MakeFunctionOfShading(definition);
    } catch (const std::invalid_argument& error) {
        Require(error.what()[0] != '\0', "a function is refused with a reason");
    } catch (const std::length_error& error) {
        Require(error.what()[0] != '\0', "a function is too deep with a reason");
    }
    return nullptr;
}

void RequireText(const Function& function)
{
    std::ostringstream text;
    text << function;
    Require(!text.str().empty(), "a function has a text");
    Require(text.str().find('\n') == std::string::npos, "the text of a function is one line");
}

PdfObject ThroughFile(const PdfObject& definition)
{
    const auto file = MakeEmptyFile();
    OrvPdf::ObjectMaker maker(*file, false);
    return Convert(maker.MakeShared(definition));
}

PdfObject RequireDefinition(const Function& function)
{
    const PdfObject definition = OrvPaint::GetFunctionDefinition(function);
    const FunctionPointer again = MakeFunction(definition);
    Require(again != nullptr, "the definition of a function is one");
    Require(*again == function && function == *again, "the definition of a function gives an equal one");
    Require(OrvPaint::GetFunctionDefinition(*again) == definition, "a definition is its own definition");
    const PdfObject back = ThroughFile(definition);
    Require(back == definition, "a definition comes back from a file");
    const FunctionPointer read = MakeFunction(back);
    Require(read && *read == function, "a function comes back from a file");
    return definition;
}

void RequireWithin(double value, const std::array<double, 2>& range, const char* law)
{
    // Of a range that is turned round either end will do.
    const bool isTurned = range[1] < range[0];
    Require(isTurned || (value >= range[0] && value <= range[1]), law);
}

/// With the range of the definition. Rounding may differ.
void RequireSamples(const PdfObject& definition, const Numbers& inputs, const Numbers& values)
{
    const auto range = OrvColor::Detail::ReadPairs(definition.Find("Range"));
    const auto decode = OrvColor::Detail::ReadPairs(definition.Find("Decode")).value_or(*range);
    if (!definition.Find("Filter").IsNull())
        return;
    const Numbers plain = InterpolatePlainly(definition, definition.GetRawBytes(), inputs);
    Require(plain.size() == values.size(), "samples have as many outputs as those of the plain reader");
    for (std::size_t output = 0; output < values.size(); ++output) {
        const auto& limits = decode[output];
        const double slack = 1e-9 * (std::fabs(limits[0]) + std::fabs(limits[1]));
        const double expected = OrvColor::Detail::ClampTo(plain[output], (*range)[output]);
        Require(!(std::fabs(values[output] - expected) > slack), "samples are those of the plain reader");
    }
}

void RequireValue(const Function& function, const PdfObject& definition, const Numbers& inputs)
{
    const auto values = OrvColor::Detail::EvaluateFunction(definition, inputs);
    if (!values)
        return;
    Require(inputs.size() == function.GetDomain().size(), "a function has as many inputs as its domain");
    Require(values->size() == function.GetRange().size(), "a function has as many outputs as its range");
    for (std::size_t output = 0; output < values->size(); ++output) {
        const double value = (*values)[output];
        Require(std::isfinite(value), "a value is finite");
        RequireWithin(value, function.GetRange()[output], "a value is within the range");
        Require(!function.IsZero(output) || value == 0.0, "what contributes nothing is zero");
    }
    if (definition.Find("FunctionType") == PdfObject::Integer(0))
        RequireSamples(definition, inputs, *values);
}

void RequireCalculator(const std::string& program, const Numbers& inputs)
{
    const auto plain = OrvColor::Detail::RunCalculator(program, inputs);
    // Of the levels that the library knows the outermost one is none.
    constexpr std::size_t mostLevels = 32;
    const auto second = RunPlainly(program, inputs, mostLevels);
    Require(plain.has_value() == second.has_value(), "a calculator runs where the plain one does");
    if (!plain)
        return;
    Require(*plain == *second, "a calculator gives what the plain one gives");
    Require(std::all_of(plain->begin(), plain->end(), [](double value) { return std::isfinite(value); }),
            "a calculator leaves finite numbers");
    // One level more may be one too many, and one value more on the stack as well.
    const std::string taken = "{ true " + program + "\nif }";
    const std::string other = "{ false { pop } " + program + "\nifelse }";
    constexpr std::size_t mostInputs = 90;
    if (!OrvColor::Detail::CompileCalculator(taken) || !OrvColor::Detail::CompileCalculator(other) ||
        inputs.size() > mostInputs)
        return;
    Require(OrvColor::Detail::RunCalculator(taken, inputs) == plain, "a true condition changes nothing");
    Require(OrvColor::Detail::RunCalculator(other, inputs) == plain, "a false condition changes nothing");
}

void RequireFunction(const PdfObject& object, const Numbers& inputs)
{
    // Also of what is no function.
    const auto values = OrvColor::Detail::EvaluateFunction(object, inputs);
    const FunctionPointer function = MakeFunction(object);
    if (object.IsStream() && object.Find("FunctionType") == PdfObject::Integer(4))
        RequireCalculator(object.GetRawBytes(), inputs);
    if (!function)
        return;
    Require(function->GetDepth() <= Function::MaxDepth, "a function is not too deep");
    Require(*function == *function, "a function equals itself");
    RequireText(*function);
    const PdfObject definition = RequireDefinition(*function);
    RequireValue(*function, definition, inputs);
    // An array of a single function is that function.
    if (function->GetType() == Function::Type::Whole && !object.IsArray())
        Require(OrvColor::Detail::EvaluateFunction(definition, inputs) == values,
                "a function that is kept whole keeps its value");
}

} // namespace

} // namespace HarrowSupport::Fuzzing

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace HarrowSupport::Fuzzing;

    const std::string input(data, data + size);
    const std::size_t end = std::min(input.find('\n'), input.size());
    const WrittenObject written(input.substr(std::min(end + 1, input.size())), {});
    RequireFunction(Convert(written.Get()), ReadInputs(input.substr(0, end)));
    return 0;
}
