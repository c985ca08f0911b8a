#include <orv_doc/errors.h>

#include <algorithm>
#include <map>
#include <memory>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace
{

using OrvDoc::Errors;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Origin = OrvDoc::Errors::Origin;
using List = std::vector<std::shared_ptr<OrvSys::Core::Error>>;

std::vector<std::string> GetTexts(const Errors& errors)
{
    std::vector<std::string> texts;
    for (const auto& error : errors.GetAllErrors())
        texts.push_back(error->GetText());
    return texts;
}

TEST(ErrorsTest, AreEmptyAtFirst)
{
    EXPECT_THAT(Errors().GetAllErrors(), IsEmpty());
}

TEST(ErrorsTest, AddAppendsAlsoATextThatIsThere)
{
    Errors errors;
    errors.Add("a");
    errors.Add("b");
    errors.Add("a");
    EXPECT_THAT(GetTexts(errors), ElementsAre("a", "b", "a"));
    EXPECT_NE(errors.GetAllErrors()[0], errors.GetAllErrors()[2]);
}

TEST(ErrorsTest, ErrorStillInForceStaysTheSameObject)
{
    Errors errors;
    errors.Replace(Origin::Writing, {"a", "b"});
    const List before = errors.GetAllErrors();
    errors.Replace(Origin::Writing, {"b", "a"});
    EXPECT_EQ(errors.GetAllErrors(), before);
}

TEST(ErrorsTest, ErrorNoLongerInForceGoes)
{
    Errors errors;
    errors.Replace(Origin::Writing, {"a", "b", "c"});
    const auto kept = errors.GetAllErrors()[1];
    errors.Replace(Origin::Writing, {"b"});
    EXPECT_THAT(errors.GetAllErrors(), ElementsAre(kept));
}

TEST(ErrorsTest, NewErrorsComeBehindTheKeptOnesInTheirOwnOrder)
{
    Errors errors;
    errors.Replace(Origin::Writing, {"a", "b"});
    errors.Replace(Origin::Writing, {"z", "b", "y", "a"});
    EXPECT_THAT(GetTexts(errors), ElementsAre("a", "b", "z", "y"));
}

TEST(ErrorsTest, ErrorThatCameBackIsANewObject)
{
    Errors errors;
    errors.Replace(Origin::Writing, {"a"});
    const auto first = errors.GetAllErrors()[0];
    errors.Replace(Origin::Writing, {});
    errors.Replace(Origin::Writing, {"a"});
    EXPECT_NE(errors.GetAllErrors()[0], first);
}

TEST(ErrorsTest, TextThatComesMoreOftenAddsOnlyTheSurplus)
{
    Errors errors;
    errors.Replace(Origin::Writing, {"a"});
    const auto first = errors.GetAllErrors()[0];
    errors.Replace(Origin::Writing, {"a", "a", "a"});
    EXPECT_THAT(GetTexts(errors), ElementsAre("a", "a", "a"));
    EXPECT_EQ(errors.GetAllErrors()[0], first);
}

TEST(ErrorsTest, TextThatComesLessOftenKeepsItsFirstErrors)
{
    Errors errors;
    errors.Replace(Origin::Writing, {"a", "a", "a"});
    const List before = errors.GetAllErrors();
    errors.Replace(Origin::Writing, {"a", "a"});
    EXPECT_THAT(errors.GetAllErrors(), ElementsAre(before[0], before[1]));
}

TEST(ErrorsTest, ErrorsOfAnotherOriginStayInPlace)
{
    Errors errors;
    errors.Replace(Origin::Writing, {"w1"});
    errors.Add("same");
    errors.Replace(Origin::Writing, {"same"});
    EXPECT_THAT(GetTexts(errors), ElementsAre("same", "same"));
    errors.Replace(Origin::Writing, {});
    EXPECT_THAT(GetTexts(errors), ElementsAre("same"));
    errors.Replace(Origin::Reading, {});
    EXPECT_THAT(errors.GetAllErrors(), IsEmpty());
}

TEST(ErrorsTest, ListGrownByAddGivesWayToItsOrigin)
{
    Errors errors;
    errors.Add("r");
    errors.Add("w", Origin::Writing);
    errors.Replace(Origin::Reading, {});
    EXPECT_THAT(GetTexts(errors), ElementsAre("w"));
}

std::map<std::string, std::size_t> CountTexts(const std::vector<std::string>& texts)
{
    std::map<std::string, std::size_t> counts;
    for (const std::string& text : texts)
        ++counts[text];
    return counts;
}

// What must hold after any Replace, told without the steps that bring it about.
void ExpectReplaced(const std::vector<std::pair<Origin, List::value_type>>& before, Origin origin,
                    const std::vector<std::string>& texts, const List& after)
{
    std::map<std::string, std::size_t> oldCounts;
    List others;
    for (const auto& entry : before) {
        if (entry.first == origin)
            ++oldCounts[entry.second->GetText()];
        else
            others.push_back(entry.second);
    }
    List oldErrors;
    for (const auto& entry : before)
        oldErrors.push_back(entry.second);
    const auto isOld = [&oldErrors](const List::value_type& error) {
        return std::find(oldErrors.begin(), oldErrors.end(), error) != oldErrors.end();
    };

    std::vector<std::string> ownTexts;
    std::map<std::string, std::size_t> keptCounts;
    List keptOthers;
    for (const auto& error : after) {
        if (std::find(others.begin(), others.end(), error) != others.end()) {
            keptOthers.push_back(error);
            continue;
        }
        ownTexts.push_back(error->GetText());
        if (isOld(error))
            ++keptCounts[error->GetText()];
    }
    EXPECT_EQ(keptOthers, others);
    EXPECT_EQ(CountTexts(ownTexts), CountTexts(texts));
    for (const auto& wanted : CountTexts(texts))
        EXPECT_EQ(keptCounts[wanted.first], std::min(wanted.second, oldCounts[wanted.first])) << wanted.first;
    EXPECT_TRUE(std::is_partitioned(after.begin(), after.end(), isOld));

    const auto placeBefore = [&oldErrors](const List::value_type& error) {
        return std::find(oldErrors.begin(), oldErrors.end(), error);
    };
    const auto keptEnd = std::find_if_not(after.begin(), after.end(), isOld);
    EXPECT_TRUE(std::is_sorted(after.begin(), keptEnd, [&placeBefore](const auto& left, const auto& right) {
        return placeBefore(left) < placeBefore(right);
    }));
}

TEST(ErrorsTest, AnyRowOfReplacementsKeepsWhatIsInForce)
{
    for (unsigned seed = 0; seed < 300; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        std::mt19937 random(seed);
        Errors errors;
        std::vector<std::pair<Origin, List::value_type>> model;
        for (int step = 0; step < 12; ++step) {
            const Origin origin = random() % 2 == 0 ? Origin::Reading : Origin::Writing;
            // Few texts, so that they meet and repeat.
            std::vector<std::string> texts(random() % 6);
            for (std::string& text : texts)
                text = std::string(1, static_cast<char>('a' + random() % 3));
            errors.Replace(origin, texts);
            const List after = errors.GetAllErrors();
            ExpectReplaced(model, origin, texts, after);
            if (HasFailure())
                return;

            std::vector<std::pair<Origin, List::value_type>> next;
            for (const auto& error : after) {
                const auto known = std::find_if(model.begin(), model.end(), [&error](const auto& entry) {
                    return entry.second == error;
                });
                next.emplace_back(known == model.end() ? origin : known->first, error);
            }
            model = std::move(next);
        }
    }
}

} // namespace
