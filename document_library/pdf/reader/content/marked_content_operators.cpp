#include <stdexcept>

#include "pdf/marked_content_tags.h"
#include "pdf/reader/content/interpreter.h"
#include "pdf/reader/lexer/operand_conversion.h"

namespace OrvPdf
{

using OrvSys::PdfObject;

PdfObject Interpreter::ToObject(const Operand& operand, const Arguments& arguments)
{
    try {
        return ConvertOperand(operand);
    } catch (const std::length_error& error) {
        problems.Unmodelled(arguments.OperatorText(), "a property list that is too large", error.what(),
                            arguments.Place());
        return PdfObject();
    }
}

void Interpreter::BeginMarkedContent(const Arguments& arguments)
{
    BeginMark(std::string(arguments[0].Text()), PdfObject(), arguments);
}

void Interpreter::BeginMarkedContentList(const Arguments& arguments)
{
    BeginMark(std::string(arguments[0].Text()), ToObject(arguments[1], arguments), arguments);
}

void Interpreter::BeginMark(const std::string& tag, const PdfObject& properties, const Arguments& arguments)
{
    const bool isFull = openMarks.size() >= limits.contentNesting || tree.GetDepth() >= limits.contentNesting;
    if (droppedMarks > 0 || isFull) {
        // Those inside of a dropped one are dropped too, so that ends find their beginnings.
        ++droppedMarks;
        problems.Limit("contentNesting", limits.contentNesting, arguments.Place());
        return;
    }
    if (tag == Tags::object) {
        EndRun();
        BeginObject(properties);
        return;
    }
    const bool isGroup = tag == Tags::group || tag == Tags::textGroup;
    GroupRecipe recipe =
        isGroup ? ReadGroupRecipe(properties) : ForeignRecipe(tag, properties, false, arguments);
    recipe.isTextGroup = tag == Tags::textGroup;
    const bool isOwnClip = recipe.isTextGroup && recipe.isClippingTextGroup && ownClipsLeft > 0 &&
                           tree.IsInnermost(ownClipsScope);
    ownClipsLeft = isOwnClip ? ownClipsLeft - 1 : 0;
    EndRun();
    const ScopeTree::Id scope = tree.Open(std::move(recipe));
    openMarks.push_back({scope});
    if (isGroup) {
        ExpectGroupParts(scope, properties, arguments);
    }
}

GroupRecipe Interpreter::ForeignRecipe(const std::string& tag, const PdfObject& properties, bool isPoint,
                                       const Arguments& arguments)
{
    GroupRecipe recipe;
    OrvDoc::MarkedContent mark;
    mark.tag = tag;
    mark.properties = properties;
    mark.isPoint = isPoint;
    if (properties.IsName()) {
        const auto& found =
            propertyLists.Get(properties.GetText(), [this](const std::string& key, std::string& problem) {
                return LookUpPropertyList(key, problem);
            });
        if (!found.problem.empty() || !found.value.list) {
            problems.Odd(arguments.OperatorText(),
                         "property list /" + Readable(properties.GetText()) + ": " +
                             (found.problem.empty() ? "it is missing" : found.problem),
                         {}, arguments.Place());
        }
        if (found.value.layer && tag == "OC" && !isPoint) {
            recipe.membership = found.value.layer;
            return recipe;
        }
        if (found.value.list) {
            mark.resource = found.value.list->value;
            mark.resourceObject = found.value.list->objectNumber;
        }
    }
    recipe.markedContent = std::make_shared<const OrvDoc::MarkedContent>(std::move(mark));
    return recipe;
}

Interpreter::PropertyList Interpreter::LookUpPropertyList(const std::string& name, std::string& problem)
{
    PropertyList result;
    if (auto list = resources.FindPropertyList(name, problem)) {
        if (list->layer) {
            result.layer = std::make_shared<const OrvDoc::Layer::Membership>(std::move(*list->layer));
            list->layer = boost::none;
        }
        result.list = std::make_shared<const ContentResources::PropertyList>(std::move(*list));
    }
    return result;
}

void Interpreter::EndMarkedContent(const Arguments& arguments)
{
    if (droppedMarks > 0) {
        --droppedMarks;
        return;
    }
    if (openMarks.empty()) {
        problems.Damaged("EMC", "there is no marked content to end", {}, arguments.Place());
        return;
    }
    EndRun();
    const ScopeTree::Id scope = openMarks.back().scope;
    openMarks.pop_back();
    if (scope == 0) {
        objectAttributes = boost::none;
        return;
    }
    ReleaseBase(scope);
    tree.Close(scope);
}

void Interpreter::MarkedPoint(const Arguments& arguments)
{
    if (arguments[0].Text() == Tags::text) {
        BeginNamedText(PdfObject(), arguments);
        return;
    }
    EndRun();
    tree.Place(MakeGroup(ForeignRecipe(std::string(arguments[0].Text()), PdfObject(), true, arguments)));
}

void Interpreter::MarkedPointList(const Arguments& arguments)
{
    const std::string tag(arguments[0].Text());
    const PdfObject properties = ToObject(arguments[1], arguments);
    if (tag == Tags::line) {
        NameLine(properties);
        return;
    }
    EndRun();
    if (tag == Tags::text) {
        BeginNamedText(properties, arguments);
    } else if (tag == Tags::reset) {
        ExpectClipMatrix(properties);
    } else if (tag == Tags::attributes) {
        ApplyAttributes(properties, arguments);
    } else {
        tree.Place(MakeGroup(ForeignRecipe(tag, properties, true, arguments)));
    }
}

} // namespace OrvPdf
