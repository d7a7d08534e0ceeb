#include "FakeKeyStore.h"

#include "ScriptedHttpServer.h"
#include "WaitUntil.h"

#include "gateway/ClientGateway.h"
#include "login/LoginFlow.h"
#include "login/LoginService.h"
#include "login/SavedSession.h"

#include "LoginDialog.h"
#include "LoginTexts.h"

#include "base/Provided.h"
#include "core/TLGlobalData.h"
#include "http/HttpManager.h"
#include "http/HttpReplyCache.h"
#include "settings-store/VXSettingManager.h"

#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QTemporaryDir>
#include <QtCore/QUrlQuery>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPushButton>

#include <gtest/gtest.h>

namespace {

ScriptedReply Reply(const char* code, const char* message, const char* data = "null", int status = 200)
{
    return ScriptedReply::Json(QByteArray("{\"code\":\"") + code + "\",\"message\":\"" + message +
                                   "\",\"requestId\":\"r\",\"data\":" + data + "}",
                               status);
}

ScriptedReply GoodReply()
{
    return Reply("0", "",
                 "{\"accessToken\":\"token\",\"belongType\":\"merchant\","
                 "\"expiresAt\":\"2026-12-21 08:00:00\",\"pin\":\"demo\"}");
}

GatewaySettings SettingsFor(const QUrl& address)
{
    GatewaySettings settings;
    settings.address = address;
    return settings;
}

} // namespace

/// From the dialog over a real connection to a gateway that answers as the test wants.
class LoginFlowTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(VXSettingManager::Instance()->Open(m_folder.filePath(QStringLiteral("settings.sqlite"))));
        TLGlobalData::Instance()->SetUUID(QStringLiteral("device"));
        QObject::connect(&m_flow, &LoginFlow::SigLoggedIn,
                         [this](const Session& session, LoginFlow::Origin origin) {
                             m_sessions.append(session);
                             m_origin = origin;
                         });
    }
    void TearDown() override
    {
        TLGlobalData::Instance()->SetUUID(QString());
        VXSettingManager::Instance()->Close();
    }

    template <class Widget>
    Widget* Find(const char* name)
    {
        return m_flow.GetDialog()->findChild<Widget*>(QLatin1String(name));
    }
    void ShowDialog()
    {
        m_flow.Start(QStringLiteral("demo"), LoginProblem());
        ASSERT_NE(m_flow.GetDialog(), nullptr);
        m_keyStore.Answer();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(m_flow.GetDialog()));
    }
    void TypeAndEnter(const char* password)
    {
        auto* const edit = Find<QLineEdit>("password_edit");
        edit->clear();
        QTest::keyClicks(edit, QLatin1String(password));
        QTest::keyClick(edit, Qt::Key_Return);
    }
    std::string MessageAfterLogIn()
    {
        TypeAndEnter("secret");
        EXPECT_TRUE(m_flow.GetDialog()->IsBusy());
        EXPECT_TRUE(WaitUntil([this] { return !m_flow.GetDialog()->IsBusy(); }));
        EXPECT_TRUE(m_sessions.isEmpty());
        return Find<QLabel>("login_message")->text().toStdString();
    }
    QUrlQuery Parameters(int request) const
    {
        QByteArray body = m_server.GetRequests().at(request).body;
        return QUrlQuery(QString::fromUtf8(body));
    }
    QJsonObject Param(int request) const
    {
        const QString json =
            Parameters(request).queryItemValue(QStringLiteral("tradix_param_json"), QUrl::FullyDecoded);
        return QJsonDocument::fromJson(json.toUtf8()).object().value(QStringLiteral("param")).toObject();
    }

    QTemporaryDir m_folder;
    ScriptedHttpServer m_server;
    ClientGateway m_gateway{SettingsFor(m_server.GetUrl(QStringLiteral("/gateway")))};
    HttpManager m_http{nullptr};
    Provided<IDsmGateway> m_gatewayProvided{&m_gateway};
    Provided<IHttpManager> m_httpProvided{&m_http};
    FakeKeyStore m_keyStore;
    SavedSession m_saved{&m_keyStore, [] { return QDateTime(QDate(2026, 11, 21), QTime(8, 0), Qt::UTC); }};
    LoginService m_service;
    LoginFlow m_flow{&m_service, &m_saved, &m_keyStore};
    QVector<Session> m_sessions;
    LoginFlow::Origin m_origin = LoginFlow::Origin::Saved;
};

