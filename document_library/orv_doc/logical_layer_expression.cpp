#include <orv_doc/logical_layer_expression.h>

#include <algorithm>
#include <ostream>
#include <stdexcept>
#include <utility>

#include <orv_doc/layer_properties.h>

#include "orv_doc/text_form.h"

namespace OrvDoc
{

namespace
{

using Operation = LogicalLayerExpression::Operation;

constexpr std::size_t maxDepth = 100;

const char* GetOperationName(Operation operation)
{
    switch (operation) {
    case Operation::Layer:
        return "Layer";
    case Operation::And:
        return "And";
    case Operation::Or:
        return "Or";
    case Operation::Not:
        return "Not";
    case Operation::AllOn:
        return "AllOn";
    case Operation::AnyOn:
        return "AnyOn";
    case Operation::AnyOff:
        return "AnyOff";
    case Operation::AllOff:
        return "AllOff";
    }
    return "Unknown";
}

bool IsPolicy(Operation operation)
{
    return operation == Operation::AllOn || operation == Operation::AnyOn || operation == Operation::AnyOff ||
           operation == Operation::AllOff;
}

bool IsLayer(const LogicalLayerExpression& expression)
{
    return expression.GetOperation() == Operation::Layer;
}

void Append(std::string& text, const LogicalLayerExpression& expression)
{
    if (IsLayer(expression))
        return Detail::AppendQuoted(text, expression.GetLayer()->GetName());
    text += GetOperationName(expression.GetOperation());
    text += '(';
    const char* separator = "";
    for (const LogicalLayerExpression& operand : expression.GetOperands()) {
        text += separator;
        Append(text, operand);
        separator = ", ";
    }
    text += ')';
}

} // namespace

LogicalLayerExpression::LogicalLayerExpression(std::shared_ptr<LayerProperties> givenLayer)
    : operation(Operation::Layer), layer(std::move(givenLayer))
{
    if (!layer)
        throw std::invalid_argument("A logical expression can't be made of no layer.");
}

LogicalLayerExpression::LogicalLayerExpression(Operation givenOperation,
                                               std::vector<LogicalLayerExpression> givenOperands)
    : operation(givenOperation), operands(std::move(givenOperands))
{
    if (operation == Operation::Layer)
        throw std::invalid_argument("The logical expression of a single layer has no operands.");
    if (operation == Operation::Not && operands.size() != 1)
        throw std::invalid_argument("The logical expression Not has one operand, not " +
                                    std::to_string(operands.size()) + ".");
    if (IsPolicy(operation) && !std::all_of(operands.begin(), operands.end(), IsLayer))
        throw std::invalid_argument(std::string("The visibility policy ") + GetOperationName(operation) +
                                    " takes layers only.");
    for (const LogicalLayerExpression& operand : operands)
        depth = std::max(depth, operand.depth + 1);
    if (depth > maxDepth)
        throw std::invalid_argument("A logical expression of layers can't have more than " +
                                    std::to_string(maxDepth) + " levels.");
}

bool operator==(const LogicalLayerExpression& left, const LogicalLayerExpression& right)
{
    return left.operation == right.operation && left.layer == right.layer && left.operands == right.operands;
}

std::ostream& operator<<(std::ostream& stream, const LogicalLayerExpression& expression)
{
    std::string text;
    Append(text, expression);
    return stream << text;
}

} // namespace OrvDoc
