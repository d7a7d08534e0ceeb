#include "records/ConfigurationLimits.h"

#include "support/InvalidInputOf.h"
#include "support/SampleConfiguration.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace TLGateway {

using testing::HasSubstr;

namespace {

std::string Limit(const AutoRunConfiguration& configuration,
                  ConfigurationSource source = ConfigurationSource::User)
{
    const InvalidInput invalid = InvalidInputOf([&] { CheckLimits(configuration, source, "$"); });
    EXPECT_EQ(invalid.BrokenRule(), InvalidInput::Rule::Limit);
    return invalid.what();
}

template <typename Change>
AutoRunConfiguration Changed(Change change)
{
    AutoRunConfiguration configuration = SampleConfiguration();
    change(configuration);
    return configuration;
}

std::string Repeat(std::size_t count, const std::string& text)
{
    std::string out;
    for (std::size_t i = 0; i < count; ++i) {
        out += text;
    }
    return out;
}

} // namespace

TEST(ConfigurationLimitsTest, EverythingAtItsLimitIsTaken)
{
    AutoRunConfiguration configuration;
    for (std::size_t i = 0; i < MaxSystemEntries; ++i) {
        configuration.systemItems.push_back(SystemEntry("s" + std::to_string(i)));
    }
    for (std::size_t i = 0; i < 5; ++i) {
        configuration.customItems.push_back(CustomEntry("c" + std::to_string(i)));
        configuration.pluginItems.push_back(AppEntry("a" + std::to_string(i)));
    }
    configuration.customItems[0].itemId = Repeat(64, "订");
    configuration.customItems[0].name = Repeat(256, "订");
    configuration.customItems[0].url = Repeat(2048, "订");
    configuration.customItems[0].type = 99;
    configuration.customItems[1].name = "";
    configuration.pluginItems[4].activeItem = true;
    EXPECT_NO_THROW(CheckLimits(configuration, ConfigurationSource::User, "$"));
    EXPECT_NO_THROW(CheckLimits(configuration, ConfigurationSource::Operator, "$"));
}

TEST(ConfigurationLimitsTest, OneSystemEntryTooMany)
{
    EXPECT_EQ(Limit(Changed([](auto& c) { c.systemItems.assign(51, SystemEntry("s")); })),
              "$.systemItems: 51 entries exceed the limit of 50");
}

TEST(ConfigurationLimitsTest, TextsOneCharacterTooLong)
{
    EXPECT_EQ(Limit(Changed([](auto& c) { c.customItems[1].itemId = Repeat(65, "订"); })),
              "$.customItems[1].itemId: 65 characters exceed the limit of 64 characters");
    EXPECT_EQ(Limit(Changed([](auto& c) { c.pluginItems[0].name = Repeat(257, "x"); })),
              "$.pluginItems[0].name: 257 characters exceed the limit of 256 characters");
    EXPECT_EQ(Limit(Changed([](auto& c) { c.systemItems[0].url = Repeat(2049, "x"); })),
              "$.systemItems[0].url: 2049 characters exceed the limit of 2048 characters");
}

TEST(ConfigurationLimitsTest, EmptyItemIdAndEmptyAddress)
{
    EXPECT_THAT(Limit(Changed([](auto& c) { c.customItems[0].itemId.clear(); })), HasSubstr("1 to 64"));
    EXPECT_THAT(Limit(Changed([](auto& c) { c.customItems[0].url.clear(); })), HasSubstr("1 to 2048"));
    EXPECT_THAT(Limit(Changed([](auto& c) { c.systemItems[0].itemId.clear(); })), HasSubstr("1 to 64"));
}

TEST(ConfigurationLimitsTest, AddressOfASystemEntryMayBeLeftOutByAUserOnly)
{
    const AutoRunConfiguration configuration = Changed([](auto& c) { c.systemItems[0].url.clear(); });
    EXPECT_NO_THROW(CheckLimits(configuration, ConfigurationSource::User, "$"));
    EXPECT_THAT(Limit(configuration, ConfigurationSource::Operator), HasSubstr("$.systemItems[0].url"));
}

