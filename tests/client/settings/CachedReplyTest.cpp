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

/// A gateway that answered once, and whose replies are cached since.
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
        dialog.reset();
        gateway.failures = 1;
        Open();
        ASSERT_FALSE(Page()->isEnabled());
    }

    /// Answers what waits and opens the dialog again with no gateway.
    void OpenAgainWithoutGateway()
    {
        AnswerAll();
        dialog.reset();
        OpenWithoutAnswer();
        gateway.failures = 1;
        gateway.Answer();
        ASSERT_EQ(NoticeText(), StaleText);
    }
};

TEST_F(CachedReplyTest, APageOfTheLastKnownListSaysSoAndTakesNoChange)
{
    OpenStale();
    EXPECT_EQ(NoticeText(), StaleText);
    EXPECT_EQ(Button()->text(), QStringLiteral("Load again"));
    EXPECT_EQ(Page()->GetContent(), gateway.stored);
    gateway.stored = QStringLiteral("newer\t1");
    Tick(0);
    QTest::mouseClick(Page()->addLabel, Qt::LeftButton);
    QTest::keyClick(Page()->GetRow(0)->box, Qt::Key_Space);
    EXPECT_EQ(Page()->presses, 0);
    EXPECT_EQ(gateway.writes, 0);
    EXPECT_EQ(gateway.GetWaiting(), 0);
    // Nothing of it waits for the gateway either.
    dialog->LoadAgain();
    ASSERT_TRUE(WaitUntil([this] { return gateway.GetWaiting() == 1; }));
    gateway.Answer();
    QCoreApplication::processEvents();
    EXPECT_EQ(gateway.GetWaiting(), 0);
    EXPECT_EQ(gateway.stored, QStringLiteral("newer\t1"));
}

TEST_F(CachedReplyTest, TheButtonLoadsAgain)
{
    OpenStale();
    gateway.failures = 1;
    QTest::mouseClick(Button(), Qt::LeftButton);
    ASSERT_TRUE(WaitUntil([this] { return gateway.GetWaiting() == 1; }));
    const int made = factory.made;
    QTest::mouseClick(Button(), Qt::LeftButton); // which is under way
    EXPECT_EQ(NoticeText(), StaleText) << "it stays in place meanwhile";
    gateway.Answer();
    EXPECT_FALSE(Page()->isEnabled());
    EXPECT_EQ(NoticeText(), StaleText);
    EXPECT_EQ(factory.made, made);

    gateway.stored = QStringLiteral("newer\t0\nalpha\t0");
    QTest::mouseClick(Button(), Qt::LeftButton);
    ASSERT_TRUE(WaitUntil([this] { return gateway.GetWaiting() == 1; }));
    gateway.Answer();
    EXPECT_TRUE(NoticeText().isEmpty());
    EXPECT_TRUE(Page()->isEnabled());
    ASSERT_TRUE(WaitUntil([this] { return Page()->GetRow(1)->box->isVisible(); }));
    Tick(1);
    ASSERT_TRUE(WaitUntil([this] { return gateway.GetWaiting() == 1; }));
    gateway.Answer();
    EXPECT_EQ(gateway.stored, QStringLiteral("newer\t0\nalpha\t1"));
}

TEST_F(CachedReplyTest, StalePagesAreRebuiltWhenTheGatewayAnswersAgain)
{
    OpenStale();
    Choose(QStringLiteral("About"));
    const int made = factory.made;
    gateway.stored = QStringLiteral("newer\t0");
    dialog->LoadAgain();
    ASSERT_TRUE(WaitUntil([this] { return gateway.GetWaiting() == 1; }));
    gateway.Answer();
    EXPECT_EQ(factory.made, made + 1);
    Choose(QStringLiteral("Opening at start"));
    EXPECT_TRUE(NoticeText().isEmpty());
    EXPECT_EQ(Page()->GetContent(), gateway.stored);
    EXPECT_TRUE(Page()->isEnabled());
}

TEST_F(CachedReplyTest, APageThatIsUpToDateStaysWhenTheGatewayAnswersAgain)
{
    Open();
    gateway.failures = 1;
    Tick(0);
    gateway.Answer();
    dialog->LoadAgain();
    QCoreApplication::processEvents();
    EXPECT_EQ(factory.made, 1);
    EXPECT_TRUE(NoticeText().startsWith(QStringLiteral("Not saved.")));
}

