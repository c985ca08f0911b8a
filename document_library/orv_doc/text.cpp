#include <orv_doc/text.h>

#include <mutex>
#include <stdexcept>
#include <utility>

#include <orv_doc/character_walk.h>
#include <orv_doc/clone.h>
#include <orv_doc/visitor.h>
#include <orv_font/font.h>
#include <plexa/geometry.h>

#include "orv_doc/packed_characters.h"
#include "orv_doc/packed_places.h"
#include "orv_doc/shape_mutex.h"
#include "orv_doc/stroke_reach.h"

namespace OrvDoc
{

using Compounds = std::vector<std::shared_ptr<const Plexa::Compound>>;
using Place = Plexa::TransformationBase<Plexa::PdfCoordinateSystem>;
using Rectangle = Plexa::RectangleBase<Plexa::MilliPointCoordinateSystem>;
using Transformation = Plexa::TransformationBase<Plexa::MilliPointCoordinateSystem>;

namespace
{

std::shared_ptr<const OrvFont::Font> RequireFont(std::shared_ptr<const OrvFont::Font> font)
{
    if (!font)
        throw std::invalid_argument("A text needs a font.");
    return font;
}

/// What `get` gives for each character.
template <typename Get>
auto ListOf(const Text& text, const Transformation& outer, Get get)
{
    CharacterWalk walk(text, outer);
    std::vector<decltype(get(walk))> list;
    list.reserve(walk.GetCount());
    for (; !walk.IsAtEnd(); walk.Next())
        list.push_back(get(walk));
    return list;
}

} // namespace

/// In memory of their own, since few texts are asked for a list.
struct Text::Lists
{
    std::vector<TextCharacter> characters;
    std::vector<Place> places;
    Compounds original;
    Compounds transformed;
};

Text::Text(std::vector<TextCharacter> givenCharacters, std::shared_ptr<const OrvFont::Font> givenFont,
           double givenSize)
    : characters(std::make_shared<const Detail::PackedCharacters>(std::move(givenCharacters))),
      font(RequireFont(std::move(givenFont))),
      size(givenSize)
{}

Text::Text(std::shared_ptr<const OrvFont::Font> givenFont, double givenSize, ShownText givenText)
    : shown(std::make_shared<const ShownText>(std::move(givenText))),
      font(RequireFont(std::move(givenFont))),
      size(givenSize)
{}

Text::~Text() = default;

std::size_t Text::GetCharacterCount() const
{
    return characters ? characters->GetCount() : CharacterWalk(*this).GetCount();
}

const std::vector<TextCharacter>& Text::GetText() const
{
    const std::vector<TextCharacter>* const whole = characters ? characters->GetWhole() : nullptr;
    if (whole)
        return *whole;
    if (!Has(Characters)) {
        auto list = ListOf(*this, {}, [](const CharacterWalk& walk) { return walk.GetCharacter(); });
        KeepOnce(Characters, [&](Lists& kept) { kept.characters = std::move(list); });
    }
    return lists->characters;
}

const std::vector<Place>& Text::GetCharacterTransformations() const
{
    const std::vector<Place>* const whole = ownPlaces ? ownPlaces->GetWhole() : nullptr;
    if (whole)
        return *whole;
    if (!Has(Places)) {
        auto list = ListOf(*this, {}, [](const CharacterWalk& walk) { return walk.GetPlace(); });
        KeepOnce(Places, [&](Lists& kept) { kept.places = std::move(list); });
    }
    return lists->places;
}

const Compounds& Text::OriginalCompounds() const
{
    if (!Has(OriginalOutlines)) {
        auto list = ListOf(*this, {}, [](const CharacterWalk& walk) { return walk.GetOutline(); });
        KeepOnce(OriginalOutlines, [&](Lists& kept) { kept.original = std::move(list); });
    }
    return lists->original;
}

const Compounds& Text::TransformedCompounds(const Transformation* transformation) const
{
    if (transformation && !Plexa::IsIdentity(*transformation)) {
        thread_local Compounds further;
        Compounds result;
        const Compounds& transformed = TransformedCompounds(nullptr);
        result.reserve(transformed.size());
        for (const auto& outline : transformed)
            result.push_back(*transformation * outline);
        further = std::move(result);
        return further;
    }
    if (!Has(TransformedOutlines)) {
        Compounds list = MakeTransformedCompounds();
        MarkDerivedShapes();
        KeepOnce(TransformedOutlines, [&](Lists& kept) { kept.transformed = std::move(list); });
    }
    return lists->transformed;
}

Compounds Text::MakeTransformedCompounds() const
{
    return ListOf(*this, GetAbsoluteTransformation(*this),
                  [](const CharacterWalk& walk) { return walk.GetTransformedOutline(); });
}

template <typename Keep>
void Text::KeepOnce(Part part, Keep keep) const
{
    const std::lock_guard<std::mutex> lock(Detail::GetShapeMutex(*this));
    if ((madeParts.load(std::memory_order_relaxed) & part) != 0)
        return;
    if (!lists)
        lists = std::make_unique<Lists>();
    keep(*lists);
    madeParts.fetch_or(part, std::memory_order_release);
}

void Text::Drop(Part part)
{
    if (!Has(part))
        return;
    madeParts.fetch_and(static_cast<std::uint8_t>(~part), std::memory_order_relaxed);
    if (part == Places)
        lists->places = {};
    else if (part == TransformedOutlines)
        lists->transformed = {};
}

void Text::SetCharSpacing(Plexa::CoordinateBase<Plexa::PdfCoordinateSystem> value)
{
    charSpacing = value;
    OriginalOutlineChangedSelf();
    NotifyChanged(WhatChangedFlags::Outline);
}

void Text::SetWordSpacing(Plexa::CoordinateBase<Plexa::PdfCoordinateSystem> value)
{
    wordSpacing = value;
    OriginalOutlineChangedSelf();
    NotifyChanged(WhatChangedFlags::Outline);
}

void Text::SetTextTransformation(const Transformation& value)
{
    textTransformation = value;
    OriginalOutlineChangedSelf();
    NotifyChanged(WhatChangedFlags::Outline);
}

void Text::SetCharacterTransformations(std::vector<Place> value)
{
    const std::size_t count = GetCharacterCount();
    if (value.size() != count)
        throw std::invalid_argument("A text of " + std::to_string(count) + " characters can't have " +
                                    std::to_string(value.size()) + " character transformations.");
    if (shown) {
        characters = std::make_shared<const Detail::PackedCharacters>(GetText());
        shown = nullptr;
    }
    ownPlaces = std::make_shared<const Detail::PackedPlaces>(std::move(value));
    OriginalOutlineChangedSelf();
    NotifyChanged(WhatChangedFlags::Outline);
}

Text* Text::Clone(CloneStrategy& strategy) const
{
    auto clone = std::make_unique<Text>(std::vector<TextCharacter>(), font, size);
    CloneStrokableInto(*clone, strategy);
    clone->charSpacing = charSpacing;
    clone->wordSpacing = wordSpacing;
    clone->textTransformation = textTransformation;
    clone->shown = shown;
    clone->characters = characters;
    clone->ownPlaces = ownPlaces;
    return clone.release();
}

Rectangle Text::GetBoundingBoxSelf(BoxKind kind, const Transformation& transformation) const
{
    Rectangle box;
    for (CharacterWalk walk(*this, transformation); !walk.IsAtEnd(); walk.Next())
        box = Plexa::Union(box, Plexa::GetBoundingBox(*walk.GetOutline(), walk.GetOutlineTransformation()));
    if (kind == BoxKind::Outline || !GetStrokePaint())
        return box;
    return Detail::GrowByStroke(box, GetStrokeProperties(), transformation);
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
    Drop(Places);
    Drop(TransformedOutlines);
}

void Text::TransformationChangedSelf(const Transformation& change, TransformationMode mode)
{
    Strokable::TransformationChangedSelf(change, mode);
    Drop(TransformedOutlines);
}

void Text::StrokePropertiesChangedSelf() {}

} // namespace OrvDoc
