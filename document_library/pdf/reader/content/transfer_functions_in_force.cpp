#include "pdf/reader/content/transfer_functions_in_force.h"

#include "pdf/transfer_definition.h"

namespace OrvPdf
{

using FunctionsPointer = std::shared_ptr<const OrvDoc::TransferFunctionSet>;

FunctionsPointer TransferFunctionsInForce::Get(const OrvSys::PdfObject& entries, std::string& problem)
{
    auto& candidates = known[entries.GetDigest()];
    for (const Known& candidate : candidates) {
        if (candidate.entries == entries) {
            problem = candidate.problem;
            return candidate.functions;
        }
    }
    Known made;
    made.entries = entries;
    made.functions = ReadTransferFunctions(entries, made.problem);
    candidates.push_back(std::move(made));
    problem = candidates.back().problem;
    return candidates.back().functions;
}

bool TransferFunctionsInForce::IsFirst(const FunctionsPointer& functions)
{
    if (functions == first->functions || equals.count(functions.get()) > 0) {
        return true;
    }
    if (!functions || !first->functions || *functions != *first->functions) {
        return false;
    }
    equals.insert(functions.get());
    return true;
}

bool TransferFunctionsInForce::Paint(const TransferSetting& setting, ByteRange& place)
{
    if (!first) {
        first = setting;
    }
    if (isMixed || IsFirst(setting.functions)) {
        return true;
    }
    isMixed = true;
    place = setting.functions ? setting.place : first->place;
    return false;
}

boost::optional<OrvDoc::TransferFunctionSet>
TransferFunctionsInForce::GetOfContent(const TransferSetting& atEnd) const
{
    const FunctionsPointer& functions = first ? first->functions : atEnd.functions;
    if (isMixed || !functions) {
        return boost::none;
    }
    return *functions;
}

} // namespace OrvPdf
