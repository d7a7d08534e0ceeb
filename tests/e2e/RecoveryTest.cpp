#include "ClientTest.h"
#include "Desktop.h"
#include "StoredSettings.h"
#include "TabState.h"

#include <QtTest/QTest>

#include <functional>

namespace {

constexpr int patience = 60000; // [ms]

} // namespace

/// What becomes of the tabs when the client ends in one way or another.
class RecoveryTest : public ClientTest
{
protected:
    QStringList GetTabs() const { return TabState::After(m_client->GetEvents()); }
    QString GetAnswer() const
    {
        const QVector<QJsonObject> questions = m_client->GetEvents(QStringLiteral("question"));
        return questions.isEmpty() ? QString() : questions.last().value(QStringLiteral("answer")).toString();
    }
    bool WaitForTabs(const QStringList& tabs)
    {
        return m_client->WaitFor(
            [&tabs](const QVector<QJsonObject>& events) { return TabState::After(events) == tabs; },
            patience);
    }
    /// Waits until a value of the client on the disk meets `condition`.
    bool WaitForStored(const QString& field, const std::function<bool(const QString&)>& condition)
    {
        const StoredSettings stored(GetProfile());
        return QTest::qWaitFor(
            [&] {
                return condition(
                    stored.GetUserValue(QStringLiteral("demo"), QStringLiteral("CLIENT"), field));
            },
            patience);
    }
    int CountDelayed() const
    {
        int count = 0;
        for (const QJsonObject& event : m_client->GetEvents(QStringLiteral("tab.opened"))) {
            count += event.value(QStringLiteral("delayed")).toBool() ? 1 : 0;
        }
        return count;
    }
    /// Whether the log-in opens the configured entries without a question before.
    void ExpectNoQuestion()
    {
        LogInAndOpen();
        EXPECT_TRUE(m_client->GetEvents(QStringLiteral("question.asked")).isEmpty());
    }
};

TEST_F(RecoveryTest, AfterAKillTheTabsAreOfferedAndComeBackInTheirOrder)
{
    LogInAndOpen();
    ASSERT_TRUE(WaitForKept());
    const QStringList tabs = GetTabs();
    m_client->Kill();

    LogIn();
    ASSERT_TRUE(AnswerQuestion(QStringLiteral("Return")));
    EXPECT_EQ(GetAnswer(), QStringLiteral("Yes")) << "Enter is the way to the tabs";
    EXPECT_TRUE(WaitForTabs(tabs));
    EXPECT_TRUE(WaitForTabInFront(m_expected.openFirst)) << "the tab that was in front is again";
    EXPECT_EQ(CountDelayed(), tabs.size()) << "the tab in front goes first";
    EXPECT_TRUE(m_client->WaitForEvents(QStringLiteral("page.loaded"), tabs.size() - 2));
    ASSERT_TRUE(WaitForKept());
    ASSERT_TRUE(m_client->Quit());
    EXPECT_EQ(m_client->GetEvents(QStringLiteral("page.loaded")).size(), tabs.size() - 2)
        << "the apps that are not in front load when they are selected";
    EXPECT_EQ(m_client->GetEvents(QStringLiteral("tab.opened")).size(), tabs.size())
        << "the configured entries stay away";
}

TEST_F(RecoveryTest, AnsweredNoOpensTheConfiguredEntriesAndTheNextLogInAsksNothing)
{
    LogInAndOpen();
    ASSERT_TRUE(WaitForKept());
    m_client->Kill();

    LogIn();
    ASSERT_TRUE(AnswerQuestion(QStringLiteral("Escape")));
    EXPECT_EQ(GetAnswer(), QStringLiteral("No"));
    ASSERT_TRUE(m_client->WaitForEvents(QStringLiteral("tab.opened"), m_expected.urls.size()));
    ASSERT_TRUE(m_client->Quit());
    ExpectNoQuestion();
}

TEST_F(RecoveryTest, AfterAQuitByHandNothingIsOffered)
{
    LogInAndOpen();
    ASSERT_TRUE(WaitForKept());
    ASSERT_TRUE(m_client->Quit());
    ExpectNoQuestion();
}

TEST_F(RecoveryTest, AfterALogOutTheDialogComesAndNothingIsOffered)
{
    LogInAndOpen();
    ASSERT_TRUE(WaitForKept());
    const Desktop desktop(m_screen.GetDisplay());
    ASSERT_TRUE(desktop.WaitForWindow(m_client->GetProcessId()));
    ASSERT_TRUE(desktop.Press({QStringLiteral("F10")}));
    ASSERT_TRUE(desktop.Press({QStringLiteral("o")}));
    ASSERT_TRUE(m_client->WaitForEvents(QStringLiteral("start"), 2));
    ASSERT_TRUE(desktop.WaitForWindow(m_client->GetProcessId())) << "the fresh process asks who is there";
    EXPECT_EQ(m_client->GetEvents(QStringLiteral("login")).size(), 1);
    ASSERT_TRUE(m_client->Stop());
    ExpectNoQuestion();
}

TEST_F(RecoveryTest, AfterTheSystemEndedTheSessionTheTabsAreOffered)
{
    LogInAndOpen();
    // Without a pause: what stands at the end is what is offered.
    const QStringList tabs = GetTabs();
    ASSERT_TRUE(m_client->Stop());
    const QVector<QJsonObject> exits = m_client->GetEvents(QStringLiteral("exit"));
    ASSERT_EQ(exits.size(), 1);
    EXPECT_EQ(exits[0].value(QStringLiteral("kind")).toString(), QStringLiteral("system end"));

    LogIn();
    ASSERT_TRUE(AnswerQuestion(QStringLiteral("Return")));
    EXPECT_TRUE(WaitForTabs(tabs));
}

