#include <orv_doc/transfer_function_set.h>

#include <algorithm>
#include <utility>

#include <orv_paint/function.h>

namespace OrvDoc
{

namespace
{

using FunctionPointer = std::shared_ptr<const OrvPaint::Function>;

bool IsSame(const FunctionPointer& left, const FunctionPointer& right)
{
    return left == right || (left && right && *left == *right);
}

} // namespace

TransferFunctionSet::TransferFunctionSet(FunctionPointer givenDefault, std::vector<NamedFunction> givenNamed)
    : defaultFunction(std::move(givenDefault)), namedFunctions(std::move(givenNamed))
{}

bool TransferFunctionSet::operator==(const TransferFunctionSet& other) const
{
    return IsSame(defaultFunction, other.defaultFunction) &&
           std::equal(namedFunctions.begin(), namedFunctions.end(), other.namedFunctions.begin(),
                      other.namedFunctions.end(), [](const NamedFunction& left, const NamedFunction& right) {
                          return left.first == right.first && IsSame(left.second, right.second);
                      });
}

} // namespace OrvDoc
