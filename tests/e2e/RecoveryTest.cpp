#include "ClientTest.h"
#include "Desktop.h"
#include "TabState.h"

#include <QtTest/QTest>

namespace {

/// What the client promises: a kill costs no more than what changed in the last second.
constexpr int promise = 1000; // [ms]

} // namespace

/// What becomes of the tabs when the client ends in one way or another.
class RecoveryTest : public ClientTest
{
protected:
    QStringList GetTabs() const { return TabState::After(m_client->GetEvents()); }
    /// Lets the promise come true, so that what stands now is what comes back.
    static void WaitForPromise() { QTest::qWait(promise); }

    QString GetAnswer() const
    {
        const QVector<QJsonObject> questions = m_client->GetEvents(QStringLiteral("question"));
        return questions.isEmpty() ? QString() : questions.last().value(QStringLiteral("answer")).toString();
    }
    bool WaitForTabs(const QStringList& tabs)
    {
        return m_client->WaitFor(
            [&tabs](const QVector<QJsonObject>& events) { return TabState::After(events) == tabs; }, 20000);
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
    WaitForPromise();
    const QStringList tabs = GetTabs();
    m_client->Kill();

    LogIn();
    ASSERT_TRUE(AnswerQuestion(QStringLiteral("Return")));
    EXPECT_EQ(GetAnswer(), QStringLiteral("Yes")) << "Enter is the way to the tabs";
    EXPECT_TRUE(WaitForTabs(tabs));
    EXPECT_TRUE(WaitForTabInFront(m_expected.openFirst)) << "the tab that was in front is again";
    EXPECT_EQ(CountDelayed(), tabs.size()) << "the tab in front goes first";
    EXPECT_TRUE(m_client->WaitForEvents(QStringLiteral("page.loaded"), tabs.size() - 2));
    QTest::qWait(promise);
    EXPECT_EQ(m_client->GetEvents(QStringLiteral("page.loaded")).size(), tabs.size() - 2)
        << "the apps that are not in front load when they are selected";
    ASSERT_TRUE(m_client->Quit());
    EXPECT_EQ(m_client->GetEvents(QStringLiteral("tab.opened")).size(), tabs.size())
        << "the configured entries stay away";
}

TEST_F(RecoveryTest, AnsweredNoOpensTheConfiguredEntriesAndTheNextLogInAsksNothing)
{
    LogInAndOpen();
    WaitForPromise();
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
    WaitForPromise();
    ASSERT_TRUE(m_client->Quit());
    ExpectNoQuestion();
}

TEST_F(RecoveryTest, AfterALogOutTheDialogComesAndNothingIsOffered)
{
    LogInAndOpen();
    WaitForPromise();
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
    WaitForPromise();
    const QStringList tabs = GetTabs();
    for (int round = 0; round < 2; ++round) {
        m_client->Kill();
        LogIn();
        ASSERT_TRUE(AnswerQuestion(QStringLiteral("Return")));
        ASSERT_TRUE(WaitForTabs(tabs)) << "round " << round;
        WaitForPromise();
    }
}

TEST_F(RecoveryTest, AfterTwoDeathsSoonAfterReopeningNothingLoadsByItself)
{
    LogInAndOpen();
    WaitForPromise();
    const QStringList tabs = GetTabs();
    for (int round = 0; round < 3; ++round) {
        m_client->Kill();
        LogIn();
        ASSERT_TRUE(AnswerQuestion(QStringLiteral("Return")));
        ASSERT_TRUE(WaitForTabs(tabs)) << "round " << round;
        EXPECT_EQ(HasNotice(QStringLiteral("tabs-unloaded")), round == 2) << "round " << round;
        WaitForPromise();
    }
    EXPECT_EQ(CountDelayed(), tabs.size());
    EXPECT_TRUE(m_client->GetEvents(QStringLiteral("page.loaded")).isEmpty());
}

TEST_F(RecoveryTest, DeclinedTabsAreFoundUnderEarlierTabsAndCanBeOpenedAgain)
{
    LogInAndOpen();
    WaitForPromise();
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
    WaitForPromise();
    const QStringList tabs = GetTabs();
    m_client->Kill();
    LogIn();
    ASSERT_TRUE(m_client->WaitForEvents(QStringLiteral("question.asked"), 1));
    QTest::qWait(promise);
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
    WaitForPromise();
    m_client->Kill();
    LogIn();
    ASSERT_TRUE(m_client->WaitForEvents(QStringLiteral("question.asked"), 1));
    ASSERT_TRUE(m_client->Stop());

    LogInAndOpen();
    EXPECT_TRUE(HasNotice(QStringLiteral("tabs-missing"))) << "the next start says where they are";
    EXPECT_TRUE(m_client->Quit());
}
