#include "SettingsDialogTest.h"

#include "WaitUntil.h"

#include "base/DpiTool.h"

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QPushButton>

namespace {

const QString StaleText =
    QStringLiteral("The gateway cannot be reached. This is the last known configuration; it "
                   "can be changed once the gateway answers.");

/// A gateway that has answered before, and whose replies are cached.
class CachedReplyTest : public SettingsDialogTest
{
protected:
    QPushButton* Button() const
    {
        return Area()->findChild<QPushButton*>(QStringLiteral("settings_load_again"));
    }

    /// Opens the dialog once with the gateway and once without.
    void OpenStale()
    {
        Open();
        m_dialog.reset();
        m_gateway.failures = 1;
        Open();
        ASSERT_FALSE(Page()->isEnabled());
    }

    /// Answers what waits and opens the dialog again with no gateway.
    void OpenAgainWithoutGateway()
    {
        AnswerAll();
        m_dialog.reset();
        OpenWithoutAnswer();
        m_gateway.failures = 1;
        m_gateway.Answer();
        ASSERT_EQ(NoticeText(), StaleText);
    }
};

TEST_F(CachedReplyTest, APageOfTheLastKnownListSaysSoAndTakesNoChange)
{
    OpenStale();
    EXPECT_EQ(NoticeText(), StaleText);
    EXPECT_EQ(Button()->text(), QStringLiteral("Load again"));
    EXPECT_EQ(Page()->GetContent(), m_gateway.stored);
    m_gateway.stored = QStringLiteral("newer\t1");
    Tick(0);
    QTest::mouseClick(Page()->addLabel, Qt::LeftButton);
    QTest::keyClick(Page()->GetRow(0)->box, Qt::Key_Space);
    EXPECT_EQ(Page()->presses, 0);
    EXPECT_EQ(m_gateway.writes, 0);
    EXPECT_EQ(m_gateway.GetWaiting(), 0);
    // Nothing waits for the gateway either.
    m_dialog->LoadAgain();
    ASSERT_TRUE(WaitUntil([this] { return m_gateway.GetWaiting() == 1; }));
    m_gateway.Answer();
    QCoreApplication::processEvents();
    EXPECT_EQ(m_gateway.GetWaiting(), 0);
    EXPECT_EQ(m_gateway.stored, QStringLiteral("newer\t1"));
}

TEST_F(CachedReplyTest, TheButtonLoadsAgain)
{
    OpenStale();
    m_gateway.failures = 1;
    QTest::mouseClick(Button(), Qt::LeftButton);
    ASSERT_TRUE(WaitUntil([this] { return m_gateway.GetWaiting() == 1; }));
    const int made = m_factory.made;
    QTest::mouseClick(Button(), Qt::LeftButton); // which is under way
    EXPECT_EQ(NoticeText(), StaleText) << "it stays in place meanwhile";
    m_gateway.Answer();
    EXPECT_FALSE(Page()->isEnabled());
    EXPECT_EQ(NoticeText(), StaleText);
    EXPECT_EQ(m_factory.made, made);

    m_gateway.stored = QStringLiteral("newer\t0\nalpha\t0");
    QTest::mouseClick(Button(), Qt::LeftButton);
    ASSERT_TRUE(WaitUntil([this] { return m_gateway.GetWaiting() == 1; }));
    m_gateway.Answer();
    EXPECT_TRUE(NoticeText().isEmpty());
    EXPECT_TRUE(Page()->isEnabled());
    ASSERT_TRUE(WaitUntil([this] { return Page()->GetRow(1)->box->isVisible(); }));
    Tick(1);
    ASSERT_TRUE(WaitUntil([this] { return m_gateway.GetWaiting() == 1; }));
    m_gateway.Answer();
    EXPECT_EQ(m_gateway.stored, QStringLiteral("newer\t0\nalpha\t1"));
}

TEST_F(CachedReplyTest, StalePagesAreRebuiltWhenTheGatewayAnswersAgain)
{
    OpenStale();
    Choose(QStringLiteral("About"));
    const int made = m_factory.made;
    m_gateway.stored = QStringLiteral("newer\t0");
    m_dialog->LoadAgain();
    ASSERT_TRUE(WaitUntil([this] { return m_gateway.GetWaiting() == 1; }));
    m_gateway.Answer();
    EXPECT_EQ(m_factory.made, made + 1);
    Choose(QStringLiteral("Opening at start"));
    EXPECT_TRUE(NoticeText().isEmpty());
    EXPECT_EQ(Page()->GetContent(), m_gateway.stored);
    EXPECT_TRUE(Page()->isEnabled());
}

TEST_F(CachedReplyTest, APageThatIsUpToDateStaysWhenTheGatewayAnswersAgain)
{
    Open();
    m_gateway.failures = 1;
    Tick(0);
    m_gateway.Answer();
    m_dialog->LoadAgain();
    QCoreApplication::processEvents();
    EXPECT_EQ(m_factory.made, 1);
    EXPECT_TRUE(NoticeText().startsWith(QStringLiteral("Not saved.")));
}

TEST_F(CachedReplyTest, AClickThatWaitedForAPageThatTurnsOutStaleIsToldOf)
{
    Open();
    Tick(0);
    Tick(1);
    DpiTool::SetScale(1.5);
    m_gateway.Answer();
    ASSERT_TRUE(WaitUntil([this] { return m_factory.made == 2 && m_gateway.GetWaiting() == 1; }));
    m_gateway.failures = 1;
    m_gateway.Answer();
    ASSERT_TRUE(WaitUntil([this] { return NoticeText().contains(QStringLiteral("loaded again")); }));
    EXPECT_EQ(m_gateway.GetWaiting(), 0);
    QTest::mouseClick(Button(), Qt::LeftButton);
    EXPECT_EQ(NoticeText(), StaleText) << "that comes next";
}

TEST_F(CachedReplyTest, TheCacheIsRefreshedWhenTheDialogClosesAfterAChange)
{
    Open();
    Tick(0);
    m_gateway.Answer();
    m_dialog->close();
    ASSERT_FALSE(m_dialog->isVisible());
    EXPECT_EQ(m_gateway.GetWaiting(), 1);
    OpenAgainWithoutGateway();
    EXPECT_EQ(Page()->GetContent(), QStringLiteral("alpha\t1\nbeta\t0\ngamma\t0"));
}

TEST_F(CachedReplyTest, TheCacheIsRefreshedWhenTheChangeIsAnsweredAfterTheEndOfTheDialog)
{
    Open();
    Tick(0);
    Press(Qt::Key_Escape);
    Press(Qt::Key_Escape);
    ASSERT_FALSE(m_dialog->isVisible());
    m_dialog.reset();
    EXPECT_EQ(m_gateway.reads, 1);
    m_gateway.Answer();
    EXPECT_EQ(m_gateway.GetWaiting(), 1);
    OpenAgainWithoutGateway();
    EXPECT_EQ(Page()->GetContent(), QStringLiteral("alpha\t1\nbeta\t0\ngamma\t0"));
}

TEST_F(CachedReplyTest, NothingIsReadAgainWithoutAChangeThatSucceeded)
{
    Open();
    m_gateway.failures = 1;
    Tick(0);
    m_gateway.Answer();
    AnswerQuestion(QStringLiteral("Close anyway"));
    m_dialog->close();
    ASSERT_FALSE(m_dialog->isVisible());
    EXPECT_EQ(m_gateway.GetWaiting(), 0);
    EXPECT_EQ(m_gateway.reads, 1);
}

TEST_F(CachedReplyTest, NothingIsReadAgainWhenThePageHasReadSinceTheChange)
{
    Open();
    Tick(0);
    m_gateway.Answer();
    DpiTool::SetScale(1.5);
    ASSERT_TRUE(WaitUntil([this] { return m_gateway.GetWaiting() == 1; }));
    m_gateway.Answer();
    m_dialog->close();
    ASSERT_FALSE(m_dialog->isVisible());
    EXPECT_EQ(m_gateway.GetWaiting(), 0);
    EXPECT_EQ(m_gateway.reads, 2);
}

TEST_F(CachedReplyTest, APageThatShowsCachedDataSaysSoWhenItIsReady)
{
    Open();
    m_dialog.reset();
    m_gateway.failures = 1;
    Make();
    QSignalSpy ready(m_dialog.get(), &SettingsDialog::SigPageReady);
    OpenWithoutAnswer();
    m_gateway.Answer();
    ASSERT_TRUE(WaitUntil([&ready] { return ready.count() == 1; }));
    EXPECT_TRUE(ready.first().at(1).toBool());
    m_dialog->LoadAgain();
    ASSERT_TRUE(WaitUntil([this] { return m_gateway.GetWaiting() == 1; }));
    m_gateway.Answer();
    ASSERT_TRUE(WaitUntil([&ready] { return ready.count() == 2; }));
    EXPECT_FALSE(ready.last().at(1).toBool());
}

} // namespace
