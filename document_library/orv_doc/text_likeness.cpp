#include <orv_doc/text_likeness.h>

#include <cmath>
#include <string>
#include <vector>

#include <orv_doc/character_walk.h>
#include <orv_doc/text.h>
#include <orv_font/font.h>
#include <plexa/compound.h>

#include "orv_font/font_source.h"

namespace OrvDoc
{

namespace
{

/// Numbers up to this size can be multiplied several times without becoming infinite.
constexpr double tameNumber = 1e50;

/// False for a NaN.
bool IsTame(double number)
{
    return std::fabs(number) <= tameNumber;
}

/// Whether both are one and the same, with tame numbers.
template <typename System>
bool AreTameTwins(const Plexa::TransformationBase<System>& left,
                  const Plexa::TransformationBase<System>& right)
{
    return left == right && IsTame(left.a) && IsTame(left.b) && IsTame(left.c) && IsTame(left.d) &&
           IsTame(left.x.value) && IsTame(left.y.value);
}

bool AreTameTwins(double left, double right)
{
    return left == right && IsTame(left);
}

bool IsTame(const ShownText& shown)
{
    for (const double value : shown.GetValues()) {
        if (!IsTame(value))
            return false;
    }
    return true;
}

bool ShowAlikeByWalking(const Text& left, const Text& right)
{
    CharacterWalk leftWalk(left);
    CharacterWalk rightWalk(right);
    if (leftWalk.GetCount() != rightWalk.GetCount())
        return false;
    for (; !leftWalk.IsAtEnd(); leftWalk.Next(), rightWalk.Next()) {
        if (leftWalk.GetCharacter() != rightWalk.GetCharacter() ||
            !AreTameTwins(leftWalk.GetPlace(), rightWalk.GetPlace()))
            return false;
    }
    return true;
}

/// Whether the fonts read the same codes as the same characters: fonts with the same outlines may differ in
/// which code stands for which.
bool ReadAlike(const OrvFont::Font& left, const OrvFont::Font& right, const std::string& codes)
{
    if (&left == &right)
        return true;
    std::vector<OrvFont::Character> leftCharacters;
    std::vector<OrvFont::Character> rightCharacters;
    left.GetSource().Decode(codes, leftCharacters);
    right.GetSource().Decode(codes, rightCharacters);
    return leftCharacters == rightCharacters;
}

/// Of texts whose fonts, sizes and spacings are the same: then the same steps lead to the same places.
bool ShowAlike(const Text& left, const Text& right)
{
    const ShownText* const leftShown = left.GetShownText();
    const ShownText* const rightShown = right.GetShownText();
    if (leftShown && rightShown && *leftShown == *rightShown)
        return IsTame(*leftShown) && ReadAlike(*left.GetFont(), *right.GetFont(), leftShown->GetCodes());
    return ShowAlikeByWalking(left, right);
}

/// Whether the outlines as the fonts have them are the same at the same places, whatever the characters are.
/// What it makes is kept by the fonts, once for each glyph: outlines in their final position would take more
/// memory than all else of a document.
bool DrawAlikeByWalking(const Text& left, const Text& right)
{
    CharacterWalk leftWalk(left);
    CharacterWalk rightWalk(right);
    if (leftWalk.GetCount() != rightWalk.GetCount())
        return false;
    for (; !leftWalk.IsAtEnd(); leftWalk.Next(), rightWalk.Next()) {
        if (!AreTameTwins(leftWalk.GetPlace(), rightWalk.GetPlace()) ||
            *leftWalk.GetOutline() != *rightWalk.GetOutline())
            return false;
    }
    return true;
}

} // namespace

bool AreSurelyAlike(const Text& left, const Text& right)
{
    return AreTameTwins(left.GetSize(), right.GetSize()) &&
           AreTameTwins(left.GetCharSpacing().value, right.GetCharSpacing().value) &&
           AreTameTwins(left.GetWordSpacing().value, right.GetWordSpacing().value) &&
           AreTameTwins(left.GetTextTransformation(), right.GetTextTransformation()) &&
           AreTameTwins(GetAbsoluteTransformation(left), GetAbsoluteTransformation(right)) &&
           ((OrvFont::HaveSameOutlines(*left.GetFont(), *right.GetFont()) && ShowAlike(left, right)) ||
            DrawAlikeByWalking(left, right));
}

} // namespace OrvDoc