TEST(ConfigurationLimitsTest, TypeOfACustomEntry)
{
    EXPECT_THAT(Limit(Changed([](auto& c) { c.customItems[0].type = 1; })),
                HasSubstr("$.customItems[0].type"));
    EXPECT_THAT(Limit(Changed([](auto& c) { c.customItems[0].type = -1; })), HasSubstr("0 to 99"));
    EXPECT_THAT(Limit(Changed([](auto& c) { c.customItems[0].type = 100; })), HasSubstr("0 to 99"));
}

TEST(ConfigurationLimitsTest, TypeOfAnAppEntryIsOne)
{
    EXPECT_EQ(Limit(Changed([](auto& c) { c.pluginItems[0].type = 0; })),
              "$.pluginItems[0].type: must be 1 in pluginItems");
}

TEST(ConfigurationLimitsTest, SystemFlagBelongsToSystemEntriesOnly)
{
    EXPECT_THAT(Limit(Changed([](auto& c) { c.customItems[0].systemItem = true; })),
                HasSubstr("$.customItems[0].systemItem"));
    EXPECT_THAT(Limit(Changed([](auto& c) { c.pluginItems[0].systemItem = true; })),
                HasSubstr("$.pluginItems[0].systemItem"));
    EXPECT_THAT(
        Limit(Changed([](auto& c) { c.systemItems[1].systemItem = false; }), ConfigurationSource::Operator),
        HasSubstr("$.systemItems[1].systemItem"));
}

TEST(UsersWriteTest, TakesOnlyTheTwoFlagsOfASystemEntry)
{
    AutoRunConfiguration requested = SampleConfiguration();
    requested.systemItems[1] = {"s2", "Renamed", "https://evil.example/", true, false, true, 7};
    const AutoRunConfiguration result = ApplyUsersWrite(SampleConfiguration(), requested, "$");
    AutoRunEntry expected = SystemEntry("s2");
    expected.checked = false;
    expected.activeItem = true;
    EXPECT_EQ(result.systemItems[0], SystemEntry("s1"));
    EXPECT_EQ(result.systemItems[1], expected);
}

TEST(UsersWriteTest, KeepsTheOperatorsOrderAndTheEntriesThatTheRequestLeavesOut)
{
    AutoRunConfiguration requested;
    requested.systemItems = {SystemEntry("s2", false)};
    const AutoRunConfiguration result = ApplyUsersWrite(SampleConfiguration(), requested, "$");
    EXPECT_EQ(result.systemItems, (std::vector<AutoRunEntry>{SystemEntry("s1"), SystemEntry("s2", false)}));
    EXPECT_TRUE(result.customItems.empty());
    EXPECT_TRUE(result.pluginItems.empty());
}

TEST(UsersWriteTest, IgnoresASystemEntryThatTheOperatorHasRemoved)
{
    AutoRunConfiguration requested = SampleConfiguration();
    requested.systemItems.push_back(SystemEntry("gone", true, true));
    EXPECT_EQ(ApplyUsersWrite(SampleConfiguration(), requested, "$"), SampleConfiguration());
}

TEST(UsersWriteTest, IdOfASystemEntryCannotBeTakenByACustomOne)
{
    AutoRunConfiguration requested;
    requested.customItems = {CustomEntry("s1")};
    const InvalidInput invalid =
        InvalidInputOf([&] { static_cast<void>(ApplyUsersWrite(SampleConfiguration(), requested, "$")); });
    EXPECT_EQ(invalid.BrokenRule(), InvalidInput::Rule::Limit);
    EXPECT_THAT(invalid.what(), HasSubstr("must be unique"));
}

TEST(UsersWriteTest, ActiveSystemEntryThatIsLeftOutCountsAsActive)
{
    AutoRunConfiguration stored = SampleConfiguration();
    stored.systemItems[0].activeItem = true;
    AutoRunConfiguration requested;
    requested.customItems = {CustomEntry("c1")};
    requested.customItems[0].activeItem = true;
    EXPECT_THAT(InvalidInputOf([&] { static_cast<void>(ApplyUsersWrite(stored, requested, "$")); }).what(),
                HasSubstr("limit is 1 entry with activeItem"));
}

} // namespace TLGateway
