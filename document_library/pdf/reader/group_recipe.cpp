#include "pdf/reader/group_recipe.h"

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

} // namespace

std::unique_ptr<OrvDoc::ContentObject> MakeClippingPath(std::shared_ptr<const Plexa::Compound> compound,
                                                        const Matrix& transformation, const std::string& name)
{
    auto path = std::make_unique<OrvDoc::Path>(std::move(compound));
    if (!name.empty()) {
        path->SetName(name);
    }
    if (!Plexa::IsIdentity(transformation)) {
        path->SetTransformation(transformation);
    }
    path->SetClippingObject(true);
    return path;
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
    return 1 + (expression ? CountOperands(*expression) / operandsPerObject : 0);
}

} // namespace OrvPdf