TEST_F(LoginFlowTest, PasswordTypedAndAcceptedGivesTheSession)
{
    m_server.Enqueue(GoodReply());
    ShowDialog();
    TypeAndEnter("secret");
    ASSERT_TRUE(WaitUntil([this] { return !m_sessions.isEmpty(); }));
    EXPECT_EQ(m_origin, LoginFlow::Origin::Dialog);
    EXPECT_EQ(m_sessions[0].pin, QStringLiteral("demo"));
    EXPECT_EQ(m_sessions[0].belongType, QStringLiteral("merchant"));
    EXPECT_EQ(m_sessions[0].accessToken, QStringLiteral("token"));
    EXPECT_EQ(m_sessions[0].expiresAt, QDateTime(QDate(2026, 12, 21), QTime(8, 0), Qt::UTC));
    EXPECT_TRUE(m_flow.GetDialog()->IsBusy()); // until the main window is there
    EXPECT_FALSE(m_saved.HasRecord());
}

TEST_F(LoginFlowTest, RequestNamesTheDeviceAndCarriesNoToken)
{
    m_server.Enqueue(GoodReply());
    ShowDialog();
    TypeAndEnter("secret");
    ASSERT_TRUE(WaitUntil([this] { return !m_sessions.isEmpty(); }));
    EXPECT_EQ(Parameters(0).queryItemValue(QStringLiteral("method")), QStringLiteral("dsm.tl.pc.user.login"));
    EXPECT_EQ(Parameters(0).queryItemValue(QStringLiteral("access_token")), QString());
    const QJsonObject expected{{QStringLiteral("deviceId"), QStringLiteral("device")},
                               {QStringLiteral("password"), QStringLiteral("secret")},
                               {QStringLiteral("pin"), QStringLiteral("demo")},
                               {QStringLiteral("platform"), QStringLiteral("pc-win")}};
    EXPECT_EQ(Param(0), expected);
}

TEST_F(LoginFlowTest, WrongPasswordIsSaidAndTheSecondTryCounts)
{
    m_server.Enqueue(Reply("2001", "wrong pin or password", "null", 401));
    m_server.Enqueue(GoodReply());
    ShowDialog();
    EXPECT_EQ(MessageAfterLogIn(), "The account or password is incorrect.");
    TypeAndEnter("right");
    EXPECT_TRUE(WaitUntil([this] { return m_sessions.size() == 1; }));
}

TEST_F(LoginFlowTest, TooManyAttemptsSaysUntilWhen)
{
    m_server.Enqueue(Reply("2006", "too many failed log-ins; try again at 2026-11-21 08:15:00", "null", 429));
    ShowDialog();
    const QDateTime when(QDate(2026, 11, 21), QTime(8, 15), Qt::UTC);
    const QString time = QLocale().toString(when.toLocalTime().time(), QLocale::ShortFormat);
    EXPECT_EQ(MessageAfterLogIn(),
              QStringLiteral("Too many failed attempts. Please try again at %1.").arg(time).toStdString());
}

TEST_F(LoginFlowTest, ClockThatIsOffSaysTheRightTime)
{
    m_server.Enqueue(Reply("1006", "the gateway's time is 2026-11-21 08:15:00", "null", 401));
    ShowDialog();
    EXPECT_EQ(MessageAfterLogIn().rfind("This computer's clock is wrong. It should show ", 0), 0U);
}

TEST_F(LoginFlowTest, ClientThatTheGatewayDoesNotKnowIsNotSetUp)
{
    for (const char* code : {"1002", "1003", "1004"}) {
        m_server.Enqueue(Reply(code, "no", "null", 401));
    }
    ShowDialog();
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(MessageAfterLogIn(),
                  "This client is not set up for this gateway. Please contact your administrator.");
    }
}

TEST_F(LoginFlowTest, BusyServerIsSaid)
{
    m_server.Enqueue(Reply("5001", "busy", "null", 503));
    ShowDialog();
    EXPECT_EQ(MessageAfterLogIn(), "The gateway is busy. Please try again shortly.");
}

