#include "pdf/reader/content/group_recipe.h"

#include <plexa/geometry.h>

#include <orv_doc/path.h>
#include <orv_doc/text_group.h>

namespace OrvPdf
{

namespace
{

// The levels of an expression are bounded.
std::uint64_t CountOperands(const OrvDoc::LogicalLayerExpression& expression)
{
    std::uint64_t count = expression.GetOperands().size();
    for (const OrvDoc::LogicalLayerExpression& operand : expression.GetOperands()) {
        count += CountOperands(operand);
    }
    return count;
}

std::unique_ptr<OrvDoc::ContentObject> MakeClippingPath(const GroupRecipe& recipe)
{
    auto path = std::make_unique<OrvDoc::Path>(recipe.clip);
    if (!recipe.clipName.empty()) {
        path->SetName(recipe.clipName);
    }
    if (!Plexa::IsIdentity(recipe.clipTransformation)) {
        path->SetTransformation(recipe.clipTransformation);
    }
    path->SetClippingObject(true);
    return path;
}

std::unique_ptr<OrvDoc::Text> CopyClipText(const OrvDoc::Text& text, const Matrix& further)
{
    auto copy = std::make_unique<OrvDoc::Text>(text.GetFont(), text.GetSize(), *text.GetShownText());
    copy->SetCharSpacing(text.GetCharSpacing());
    copy->SetWordSpacing(text.GetWordSpacing());
    copy->SetTextTransformation(text.GetTextTransformation());
    if (!text.GetName().empty()) {
        copy->SetName(text.GetName());
    }
    const Matrix transformation = Plexa::Concatenate(text.GetTransformation(), further);
    if (!Plexa::IsIdentity(transformation)) {
        copy->SetTransformation(transformation);
    }
    return copy;
}

std::unique_ptr<OrvDoc::ContentObject> MakeClippingTexts(const GroupRecipe& recipe)
{
    auto group = std::make_unique<OrvDoc::TextGroup>();
    for (const auto& text : *recipe.clipTexts) {
        group->AddOnTop(CopyClipText(*text, recipe.clipTransformation).release());
    }
    group->SetClippingObject(true);
    return group;
}

} // namespace

std::unique_ptr<OrvDoc::ContentObject> MakeClip(const GroupRecipe& recipe)
{
    return recipe.clipTexts ? MakeClippingTexts(recipe) : MakeClippingPath(recipe);
}

void ApplyAttributes(const GroupRecipe& recipe, OrvDoc::Group& group)
{
    // The name of a layer is the layer's own, which no object of it may change.
    const bool isNamedElsewhere = recipe.membership && recipe.membership->which() == 0;
    if (!recipe.name.empty() && !isNamedElsewhere) {
        group.SetName(recipe.name);
    }
    const auto flags = static_cast<OrvDoc::Group::Flags>(recipe.flags);
    if (flags != group.GetFlags()) {
        group.SetFlags(flags);
    }
    if (!Plexa::IsIdentity(recipe.transformation)) {
        group.SetTransformation(recipe.transformation);
    }
    if (recipe.isClippingTextGroup) {
        if (auto* const textGroup = dynamic_cast<OrvDoc::TextGroup*>(&group)) {
            textGroup->SetClippingObject(true);
        }
    }
}

std::unique_ptr<OrvDoc::Group> MakeGroup(const GroupRecipe& recipe)
{
    std::unique_ptr<OrvDoc::Group> group;
    if (recipe.membership) {
        group = std::make_unique<OrvDoc::Layer>(*recipe.membership);
    } else if (recipe.isTextGroup) {
        group = std::make_unique<OrvDoc::TextGroup>();
    } else {
        group = std::make_unique<OrvDoc::Group>(OrvDoc::Group::Flags::Default);
    }
    if (recipe.markedContent) {
        group->SetMarkedContent(recipe.markedContent);
    }
    ApplyAttributes(recipe, *group);
    return group;
}

std::uint64_t GetWeight(const GroupRecipe& recipe)
{
    // So many operands take about the memory that an object may take.
    constexpr std::uint64_t operandsPerObject = 8;
    const auto* const expression =
        recipe.membership ? boost::get<OrvDoc::LogicalLayerExpression>(recipe.membership.get()) : nullptr;
    const std::uint64_t clips = recipe.clipTexts ? 1 + recipe.clipTexts->size() : recipe.clip ? 1 : 0;
    return 1 + clips + (expression ? CountOperands(*expression) / operandsPerObject : 0);
}

} // namespace OrvPdf
