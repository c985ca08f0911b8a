#include <cmath>
#include <stdexcept>

#include "pdf/marked_content_tags.h"
#include "pdf/number_text.h"
#include "pdf/reader/interpreter.h"

namespace OrvPdf
{

namespace
{

using OrvSys::PdfObject;

PdfObject ConvertNumber(const Operand& operand)
{
    // Larger integers have no room where integers are held.
    constexpr double largestInteger = 9007199254740992.0;
    const double value = operand.AsNumber();
    if (operand.IsInteger() && std::fabs(value) < largestInteger) {
        return PdfObject::Integer(static_cast<std::int64_t>(value));
    }
    // The text, as it stands, unless real files hold it and the standard doesn't know it, such as "--5" or
    // "1e5".
    double valueOfText = 0.0;
    if (ParseNumber(operand.Text(), 0, valueOfText) && valueOfText == value) {
        try {
            return PdfObject::Real(std::string(operand.Text()));
        } catch (const std::invalid_argument&) {
        }
    }
    return PdfObject::Real(value);
}

// The nesting of operands is bounded by the lexer, and by the maker of arrays and dictionaries.
PdfObject Convert(const Operand& operand)
{
    switch (operand.Kind()) {
    case OperandKind::Null:
        return PdfObject::Null();
    case OperandKind::Boolean:
        return PdfObject::Boolean(operand.AsBoolean());
    case OperandKind::Number:
        return ConvertNumber(operand);
    case OperandKind::Name:
        return PdfObject::Name(std::string(operand.Text()));
    case OperandKind::String:
        return PdfObject::String(std::string(operand.Text()));
    case OperandKind::Array: {
        PdfObject::Items items;
        for (const Operand& element : operand.Elements()) {
            items.push_back(Convert(element));
        }
        return PdfObject::Array(std::move(items));
    }
    case OperandKind::Dictionary:
        break;
    }
    PdfObject::Entries entries;
    const Operand* key = nullptr;
    for (const Operand& element : operand.Elements()) {
        if (key) {
            entries.emplace(std::string(key->Text()), Convert(element));
            key = nullptr;
        } else if (element.IsName()) {
            key = &element;
        }
    }
    return PdfObject::Dictionary(std::move(entries));
}

/// The last two numbers are multiplied with ten to the power of `translationShift`.
bool ReadMatrix(const PdfObject& value, Matrix& matrix, int translationShift = 3)
{
    if (!value.IsArray() || value.GetItems().size() != 6) {
        return false;
    }
    double numbers[6] = {};
    for (std::size_t i = 0; i < 6; ++i) {
        const PdfObject& item = value.GetItems()[i];
        if (!item.IsNumber() || !ParseNumber(item.Serialize(), i < 4 ? 0 : translationShift, numbers[i])) {
            return false;
        }
    }
    matrix = Matrix(numbers[0], numbers[1], numbers[2], numbers[3], numbers[4], numbers[5]);
    return true;
}

GroupRecipe ReadGroupRecipe(const PdfObject& properties)
{
    GroupRecipe recipe;
    const PdfObject name = properties.Find(Tags::nameKey);
    if (name.IsString()) {
        recipe.name = name.GetText();
    }
    const PdfObject flags = properties.Find(Tags::flagsKey);
    if (flags.IsInteger()) {
        recipe.flags = static_cast<std::uint32_t>(flags.GetInteger());
    }
    const PdfObject clip = properties.Find(Tags::clipKey);
    recipe.isClippingTextGroup = clip.IsBoolean() && clip.GetBoolean();
    return recipe;
}

} // namespace

PdfObject Interpreter::ToObject(const Operand& operand, const Arguments& arguments)
{
    try {
        return Convert(operand);
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

void Interpreter::BeginObject(const PdfObject& properties)
{
    const PdfObject name = properties.Find(Tags::nameKey);
    const auto isTrue = [&properties](const char* key) {
        const PdfObject value = properties.Find(key);
        return value.IsBoolean() && value.GetBoolean();
    };
    ObjectAttributes attributes;
    attributes.name = name.IsString() ? name.GetText() : std::string();
    attributes.evenOdd = isTrue(Tags::evenOddKey);
    attributes.isolated = isTrue(Tags::isolatedKey);
    attributes.knockout = isTrue(Tags::knockoutKey);
    attributes.blended = isTrue(Tags::blendedKey);
    attributes.halftones = isTrue(Tags::halftonesKey);
    attributes.showsNothing = isTrue(Tags::emptyKey);
    attributes.hasOutline = isTrue(Tags::outlineKey);
    objectAttributes = std::move(attributes);
    openMarks.push_back({0});
}

void Interpreter::ExpectGroupParts(ScopeTree::Id scope, const PdfObject& properties,
                                   const Arguments& arguments)
{
    const PdfObject matrix = properties.Find(Tags::matrixKey);
    if (ReadMatrix(matrix, groupMatrix.matrix)) {
        groupMatrix.scope = scope;
        groupMatrix.operation = operationNumber;
    } else if (!matrix.IsNull()) {
        problems.Odd(arguments.OperatorText(), "a group matrix that is none", {}, arguments.Place());
    }
    const PdfObject clips = properties.Find(Tags::ownClipsKey);
    if (clips.IsInteger() && clips.GetInteger() > 0) {
        ownClipsLeft = static_cast<std::uint64_t>(clips.GetInteger());
        ownClipsScope = scope;
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
        if (ReadMatrix(properties.Find(Tags::matrixKey), clipMatrix.matrix)) {
            clipMatrix.operation = operationNumber;
        }
    } else if (tag == Tags::attributes) {
        ApplyAttributes(properties, arguments);
    } else {
        tree.Place(MakeGroup(ForeignRecipe(tag, properties, true, arguments)));
    }
}

void Interpreter::BeginNamedText(const PdfObject& properties, const Arguments& arguments)
{
    EndRun();
    if (!PrepareShowing(arguments)) {
        return;
    }
    PrepareRun();
    Matrix own;
    Matrix ofObject;
    if (ReadMatrix(properties.Find(Tags::textKey), own) &&
        ReadMatrix(properties.Find(Tags::matrixKey), ofObject)) {
        text.run->SplitMatrix(own, ofObject);
    }
}

void Interpreter::NameLine(const PdfObject& properties)
{
    Matrix matrix;
    if (ReadMatrix(properties.Find(Tags::matrixKey), matrix, 0)) {
        exactLine = {matrix.a, matrix.b, matrix.c, matrix.d, matrix.x.value, matrix.y.value};
        exactLineOperation = operationNumber;
    }
}

void Interpreter::ApplyAttributes(const PdfObject& properties, const Arguments& arguments)
{
    const bool isInside = droppedMarks == 0 && !openMarks.empty() && tree.IsInnermost(openMarks.back().scope);
    if (!isInside) {
        problems.Odd(arguments.OperatorText(), "attributes of a group that is none", {}, arguments.Place());
        return;
    }
    GroupRecipe recipe = ReadGroupRecipe(properties);
    recipe.transformation = tree.GetInnermostRecipe().transformation;
    tree.SetAttributes(recipe);
    ExpectGroupParts(openMarks.back().scope, properties, arguments);
}

} // namespace OrvPdf