TEST_F(LoginFlowTest, AnswerThatIsNoGatewaysIsSaid)
{
    const char* const expected = "The reply could not be read. Is this the gateway's address?";
    m_server.Enqueue(ScriptedReply::Html("<html>It works!</html>"));
    m_server.Enqueue(Reply("0", "", "{}"));
    m_server.Enqueue(Reply("0", ""));
    m_server.Enqueue(Reply("0", "", "{\"accessToken\":7,\"pin\":\"demo\"}"));
    ShowDialog();
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(MessageAfterLogIn(), expected) << i;
    }
}

TEST_F(LoginFlowTest, GatewayThatBreaksOffCannotBeReached)
{
    m_server.Enqueue(ScriptedReply::Of(ScriptedReply::Kind::Close));
    m_server.SetStanding(ScriptedReply::Of(ScriptedReply::Kind::Close));
    ShowDialog();
    EXPECT_EQ(MessageAfterLogIn(), "The gateway cannot be reached. Please check the network connection.");
}

TEST_F(LoginFlowTest, OtherRefusalShowsWhatTheGatewaySays)
{
    m_server.Enqueue(Reply("1010", "param.pin: more than 256 characters", "null", 400));
    ShowDialog();
    EXPECT_EQ(MessageAfterLogIn(), "The gateway refused the log-in: param.pin: more than 256 characters");
}

TEST_F(LoginFlowTest, CancelledLogInThatStillSucceedsIsEndedAtTheGateway)
{
    m_server.Enqueue(GoodReply().Held());
    m_server.Enqueue(Reply("0", "", "true"));
    ShowDialog();
    TypeAndEnter("secret");
    ASSERT_TRUE(WaitUntil([this] { return m_server.GetRequestCount() == 1; }));
    QTest::keyClick(m_flow.GetDialog(), Qt::Key_Escape);
    EXPECT_FALSE(m_flow.GetDialog()->IsBusy());
    m_server.Release();
    ASSERT_TRUE(WaitUntil([this] { return m_server.GetRequestCount() == 2; }));
    EXPECT_TRUE(m_sessions.isEmpty());
    EXPECT_EQ(Parameters(1).queryItemValue(QStringLiteral("method")),
              QStringLiteral("dsm.tl.pc.user.logout"));
    EXPECT_EQ(Parameters(1).queryItemValue(QStringLiteral("access_token")), QStringLiteral("token"));
    EXPECT_EQ(Param(1).value(QStringLiteral("pin")).toString(), QStringLiteral("demo"));
    EXPECT_EQ(Param(1).value(QStringLiteral("belongType")).toString(), QStringLiteral("merchant"));
}

TEST_F(LoginFlowTest, CommandLineLogInShowsNoDialog)
{
    QSignalSpy comes(&m_flow, &LoginFlow::SigDialogComes);
    m_server.Enqueue(GoodReply());
    m_flow.StartWith(QStringLiteral("demo"), QStringLiteral("secret"));
    ASSERT_TRUE(WaitUntil([this] { return m_sessions.size() == 1; }));
    EXPECT_EQ(m_origin, LoginFlow::Origin::CommandLine);
    EXPECT_EQ(comes.count(), 0);
}

TEST_F(LoginFlowTest, CommandLineLogInThatFailsShowsTheDialogAndSaysWhy)
{
    QSignalSpy comes(&m_flow, &LoginFlow::SigDialogComes);
    QSignalSpy failed(&m_flow, &LoginFlow::SigFailed);
    m_server.Enqueue(Reply("2001", "wrong", "null", 401));
    m_flow.StartWith(QStringLiteral("demo"), QStringLiteral("wrong"));
    ASSERT_TRUE(WaitUntil([&failed] { return failed.count() == 1; }));
    EXPECT_EQ(comes.count(), 1);
    ASSERT_NE(m_flow.GetDialog(), nullptr);
    EXPECT_EQ(Find<QLineEdit>("pin_edit")->text(), QStringLiteral("demo"));
    EXPECT_EQ(Find<QLabel>("login_message")->text(), QStringLiteral("The account or password is incorrect."));
}

