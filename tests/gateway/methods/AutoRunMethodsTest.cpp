#include "support/TestGateway.h"

#include "records/ConfigurationJson.h"
#include "support/Await.h"
#include "support/SampleConfiguration.h"
#include "json/BusinessJson.h"

#include <boost/json/serialize.hpp>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace TLGateway {

using testing::HasSubstr;

class AutoRunMethodsTest : public testing::Test
{
protected:
    AutoRunMethodsTest()
    {
        gateway.Import("anna", SampleConfiguration());
        token = gateway.TokenOf("anna");
    }

    TestGateway::Reply SendSet(const std::string& business)
    {
        return gateway.Send(gateway.Envelope("dsm.tl.pc.auto.run.set", business, token));
    }

    // Sends the configuration and expects it to be refused with this limit in the text, and nothing stored.
    void ExpectLimit(const AutoRunConfiguration& configuration, const std::string& text)
    {
        const auto reply = gateway.Set("anna", token, configuration);
        EXPECT_EQ(reply.code, 1010);
        EXPECT_EQ(reply.httpStatus, 400);
        EXPECT_THAT(reply.message, HasSubstr(text));
        ExpectUntouched();
    }

    void ExpectShape(const std::string& business, const std::string& message)
    {
        const auto reply = SendSet(business);
        EXPECT_EQ(reply.code, 1009);
        EXPECT_EQ(reply.httpStatus, 400);
        EXPECT_EQ(reply.message, message);
        ExpectUntouched();
    }

    void ExpectUntouched()
    {
        const StoredConfiguration stored = gateway.Store().FindConfiguration("anna");
        EXPECT_EQ(stored.revision, 1);
        EXPECT_EQ(stored.configuration, SampleConfiguration());
    }

    TestGateway gateway;
    std::string token;
};

TEST_F(AutoRunMethodsTest, GetGivesTheThreeLists)
{
    const auto reply = gateway.Get("anna", token);
    ASSERT_EQ(reply.code, 0);
    EXPECT_EQ(boost::json::serialize(reply.data), boost::json::serialize(ToJson(SampleConfiguration())));
}

TEST_F(AutoRunMethodsTest, UserWithoutConfigurationGetsThreeEmptyLists)
{
    const std::string berts = gateway.TokenOf("bert");
    const auto reply = gateway.Send(gateway.Envelope(
        "dsm.tl.pc.auto.run.get", "{\"param\":" + TestGateway::Caller("bert", "supplier") + "}", berts));
    EXPECT_EQ(boost::json::serialize(reply.data), R"({"customItems":[],"pluginItems":[],"systemItems":[]})");
}

TEST_F(AutoRunMethodsTest, SetIsReadBackInItsOrder)
{
    AutoRunConfiguration changed = SampleConfiguration();
    std::swap(changed.customItems[0], changed.customItems[1]);
    changed.customItems[0].name = "订单 \"quoted\" \n\x01";
    changed.pluginItems.insert(changed.pluginItems.begin(), AppEntry("a0", "stock"));
    changed.pluginItems[0].activeItem = true;
    const auto reply = gateway.Set("anna", token, changed);
    ASSERT_EQ(reply.code, 0) << reply.message;
    EXPECT_EQ(reply.data, boost::json::value(true));
    EXPECT_EQ(boost::json::serialize(gateway.Get("anna", token).data),
              boost::json::serialize(ToJson(changed)));
}

TEST_F(AutoRunMethodsTest, UserChangesOnlyTheTwoFlagsOfSystemEntries)
{
    AutoRunConfiguration changed = SampleConfiguration();
    changed.systemItems = {SystemEntry("s2", false, true)};
    changed.systemItems[0].name = "Mine";
    changed.systemItems[0].url = "https://evil.example/";
    ASSERT_EQ(gateway.Set("anna", token, changed).code, 0);
    const auto stored = gateway.Store().FindConfiguration("anna").configuration;
    EXPECT_EQ(stored.systemItems,
              (std::vector<AutoRunEntry>{SystemEntry("s1"), SystemEntry("s2", false, true)}));
}

