#include "pdf/transfer_definition.h"

#include <algorithm>
#include <array>
#include <stdexcept>
#include <vector>

#include <orv_paint/function_definition.h>

namespace OrvPdf
{

namespace
{

using FunctionPointer = std::shared_ptr<const OrvPaint::Function>;
using NamedFunctions = std::vector<OrvDoc::TransferFunctionSet::NamedFunction>;
using OrvDoc::TransferFunctionSet;
using OrvSys::PdfObject;

constexpr const char* defaultKey = "Default";
constexpr const char* namesKey = "Names";
constexpr const char* functionsKey = "Functions";

/// The order of the functions of an array, whatever the names of the device are.
const std::array<std::string, 4> processNames = {"Cyan", "Magenta", "Yellow", "Black"};

bool IsIdentity(const PdfObject& value)
{
    return value.IsName("Identity") || value.IsName("Default");
}

FunctionPointer ReadFunction(const PdfObject& value)
{
    if (IsIdentity(value)) {
        return nullptr;
    }
    FunctionPointer function = OrvPaint::MakeFunction(value);
    if (!IsTransferFunction(*function)) {
        throw std::invalid_argument("a function has more than one input or output");
    }
    return function;
}

TransferFunctionSet ReadOwn(const PdfObject& value)
{
    const PdfObject names = value.Find(namesKey);
    const PdfObject functions = value.Find(functionsKey);
    const PdfObject byDefault = value.Find(defaultKey);
    if (!names.IsArray() || !functions.IsArray() || names.GetItems().size() != functions.GetItems().size()) {
        throw std::invalid_argument(std::string(transferFunctionsKey) +
                                    " has not one function for each name");
    }
    NamedFunctions named;
    for (std::size_t i = 0; i < names.GetItems().size(); ++i) {
        if (!names.GetItems()[i].IsString()) {
            throw std::invalid_argument(std::string(transferFunctionsKey) + " has a name that is no string");
        }
        named.emplace_back(names.GetItems()[i].GetText(), ReadFunction(functions.GetItems()[i]));
    }
    return TransferFunctionSet(byDefault.IsNull() ? nullptr : ReadFunction(byDefault), std::move(named));
}

TransferFunctionSet ReadStandard(const PdfObject& value)
{
    if (!value.IsArray()) {
        return TransferFunctionSet(ReadFunction(value), {});
    }
    if (value.GetItems().size() != processNames.size()) {
        throw std::invalid_argument("an array of " + std::to_string(value.GetItems().size()) +
                                    " functions instead of four");
    }
    NamedFunctions named;
    for (std::size_t i = 0; i < processNames.size(); ++i) {
        named.emplace_back(processNames[i], ReadFunction(value.GetItems()[i]));
    }
    return TransferFunctionSet(nullptr, std::move(named));
}

bool SaysNothing(const TransferFunctionSet& functions)
{
    const auto& named = functions.GetNamedTransferFunctions();
    return !functions.GetDefaultTransferFunction() &&
           std::none_of(named.begin(), named.end(), [](const auto& entry) { return entry.second; });
}

PdfObject Define(const FunctionPointer& function)
{
    return function ? OrvPaint::GetFunctionDefinition(*function) : PdfObject::Name("Identity");
}

/// What other programs are to do for the inks of the process; the names of other inks have no place there.
PdfObject DefineStandard(const TransferFunctionSet& functions)
{
    const NamedFunctions& named = functions.GetNamedTransferFunctions();
    bool isAnyNamed = false;
    PdfObject::Items items;
    for (const std::string& name : processNames) {
        const auto found = std::find_if(named.begin(), named.end(),
                                        [&name](const auto& entry) { return entry.first == name; });
        isAnyNamed = isAnyNamed || found != named.end();
        items.push_back(
            Define(found != named.end() ? found->second : functions.GetDefaultTransferFunction()));
    }
    return isAnyNamed ? PdfObject::Array(std::move(items)) : Define(functions.GetDefaultTransferFunction());
}

PdfObject DefineOwn(const TransferFunctionSet& functions)
{
    PdfObject::Items names;
    PdfObject::Items definitions;
    for (const auto& [name, function] : functions.GetNamedTransferFunctions()) {
        names.push_back(PdfObject::String(name));
        definitions.push_back(Define(function));
    }
    PdfObject::Entries entries = {{namesKey, PdfObject::Array(std::move(names))},
                                  {functionsKey, PdfObject::Array(std::move(definitions))}};
    if (functions.GetDefaultTransferFunction()) {
        entries.emplace(defaultKey, Define(functions.GetDefaultTransferFunction()));
    }
    return PdfObject::Dictionary(std::move(entries));
}

/// Whether the standard key reads back as the set.
bool IsStandard(const TransferFunctionSet& functions)
{
    const NamedFunctions& named = functions.GetNamedTransferFunctions();
    if (SaysNothing(functions)) {
        return false;
    }
    return named.empty() ||
           (!functions.GetDefaultTransferFunction() &&
            std::equal(named.begin(), named.end(), processNames.begin(), processNames.end(),
                       [](const auto& entry, const std::string& name) { return entry.first == name; }));
}

} // namespace

bool IsTransferFunction(const OrvPaint::Function& function)
{
    return function.GetDomain().size() == 1 && function.GetRange().size() == 1;
}

PdfObject SelectTransferEntries(const PdfObject& parameters)
{
    const PdfObject own = parameters.Find(transferFunctionsKey);
    const PdfObject newer = parameters.Find("TR2");
    const PdfObject standard = newer.IsNull() ? parameters.Find("TR") : newer;
    if (own.IsNull() && standard.IsNull()) {
        return {};
    }
    return PdfObject::Dictionary({{transferFunctionsKey, own}, {"TR", standard}});
}

std::shared_ptr<const TransferFunctionSet> ReadTransferFunctions(const PdfObject& entries,
                                                                 std::string& problem)
{
    try {
        const PdfObject own = entries.Find(transferFunctionsKey);
        if (!own.IsNull()) {
            return std::make_shared<const TransferFunctionSet>(ReadOwn(own));
        }
        TransferFunctionSet functions = ReadStandard(entries.Find("TR"));
        return SaysNothing(functions) ? nullptr
                                      : std::make_shared<const TransferFunctionSet>(std::move(functions));
    } catch (const std::invalid_argument& failure) {
        problem = failure.what();
    } catch (const std::length_error& failure) {
        problem = failure.what();
    }
    return nullptr;
}

PdfObject::Entries DefineTransferFunctions(const TransferFunctionSet& functions)
{
    PdfObject::Entries entries = {{"TR", DefineStandard(functions)}};
    if (!IsStandard(functions)) {
        entries.emplace(transferFunctionsKey, DefineOwn(functions));
    }
    return entries;
}

} // namespace OrvPdf
