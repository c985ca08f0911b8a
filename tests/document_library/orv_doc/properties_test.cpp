#include <orv_doc/properties.h>

#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace
{

using OrvDoc::Properties;
using ::testing::ElementsAre;

std::vector<std::string> GetKeys(const Properties& properties)
{
    std::vector<std::string> keys;
    for (const Properties::Entry& entry : properties.GetEntries())
        keys.push_back(entry.key);
    return keys;
}

// Calls a function when it goes.
class Goodbye
{
public:
    explicit Goodbye(std::function<void()> say) : say_(std::move(say)) {}
    ~Goodbye() { say_(); }

private:
    std::function<void()> say_;
};

std::shared_ptr<Goodbye> MakeGoodbye(std::function<void()> say)
{
    return std::make_shared<Goodbye>(std::move(say));
}

TEST(PropertiesTest, SetGivesTheStoredValueBack)
{
    Properties properties;
    int& stored = properties.Set("key", 7);
    stored = 8;
    EXPECT_EQ(boost::any_cast<int>(*properties.Find("key")), 8);
}

TEST(PropertiesTest, SetTakesTheValueOver)
{
    Properties properties;
    auto value = std::make_shared<int>(7);
    const std::weak_ptr<int> watch = value;
    properties.Set("key", std::move(value));
    EXPECT_EQ(value, nullptr);
    EXPECT_EQ(watch.use_count(), 1);
}

TEST(PropertiesTest, SetTakesTheTypeByName)
{
    Properties properties;
    properties.Set<std::string>("key", "text");
    EXPECT_EQ(boost::any_cast<std::string>(*properties.Find("key")), "text");
}

TEST(PropertiesTest, EntriesKeepTheOrderInWhichTheirKeysCame)
{
    Properties properties;
    properties.Set("z", 1);
    properties.Set("a", 2);
    properties.Set("m", 3);
    properties.Set("a", 4);
    EXPECT_THAT(GetKeys(properties), ElementsAre("z", "a", "m"));
}

TEST(PropertiesTest, KeysMatchByBytesAndLength)
{
    Properties properties;
    const std::string withZero("key\0x", 5);
    properties.Set("key", 1);
    properties.Set("Key", 2);
    properties.Set("ke", 3);
    properties.Set(withZero, 4);
    properties.Set("", 5);
    EXPECT_THAT(GetKeys(properties), ElementsAre("key", "Key", "ke", withZero, ""));
    EXPECT_EQ(boost::any_cast<int>(*properties.Find(withZero)), 4);
}

TEST(PropertiesTest, KeyIsCopied)
{
    Properties properties;
    {
        const std::string key = "a key that is too long for a short string";
        properties.Set(key, 1);
    }
    EXPECT_THAT(GetKeys(properties), ElementsAre("a key that is too long for a short string"));
}

TEST(PropertiesTest, SetReplacesAValueOfAnotherType)
{
    Properties properties;
    properties.Set("key", 1);
    properties.Set("key", std::string("two"));
    EXPECT_EQ(boost::any_cast<std::string>(*properties.Find("key")), "two");
    EXPECT_EQ(properties.GetEntries().size(), 1u);
}

TEST(PropertiesTest, ValueReadAsAnotherTypeThrowsBadAnyCast)
{
    Properties properties;
    properties.Set("key", 1);
    try {
        boost::any_cast<const std::string&>(*properties.Find("key"));
        FAIL() << "an int was read as a string";
    } catch (const boost::bad_any_cast& error) {
        EXPECT_STREQ(error.what(), "boost::bad_any_cast: failed conversion using boost::any_cast");
    }
}

TEST(PropertiesTest, OldValueGoesWhenTheNewOneIsInItsPlace)
{
    Properties properties;
    std::string found;
    properties.Set("key",
                   MakeGoodbye([&]() { found = boost::any_cast<std::string>(*properties.Find("key")); }));
    properties.Set("key", std::string("new"));
    EXPECT_EQ(found, "new");
}

TEST(PropertiesTest, OldValueMaySetOtherKeysAsItGoes)
{
    Properties properties;
    properties.Set("key", MakeGoodbye([&]() {
                       for (int index = 0; index < 100; ++index)
                           properties.Set(std::to_string(index), std::move(index));
                   }));
    const std::string& stored = properties.Set("key", std::string("new"));
    EXPECT_EQ(stored, "new");
    EXPECT_EQ(properties.GetEntries().size(), 101u);
}

TEST(PropertiesTest, ValuesGoWithTheList)
{
    int gone = 0;
    {
        Properties properties;
        properties.Set("a", MakeGoodbye([&gone]() { ++gone; }));
        properties.Set("b", MakeGoodbye([&gone]() { ++gone; }));
        EXPECT_EQ(gone, 0);
    }
    EXPECT_EQ(gone, 2);
}

TEST(PropertiesTest, CopyOfAValueOutlivesTheList)
{
    int gone = 0;
    boost::any copy;
    {
        Properties properties;
        properties.Set("a", MakeGoodbye([&gone]() { ++gone; }));
        copy = *properties.Find("a");
    }
    EXPECT_EQ(gone, 0);
    copy = boost::any();
    EXPECT_EQ(gone, 1);
}

TEST(PropertiesTest, FindOfAnUnknownKeyGivesNull)
{
    Properties properties;
    properties.Set("key", 1);
    EXPECT_EQ(properties.Find("other"), nullptr);
}

TEST(PropertiesTest, RemoveTakesOneEntryAwayAndTellsSo)
{
    Properties properties;
    properties.Set("a", 1);
    properties.Set("b", 2);
    properties.Set("c", 3);
    EXPECT_TRUE(properties.Remove("b"));
    EXPECT_FALSE(properties.Remove("b"));
    EXPECT_THAT(GetKeys(properties), ElementsAre("a", "c"));
}

TEST(PropertiesTest, RemovedValueGoesAfterItsEntry)
{
    Properties properties;
    bool isThere = true;
    properties.Set("key", MakeGoodbye([&]() { isThere = properties.Find("key") != nullptr; }));
    properties.Remove("key");
    EXPECT_FALSE(isThere);
}

TEST(PropertiesTest, StoreThatIsAskedForTooMuchThrowsLengthError)
{
    boost::container::vector<Properties::Entry> entries;
    try {
        entries.resize(entries.max_size() + 1);
        FAIL() << "no list holds that many entries";
    } catch (const std::length_error& error) {
        EXPECT_STREQ(error.what(), "get_next_capacity, allocator's max size reached");
    }
}

} // namespace
