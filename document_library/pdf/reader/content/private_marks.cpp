// The marked content that our own writer makes (marked_content_tags.h): it says what PDF has no operators
// for.

#include "pdf/marked_content_tags.h"
#include "pdf/number_text.h"
#include "pdf/reader/content/interpreter.h"

namespace OrvPdf
{

using OrvSys::PdfObject;

namespace
{

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

} // namespace

GroupRecipe Interpreter::ReadGroupRecipe(const PdfObject& properties)
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

void Interpreter::ExpectClipMatrix(const PdfObject& properties)
{
    if (ReadMatrix(properties.Find(Tags::matrixKey), clipMatrix.matrix)) {
        clipMatrix.operation = operationNumber;
    }
}

void Interpreter::BeginNamedText(const PdfObject& properties, const Arguments& arguments)
{
    EndRun();
    // The glyphs of a Type 3 font are objects of their own, so there is no text that begins.
    if (!PrepareShowing(arguments) || ShowsGlyphs()) {
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
