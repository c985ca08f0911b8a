#include <orv_doc/text.h>

#include <stdexcept>
#include <utility>

#include <orv_doc/clone.h>
#include <orv_doc/visitor.h>

namespace OrvDoc
{

using Compounds = std::vector<std::shared_ptr<const Plexa::Compound>>;
using Transformation = Plexa::TransformationBase<Plexa::MilliPointCoordinateSystem>;

namespace
{

/// Outlines come from a font's glyphs, and no font can be asked for them yet.
const Compounds& GetNoCompounds()
{
    static const Compounds none;
    return none;
}

} // namespace

Text::Text(std::vector<TextCharacter> givenCharacters, std::shared_ptr<const OrvFont::Font> givenFont,
           double givenSize)
    : characters(std::move(givenCharacters)),
      font(std::move(givenFont)),
      size(givenSize),
      characterTransformations(characters.size())
{}

Text::~Text() = default;

const Compounds& Text::OriginalCompounds() const
{
    return GetNoCompounds();
}

const Compounds& Text::TransformedCompounds(const Transformation*) const
{
    return GetNoCompounds();
}

void Text::SetCharSpacing(Plexa::CoordinateBase<Plexa::PdfCoordinateSystem> value)
{
    charSpacing = value;
    NotifyChanged(WhatChangedFlags::Outline);
}

void Text::SetWordSpacing(Plexa::CoordinateBase<Plexa::PdfCoordinateSystem> value)
{
    wordSpacing = value;
    NotifyChanged(WhatChangedFlags::Outline);
}

void Text::SetTextTransformation(const Transformation& value)
{
    textTransformation = value;
    OriginalOutlineChangedSelf();
    NotifyChanged(WhatChangedFlags::Outline);
}

void Text::SetCharacterTransformations(
    std::vector<Plexa::TransformationBase<Plexa::PdfCoordinateSystem>> value)
{
    if (value.size() != characters.size())
        throw std::invalid_argument("A text of " + std::to_string(characters.size()) +
                                    " characters can't have " + std::to_string(value.size()) +
                                    " character transformations.");
    characterTransformations = std::move(value);
    OriginalOutlineChangedSelf();
    NotifyChanged(WhatChangedFlags::Outline);
}

Text* Text::Clone(CloneStrategy& strategy) const
{
    auto clone = std::make_unique<Text>(characters, font, size);
    CloneStrokableInto(*clone, strategy);
    clone->charSpacing = charSpacing;
    clone->wordSpacing = wordSpacing;
    clone->textTransformation = textTransformation;
    clone->characterTransformations = characterTransformations;
    return clone.release();
}

Plexa::RectangleBase<Plexa::MilliPointCoordinateSystem> Text::GetBoundingBoxSelf(BoxKind,
                                                                                 const Transformation&) const
{
    return {};
}

void Text::Accept(ConstVisitorBase& visitor) const
{
    if (visitor.Visit(*this))
        PropagateVisitorSelf(visitor);
    visitor.EndVisit(*this);
}

void Text::Accept(VisitorBase& visitor)
{
    if (visitor.Visit(*this))
        PropagateVisitorSelf(visitor);
    visitor.EndVisit(*this);
}

void Text::OriginalOutlineChangedSelf()
{
    Strokable::OriginalOutlineChangedSelf();
}

void Text::TransformationChangedSelf(const Transformation& change, TransformationMode mode)
{
    Strokable::TransformationChangedSelf(change, mode);
}

void Text::StrokePropertiesChangedSelf() {}

} // namespace OrvDoc
