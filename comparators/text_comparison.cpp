// Order of steps: the font by its names and its box, the size, the spacings, the transformation of the text,
// the places of its characters; then the outlines in their final position. If these agree, all is told; if
// not, the characters and the outlines as the font has them say why.
//
// An outline is not to be made where the document library can tell without one that all is the same on both
// sides, and one in its final position is not to be kept: all those of a document take a hundred times the
// memory of its texts. Both are services beyond the interface, which another library need not have.

#include "text_comparison.h"

#include "compare_or_report.h"
#include "path_comparison.h"
#include "text_stream.h"
#include "transformation_equality.h"

#include <orv_doc/text.h>
#include <orv_font/font.h>
#include <plexa/compound.h>
#if __has_include(<orv_doc/character_walk.h>)
#include <orv_doc/character_walk.h>
#endif
#if __has_include(<orv_doc/text_likeness.h>)
#include <orv_doc/text_likeness.h>
#endif

#include <algorithm>
#include <cmath>
#include <memory>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace HarrowSupport::Comparators
{

namespace
{

using ObjectScope = DifferenceScope<OrvDoc::ContentObject>;
using Outline = std::shared_ptr<const Plexa::Compound>;

/// How far the edges of two font boxes and the places of two characters may be apart, in points.
constexpr double positionTolerance = 0.5;
constexpr double milliPointsInAPoint = 1000.0;

bool PositionsMatch(double difference)
{
    return positionTolerance >= std::fabs(difference);
}

bool FontBoxesMatch(const OrvFont::Font::Rectangle& left, const OrvFont::Font::Rectangle& right)
{
    const auto match = [](double leftEdge, double rightEdge) {
        return PositionsMatch((leftEdge - rightEdge) / milliPointsInAPoint);
    };
    return match(left.origin.x.value, right.origin.x.value) &&
           match(left.origin.y.value + left.size.height.value,
                 right.origin.y.value + right.size.height.value) &&
           match(left.origin.x.value + left.size.width.value,
                 right.origin.x.value + right.size.width.value) &&
           match(left.origin.y.value, right.origin.y.value);
}

void CompareFonts(const OrvFont::Font& left, const OrvFont::Font& right, ObjectScope& scope)
{
    CompareOrReport(scope, "FontName", left.GetName(), right.GetName());
    CompareOrReport(scope, "FontFamily", left.GetFamilyName(), right.GetFamilyName());
    CompareOrReport(scope, "FontStyle", left.GetStyleName(), right.GetStyleName());
    if (!FontBoxesMatch(left.GetFontBBox(), right.GetFontBBox()))
        scope.AddValues("FontBBox", left.GetFontBBox(), right.GetFontBBox());
}

void CompareTextState(const OrvDoc::Text& left, const OrvDoc::Text& right, ObjectScope& scope)
{
    if (left.GetSize() != right.GetSize())
        scope.AddValues("TextSize", left.GetSize(), right.GetSize());
    if (left.GetCharSpacing() != right.GetCharSpacing())
        scope.AddValues("TextCharacterSpacing", left.GetCharSpacing(), right.GetCharSpacing());
    if (left.GetWordSpacing() != right.GetWordSpacing())
        scope.AddValues("TextWordSpacing", left.GetWordSpacing(), right.GetWordSpacing());
    if (!TransformationsNearlyEqual(left.GetTextTransformation(), right.GetTextTransformation()))
        scope.AddValues("TextTransformation", left.GetTextTransformation(), right.GetTextTransformation());
}

using Place = Plexa::TransformationBase<Plexa::PdfCoordinateSystem>;

bool PlacesMatch(const Place& left, const Place& right)
{
    return left.a == right.a && left.b == right.b && left.c == right.c && left.d == right.d &&
           PositionsMatch(left.x.value - right.x.value) && PositionsMatch(left.y.value - right.y.value);
}

void ComparePlaces(const OrvDoc::Text& left, const OrvDoc::Text& right, ObjectScope& scope)
{
    const std::vector<Place>& leftPlaces = left.GetCharacterTransformations();
    const std::vector<Place>& rightPlaces = right.GetCharacterTransformations();
    if (!std::equal(leftPlaces.begin(), leftPlaces.end(), rightPlaces.begin(), rightPlaces.end(),
                    PlacesMatch))
        scope.AddValues("TextCharacterPositions", leftPlaces, rightPlaces);
}

/// The outlines of a text in their final position, one after the other.
#if __has_include(<orv_doc/character_walk.h>)
class FinalOutlines
{
public:
    explicit FinalOutlines(const OrvDoc::Text& text) : walk(text, GetAbsoluteTransformation(text)) {}

    std::size_t GetCount() const { return walk.GetCount(); }
    bool IsAtEnd() const { return walk.IsAtEnd(); }
    Outline Get() const { return walk.GetTransformedOutline(); }
    void Next() { walk.Next(); }

private:
    OrvDoc::CharacterWalk walk;
};
#else
class FinalOutlines
{
public:
    explicit FinalOutlines(const OrvDoc::Text& text) : outlines(text.TransformedCompounds(nullptr)) {}

    std::size_t GetCount() const { return outlines.size(); }
    bool IsAtEnd() const { return index == outlines.size(); }
    Outline Get() const { return outlines[index]; }
    void Next() { ++index; }

private:
    const std::vector<Outline>& outlines;
    std::size_t index = 0;
};
#endif

/// Returns whether the outlines agree in their final position.
bool CompareFinalOutlines(const OrvDoc::Text& left, const OrvDoc::Text& right, ObjectScope& scope)
{
    FinalOutlines leftOutlines(left);
    FinalOutlines rightOutlines(right);
    if (leftOutlines.GetCount() != rightOutlines.GetCount())
        return false;
    for (; !leftOutlines.IsAtEnd(); leftOutlines.Next(), rightOutlines.Next()) {
        const Outline leftOutline = leftOutlines.Get();
        const Outline rightOutline = rightOutlines.Get();
        if (leftOutline->GetWindingRule() != rightOutline->GetWindingRule()) {
            scope.AddValues("ObjectWindingRule", leftOutline->GetWindingRule(),
                            rightOutline->GetWindingRule());
            return false;
        }
        if (!CompareCompounds(*leftOutline, *rightOutline))
            return false;
    }
    return true;
}

bool NeedNoLists([[maybe_unused]] const OrvDoc::Text& left, [[maybe_unused]] const OrvDoc::Text& right)
{
#if __has_include(<orv_doc/text_likeness.h>)
    return OrvDoc::AreSurelyAlike(left, right);
#else
    return false;
#endif
}

/// Each outline is printed once: a text shows the same few over and over.
std::string Print(const std::vector<Outline>& outlines)
{
    std::string all = "[ ";
    TextStream stream;
    std::unordered_map<const Plexa::Compound*, std::pair<std::size_t, std::size_t>> printed;
    for (const Outline& outline : outlines) {
        const std::size_t start = all.size();
        const auto known = printed.find(outline.get());
        if (known != printed.end()) {
            const auto [knownStart, knownSize] = known->second;
            all.append(all, knownStart, knownSize);
            continue;
        }
        stream.str(std::string());
        stream << outline << " ";
        all += stream.str();
        printed.emplace(outline.get(), std::make_pair(start, all.size() - start));
    }
    return all += "]";
}

} // namespace

void CompareText(ComparisonContext&, ObjectScope& scope)
{
    const auto& left = static_cast<const OrvDoc::Text&>(*scope.left);
    const auto& right = static_cast<const OrvDoc::Text&>(*scope.right);
    CompareFonts(*left.GetFont(), *right.GetFont(), scope);
    CompareTextState(left, right, scope);

    // Nothing of what follows would tell a difference, and no list of places or outlines need be made.
    if (NeedNoLists(left, right))
        return;
    ComparePlaces(left, right, scope);
    if (CompareFinalOutlines(left, right, scope))
        return;
    if (left.GetText() != right.GetText())
        scope.AddValues("TextCharacters", left.GetText(), right.GetText());
    CompareOrReport(scope, "ObjectShape", Print(left.OriginalCompounds()), Print(right.OriginalCompounds()));
}

} // namespace HarrowSupport::Comparators
