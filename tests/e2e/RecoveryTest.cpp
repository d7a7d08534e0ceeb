#include "ClientTest.h"
#include "Desktop.h"
#include "StoredSettings.h"
#include "TabState.h"

#include <QtTest/QTest>

#include <functional>

namespace {

constexpr int Patience = 60000; // [ms]

} // namespace

/// What happens to the tabs when the client ends in different ways.
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
            Patience);
    }
    /// Waits until a value that the client has written to disk meets `condition`.
    bool WaitForStored(const QString& field, const std::function<bool(const QString&)>& condition)
    {
        const StoredSettings stored(GetProfile());
        return QTest::qWaitFor(
            [&] {
                return condition(
                    stored.GetUserValue(QStringLiteral("demo"), QStringLiteral("CLIENT"), field));
            },
            Patience);
    }
    int CountDelayed() const
    {
        int count = 0;
        for (const QJsonObject& event : m_client->GetEvents(QStringLiteral("tab.opened"))) {
            count += event.value(QStringLiteral("delayed")).toBool() ? 1 : 0;
        }
        return count;
    }
    /// Expects the log-in to open the configured entries without a question.
    void ExpectNoQuestion()
    {
        LogInAndOpen();
        EXPECT_TRUE(m_client->GetEvents(QStringLiteral("question.asked")).isEmpty());
    }
};

TEST_F(RecoveryTest, AfterAKillTheTabsAreOfferedAndReopenInOrder)
{
    LogInAndOpen();
    ASSERT_TRUE(WaitForRecord());
    const QStringList tabs = GetTabs();
    m_client->Kill();

    LogIn();
    ASSERT_TRUE(AnswerQuestion(QStringLiteral("Return")));
    EXPECT_EQ(GetAnswer(), QStringLiteral("Yes")) << "Enter reopens the tabs";
    EXPECT_TRUE(WaitForTabs(tabs));
    EXPECT_TRUE(WaitForTabInFront(m_expected.openFirst)) << "the same tab is in front";
    EXPECT_EQ(CountDelayed(), tabs.size()) << "the tab in front goes first";
    EXPECT_TRUE(m_client->WaitForEvents(QStringLiteral("page.loaded"), tabs.size() - 2));
    ASSERT_TRUE(WaitForRecord());
    ASSERT_TRUE(m_client->Quit());
    EXPECT_EQ(m_client->GetEvents(QStringLiteral("page.loaded")).size(), tabs.size() - 2)
        << "apps behind the tab in front load only when they are selected";
    EXPECT_EQ(m_client->GetEvents(QStringLiteral("tab.opened")).size(), tabs.size())
        << "the configured entries do not open as well";
}

TEST_F(RecoveryTest, AnsweredNoOpensTheConfiguredEntriesAndTheNextLogInAsksNothing)
{
    LogInAndOpen();
    ASSERT_TRUE(WaitForRecord());
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
    ASSERT_TRUE(WaitForRecord());
    ASSERT_TRUE(m_client->Quit());
    ExpectNoQuestion();
}

TEST_F(RecoveryTest, AfterALogOutTheDialogComesAndNothingIsOffered)
{
    LogInAndOpen();
    ASSERT_TRUE(WaitForRecord());
    const Desktop desktop(m_screen.GetDisplay());
    ASSERT_TRUE(desktop.WaitForWindow(m_client->GetProcessId()));
    ASSERT_TRUE(desktop.Press({QStringLiteral("F10")}));
    ASSERT_TRUE(desktop.Press({QStringLiteral("o")}));
    ASSERT_TRUE(m_client->WaitForEvents(QStringLiteral("start"), 2));
    ASSERT_TRUE(desktop.WaitForWindow(m_client->GetProcessId()))
        << "the fresh process shows the log-in dialog";
    EXPECT_EQ(m_client->GetEvents(QStringLiteral("login")).size(), 1);
    ASSERT_TRUE(m_client->Stop());
    ExpectNoQuestion();
}

