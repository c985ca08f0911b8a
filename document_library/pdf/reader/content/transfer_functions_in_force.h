#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include <boost/optional.hpp>

#include <orv_doc/transfer_function_set.h>
#include <orv_sys/pdf_object.h>

#include "pdf/reader/content/content_interpreter.h"

namespace OrvPdf
{

/// Transfer functions as an operation put them in force.
struct TransferSetting
{
    /// Null for those of the device.
    std::shared_ptr<const OrvDoc::TransferFunctionSet> functions;
    /// The operation.
    ByteRange place;
};

/// Finds out whether one set of transfer functions is in force for all that a content paints: a content has
/// no more than one.
class TransferFunctionsInForce
{
public:
    /// The functions of a graphics state dictionary's entries, each value once.
    std::shared_ptr<const OrvDoc::TransferFunctionSet> Get(const OrvSys::PdfObject& entries,
                                                           std::string& problem);

    /// Something is painted. False if it is the first one that is painted with other functions than what came
    /// before it; `place` is then that of an operation that put functions in force.
    bool Paint(const TransferSetting& setting, ByteRange& place);

    /// What the whole content has: what it paints with or, if it paints nothing, what is in force at its end.
    boost::optional<OrvDoc::TransferFunctionSet> GetOfContent(const TransferSetting& atEnd) const;

private:
    struct Known
    {
        OrvSys::PdfObject entries;
        std::shared_ptr<const OrvDoc::TransferFunctionSet> functions;
        std::string problem;
    };

    bool IsFirst(const std::shared_ptr<const OrvDoc::TransferFunctionSet>& functions);

    std::unordered_map<std::uint64_t, std::vector<Known>> known;
    boost::optional<TransferSetting> first;
    /// Other objects that are equal to the first one: comparing functions can take long.
    std::unordered_set<const OrvDoc::TransferFunctionSet*> equals;
    bool isMixed = false;
};

} // namespace OrvPdf