TEST_F(AutoRunMethodsTest, SystemEntryThatTheOperatorHasRemovedIsIgnored)
{
    AutoRunConfiguration changed = SampleConfiguration();
    changed.systemItems.push_back(SystemEntry("gone"));
    ASSERT_EQ(gateway.Set("anna", token, changed).code, 0);
    EXPECT_EQ(gateway.Store().FindConfiguration("anna").configuration, SampleConfiguration());
}

TEST_F(AutoRunMethodsTest, SixCustomEntriesAreRefused)
{
    AutoRunConfiguration changed = SampleConfiguration();
    for (int i = 3; i <= 6; ++i) {
        changed.customItems.push_back(CustomEntry("c" + std::to_string(i)));
    }
    ExpectLimit(changed, "$.workstationSetResult.customItems: 6 entries exceed the limit of 5");
}

TEST_F(AutoRunMethodsTest, SixAppEntriesAreRefused)
{
    AutoRunConfiguration changed = SampleConfiguration();
    for (int i = 2; i <= 6; ++i) {
        changed.pluginItems.push_back(AppEntry("a" + std::to_string(i)));
    }
    ExpectLimit(changed, "$.workstationSetResult.pluginItems: 6 entries exceed the limit of 5");
}

TEST_F(AutoRunMethodsTest, NameOfAHundredKilobytesIsRefused)
{
    AutoRunConfiguration changed = SampleConfiguration();
    changed.customItems[1].name = std::string(100 * 1024, 'x');
    ExpectLimit(
        changed,
        "$.workstationSetResult.customItems[1].name: 102400 characters exceed the limit of 256 characters");
}

TEST_F(AutoRunMethodsTest, DuplicateItemIdInOneListIsRefused)
{
    AutoRunConfiguration changed = SampleConfiguration();
    changed.customItems[1].itemId = "c1";
    ExpectLimit(changed, "$.workstationSetResult.customItems[1].itemId: itemId must be unique");
}

TEST_F(AutoRunMethodsTest, DuplicateItemIdAcrossListsIsRefused)
{
    AutoRunConfiguration changed = SampleConfiguration();
    changed.pluginItems[0].itemId = "c1";
    ExpectLimit(changed, "$.workstationSetResult.pluginItems[0].itemId: itemId must be unique");
}

TEST_F(AutoRunMethodsTest, ItemIdOfASystemEntryThatTheRequestLeavesOutIsRefused)
{
    AutoRunConfiguration changed = SampleConfiguration();
    changed.systemItems.clear();
    changed.customItems[0].itemId = "s1";
    ExpectLimit(changed, "itemId must be unique");
}

TEST_F(AutoRunMethodsTest, TwoActiveEntriesAreRefused)
{
    AutoRunConfiguration changed = SampleConfiguration();
    changed.systemItems[0].activeItem = true;
    changed.pluginItems[0].activeItem = true;
    ExpectLimit(changed, "the limit is 1 entry with activeItem");
}

TEST_F(AutoRunMethodsTest, TwoThousandLevelsDeepAreRefused)
{
    std::string lists = "{\"customItems\":";
    lists += std::string(2000, '[') + std::string(2000, ']') + ",\"pluginItems\":[],\"systemItems\":[]}";
    const auto reply = SendSet(TestGateway::SetRequest("anna", lists));
    EXPECT_EQ(reply.code, 1010);
    EXPECT_THAT(reply.message, HasSubstr("limit of 32 levels"));
    ExpectUntouched();
}

TEST_F(AutoRunMethodsTest, BusinessJsonThatIsNotJson)
{
    const auto reply = SendSet("{\"baseInfo\":");
    EXPECT_EQ(reply.code, 1008);
    EXPECT_EQ(reply.httpStatus, 400);
    ExpectUntouched();
}

TEST_F(AutoRunMethodsTest, BusinessJsonThatIsNoObject)
{
    ExpectShape("[]", "$: wanted object, found array");
}

