#include "pdf/writer/document/layer_objects.h"

#include <qpdf/QPDF.hh>

#include <orv_doc/layer_properties.h>
#include <orv_doc/layers.h>

#include "pdf/reader/file/qpdf_text.h"
#include "pdf/writer/content/membership_index.h"

namespace OrvPdf
{

namespace
{

using OrvDoc::LogicalLayerExpression;
using Operation = LogicalLayerExpression::Operation;

const char* GetPolicyName(Operation operation)
{
    switch (operation) {
    case Operation::AllOn:
        return "/AllOn";
    case Operation::AnyOff:
        return "/AnyOff";
    case Operation::AllOff:
        return "/AllOff";
    default:
        return "/AnyOn";
    }
}

void SetOrRemove(QPDFObjectHandle dictionary, const char* key, const std::string& name)
{
    if (GetNameText(dictionary.getKey(key)) == name) {
        return;
    }
    if (name.empty()) {
        dictionary.removeKey(key);
    } else {
        dictionary.replaceKey(key, ObjectMaker::MakeName(name));
    }
}

} // namespace

LayerObjects::LayerObjects(ObjectMaker& givenMaker, QPDFObjectHandle catalogue,
                           const OrvDoc::Layers& givenLayers)
    : maker(givenMaker), layers(givenLayers)
{
    QPDFObjectHandle listed = GetEntry(GetEntry(catalogue, "/OCProperties"), "/OCGs");
    if (listed.isArray()) {
        for (QPDFObjectHandle group : listed.getArrayAsVector()) {
            if (group.isIndirect() && group.isDictionary()) {
                sourceGroups.emplace(group.getObjectID(), group);
            }
        }
    }
    for (const auto& layer : layers.GetAllLayers()) {
        GetGroup(layer);
    }
    isComplete = true;
}

QPDFObjectHandle LayerObjects::GetGroup(const std::shared_ptr<OrvDoc::LayerProperties>& layer)
{
    const auto known = groups.find(layer.get());
    if (known != groups.end()) {
        return known->second;
    }
    const QPDFObjectHandle group = MakeGroup(*layer);
    groups.emplace(layer.get(), group);
    if (isComplete) {
        foreignGroups.push_back(group);
        problems.Add("layer '" + layer->GetName() +
                     "' is named on a page and is none of the document's; it is added");
    }
    return group;
}

QPDFObjectHandle LayerObjects::MakeGroup(const OrvDoc::LayerProperties& layer)
{
    const auto found = isComplete ? sourceGroups.end() : sourceGroups.find(layer.GetSourceObject());
    QPDFObjectHandle group;
    if (found != sourceGroups.end()) {
        group = found->second;
        // No two layers share an object.
        sourceGroups.erase(found);
    } else {
        group = maker.GetFile().makeIndirectObject(QPDFObjectHandle::newDictionary());
        group.replaceKey("/Type", QPDFObjectHandle::newName("/OCG"));
        group.replaceKey("/Name", ObjectMaker::MakeText(layer.GetName()));
    }
    UpdateGroup(group, layer);
    return group;
}

void LayerObjects::UpdateGroup(QPDFObjectHandle group, const OrvDoc::LayerProperties& layer)
{
    if (GetTextString(group.getKey("/Name")) != layer.GetName() || !group.getKey("/Name").isString()) {
        group.replaceKey("/Name", ObjectMaker::MakeText(layer.GetName()));
    }
    QPDFObjectHandle metadata = group.getKey("/GTS_Metadata");
    const bool hasStep = !layer.GetProcessingStepGroup().empty() || !layer.GetProcessingStepType().empty();
    if (!metadata.isDictionary()) {
        if (!hasStep) {
            return;
        }
        metadata = QPDFObjectHandle::newDictionary();
        group.replaceKey("/GTS_Metadata", metadata);
    }
    SetOrRemove(metadata, "/GTS_ProcStepsGroup", layer.GetProcessingStepGroup());
    SetOrRemove(metadata, "/GTS_ProcStepsType", layer.GetProcessingStepType());
    if (metadata.getKeys().empty()) {
        group.removeKey("/GTS_Metadata");
    }
}

QPDFObjectHandle LayerObjects::GetMembership(const OrvDoc::Layer::Membership& membership)
{
    if (const auto* const single = boost::get<std::shared_ptr<OrvDoc::LayerProperties>>(&membership)) {
        return GetGroup(*single);
    }
    const auto& expression = boost::get<LogicalLayerExpression>(membership);
    const std::string key = GetLookupKey(expression);
    const auto known = memberships.find(key);
    if (known != memberships.end()) {
        return known->second;
    }
    const QPDFObjectHandle made = maker.GetFile().makeIndirectObject(MakeDictionary(expression));
    memberships.emplace(key, made);
    return made;
}

QPDFObjectHandle LayerObjects::MakeDictionary(const LogicalLayerExpression& expression)
{
    QPDFObjectHandle dictionary = QPDFObjectHandle::newDictionary();
    dictionary.replaceKey("/Type", QPDFObjectHandle::newName("/OCMD"));
    switch (expression.GetOperation()) {
    case Operation::And:
    case Operation::Or:
    case Operation::Not:
        dictionary.replaceKey("/VE", MakeExpression(expression));
        AddPolicy(dictionary, expression);
        return dictionary;
    case Operation::Layer:
        dictionary.replaceKey("/OCGs", GetGroup(expression.GetLayer()));
        return dictionary;
    default:
        break;
    }
    std::vector<QPDFObjectHandle> items;
    for (const LogicalLayerExpression& operand : expression.GetOperands()) {
        items.push_back(GetGroup(operand.GetLayer()));
    }
    // No layer at all leaves the content visible (ISO 32000-1, table 99), but many programs hide it for an
    // array that is empty.
    if (!items.empty()) {
        dictionary.replaceKey("/OCGs", QPDFObjectHandle::newArray(items));
    }
    if (expression.GetOperation() != Operation::AnyOn) {
        dictionary.replaceKey("/P", QPDFObjectHandle::newName(GetPolicyName(expression.GetOperation())));
    }
    return dictionary;
}

/// What a simple expression means as a policy, for programs that know no expressions.
void LayerObjects::AddPolicy(QPDFObjectHandle dictionary, const LogicalLayerExpression& expression)
{
    const bool isNegated = expression.GetOperation() == Operation::Not;
    if (isNegated && expression.GetOperands().size() != 1) {
        return;
    }
    const LogicalLayerExpression& inner = isNegated ? expression.GetOperands()[0] : expression;
    const bool isAnd = inner.GetOperation() == Operation::And;
    std::vector<QPDFObjectHandle> items;
    if (inner.GetOperation() == Operation::Layer) {
        items.push_back(GetGroup(inner.GetLayer()));
    } else if (isAnd || inner.GetOperation() == Operation::Or) {
        for (const LogicalLayerExpression& operand : inner.GetOperands()) {
            if (operand.GetOperation() != Operation::Layer) {
                return;
            }
            items.push_back(GetGroup(operand.GetLayer()));
        }
    }
    if (items.empty()) {
        return;
    }
    const Operation whenNegated = isAnd ? Operation::AnyOff : Operation::AllOff;
    const Operation whenPlain = isAnd ? Operation::AllOn : Operation::AnyOn;
    dictionary.replaceKey("/OCGs", QPDFObjectHandle::newArray(items));
    dictionary.replaceKey("/P",
                          QPDFObjectHandle::newName(GetPolicyName(isNegated ? whenNegated : whenPlain)));
}

/// A visibility expression has no policies; what they mean it says with its own operations.
QPDFObjectHandle LayerObjects::MakeExpression(const LogicalLayerExpression& expression)
{
    const Operation operation = expression.GetOperation();
    if (operation == Operation::Layer) {
        return GetGroup(expression.GetLayer());
    }
    const bool isNegated = operation == Operation::AnyOff || operation == Operation::AllOff;
    const bool isEmptyPolicy = expression.GetOperands().empty() && operation != Operation::Or;
    const bool isAll =
        operation == Operation::And || operation == Operation::AllOn || operation == Operation::AnyOff;
    std::vector<QPDFObjectHandle> items;
    if (operation == Operation::Not) {
        items.push_back(QPDFObjectHandle::newName("/Not"));
    } else {
        items.push_back(QPDFObjectHandle::newName(isAll || isEmptyPolicy ? "/And" : "/Or"));
    }
    for (const LogicalLayerExpression& operand : expression.GetOperands()) {
        items.push_back(MakeExpression(operand));
    }
    const QPDFObjectHandle inner = QPDFObjectHandle::newArray(items);
    if (!isNegated || isEmptyPolicy) {
        return inner;
    }
    return QPDFObjectHandle::newArray({QPDFObjectHandle::newName("/Not"), inner});
}

std::vector<QPDFObjectHandle> LayerObjects::GetAllGroups()
{
    std::vector<QPDFObjectHandle> all;
    for (const auto& layer : layers.GetAllLayers()) {
        all.push_back(GetGroup(layer));
    }
    all.insert(all.end(), foreignGroups.begin(), foreignGroups.end());
    return all;
}

} // namespace OrvPdf
