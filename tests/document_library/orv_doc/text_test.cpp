#include <orv_doc/text.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <stdexcept>
#include <thread>

#include <orv_doc/character_walk.h>
#include <orv_doc/clone.h>
#include <orv_doc/text_group.h>
#include <plexa/geometry.h>

#include "document_library/orv_doc/model_makers.h"
#include "support/text_makers.h"

namespace
{

using namespace ModelTests;
using namespace OrvDoc;
using HarrowSupport::Testing::CharacterPlace;
using HarrowSupport::Testing::Characters;
using HarrowSupport::Testing::FontPlan;
using HarrowSupport::Testing::FontPointer;
using HarrowSupport::Testing::MakeFont;
using HarrowSupport::Testing::Outline;
using HarrowSupport::Testing::TextAt;
using HarrowSupport::Testing::TextOf;
using testing::Each;
using testing::ElementsAre;
using testing::SizeIs;

CharacterPlace At(double x, double y = 0.0)
{
    return {1, 0, 0, 1, x, y};
}

Rectangle BoxOf(const Outline& outline)
{
    return Plexa::GetBoundingBox(*outline);
}

/// A font whose characters advance by their codes.
FontPointer FontThatAdvancesByCodes(OrvFont::WritingMode mode = OrvFont::WritingMode::Horizontal)
{
    FontPlan plan;
    plan.mode = mode;
    plan.advance = [mode](const OrvFont::Character& character) {
        return mode == OrvFont::WritingMode::Vertical ? -1.0 * character.code : 1.0 * character.code;
    };
    return MakeFont(plan);
}

/// A text of ten points in that font, whose glyphs are as wide as their advances.
std::unique_ptr<Text> TenPoints(const std::string& bytes)
{
    return TextOf(bytes, FontThatAdvancesByCodes(), 10.0);
}

TEST(Text, NeedsAFont)
{
    EXPECT_THROW(Text(std::vector<TextCharacter>(), nullptr, 12.0), std::invalid_argument);
}

TEST(Text, HasWhatItWasMadeOf)
{
    const FontPointer font = MakeFont();
    const auto text = TextOf("AB", font, 12.5);
    EXPECT_EQ(text->GetText(), Characters("AB"));
    EXPECT_EQ(text->GetCharacterCount(), 2u);
    EXPECT_EQ(text->GetFont(), font);
    EXPECT_EQ(text->GetSize(), 12.5);
    EXPECT_EQ(text->GetCharSpacing().value, 0.0);
    EXPECT_EQ(text->GetWordSpacing().value, 0.0);
    EXPECT_TRUE(Plexa::IsIdentity(text->GetTextTransformation()));
    EXPECT_FALSE(text->HasOwnCharacterTransformations());
}

TEST(Text, KeepsAllFieldsOfItsCharacters)
{
    const std::vector<TextCharacter> characters = {{{70000, 80000, 4}, 7, 9}, {{65, 36, 1}, 0, 0}};
    EXPECT_EQ(Text(characters, MakeFont(), 12.0).GetText(), characters);
}

TEST(CharacterPlaces, FollowTheAdvancesOfTheFontAtTheSize)
{
    // The letters A and B are the codes 65 and 66.
    EXPECT_THAT(TenPoints("ABA")->GetCharacterTransformations(), ElementsAre(At(0), At(0.65), At(1.31)));
}

TEST(CharacterPlaces, OfVerticalWritingGoDown)
{
    const auto text = TextOf("AB", FontThatAdvancesByCodes(OrvFont::WritingMode::Vertical), 10.0);
    EXPECT_THAT(text->GetCharacterTransformations(), ElementsAre(At(0), At(0, -0.65)));
}

TEST(CharacterPlaces, AreFurtherApartByTheCharacterSpacing)
{
    const auto text = TenPoints("dd d"); // The letter d is the code 100.
    text->SetCharSpacing(2.0);
    EXPECT_THAT(text->GetCharacterTransformations(), ElementsAre(At(0), At(3), At(6), At(8.32)));
}

TEST(CharacterPlaces, AreFurtherApartByTheWordSpacingBehindAWordSpaceAlone)
{
    const auto text = TenPoints("d d");
    text->SetWordSpacing(2.0);
    EXPECT_THAT(text->GetCharacterTransformations(), ElementsAre(At(0), At(1), At(3.32)));
    const Text twoBytes({{{32, 100, 2}, 0, 0}, {{32, 100, 2}, 0, 0}}, FontThatAdvancesByCodes(), 10.0);
    EXPECT_THAT(twoBytes.GetCharacterTransformations(), ElementsAre(At(0), At(0.32)));
}

TEST(CharacterPlaces, ChangeWithTheSpacings)
{
    const auto text = TenPoints("dd");
    text->GetCharacterTransformations();
    text->SetCharSpacing(2.0);
    EXPECT_THAT(text->GetCharacterTransformations(), ElementsAre(At(0), At(3)));
    text->SetCharSpacing(-1.0);
    EXPECT_THAT(text->GetCharacterTransformations(), ElementsAre(At(0), At(0)));
}

TEST(CharacterPlaces, StayAsTheyWereSet)
{
    const auto text = TenPoints("dd");
    const std::vector<CharacterPlace> places = {{2, 0, 0, 1, 5, 6}, {1, 3, 0, 1, 7, 8}};
    text->GetCharacterTransformations();
    text->SetCharacterTransformations(places);
    EXPECT_EQ(text->GetCharacterTransformations(), places);
    text->SetCharSpacing(2.0);
    text->SetWordSpacing(2.0);
    EXPECT_EQ(text->GetCharacterTransformations(), places);
    EXPECT_TRUE(text->HasOwnCharacterTransformations());
}

TEST(CharacterPlaces, CanBeSetAgain)
{
    const auto text = TextAt("dd", {At(1), At(2)});
    EXPECT_THAT(text->GetCharacterTransformations(), ElementsAre(At(1), At(2)));
    text->SetCharacterTransformations({At(3), At(4)});
    EXPECT_THAT(text->GetCharacterTransformations(), ElementsAre(At(3), At(4)));
}

TEST(CharacterPlaces, AreRefusedUnlessThereIsOneForEachCharacter)
{
    const auto text = TenPoints("dd");
    EXPECT_THROW(text->SetCharacterTransformations({At(1)}), std::invalid_argument);
    EXPECT_THROW(text->SetCharacterTransformations({At(1), At(2), At(3)}), std::invalid_argument);
    EXPECT_THAT(text->GetCharacterTransformations(), ElementsAre(At(0), At(1)));
}

// Outlines. The glyph of a code is a rectangle as wide as the code and 700 high.

TEST(OriginalCompounds, AreTheFontsOwn)
{
    const FontPointer font = MakeFont();
    const auto text = TextOf("AdA", font);
    text->SetTextTransformation(Scaling(2));
    text->SetTransformation(Scaling(3));
    const auto& outlines = text->OriginalCompounds();
    ASSERT_THAT(outlines, SizeIs(3));
    EXPECT_EQ(outlines[0], font->GetOutline({65, 65, 1}));
    EXPECT_EQ(outlines[0], outlines[2]);
    EXPECT_EQ(BoxOf(outlines[1]), Rectangle(0, 0, 100, 700));
}

TEST(OriginalCompounds, HaveAnEmptyShapeForASpace)
{
    const auto text = TextOf(" ");
    ASSERT_THAT(text->OriginalCompounds(), SizeIs(1));
    EXPECT_TRUE(text->OriginalCompounds().front()->GetSubpaths().empty());
    ASSERT_THAT(text->TransformedCompounds(nullptr), SizeIs(1));
    EXPECT_TRUE(text->TransformedCompounds(nullptr).front()->GetSubpaths().empty());
}

TEST(OriginalCompounds, LeaveOutWhatIsBeyondReach)
{
    for (const double width :
         {std::nextafter(1e12, 1e13), std::nan(""), std::numeric_limits<double>::infinity()}) {
        FontPlan plan;
        plan.outline = [width](const OrvFont::Character&) { return MakeRectangle(0, 0, width, 1); };
        EXPECT_TRUE(TextOf("A", MakeFont(plan))->OriginalCompounds().front()->GetSubpaths().empty()) << width;
    }
    FontPlan plan;
    plan.outline = [](const OrvFont::Character&) { return MakeRectangle(0, 0, 1e12, 1); };
    EXPECT_FALSE(TextOf("A", MakeFont(plan))->OriginalCompounds().front()->GetSubpaths().empty());
}

class FinalOutlines : public testing::Test
{
protected:
    /// The boxes of the outlines in their final position.
    std::vector<Rectangle> Boxes() const
    {
        std::vector<Rectangle> boxes;
        for (const Outline& outline : text.TransformedCompounds(nullptr))
            boxes.push_back(BoxOf(outline));
        return boxes;
    }

