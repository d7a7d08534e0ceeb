#include "records/ConfigurationJson.h"

#include "support/InvalidInputOf.h"
#include "support/SampleConfiguration.h"
#include "json/BusinessJson.h"

#include <boost/json/serialize.hpp>
#include <gtest/gtest.h>

#include <limits>
#include <string>

namespace TLGateway {

namespace {

AutoRunConfiguration Read(const std::string& json, ConfigurationSource source)
{
    const boost::json::value value = ParseBusinessJson(json);
    return ReadConfiguration(JsonObjectReader(value, "$"), source);
}

std::string Shape(const std::string& json, ConfigurationSource source = ConfigurationSource::User)
{
    const InvalidInput invalid = InvalidInputOf([&] { static_cast<void>(Read(json, source)); });
    EXPECT_EQ(invalid.BrokenRule(), InvalidInput::Rule::Shape);
    return invalid.what();
}

const std::string Entry =
    R"({"activeItem":true,"checked":true,"itemId":"{c1}","name":"订单","systemItem":false,"type":3,"url":"https://e.com/"})";

} // namespace

TEST(ConfigurationJsonTest, ReadsALiteral)
{
    const AutoRunConfiguration configuration = Read(
        R"({"customItems":[)" + Entry + R"(],"pluginItems":[],"systemItems":[]})", ConfigurationSource::User);
    ASSERT_EQ(configuration.customItems.size(), 1U);
    EXPECT_EQ(configuration.customItems[0],
              (AutoRunEntry{"{c1}", "订单", "https://e.com/", false, true, true, 3}));
    EXPECT_TRUE(configuration.pluginItems.empty());
    EXPECT_TRUE(configuration.systemItems.empty());
}

TEST(ConfigurationJsonTest, WritesSortedMembersAndReadsThemBack)
{
    const AutoRunConfiguration configuration = SampleConfiguration();
    const std::string text = boost::json::serialize(ToJson(configuration));
    EXPECT_EQ(text.rfind(R"({"customItems":[{"activeItem":false,"checked":true,"itemId":"c1","name":"Page",)"
                         R"("systemItem":false,"type":0,"url":"https://example.org/c1"})",
                         0),
              0U);
    EXPECT_EQ(Read(text, ConfigurationSource::Operator), configuration);
    EXPECT_EQ(Read(text, ConfigurationSource::User), configuration);
}

TEST(ConfigurationJsonTest, MissingListIsRefused)
{
    EXPECT_EQ(Shape(R"({"customItems":[],"systemItems":[]})"), "$.pluginItems: wanted array, found nothing");
    EXPECT_EQ(Shape(R"({"customItems":null,"pluginItems":[],"systemItems":[]})"),
              "$.customItems: wanted array, found null");
}

TEST(ConfigurationJsonTest, EachOfTheSevenMembersIsRequiredInACustomEntry)
{
    const boost::json::object whole = ParseBusinessJson(Entry).as_object();
    for (const auto& member : whole) {
        boost::json::object entry = whole;
        entry.erase(member.key());
        const std::string message = Shape(R"({"customItems":[)" + boost::json::serialize(entry) +
                                          R"(],"pluginItems":[],"systemItems":[]})");
        EXPECT_NE(message.find("$.customItems[0]." + std::string(member.key())), std::string::npos)
            << message;
    }
}

TEST(ConfigurationJsonTest, EachWrongTypeIsRefusedWithItsPath)
{
    const boost::json::object whole = ParseBusinessJson(Entry).as_object();
    for (const auto& member : whole) {
        boost::json::object entry = whole;
        entry[member.key()] = boost::json::array();
        const std::string message = Shape(R"({"customItems":[],"pluginItems":[)" +
                                          boost::json::serialize(entry) + R"(],"systemItems":[]})");
        EXPECT_EQ(message.rfind("$.pluginItems[0]." + std::string(member.key()) + ": wanted ", 0), 0U)
            << message;
        EXPECT_NE(message.find("found array"), std::string::npos) << message;
    }
}

TEST(ConfigurationJsonTest, UnknownMemberOfAnEntryIsRefused)
{
    EXPECT_EQ(Shape(R"({"customItems":[],"pluginItems":[],"systemItems":[{"itemID":"x"}]})"),
              "$.systemItems[0]: wanted no member \"itemID\", found string");
}

TEST(ConfigurationJsonTest, UsersSystemEntryNeedsItsIdAndTwoFlagsOnly)
{
    const std::string json = R"({"customItems":[],"pluginItems":[],)"
                             R"("systemItems":[{"itemId":"s","checked":true,"activeItem":false}]})";
    EXPECT_EQ(Read(json, ConfigurationSource::User).systemItems.at(0).itemId, "s");
    EXPECT_EQ(Shape(json, ConfigurationSource::Operator),
              "$.systemItems[0].name: wanted string, found nothing");
}

TEST(ConfigurationJsonTest, TypeBeyondIntBecomesTheNearestInt)
{
    const std::string json =
        R"({"customItems":[],"pluginItems":[],"systemItems":[{"itemId":"s","checked":true,"activeItem":false,"type":)";
    EXPECT_EQ(Read(json + "4294967297}]}", ConfigurationSource::User).systemItems.at(0).type,
              std::numeric_limits<int>::max());
}

} // namespace TLGateway