TEST_F(CachedReplyTest, AClickThatWaitedForAPageThatTurnsOutStaleIsToldOf)
{
    Open();
    Tick(0);
    Tick(1);
    DpiTool::SetScale(1.5);
    gateway.Answer();
    ASSERT_TRUE(WaitUntil([this] { return factory.made == 2 && gateway.GetWaiting() == 1; }));
    gateway.failures = 1;
    gateway.Answer();
    ASSERT_TRUE(WaitUntil([this] { return NoticeText().contains(QStringLiteral("loaded again")); }));
    EXPECT_EQ(gateway.GetWaiting(), 0);
    QTest::mouseClick(Button(), Qt::LeftButton);
    EXPECT_EQ(NoticeText(), StaleText) << "that comes next";
}

TEST_F(CachedReplyTest, TheCacheIsRefreshedWhenTheDialogClosesAfterAChange)
{
    Open();
    Tick(0);
    gateway.Answer();
    dialog->close();
    ASSERT_FALSE(dialog->isVisible());
    EXPECT_EQ(gateway.GetWaiting(), 1);
    OpenAgainWithoutGateway();
    EXPECT_EQ(Page()->GetContent(), QStringLiteral("alpha\t1\nbeta\t0\ngamma\t0"));
}

TEST_F(CachedReplyTest, TheCacheIsRefreshedWhenTheChangeIsAnsweredAfterTheEndOfTheDialog)
{
    Open();
    Tick(0);
    Press(Qt::Key_Escape);
    Press(Qt::Key_Escape);
    ASSERT_FALSE(dialog->isVisible());
    dialog.reset();
    EXPECT_EQ(gateway.reads, 1);
    gateway.Answer();
    EXPECT_EQ(gateway.GetWaiting(), 1);
    OpenAgainWithoutGateway();
    EXPECT_EQ(Page()->GetContent(), QStringLiteral("alpha\t1\nbeta\t0\ngamma\t0"));
}

TEST_F(CachedReplyTest, NothingIsReadAgainWithoutAChangeThatSucceeded)
{
    Open();
    gateway.failures = 1;
    Tick(0);
    gateway.Answer();
    AnswerQuestion(QStringLiteral("Close anyway"));
    dialog->close();
    ASSERT_FALSE(dialog->isVisible());
    EXPECT_EQ(gateway.GetWaiting(), 0);
    EXPECT_EQ(gateway.reads, 1);
}

TEST_F(CachedReplyTest, NothingIsReadAgainWhenThePageHasReadSinceTheChange)
{
    Open();
    Tick(0);
    gateway.Answer();
    DpiTool::SetScale(1.5);
    ASSERT_TRUE(WaitUntil([this] { return gateway.GetWaiting() == 1; }));
    gateway.Answer();
    dialog->close();
    ASSERT_FALSE(dialog->isVisible());
    EXPECT_EQ(gateway.GetWaiting(), 0);
    EXPECT_EQ(gateway.reads, 2);
}

TEST_F(CachedReplyTest, APageIsReadyWhenItsRowsAreThereAndInputGoesToThem)
{
    Make();
    QSignalSpy ready(dialog.get(), &SettingsDialog::SigPageReady);
    bool visible = false;
    QObject::connect(dialog.get(), &SettingsDialog::SigPageReady, dialog.get(), [this, &visible] {
        visible = Page()->GetRowCount() == 3 && Page()->GetRow(2)->box->isVisible();
        Tick(0);
    });
    OpenWithoutAnswer();
    QCoreApplication::processEvents();
    EXPECT_EQ(ready.count(), 0) << "the gateway has not answered yet";
    gateway.Answer();
    ASSERT_TRUE(WaitUntil([&ready] { return ready.count() == 1; }));
    EXPECT_EQ(ready.first().at(0).toString(), QStringLiteral("10,60"));
    EXPECT_FALSE(ready.first().at(1).toBool());
    EXPECT_TRUE(visible);
    EXPECT_TRUE(Page()->GetRow(0)->box->isChecked());
    AnswerAll();
}

TEST_F(CachedReplyTest, APageThatShowsCachedDataSaysSoWhenItIsReady)
{
    Open();
    dialog.reset();
    gateway.failures = 1;
    Make();
    QSignalSpy ready(dialog.get(), &SettingsDialog::SigPageReady);
    OpenWithoutAnswer();
    gateway.Answer();
    ASSERT_TRUE(WaitUntil([&ready] { return ready.count() == 1; }));
    EXPECT_TRUE(ready.first().at(1).toBool());
    dialog->LoadAgain();
    ASSERT_TRUE(WaitUntil([this] { return gateway.GetWaiting() == 1; }));
    gateway.Answer();
    ASSERT_TRUE(WaitUntil([&ready] { return ready.count() == 2; }));
    EXPECT_FALSE(ready.last().at(1).toBool());
}

} // namespace
