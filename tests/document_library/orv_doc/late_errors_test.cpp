#include "orv_doc/late_errors.h"

#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <orv_doc/errors.h>

namespace
{

using OrvDoc::Errors;
using OrvDoc::Detail::LateErrors;
using ::testing::ElementsAre;
using Origin = OrvDoc::Errors::Origin;
using List = std::vector<std::shared_ptr<OrvSys::Core::Error>>;

class LateErrorsTest : public ::testing::Test
{
protected:
    LateErrorsTest() { errors.TakeFrom(late); }

    std::vector<std::string> GetTexts() const
    {
        std::vector<std::string> texts;
        for (const auto& error : errors.GetAllErrors())
            texts.push_back(error->GetText());
        return texts;
    }

    std::shared_ptr<LateErrors> late = std::make_shared<LateErrors>(3, "and more");
    Errors errors;
};

TEST_F(LateErrorsTest, ComeBehindThoseThatAreThere)
{
    errors.Add("a");
    late->Add("b");
    EXPECT_THAT(GetTexts(), ElementsAre("a", "b"));
    late->Add("c");
    EXPECT_THAT(GetTexts(), ElementsAre("a", "b", "c"));
}

TEST_F(LateErrorsTest, AreToldOnce)
{
    late->Add("a");
    EXPECT_THAT(GetTexts(), ElementsAre("a"));
    late->Add("a");
    EXPECT_THAT(GetTexts(), ElementsAre("a"));
}

TEST_F(LateErrorsTest, LeaveTheOthersTheSameObjects)
{
    errors.Add("a");
    late->Add("b");
    const List before = errors.GetAllErrors();
    late->Add("c");
    const List& after = errors.GetAllErrors();
    ASSERT_EQ(after.size(), 3u);
    EXPECT_EQ(after[0], before[0]);
    EXPECT_EQ(after[1], before[1]);
}

TEST_F(LateErrorsTest, LeaveListsThatWereHandedOutAsTheyAre)
{
    errors.Add("a");
    const List& before = errors.GetAllErrors();
    late->Add("b");
    EXPECT_EQ(errors.GetAllErrors().size(), 2u);
    ASSERT_EQ(before.size(), 1u);
    EXPECT_EQ(before[0]->GetText(), "a");
}

TEST_F(LateErrorsTest, AreInTheListThatWasHandedOutLastWhenSomethingIsAdded)
{
    late->Add("a");
    const List& list = errors.GetAllErrors();
    errors.Add("b");
    EXPECT_EQ(list.size(), 2u);
    EXPECT_EQ(&errors.GetAllErrors(), &list);
}

TEST_F(LateErrorsTest, StayWhenThoseOfWritingAreReplaced)
{
    errors.Replace(Origin::Writing, {"w"});
    late->Add("a");
    errors.Replace(Origin::Writing, {"x"});
    EXPECT_THAT(GetTexts(), ElementsAre("a", "x"));
    errors.Replace(Origin::Writing, {});
    EXPECT_THAT(GetTexts(), ElementsAre("a"));
}

TEST_F(LateErrorsTest, GoWithThoseOfReading)
{
    late->Add("a");
    errors.Replace(Origin::Reading, {"r"});
    EXPECT_THAT(GetTexts(), ElementsAre("r"));
}

TEST_F(LateErrorsTest, StandInOrderBeforeWhatIsAddedLater)
{
    late->Add("a");
    errors.Add("b");
    EXPECT_THAT(GetTexts(), ElementsAre("a", "b"));
}

TEST_F(LateErrorsTest, AreNoMoreThanTheLimit)
{
    for (const char* const text : {"a", "b", "c"})
        late->Add(text);
    EXPECT_THAT(GetTexts(), ElementsAre("a", "b", "c"));
    for (const char* const text : {"d", "e"})
        late->Add(text);
    EXPECT_THAT(GetTexts(), ElementsAre("a", "b", "c", "and more"));
}

TEST_F(LateErrorsTest, WaitOnIfTheyCouldNotBeTakenOver)
{
    late->Add("a");
    EXPECT_THROW(late->TakeOver([](const std::vector<std::string>&) { throw std::runtime_error("no"); }),
                 std::runtime_error);
    EXPECT_TRUE(late->IsAnyWaiting());
    EXPECT_THAT(GetTexts(), ElementsAre("a"));
    EXPECT_FALSE(late->IsAnyWaiting());
}

TEST_F(LateErrorsTest, MayComeWhenTheListIsGone)
{
    {
        Errors gone;
        gone.TakeFrom(late);
    }
    late->Add("a");
    EXPECT_THAT(GetTexts(), ElementsAre("a"));
}

} // namespace
