#pragma once

#include <cstddef>
#include <memory>

#include <orv_doc/text_character.h>
#include <orv_sys/export.h>
#include <plexa/coordinate_systems.h>
#include <plexa/transformation.h>

namespace Plexa
{
class Compound;
}

namespace OrvDoc
{

class Text;

// For makers of documents.

/// Goes once over the characters of a text, with their places and outlines. Unlike the lists that a text
/// gives, which it keeps from then on, a walk leaves nothing behind. The text must outlive the walk and not
/// change meanwhile.
class ORV_EXPORT CharacterWalk
{
public:
    using Place = Plexa::TransformationBase<Plexa::PdfCoordinateSystem>;
    using Transformation = Plexa::TransformationBase<Plexa::MilliPointCoordinateSystem>;

    /// Begins at the first character. `outer` leads from the text's coordinates to where outlines are wanted:
    /// the absolute transformation of the text for those in their final position.
    explicit CharacterWalk(const Text& text, const Transformation& outer = {});
    ~CharacterWalk();
    CharacterWalk(CharacterWalk&&) noexcept;
    CharacterWalk(const CharacterWalk&) = delete;
    CharacterWalk& operator=(const CharacterWalk&) = delete;

    /// The number of all characters.
    std::size_t GetCount() const { return count; }
    bool IsAtEnd() const { return index == count; }
    /// All others below need a walk that is not at the end.
    void Next();

    TextCharacter GetCharacter() const;
    /// What `Text::GetCharacterTransformations` has for the character.
    Place GetPlace() const;
    /// What `Text::OriginalCompounds` has for it.
    std::shared_ptr<const Plexa::Compound> GetOutline() const;
    /// Brings that outline to its size and its place in the text, and on by `outer`.
    Transformation GetOutlineTransformation() const;
    /// The outline brought there. What `Text::TransformedCompounds` has for it if `outer` is the absolute
    /// transformation of the text. Made anew by each call.
    std::shared_ptr<const Plexa::Compound> GetTransformedOutline() const;

private:
    struct ShownWalk;

    const Text& text;
    Transformation textToOuter;
    std::size_t index = 0;
    std::size_t count;
    /// Null if the places of the characters were set.
    std::unique_ptr<ShownWalk> shown;
};

} // namespace OrvDoc
