#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

#include <orv_doc/shown_text.h>
#include <orv_doc/strokable.h>
#include <orv_doc/text_character.h>

namespace OrvFont
{
class Font;
}

namespace Plexa
{
class Compound;
}

namespace OrvDoc
{

namespace Detail
{
class PackedCharacters;
class PackedPlaces;
} // namespace Detail

/// A run of characters of one font, size, spacing and paint.
///
/// The characters stand one behind the other as the font's advances, the size and the spacings say, to the
/// right or, in a font that is written vertically, along the y axis, until character transformations are set.
///
/// A text stores a few bytes for each character. The lists that it gives are made when they are first asked
/// for, safely from several threads, and kept; a reference to one lives until the object or a group around it
/// changes. A `CharacterWalk` tells the same and keeps nothing.
class ORV_EXPORT Text : public Strokable
{
public:
    /// `size` in points. Spacings are zero and the text transformation is the identity at first. Throws
    /// `std::invalid_argument` for a null font.
    Text(std::vector<TextCharacter> characters, std::shared_ptr<const OrvFont::Font> font, double size);
    ~Text() override;

    const std::shared_ptr<const OrvFont::Font>& GetFont() const { return font; }
    const std::vector<TextCharacter>& GetText() const;
    /// Points.
    double GetSize() const { return size; }
    /// What is added to the advance of each character (ISO 32000-1, 9.3.2).
    Plexa::CoordinateBase<Plexa::PdfCoordinateSystem> GetCharSpacing() const { return charSpacing; }
    /// What is added besides to that of a word space, the one-byte code 32 (ISO 32000-1, 9.3.3).
    Plexa::CoordinateBase<Plexa::PdfCoordinateSystem> GetWordSpacing() const { return wordSpacing; }
    /// The text matrix (ISO 32000-1, 9.4.2).
    const Plexa::TransformationBase<Plexa::MilliPointCoordinateSystem>& GetTextTransformation() const
    {
        return textTransformation;
    }
    /// One for each character, in points: from the character at its size to the text. Those that were set, or
    /// the places that advances and spacings give.
    const std::vector<Plexa::TransformationBase<Plexa::PdfCoordinateSystem>>&
    GetCharacterTransformations() const;
    /// Outlines of the characters, one for each, in order: the font's own, before the size and any
    /// transformation. So texts that are only placed differently have the same.
    const std::vector<std::shared_ptr<const Plexa::Compound>>& OriginalCompounds() const;
    /// The same in their final position: under the size, the character's transformation, that of the text and
    /// the object's absolute one. With a transformation, transformed further; the result then lives until the
    /// next such call of the thread.
    const std::vector<std::shared_ptr<const Plexa::Compound>>& TransformedCompounds(
        const Plexa::TransformationBase<Plexa::MilliPointCoordinateSystem>* transformation) const;

    Text* Clone(CloneStrategy& strategy) const override;
    std::pair<std::string, std::string> DumpInfo() const override;
    Plexa::RectangleBase<Plexa::MilliPointCoordinateSystem> GetBoundingBoxSelf(
        BoxKind kind,
        const Plexa::TransformationBase<Plexa::MilliPointCoordinateSystem>& transformation) const override;
    void Accept(ConstVisitorBase& visitor) const override;
    void Accept(VisitorBase& visitor) override;

    // For makers of documents.

    /// A text of what text-showing operators show. Its characters and their places are found out when
    /// somebody asks for them.
    Text(std::shared_ptr<const OrvFont::Font> font, double size, ShownText shown);
    /// What the text was made of; null if it was made of characters, and once character transformations were
    /// set.
    const ShownText* GetShownText() const { return shown.get(); }

    void SetCharSpacing(Plexa::CoordinateBase<Plexa::PdfCoordinateSystem> value);
    void SetWordSpacing(Plexa::CoordinateBase<Plexa::PdfCoordinateSystem> value);
    void SetTextTransformation(const Plexa::TransformationBase<Plexa::MilliPointCoordinateSystem>& value);
    /// From now on the characters stand there, whatever the spacings become. Throws `std::invalid_argument`
    /// unless there is one for each character.
    void
    SetCharacterTransformations(std::vector<Plexa::TransformationBase<Plexa::PdfCoordinateSystem>> value);
    /// Whether they were set, so that advances and spacings say nothing about the places of the characters.
    bool HasOwnCharacterTransformations() const { return ownPlaces != nullptr; }
    /// Without keeping a list.
    std::size_t GetCharacterCount() const;

protected:
    void OriginalOutlineChangedSelf() override;
    void TransformationChangedSelf(const Plexa::TransformationBase<Plexa::MilliPointCoordinateSystem>& change,
                                   TransformationMode mode) override;
    void StrokePropertiesChangedSelf() override;

private:
    friend class CharacterWalk;

    using Compounds = std::vector<std::shared_ptr<const Plexa::Compound>>;
    struct Lists;

    /// Which of the lists have been made.
    enum Part : std::uint8_t
    {
        Characters = 1,
        Places = 2,
        OriginalOutlines = 4,
        TransformedOutlines = 8,
    };

    bool Has(Part part) const { return (madeParts.load(std::memory_order_acquire) & part) != 0; }
    /// Keeps a list unless another thread did so meanwhile.
    template <typename Keep>
    void KeepOnce(Part part, Keep keep) const;
    void Drop(Part part);
    Compounds MakeTransformedCompounds() const;

    /// Either of the two is null.
    std::shared_ptr<const ShownText> shown;
    std::shared_ptr<const Detail::PackedCharacters> characters;
    /// Null unless character transformations were set.
    std::shared_ptr<const Detail::PackedPlaces> ownPlaces;
    std::shared_ptr<const OrvFont::Font> font;
    double size;
    Plexa::CoordinateBase<Plexa::PdfCoordinateSystem> charSpacing;
    Plexa::CoordinateBase<Plexa::PdfCoordinateSystem> wordSpacing;
    Plexa::TransformationBase<Plexa::MilliPointCoordinateSystem> textTransformation;
    mutable std::unique_ptr<Lists> lists;
    mutable std::atomic<std::uint8_t> madeParts{0};
};

} // namespace OrvDoc