TEST_F(RecoveryTest, AfterTheSystemEndedTheSessionTheTabsAreOffered)
{
    LogInAndOpen();
    // No waiting: the client has to write the record on its way out.
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
    ASSERT_TRUE(WaitForRecord());
    const QStringList tabs = GetTabs();
    for (int round = 0; round < 2; ++round) {
        m_client->Kill();
        LogIn();
        ASSERT_TRUE(AnswerQuestion(QStringLiteral("Return")));
        ASSERT_TRUE(WaitForTabs(tabs)) << "round " << round;
        ASSERT_TRUE(WaitForRecord());
    }
}

TEST_F(RecoveryTest, AfterTwoCrashesSoonAfterReopeningNothingLoadsByItself)
{
    LogInAndOpen();
    ASSERT_TRUE(WaitForRecord());
    const QStringList tabs = GetTabs();
    for (int round = 0; round < 3; ++round) {
        m_client->Kill();
        LogIn();
        ASSERT_TRUE(AnswerQuestion(QStringLiteral("Return")));
        ASSERT_TRUE(WaitForTabs(tabs)) << "round " << round;
        EXPECT_EQ(HasNotice(QStringLiteral("tabs-unloaded")), round == 2) << "round " << round;
        ASSERT_TRUE(WaitForRecord());
        // The count of failed attempts is on disk as well.
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
    ASSERT_TRUE(WaitForRecord());
    const QStringList tabs = GetTabs();
    m_client->Kill();
    LogIn();
    ASSERT_TRUE(AnswerQuestion(QStringLiteral("Escape")));
    ASSERT_TRUE(m_client->WaitForEvents(QStringLiteral("tab.opened"), tabs.size()));

    const Desktop desktop(m_screen.GetDisplay());
    // Opens the dialog from the menu, and in it the newest set.
    ASSERT_TRUE(desktop.WaitForWindow(m_client->GetProcessId()));
    ASSERT_TRUE(desktop.Press({QStringLiteral("F10")}));
    ASSERT_TRUE(desktop.Press({QStringLiteral("e")}));
    ASSERT_TRUE(desktop.WaitForTitle(QStringLiteral("Earlier tabs")));
    ASSERT_TRUE(desktop.Press({QStringLiteral("space")}));
    ASSERT_TRUE(desktop.Press({QStringLiteral("Return")}));
    EXPECT_TRUE(WaitForTabs(tabs + tabs));
}

TEST_F(RecoveryTest, KillDuringTheQuestionLeavesTheTabsAmongTheEarlierOnes)
{
    LogInAndOpen();
    ASSERT_TRUE(WaitForRecord());
    const QStringList tabs = GetTabs();
    m_client->Kill();
    LogIn();
    ASSERT_TRUE(m_client->WaitForEvents(QStringLiteral("question.asked"), 1));
    // Wait until the client has moved the offered tabs to the earlier ones.
    ASSERT_TRUE(WaitForStored(QStringLiteral("EARLIER_TABS_0"), [&tabs](const QString& text) {
        return text.count(QStringLiteral("\"url\"")) == tabs.size();
    }));
    ASSERT_TRUE(WaitForStored(QStringLiteral("EARLIER_TABS"),
                              [](const QString& list) { return list.contains(QStringLiteral("slot")); }));
    ASSERT_TRUE(QTest::qWaitFor([this] { return ReadModulesRecord().routerUrls.isEmpty(); }, Patience));
    m_client->Kill(); // while the user is being asked

    LogInAndOpen(); // the client does not offer the tabs twice
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

TEST_F(RecoveryTest, EndOfTheSystemsSessionDuringTheQuestionDoesNotCountAsAnAnswer)
{
    LogInAndOpen();
    ASSERT_TRUE(WaitForRecord());
    m_client->Kill();
    LogIn();
    ASSERT_TRUE(m_client->WaitForEvents(QStringLiteral("question.asked"), 1));
    ASSERT_TRUE(m_client->Stop());

    LogInAndOpen();
    EXPECT_TRUE(HasNotice(QStringLiteral("tabs-missing"))) << "the next start says where the tabs are";
    EXPECT_TRUE(m_client->Quit());
}