TEST_F(AutoRunMethodsTest, MissingConfigurationIsRefused)
{
    ExpectShape("{\"baseInfo\":" + TestGateway::Caller("anna") + "}",
                "$.workstationSetResult: wanted object, found nothing");
}

TEST_F(AutoRunMethodsTest, WrongTypeInAnEntryGivesPathWantedAndFound)
{
    ExpectShape(TestGateway::SetRequest("anna",
                                        R"({"customItems":[{"activeItem":false,"checked":"yes","itemId":"c",)"
                                        R"("name":"","systemItem":false,"type":0,"url":"u"}],)"
                                        R"("pluginItems":[],"systemItems":[]})"),
                "$.workstationSetResult.customItems[0].checked: wanted bool, found string");
}

TEST_F(AutoRunMethodsTest, UnknownListIsRefused)
{
    ExpectShape(TestGateway::SetRequest(
                    "anna", R"({"customItems":[],"pluginItems":[],"systemItems":[],"moreItems":[]})"),
                "$.workstationSetResult: wanted no member \"moreItems\", found array");
}

TEST_F(AutoRunMethodsTest, WrongShapeComesBeforeAForeignPinAndThatBeforeALimit)
{
    AutoRunConfiguration tooMany;
    tooMany.customItems.assign(6, CustomEntry("c"));
    EXPECT_EQ(SendSet(TestGateway::SetRequest("bert", R"({"customItems":0})")).code, 1009);
    EXPECT_EQ(SendSet(TestGateway::SetRequest("bert", tooMany)).code, 2005);
    EXPECT_EQ(SendSet(TestGateway::SetRequest("anna", tooMany)).code, 1010);
}

TEST_F(AutoRunMethodsTest, PluginListGivesTheCatalogueInItsOrder)
{
    ASSERT_FALSE(Await([&](IStore::WriteDone done) {
        gateway.Store().ReplaceApps({{"B", "b", "i", "https://b/", 1}, {"A", "a", "", "https://a/", 0}},
                                    std::move(done));
    }));
    const auto reply =
        gateway.Send(gateway.Envelope("dsm.tl.pc.plugin.list", TestGateway::Param("anna"), token));
    EXPECT_EQ(
        boost::json::serialize(reply.data),
        R"({"plugins":[{"address":"https://b/","availability":1,"iconUrl":"i","name":"B","serviceCode":"b"},)"
        R"({"address":"https://a/","availability":0,"iconUrl":"","name":"A","serviceCode":"a"}]})");
}

TEST_F(AutoRunMethodsTest, FunctionListGivesTheSwitchesThatAreSet)
{
    for (const FunctionSwitch& wanted : {FunctionSwitch{8, true, true}, FunctionSwitch{3, false, true}}) {
        ASSERT_FALSE(
            Await([&](IStore::WriteDone done) { gateway.Store().SetSwitch(wanted, std::move(done)); }));
    }
    const auto reply =
        gateway.Send(gateway.Envelope("dsm.tl.pc.function.list", TestGateway::Param("anna"), token));
    EXPECT_EQ(
        boost::json::serialize(reply.data),
        R"({"functions":[{"display":true,"number":3,"valid":false},{"display":true,"number":8,"valid":true}]})");
}

TEST_F(AutoRunMethodsTest, EveryReadChecksTheCaller)
{
    for (const char* method :
         {"dsm.tl.pc.auto.run.get", "dsm.tl.pc.plugin.list", "dsm.tl.pc.function.list"}) {
        EXPECT_EQ(gateway.Send(gateway.Envelope(method, TestGateway::Param("bert"), token)).code, 2005)
            << method;
        EXPECT_EQ(gateway.Send(gateway.Envelope(method, "{\"param\":7}", token)).code, 1009) << method;
        EXPECT_EQ(gateway.Send(gateway.Envelope(method, TestGateway::Param("anna"), "")).code, 2002)
            << method;
    }
}

} // namespace TLGateway
