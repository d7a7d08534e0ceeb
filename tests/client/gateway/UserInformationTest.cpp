#include "FakeHttpManager.h"
#include "WaitUntil.h"

#include "gateway/UserInformation.h"

#include "base/Provided.h"
#include "frame-data/TLFunctionData.h"
#include "frame-data/TLPluginBaseManager.h"
#include "http/IHttpRequest.h"

#include <QtTest/QSignalSpy>

#include <gtest/gtest.h>

namespace {

const QByteArray TwoApps = R"json({"plugins":[
{"address":"https://a","availability":0,"iconUrl":"","name":"Orders","serviceCode":"orders"},
{"address":"https://b","availability":1,"iconUrl":"","name":"Stock","serviceCode":"stock"}]})json";
const QByteArray OneSwitch = R"json({"functions":[{"display":true,"number":8,"valid":true}]})json";
constexpr int LongTime = 600000; // [ms]

} // namespace

class UserInformationTest : public ::testing::Test
{
protected:
    // The call of the app list is the first of the two.
    FakeHttpManager m_http;
    Provided<IHttpManager> m_httpProvided{&m_http};
    TLPluginBaseManager m_plugins;
    TLFunctionData m_functions;
    UserInformation m_information{&m_plugins, &m_functions};
    QSignalSpy m_finished{&m_information, &UserInformation::SigFinished};
};

TEST_F(UserInformationTest, BothAnswersFillTheListsAndFinish)
{
    m_information.Read(LongTime);
    ASSERT_EQ(m_http.GetCallCount(), 2);
    EXPECT_EQ(m_http.GetCall(0).request->GetMethodName(), QByteArray("dsm.tl.pc.plugin.list"));
    EXPECT_EQ(m_http.GetCall(1).request->GetMethodName(), QByteArray("dsm.tl.pc.function.list"));
    EXPECT_LT(m_http.GetCall(0).timeout, LongTime);
    m_http.Answer(0, TwoApps);
    EXPECT_EQ(m_finished.count(), 0);
    m_http.Answer(1, OneSwitch);
    EXPECT_EQ(m_finished.count(), 1);
    ASSERT_EQ(m_plugins.GetPlugins().size(), 2);
    EXPECT_EQ(m_plugins.GetPlugins().at(0)->GetServiceCode(), QStringLiteral("orders"));
    EXPECT_EQ(m_plugins.GetPlugins().at(1)->availability, 1);
    EXPECT_TRUE(m_functions.GetFunctionInfo(8).IsValid());
    EXPECT_FALSE(m_functions.GetFunctionInfo(9).IsDisplay());
}

TEST_F(UserInformationTest, FailuresFinishToo)
{
    m_information.Read(LongTime);
    m_http.Fail(0);
    m_http.Fail(1);
    EXPECT_EQ(m_finished.count(), 1);
    EXPECT_TRUE(m_plugins.GetPlugins().isEmpty());
}

TEST_F(UserInformationTest, LimitFinishesAndALateAnswerStillFillsTheList)
{
    m_information.Read(1);
    ASSERT_TRUE(WaitUntil([this] { return m_finished.count() == 1; }));
    QSignalSpy changed(&m_plugins, &TLPluginBaseManager::SigPluginsChanged);
    m_http.Answer(0, TwoApps);
    m_http.Answer(1, OneSwitch);
    EXPECT_EQ(changed.count(), 1);
    EXPECT_EQ(m_plugins.GetPlugins().size(), 2);
    EXPECT_EQ(m_finished.count(), 1);
}

TEST_F(UserInformationTest, FailedReadKeepsTheListOfBefore)
{
    m_information.Read(LongTime);
    m_http.Answer(0, TwoApps);
    m_http.Answer(1, OneSwitch);
    m_information.RefreshPlugins();
    m_http.Fail(2);
    EXPECT_EQ(m_plugins.GetPlugins().size(), 2);
    EXPECT_EQ(m_finished.count(), 1);
}

TEST_F(UserInformationTest, AppThatCannotBeUnderstoodDoesNotHideTheOthers)
{
    m_information.Read(LongTime);
    m_http.Answer(0, R"json({"plugins":[7,{"name":"No code"},{"serviceCode":"stock","name":"Stock"}]})json");
    ASSERT_EQ(m_plugins.GetPlugins().size(), 1);
    EXPECT_EQ(m_plugins.GetPlugins().at(0)->GetServiceCode(), QStringLiteral("stock"));
}

TEST_F(UserInformationTest, AnswerOfTheWrongShapeDoesNotEmptyTheList)
{
    m_information.Read(LongTime);
    m_http.Answer(0, TwoApps);
    m_http.Answer(1, OneSwitch);
    int call = 2;
    for (const char* data : {"{}", "[]", "{\"plugins\":{}}", "7"}) {
        m_information.RefreshPlugins();
        m_http.Answer(call++, data);
        EXPECT_EQ(m_plugins.GetPlugins().size(), 2) << data;
    }
    for (const char* data : {"{}", "{\"functions\":[{\"number\":\"8\"}]}"}) {
        m_information.RefreshFunctions();
        m_http.Answer(call++, data);
        EXPECT_TRUE(m_functions.GetFunctionInfo(8).IsValid()) << data;
    }
}

TEST_F(UserInformationTest, EmptyListFromTheGatewayEmptiesTheList)
{
    m_information.Read(LongTime);
    m_http.Answer(0, TwoApps);
    m_information.RefreshPlugins();
    m_http.Answer(2, "{\"plugins\":[]}");
    EXPECT_TRUE(m_plugins.GetPlugins().isEmpty());
}

TEST_F(UserInformationTest, StoppedReadDoesNotFinish)
{
    m_information.Read(LongTime);
    m_information.Stop();
    m_http.Answer(0, TwoApps);
    m_http.Answer(1, OneSwitch);
    EXPECT_EQ(m_finished.count(), 0);
}
