#pragma once

#include <memory>

#include <boost/optional.hpp>
#include <gtest/gtest.h>

#include <orv_doc/transfer_function_set.h>
#include <orv_paint/function.h>

namespace OrvPdf::Testing
{

inline void PrintTransferFunctions(const boost::optional<OrvDoc::TransferFunctionSet>& functions,
                                   testing::AssertionResult& text)
{
    const auto print = [&text](const std::shared_ptr<const OrvPaint::Function>& function) {
        function ? text << *function : text << "identity";
    };
    if (!functions) {
        text << "none";
        return;
    }
    print(functions->GetDefaultTransferFunction());
    for (const auto& [name, function] : functions->GetNamedTransferFunctions()) {
        text << ", '" << name << "': ";
        print(function);
    }
}

/// Shows the functions of both where they differ.
inline testing::AssertionResult AreEqual(const boost::optional<OrvDoc::TransferFunctionSet>& left,
                                         const boost::optional<OrvDoc::TransferFunctionSet>& right)
{
    if (left == right)
        return testing::AssertionSuccess();
    testing::AssertionResult failure = testing::AssertionFailure();
    PrintTransferFunctions(left, failure);
    failure << "\nagainst\n";
    PrintTransferFunctions(right, failure);
    return failure;
}

} // namespace OrvPdf::Testing
