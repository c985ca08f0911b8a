#include "round_trip/new_errors.h"

#include <orv_sys/error.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace HarrowSupport::Testing
{
namespace
{

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// Four errors of one text, in the order of their addresses.
ErrorList FourErrors()
{
    ErrorList errors;
    for (int i = 0; i < 4; ++i)
        errors.push_back(std::make_shared<OrvSys::Core::Error>("the same text"));
    std::sort(errors.begin(), errors.end(),
              [](const auto& left, const auto& right) { return std::less<>()(left.get(), right.get()); });
    return errors;
}

class NewErrorsTest : public ::testing::Test
{
protected:
    const ErrorList known = FourErrors();
};

TEST_F(NewErrorsTest, AreSortedByAddress)
{
    EXPECT_THAT(Sorted({known[2], known[0], known[3], known[1]}),
                ElementsAre(known[0], known[1], known[2], known[3]));
    EXPECT_THAT(NewErrors({known[3], known[1], known[2]}, {}), ElementsAre(known[1], known[2], known[3]));
}

TEST_F(NewErrorsTest, LeaveOutWhatWasThereBefore)
{
    EXPECT_THAT(NewErrors({known[3], known[1], known[0]}, {known[0], known[3]}), ElementsAre(known[1]));
}

TEST_F(NewErrorsTest, AreToldByAddressAndNotByText)
{
    EXPECT_THAT(NewErrors({known[1]}, {known[0]}), ElementsAre(known[1]));
}

TEST_F(NewErrorsTest, DoNotTellWhatHasGone)
{
    EXPECT_THAT(NewErrors({known[2]}, {known[0], known[2]}), IsEmpty());
}

TEST_F(NewErrorsTest, AreNewOnceWhenTheyStandOnceMore)
{
    EXPECT_THAT(NewErrors({known[1], known[1]}, {known[1]}), ElementsAre(known[1]));
}

} // namespace
} // namespace HarrowSupport::Testing