TEST_F(LoginFlowTest, TickedBoxSavesTheSessionForTheNextStart)
{
    m_server.Enqueue(GoodReply());
    ShowDialog();
    ASSERT_TRUE(Find<QCheckBox>("stay_box")->isEnabled());
    Find<QCheckBox>("stay_box")->setChecked(true);
    TypeAndEnter("secret");
    ASSERT_TRUE(WaitUntil([this] { return m_sessions.size() == 1; }));
    m_keyStore.Answer();
    EXPECT_TRUE(m_saved.HasRecord());
    m_flow.CloseDialog();

    QSignalSpy comes(&m_flow, &LoginFlow::SigDialogComes);
    m_flow.Start(QString(), LoginProblem());
    m_keyStore.Answer();
    ASSERT_EQ(m_sessions.size(), 2);
    EXPECT_EQ(m_origin, LoginFlow::Origin::Saved);
    EXPECT_EQ(m_sessions[1].accessToken, QStringLiteral("token"));
    EXPECT_EQ(comes.count(), 0);
    EXPECT_EQ(m_server.GetRequestCount(), 1);
}

TEST_F(LoginFlowTest, LogInWithoutTheTickForgetsTheSavedSession)
{
    m_saved.Save({QStringLiteral("old"), QString(), QStringLiteral("old-token"), QDateTime()}, [](bool) {});
    m_keyStore.Answer();
    m_server.Enqueue(GoodReply());
    m_flow.ShowDialog(QStringLiteral("demo"), LoginProblem());
    m_keyStore.Answer();
    TypeAndEnter("secret");
    ASSERT_TRUE(WaitUntil([this] { return m_sessions.size() == 1; }));
    m_keyStore.Answer();
    EXPECT_FALSE(m_saved.HasRecord());
    EXPECT_TRUE(m_keyStore.secrets.isEmpty());
}

TEST_F(LoginFlowTest, SessionThatCannotBeSavedIsReportedAndStillUsed)
{
    m_keyStore.refusesToWrite = true;
    QSignalSpy saveFailed(&m_flow, &LoginFlow::SigSaveFailed);
    m_server.Enqueue(GoodReply());
    ShowDialog();
    Find<QCheckBox>("stay_box")->setChecked(true);
    TypeAndEnter("secret");
    ASSERT_TRUE(WaitUntil([this] { return m_sessions.size() == 1; }));
    m_keyStore.Answer();
    EXPECT_EQ(saveFailed.count(), 1);
}

TEST_F(LoginFlowTest, ExpiredSavedSessionShowsTheDialogAndSaysSo)
{
    const QDateTime past(QDate(2026, 11, 20), QTime(8, 0), Qt::UTC);
    m_saved.Save({QStringLiteral("demo"), QString(), QStringLiteral("token"), past}, [](bool) {});
    m_keyStore.Answer();
    m_flow.Start(QStringLiteral("demo"), LoginProblem());
    m_keyStore.Answer();
    ASSERT_NE(m_flow.GetDialog(), nullptr);
    EXPECT_EQ(Find<QLabel>("login_message")->text(),
              QStringLiteral("Your session has expired. Please log in again."));
}

TEST_F(LoginFlowTest, NoKeyStoreSwitchesTheBoxOff)
{
    m_keyStore.available = false;
    ShowDialog();
    EXPECT_FALSE(Find<QCheckBox>("stay_box")->isEnabled());
    EXPECT_EQ(Find<QCheckBox>("stay_box")->toolTip(), QStringLiteral("<p>There is no key store here.</p>"));
}

TEST_F(LoginFlowTest, ClosedDialogGivesUp)
{
    QSignalSpy givenUp(&m_flow, &LoginFlow::SigGivenUp);
    ShowDialog();
    QTest::keyClick(m_flow.GetDialog(), Qt::Key_Escape);
    EXPECT_EQ(givenUp.count(), 1);
}

TEST(LoginProblemTest, TimeOutIsToldFromAnUnreachableGateway)
{
    EXPECT_EQ(LoginService::ToProblem(QStringLiteral("-1"), QString()).kind, LoginProblem::Kind::TimedOut);
    EXPECT_EQ(LoginService::ToProblem(QStringLiteral("1"), QString()).kind, LoginProblem::Kind::Unreachable);
    EXPECT_EQ(LoginService::ToProblem(QStringLiteral("-4"), QString()).kind, LoginProblem::Kind::NotSetUp);
    EXPECT_EQ(LoginService::ToProblem(QStringLiteral("2003"), QString()).kind,
              LoginProblem::Kind::SessionExpired);
    EXPECT_EQ(LoginService::ToProblem(QStringLiteral("2004"), QString()).kind,
              LoginProblem::Kind::SessionRefused);
}
