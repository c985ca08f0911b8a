#pragma once

#include <orv_doc/read_options.h>

#include <cstdint>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace HarrowSupport::Testing
{

/// A field of the record of limits and its name.
struct NamedLimit
{
    std::string name;
    std::variant<std::uint32_t*, std::uint64_t*> field;

    void Set(std::uint64_t value) const
    {
        std::visit([value](auto* target) { *target = static_cast<std::decay_t<decltype(*target)>>(value); },
                   field);
    }
};

/// The fields of a record in its order. A field that is new makes this one fail to compile until it has its
/// name here; the suite then fails until it has a row there.
inline std::vector<NamedLimit> ListEveryLimit(OrvDoc::ReadOptions::Limits& limits)
{
    auto& [objectNesting, contentNesting, formNesting, pageTreeNesting, layerOrderNesting, pages,
           indirectObjects, contentStreamBytes, contentBytes, resourceBytes, streamBytes, documentBytes,
           contentObjects, groupCopies, groupCorrections, operands, operandElements, operandBytes,
           pathSegments, dashElements, pictureSamples, colorants, functionSamples, functionNesting,
           calculatorTokens, errors] = limits;
    return {{"objectNesting", &objectNesting},
            {"contentNesting", &contentNesting},
            {"formNesting", &formNesting},
            {"pageTreeNesting", &pageTreeNesting},
            {"layerOrderNesting", &layerOrderNesting},
            {"pages", &pages},
            {"indirectObjects", &indirectObjects},
            {"contentStreamBytes", &contentStreamBytes},
            {"contentBytes", &contentBytes},
            {"resourceBytes", &resourceBytes},
            {"streamBytes", &streamBytes},
            {"documentBytes", &documentBytes},
            {"contentObjects", &contentObjects},
            {"groupCopies", &groupCopies},
            {"groupCorrections", &groupCorrections},
            {"operands", &operands},
            {"operandElements", &operandElements},
            {"operandBytes", &operandBytes},
            {"pathSegments", &pathSegments},
            {"dashElements", &dashElements},
            {"pictureSamples", &pictureSamples},
            {"colorants", &colorants},
            {"functionSamples", &functionSamples},
            {"functionNesting", &functionNesting},
            {"calculatorTokens", &calculatorTokens},
            {"errors", &errors}};
}

} // namespace HarrowSupport::Testing