TEST_F(RecoveryTest, TabsThatWereNeverSelectedSurviveASecondKill)
{
    LogInAndOpen();
    ASSERT_TRUE(WaitForKept());
    const QStringList tabs = GetTabs();
    for (int round = 0; round < 2; ++round) {
        m_client->Kill();
        LogIn();
        ASSERT_TRUE(AnswerQuestion(QStringLiteral("Return")));
        ASSERT_TRUE(WaitForTabs(tabs)) << "round " << round;
        ASSERT_TRUE(WaitForKept());
    }
}

TEST_F(RecoveryTest, AfterTwoDeathsSoonAfterReopeningNothingLoadsByItself)
{
    LogInAndOpen();
    ASSERT_TRUE(WaitForKept());
    const QStringList tabs = GetTabs();
    for (int round = 0; round < 3; ++round) {
        m_client->Kill();
        LogIn();
        ASSERT_TRUE(AnswerQuestion(QStringLiteral("Return")));
        ASSERT_TRUE(WaitForTabs(tabs)) << "round " << round;
        EXPECT_EQ(HasNotice(QStringLiteral("tabs-unloaded")), round == 2) << "round " << round;
        ASSERT_TRUE(WaitForKept());
        // So is how often this went wrong.
        ASSERT_TRUE(WaitForStored(QStringLiteral("REOPEN_DEATHS"), [round](const QString& deaths) {
            return deaths.toInt() == qMin(round + 1, 2);
        }));
    }
    EXPECT_EQ(CountDelayed(), tabs.size());
    EXPECT_TRUE(m_client->GetEvents(QStringLiteral("page.loaded")).isEmpty());
}

TEST_F(RecoveryTest, DeclinedTabsAreFoundUnderEarlierTabsAndCanBeOpenedAgain)
{
    LogInAndOpen();
    ASSERT_TRUE(WaitForKept());
    const QStringList tabs = GetTabs();
    m_client->Kill();
    LogIn();
    ASSERT_TRUE(AnswerQuestion(QStringLiteral("Escape")));
    ASSERT_TRUE(m_client->WaitForEvents(QStringLiteral("tab.opened"), tabs.size()));

    const Desktop desktop(m_screen.GetDisplay());
    // The menu, in it the dialog, and there the newest set.
    ASSERT_TRUE(desktop.WaitForWindow(m_client->GetProcessId()));
    ASSERT_TRUE(desktop.Press({QStringLiteral("F10")}));
    ASSERT_TRUE(desktop.Press({QStringLiteral("e")}));
    ASSERT_TRUE(desktop.WaitForTitle(QStringLiteral("Earlier tabs")));
    ASSERT_TRUE(desktop.Press({QStringLiteral("space")}));
    ASSERT_TRUE(desktop.Press({QStringLiteral("Return")}));
    EXPECT_TRUE(WaitForTabs(tabs + tabs));
}

TEST_F(RecoveryTest, AnsweringIsNotNeededForTheTabsToBeKept)
{
    LogInAndOpen();
    ASSERT_TRUE(WaitForKept());
    const QStringList tabs = GetTabs();
    m_client->Kill();
    LogIn();
    ASSERT_TRUE(m_client->WaitForEvents(QStringLiteral("question.asked"), 1));
    // Until the offer is no more, and its tabs are among the earlier ones.
    ASSERT_TRUE(WaitForStored(QStringLiteral("EARLIER_TABS_0"), [&tabs](const QString& text) {
        return text.count(QStringLiteral("\"url\"")) == tabs.size();
    }));
    ASSERT_TRUE(WaitForStored(QStringLiteral("EARLIER_TABS"),
                              [](const QString& list) { return list.contains(QStringLiteral("slot")); }));
    ASSERT_TRUE(QTest::qWaitFor([this] { return ReadModulesRecord().routerUrls.isEmpty(); }, patience));
    m_client->Kill(); // while the user is being asked

    LogInAndOpen(); // the offer was made; it is not made twice
    EXPECT_TRUE(m_client->GetEvents(QStringLiteral("question.asked")).isEmpty());
    const Desktop desktop(m_screen.GetDisplay());
    ASSERT_TRUE(desktop.WaitForWindow(m_client->GetProcessId()));
    ASSERT_TRUE(desktop.Press({QStringLiteral("F10")}));
    ASSERT_TRUE(desktop.Press({QStringLiteral("e")}));
    ASSERT_TRUE(desktop.WaitForTitle(QStringLiteral("Earlier tabs")));
    ASSERT_TRUE(desktop.Press({QStringLiteral("space")}));
    ASSERT_TRUE(desktop.Press({QStringLiteral("Return")}));
    EXPECT_TRUE(WaitForTabs(tabs + tabs));
}

TEST_F(RecoveryTest, EndOfTheSystemsSessionDuringTheQuestionIsNoAnswer)
{
    LogInAndOpen();
    ASSERT_TRUE(WaitForKept());
    m_client->Kill();
    LogIn();
    ASSERT_TRUE(m_client->WaitForEvents(QStringLiteral("question.asked"), 1));
    ASSERT_TRUE(m_client->Stop());

    LogInAndOpen();
    EXPECT_TRUE(HasNotice(QStringLiteral("tabs-missing"))) << "the next start says where they are";
    EXPECT_TRUE(m_client->Quit());
}
