#pragma once

#include <memory>
#include <vector>

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

/// A run of characters of one font, size, spacing and paint.
class ORV_EXPORT Text : public Strokable
{
public:
    /// `size` in points. All transformations are the identity at first.
    Text(std::vector<TextCharacter> characters, std::shared_ptr<const OrvFont::Font> font, double size);
    ~Text() override;

    const std::shared_ptr<const OrvFont::Font>& GetFont() const { return font; }
    const std::vector<TextCharacter>& GetText() const { return characters; }
    /// Points.
    double GetSize() const { return size; }
    Plexa::CoordinateBase<Plexa::PdfCoordinateSystem> GetCharSpacing() const { return charSpacing; }
    Plexa::CoordinateBase<Plexa::PdfCoordinateSystem> GetWordSpacing() const { return wordSpacing; }
    /// The text matrix (ISO 32000-1, 9.4.2).
    const Plexa::TransformationBase<Plexa::MilliPointCoordinateSystem>& GetTextTransformation() const
    {
        return textTransformation;
    }
    /// One for each character, in points.
    const std::vector<Plexa::TransformationBase<Plexa::PdfCoordinateSystem>>&
    GetCharacterTransformations() const
    {
        return characterTransformations;
    }
    /// Outlines of the characters in the object's own coordinates, in order.
    const std::vector<std::shared_ptr<const Plexa::Compound>>& OriginalCompounds() const;
    /// The same in their final position; with a transformation, transformed further. Lifetimes as for
    /// `Path::TransformedCompound`.
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

    void SetCharSpacing(Plexa::CoordinateBase<Plexa::PdfCoordinateSystem> value);
    void SetWordSpacing(Plexa::CoordinateBase<Plexa::PdfCoordinateSystem> value);
    void SetTextTransformation(const Plexa::TransformationBase<Plexa::MilliPointCoordinateSystem>& value);
    /// Throws `std::invalid_argument` unless there is one for each character.
    void
    SetCharacterTransformations(std::vector<Plexa::TransformationBase<Plexa::PdfCoordinateSystem>> value);

protected:
    void OriginalOutlineChangedSelf() override;
    void TransformationChangedSelf(const Plexa::TransformationBase<Plexa::MilliPointCoordinateSystem>& change,
                                   TransformationMode mode) override;
    void StrokePropertiesChangedSelf() override;

private:
    std::vector<TextCharacter> characters;
    std::shared_ptr<const OrvFont::Font> font;
    double size;
    Plexa::CoordinateBase<Plexa::PdfCoordinateSystem> charSpacing;
    Plexa::CoordinateBase<Plexa::PdfCoordinateSystem> wordSpacing;
    Plexa::TransformationBase<Plexa::MilliPointCoordinateSystem> textTransformation;
    std::vector<Plexa::TransformationBase<Plexa::PdfCoordinateSystem>> characterTransformations;
};

} // namespace OrvDoc
