#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include <orv_doc/group.h>
#include <orv_doc/layer.h>
#include <orv_doc/marked_content.h>
#include <orv_doc/text.h>
#include <plexa/compound.h>
#include <plexa/transformation.h>

namespace OrvPdf
{

using Matrix = Plexa::TransformationBase<Plexa::MilliPointCoordinateSystem>;

/// What a group that is read from a file is made from. The same group may be made more than once, where clips
/// and marked content overlap in the file.
struct GroupRecipe
{
    /// An `OrvDoc::TextGroup` instead of a plain group. Not with `membership`.
    bool isTextGroup = false;
    /// Of a text group: it clips.
    bool isClippingTextGroup = false;
    /// An `OrvDoc::Layer` instead of a plain group; null for none.
    std::shared_ptr<const OrvDoc::Layer::Membership> membership;
    /// Marked content of another program; null for none.
    std::shared_ptr<const OrvDoc::MarkedContent> markedContent;
    /// Shape of the clipping path that the group begins with; null for none.
    std::shared_ptr<const Plexa::Compound> clip;
    /// Texts that the group begins with a clipping text group of, instead; null for none.
    std::shared_ptr<const std::vector<std::unique_ptr<OrvDoc::Text>>> clipTexts;
    /// Where the clip is placed further.
    Matrix clipTransformation;
    std::string clipName;

    bool HasClip() const { return clip || clipTexts; }
    std::string name;
    std::uint32_t flags = static_cast<std::uint32_t>(OrvDoc::Group::Flags::Default);
    Matrix transformation;
};

/// The group that a recipe tells of, still without its clipping path.
std::unique_ptr<OrvDoc::Group> MakeGroup(const GroupRecipe& recipe);

/// The number of objects that the group counts as where objects are limited. A layer has a copy of its
/// logical expression, which a file can name as often as it likes.
std::uint64_t GetWeight(const GroupRecipe& recipe);

/// The path or the text group that a recipe tells of, which clips its container. The recipe must have one.
std::unique_ptr<OrvDoc::ContentObject> MakeClip(const GroupRecipe& recipe);

/// What a recipe says about a group beside its kind: name, flags, transformation, clipping role.
void ApplyAttributes(const GroupRecipe& recipe, OrvDoc::Group& group);

} // namespace OrvPdf