    std::unique_ptr<Document> document = Document::CreateNew();
    PageContent& content = document->AddPage({0, 0, 1, 1}).GetContent();
    Group& outer = Add(content, MakeGroup());
    Group& inner = Add(outer, std::make_unique<TextGroup>());
    Text& text = Add(inner, TenPoints("dd"));
};

TEST_F(FinalOutlines, AreAsLargeAsTheSizeAndStandAtTheirPlaces)
{
    EXPECT_THAT(Boxes(), ElementsAre(Rectangle(0, 0, 1000, 7000), Rectangle(1000, 0, 1000, 7000)));
}

TEST_F(FinalOutlines, StandUnderAllTransformationsInOrder)
{
    text.SetCharacterTransformations({{1, 0, 0, 1, 3, 4}, {2, 0, 0, 1, 0, 0}});
    EXPECT_THAT(Boxes(), ElementsAre(Rectangle(3000, 4000, 1000, 7000), Rectangle(0, 0, 2000, 7000)));
    text.SetTextTransformation(Translation(500, 0));
    text.SetTransformation(Scaling(2));
    inner.SetTransformation(Translation(0, 100));
    outer.SetTransformation(Scaling(10));
    EXPECT_THAT(Boxes(),
                ElementsAre(Rectangle(70000, 81000, 20000, 140000), Rectangle(10000, 1000, 40000, 140000)));
}

TEST_F(FinalOutlines, AreMadeOnce)
{
    const auto& made = text.TransformedCompounds(nullptr);
    const Outline first = made.front();
    EXPECT_EQ(&text.TransformedCompounds(nullptr), &made);
    EXPECT_EQ(text.TransformedCompounds(nullptr).front(), first);
}

TEST_F(FinalOutlines, FollowEveryChange)
{
    Boxes();
    text.SetCharSpacing(1.0);
    EXPECT_EQ(Boxes()[1], Rectangle(2000, 0, 1000, 7000));
    text.SetTextTransformation(Translation(1, 0));
    EXPECT_EQ(Boxes()[1], Rectangle(2001, 0, 1000, 7000));
    text.SetTransformation(Translation(20, 0));
    EXPECT_EQ(Boxes()[1], Rectangle(2021, 0, 1000, 7000));
    outer.SetTransformation(Translation(300, 0));
    EXPECT_EQ(Boxes()[1], Rectangle(2321, 0, 1000, 7000));
    text.SetCharacterTransformations({At(0), At(0)});
    EXPECT_EQ(Boxes()[1], Rectangle(321, 0, 1000, 7000));
    const std::unique_ptr<ContentObject> extracted(text.ExtractFromParent());
    EXPECT_EQ(Boxes()[1], Rectangle(21, 0, 1000, 7000));
}

TEST_F(FinalOutlines, AreTransformedFurtherByAnArgument)
{
    const Transformation further = Translation(50, 0);
    const auto& outlines = text.TransformedCompounds(&further);
    ASSERT_THAT(outlines, SizeIs(2));
    EXPECT_EQ(BoxOf(outlines[1]), Rectangle(1050, 0, 1000, 7000));
    EXPECT_EQ(Boxes()[1], Rectangle(1000, 0, 1000, 7000));
}

TEST_F(FinalOutlines, AreTheFontsOwnWhereNothingChangesThem)
{
    const Text unit(Characters("d"), MakeFont(), 1.0);
    EXPECT_EQ(unit.TransformedCompounds(nullptr).front(), unit.OriginalCompounds().front());
}

TEST_F(FinalOutlines, AreTheSameForAllThreads)
{
    std::vector<Text*> texts;
    for (int count = 0; count < 200; ++count)
        texts.push_back(&Add(inner, TenPoints("abc")));
    struct Seen
    {
        std::vector<const void*> items;
    };
    std::vector<Seen> seen(4);
    std::vector<std::thread> threads;
    for (Seen& mine : seen) {
        threads.emplace_back([&mine, &texts] {
            for (const Text* each : texts) {
                mine.items.push_back(each->GetText().data());
                mine.items.push_back(each->GetCharacterTransformations().data());
                mine.items.push_back(each->OriginalCompounds().front().get());
                mine.items.push_back(each->TransformedCompounds(nullptr).front().get());
            }
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    for (const Seen& mine : seen)
        EXPECT_EQ(mine.items, seen.front().items);
}

TEST(CharacterWalk, TellsWhatTheListsTell)
{
    const auto placed = TextAt("a c", {{1, 0, 0, 1, 3, 4}, {2, 0, 0, 1, 0, 0}, {}});
    const auto flowing = TenPoints("a c");
    flowing->SetWordSpacing(1.5);
    for (Text* text : {placed.get(), flowing.get()}) {
        text->SetTextTransformation(Scaling(3));
        text->SetTransformation(Translation(7, 8));
        std::size_t index = 0;
        for (CharacterWalk walk(*text, GetAbsoluteTransformation(*text)); !walk.IsAtEnd();
             walk.Next(), ++index) {
            EXPECT_EQ(walk.GetCharacter(), text->GetText()[index]);
            EXPECT_EQ(walk.GetPlace(), text->GetCharacterTransformations()[index]);
            EXPECT_EQ(walk.GetOutline(), text->OriginalCompounds()[index]);
            EXPECT_EQ(*(walk.GetOutlineTransformation() * walk.GetOutline()),
                      *text->TransformedCompounds(nullptr)[index]);
        }
        EXPECT_EQ(index, 3u);
    }
}

TEST(CharacterWalk, OfATextWithoutCharactersIsAtItsEnd)
{
    EXPECT_TRUE(CharacterWalk(*TextOf("")).IsAtEnd());
}

TEST(TextBoundingBox, IsAroundAllOutlinesUnderTheTransformation)
{
    const auto text = TenPoints("dd");
    text->SetTextTransformation(Translation(100, 200));
    text->SetTransformation(Scaling(7)); // Takes no part: the caller passes it.
    EXPECT_EQ(text->GetBoundingBoxSelf(BoxKind::Painted, Scaling(2)), Rectangle(200, 400, 4000, 14000));
}

TEST(TextBoundingBox, GrowsByTheStrokeOfWhatIsPainted)
{
    const auto text = TenPoints("dd");
    StrokeProperties stroke;
    stroke.width = 200;
    stroke.join = LineJoin::Round;
    text->SetStrokeProperties(stroke);
    EXPECT_EQ(text->GetBoundingBoxSelf(BoxKind::Painted, {}), Rectangle(0, 0, 2000, 7000)) << "no paint";
    text->SetStrokePaint(MakeBlack());
    EXPECT_EQ(text->GetBoundingBoxSelf(BoxKind::Painted, {}), Rectangle(-100, -100, 2200, 7200));
    EXPECT_EQ(text->GetBoundingBoxSelf(BoxKind::Outline, {}), Rectangle(0, 0, 2000, 7000));
}

TEST(TextBoundingBox, OfATextWithoutOutlinesIsInitial)
{
    EXPECT_TRUE(TextOf("")->GetBoundingBoxSelf(BoxKind::Painted, {}).isInitial);
    EXPECT_TRUE(TextOf("  ")->GetBoundingBoxSelf(BoxKind::Painted, {}).isInitial);
}

TEST(TextGroupBoundingBox, OfAClipLeavesOutTheStroke)
{
    TextGroup group;
    Text& text = Add(group, TenPoints("d"));
    StrokeProperties stroke;
    stroke.width = 200;
    stroke.join = LineJoin::Round;
    text.SetStrokeProperties(stroke);
    text.SetStrokePaint(MakeBlack());
    EXPECT_EQ(group.GetBoundingBoxSelf(BoxKind::Painted, {}), Rectangle(-100, -100, 1200, 7200));
    group.SetClippingObject(true);
    EXPECT_EQ(group.GetBoundingBoxSelf(BoxKind::Painted, {}), Rectangle(0, 0, 1000, 7000));
}

TEST(TextClone, HasPlacesOfItsOwnOrThoseOfItsSpacings)
{
    const auto target = Document::CreateNew();
    CloneStrategy strategy(*target, CloneStrategy::CloneFlags::Full);
    const auto text = TenPoints("dd");
    text->SetCharSpacing(2.0);
    const std::unique_ptr<Text> flowing(text->Clone(strategy));
    EXPECT_THAT(flowing->GetCharacterTransformations(), ElementsAre(At(0), At(3)));
    EXPECT_FALSE(flowing->HasOwnCharacterTransformations());
    text->SetCharacterTransformations({At(1), At(2)});
    const std::unique_ptr<Text> placed(text->Clone(strategy));
    text->SetCharacterTransformations({At(8), At(9)});
    EXPECT_THAT(placed->GetCharacterTransformations(), ElementsAre(At(1), At(2)));
    EXPECT_TRUE(placed->HasOwnCharacterTransformations());
}

TEST(TextClone, SharesTheFontWithTheOtherTextsOfItsContent)
{
    const auto source = Document::CreateNew();
    const auto target = Document::CreateNew();
    Content& from = source->AddPage({0, 0, 1, 1}).GetContent();
    Content& to = target->AddPage({0, 0, 1, 1}).GetContent();
    const FontPointer font = MakeFont();
    Add(from, TextOf("a", font));
    Add(from, TextOf("b", font));
    CloneStrategy strategy(*target, CloneStrategy::CloneFlags::Full);
    CloneContent(from, to, strategy);
    const auto& first = dynamic_cast<const Text&>(*to.GetChildren().first);
    const auto& second = dynamic_cast<const Text&>(*to.GetChildren().last);
    EXPECT_EQ(first.GetFont(), second.GetFont());
    EXPECT_EQ(first.GetText(), Characters("a"));
    EXPECT_EQ(second.GetText(), Characters("b"));
}

TEST(TextDump, TellsWhatIsNotAsAtFirst)
{
    const auto text = TextAt("AB", {At(0), At(1)});
    text->SetCharSpacing(0.5);
    text->SetWordSpacing(-1.25);
    text->SetTextTransformation(Scaling(2));
    EXPECT_EQ(text->DumpInfo().second,
              "2 characters, font \"Test-Regular\", size 12, character spacing 0.5, word spacing -1.25, "
              "text transformation (2, 0, 0, 2, 0, 0), characters placed one by one");
}

TEST(TextSize, LeavesRoomForItsListsElsewhere)
{
    EXPECT_LE(sizeof(Text), 344u);
}

} // namespace
