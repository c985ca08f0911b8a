#include "pdf/reader/document/layer_membership.h"

#include <cstddef>
#include <utility>
#include <vector>

#include <orv_doc/layer_properties.h>
#include <orv_doc/logical_layer_expression.h>

#include "pdf/reader/file/qpdf_text.h"
#include "pdf/reader/resources/document_resources.h"

namespace OrvPdf
{

namespace
{

using OrvDoc::LogicalLayerExpression;
using Operation = LogicalLayerExpression::Operation;

// A single layer is a level too, and the model takes a hundred.
constexpr std::size_t DeepestExpression = 99;
// Arrays that are referred to many times over can make a small file an expression without end.
constexpr std::size_t LargestExpression = 10'000;

class MembershipReader
{
public:
    MembershipReader(DocumentResources& givenDocument, std::string& givenProblem)
        : document(givenDocument), problem(givenProblem)
    {}

    LogicalLayerExpression ReadDictionary(QPDFObjectHandle dictionary)
    {
        QPDFObjectHandle expression = dictionary.getKey("/VE");
        if (expression.isArray()) {
            LogicalLayerExpression read;
            if (ReadExpression(expression, 0, read))
                return read;
        } else if (!expression.isNull()) {
            Tell("VE is no array");
        }
        return ReadPolicy(dictionary);
    }

private:
    LogicalLayerExpression ReadPolicy(QPDFObjectHandle dictionary)
    {
        Operation operation = Operation::AnyOn;
        QPDFObjectHandle policy = dictionary.getKey("/P");
        if (policy.isNameAndEquals("/AllOn"))
            operation = Operation::AllOn;
        else if (policy.isNameAndEquals("/AnyOff"))
            operation = Operation::AnyOff;
        else if (policy.isNameAndEquals("/AllOff"))
            operation = Operation::AllOff;
        else if (!policy.isNull() && !policy.isNameAndEquals("/AnyOn"))
            Tell("P is no visibility policy");

        std::vector<LogicalLayerExpression> operands;
        QPDFObjectHandle groups = dictionary.getKey("/OCGs");
        if (groups.isArray()) {
            for (QPDFObjectHandle group : groups.getArrayAsVector())
                AddLayer(group, operands);
        } else if (groups.isDictionary()) {
            AddLayer(groups, operands);
        } else if (!groups.isNull()) {
            Tell("OCGs is neither a layer nor an array");
        }
        return LogicalLayerExpression(operation, std::move(operands));
    }

    bool ReadExpression(QPDFObjectHandle array, std::size_t depth, LogicalLayerExpression& read)
    {
        if (depth >= DeepestExpression || ++size > LargestExpression) {
            Tell("VE is nested too deeply or too large");
            return false;
        }
        const int count = array.getArrayNItems();
        const std::string name = count > 0 ? GetNameText(array.getArrayItem(0)) : std::string();
        Operation operation = Operation::And;
        if (name == "Or")
            operation = Operation::Or;
        else if (name == "Not")
            operation = Operation::Not;
        else if (name != "And") {
            Tell("VE has an array that begins with none of And, Or, Not");
            return false;
        }
        std::vector<LogicalLayerExpression> operands;
        for (int index = 1; index < count; ++index) {
            QPDFObjectHandle operand = array.getArrayItem(index);
            if (!operand.isArray()) {
                AddLayer(operand, operands);
                continue;
            }
            LogicalLayerExpression inner;
            if (!ReadExpression(operand, depth + 1, inner))
                return false;
            operands.push_back(std::move(inner));
        }
        if (operation == Operation::Not && operands.size() != 1) {
            Tell("VE has a Not with " + std::to_string(operands.size()) + " operands");
            return false;
        }
        read = LogicalLayerExpression(operation, std::move(operands));
        return true;
    }

    void AddLayer(QPDFObjectHandle group, std::vector<LogicalLayerExpression>& operands)
    {
        const auto layer = document.FindLayer(group);
        if (layer)
            operands.emplace_back(layer);
        else if (group.isNull())
            Tell("a layer is null");
        else
            Tell(DescribeObject(group) + " is no layer of the document");
    }

    void Tell(const std::string& text)
    {
        if (problem.empty())
            problem = text;
    }

    DocumentResources& document;
    std::string& problem;
    std::size_t size = 0;
};

} // namespace

boost::optional<OrvDoc::Layer::Membership>
ReadLayerMembership(DocumentResources& document, QPDFObjectHandle propertyList, std::string& problem)
{
    if (const auto layer = document.FindLayer(propertyList))
        return OrvDoc::Layer::Membership(layer);
    const std::string type = GetNameText(GetEntry(propertyList, "/Type"));
    if (type == "OCMD")
        return OrvDoc::Layer::Membership(MembershipReader(document, problem).ReadDictionary(propertyList));
    if (type == "OCG")
        problem = DescribeObject(propertyList) + " is no layer of the document";
    return boost::none;
}

} // namespace OrvPdf
