#include "SettingsDialogTest.h"

#include "FakePageRequest.h"
#include "FakePageResponse.h"
#include "WaitUntil.h"

#include "base-ui/TLMaskWidget.h"
#include "base/DpiTool.h"
#include "http/IHttpManager.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QTimer>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QDialog>

#include <functional>

namespace {

constexpr int Slow = 800; // [ms]

using HeldInputTest = SettingsDialogTest;

TEST_F(HeldInputTest, AQuickSecondClickIsSavedAfterTheFirst)
{
    Open();
    m_gateway.delay = Slow;
    Tick(0);
    Tick(1);
    EXPECT_EQ(m_gateway.writes, 1);
    EXPECT_FALSE(Page()->GetRow(1)->box->isChecked());
    ASSERT_TRUE(
        WaitUntil([this] { return m_gateway.stored.startsWith(QStringLiteral("alpha\t1\nbeta\t1")); }));
    EXPECT_EQ(m_gateway.writes, 2);
    EXPECT_EQ(Page()->skipped, 0);
    EXPECT_EQ(Page()->GetContent(), m_gateway.stored);
}

TEST_F(HeldInputTest, ClicksAndKeysKeepTheirOrder)
{
    Open();
    Tick(0);
    Tick(1);
    Tick(0);
    Press(Qt::Key_Space); // on the first row again, which the last click gave the focus
    ASSERT_EQ(m_gateway.GetWaiting(), 1);
    QStringList seen;
    while (m_gateway.GetWaiting() > 0) {
        m_gateway.Answer();
        seen.append(m_gateway.stored.section(QLatin1Char('\n'), 0, 1));
        QCoreApplication::processEvents();
    }
    EXPECT_EQ(seen, (QStringList{QStringLiteral("alpha\t1\nbeta\t0"), QStringLiteral("alpha\t1\nbeta\t1"),
                                 QStringLiteral("alpha\t0\nbeta\t1"), QStringLiteral("alpha\t1\nbeta\t1")}));
    EXPECT_EQ(Page()->skipped, 0);
}

TEST_F(HeldInputTest, TabMovesTheFocusInItsTurn)
{
    Open();
    Page()->GetRow(0)->box->setFocus(Qt::TabFocusReason);
    Press(Qt::Key_Space);
    Press(Qt::Key_Tab); // to the button that the row shows
    Press(Qt::Key_Tab);
    Press(Qt::Key_Space);
    ASSERT_EQ(m_gateway.GetWaiting(), 1);
    m_gateway.Answer();
    ASSERT_EQ(m_gateway.GetWaiting(), 1);
    m_gateway.Answer();
    EXPECT_EQ(m_gateway.stored, QStringLiteral("alpha\t1\nbeta\t1\ngamma\t0"));
}

TEST_F(HeldInputTest, AKeyThatWaitsStaysWithItsPageWhenTheUserGoesOnToAnother)
{
    Open();
    Tick(0);
    Page()->GetRow(1)->box->setFocus(Qt::TabFocusReason);
    Press(Qt::Key_Space);
    Choose(QStringLiteral("About"));
    m_gateway.Answer();
    ASSERT_EQ(m_gateway.GetWaiting(), 1);
    m_gateway.Answer();
    EXPECT_EQ(m_gateway.stored, QStringLiteral("alpha\t1\nbeta\t1\ngamma\t0"));
    EXPECT_EQ(List()->currentItem()->text(), QStringLiteral("About"));
}

TEST_F(HeldInputTest, AReadHoldsNothingBack)
{
    OpenWithoutAnswer();
    ASSERT_EQ(m_gateway.GetWaiting(), 1);
    QTest::mouseClick(Page()->addLabel, Qt::LeftButton);
    EXPECT_EQ(Page()->presses, 1);
}

TEST_F(HeldInputTest, AChangeOfTheScaleLosesNeitherTheWriteNorTheClickThatWaits)
{
    Open();
    m_gateway.delay = Slow;
    Tick(0);
    Tick(1);
    const QPointer<FakeSettingsPage> before = Page();
    DpiTool::SetScale(1.5);
    ASSERT_TRUE(
        WaitUntil([this] { return m_gateway.stored.startsWith(QStringLiteral("alpha\t1\nbeta\t1")); }));
    EXPECT_TRUE(before.isNull());
    EXPECT_EQ(m_factory.made, 2);
    EXPECT_EQ(Page()->GetContent(), QStringLiteral("alpha\t1\nbeta\t1\ngamma\t0"));
    EXPECT_TRUE(NoticeText().isEmpty());
}

TEST_F(HeldInputTest, AChangeOfTheScaleDoesNotForgetARowJustAdded)
{
    Open();
    m_gateway.delay = Slow;
    QTest::mouseClick(Page()->addLabel, Qt::LeftButton);
    DpiTool::SetScale(2.0);
    ASSERT_EQ(Page()->GetRowCount(), 3) << "the page itself shows what it read last";
    ASSERT_TRUE(WaitUntil([this] { return m_factory.made == 2 && Page()->GetRowCount() == 4; }));
    EXPECT_EQ(Page()->GetContent(), m_gateway.stored);
}

TEST_F(HeldInputTest, AScaleChangedTwiceMakesThePageOnce)
{
    Open();
    Tick(0);
    DpiTool::SetScale(1.5);
    DpiTool::SetScale(2.0);
    m_gateway.Answer();
    ASSERT_TRUE(WaitUntil([this] { return m_factory.made == 2 && m_gateway.GetWaiting() == 1; }));
    m_gateway.Answer();
    QCoreApplication::processEvents();
    EXPECT_EQ(m_factory.made, 2);
    EXPECT_TRUE(Page()->GetRow(0)->box->isChecked());
}

TEST_F(HeldInputTest, AClickThatWaitedForARowThatIsGoneIsToldOf)
{
    Open();
    Tick(0);
    Tick(2);
    DpiTool::SetScale(1.5);
    m_gateway.Answer();
    m_gateway.stored = QStringLiteral("alpha\t1\nbeta\t0"); // another machine has removed it
    ASSERT_TRUE(WaitUntil([this] { return m_factory.made == 2 && m_gateway.GetWaiting() == 1; }));
    m_gateway.Answer();
    EXPECT_TRUE(WaitUntil([this] { return NoticeText().contains(QStringLiteral("loaded again")); }));
    EXPECT_EQ(m_gateway.GetWaiting(), 0);
    EXPECT_EQ(m_gateway.stored, QStringLiteral("alpha\t1\nbeta\t0"));
}

TEST_F(HeldInputTest, AClickThatWaitedFindsItsRowInAnotherPlace)
{
    Open();
    Tick(0);
    Tick(2);
    DpiTool::SetScale(1.5);
    m_gateway.Answer();
    m_gateway.stored = QStringLiteral("gamma\t0\nalpha\t1"); // another machine has moved it
    ASSERT_TRUE(WaitUntil([this] { return m_factory.made == 2 && m_gateway.GetWaiting() == 1; }));
    m_gateway.Answer();
    ASSERT_TRUE(WaitUntil([this] { return m_gateway.GetWaiting() == 1; }));
    m_gateway.Answer();
    EXPECT_EQ(m_gateway.stored, QStringLiteral("gamma\t1\nalpha\t1"));
}

TEST_F(HeldInputTest, WhatADialogOfThePageWritesHoldsBackTheNextClick)
{
    Open();
    Page()->addsByDialog = true;
    QTimer::singleShot(0, m_dialog.get(), [this] {
        auto* const open = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(open, nullptr);
        open->accept();
    });
    QTest::mouseClick(Page()->addLabel, Qt::LeftButton);
    ASSERT_EQ(m_gateway.GetWaiting(), 1);
    Tick(1);
    EXPECT_FALSE(Page()->GetRow(1)->box->isChecked());
    m_gateway.Answer();
    ASSERT_EQ(m_gateway.GetWaiting(), 1);
    m_gateway.Answer();
    EXPECT_EQ(m_gateway.stored, QStringLiteral("alpha\t0\nbeta\t1\ngamma\t0\nadded 1\t0"));
}

TEST_F(HeldInputTest, ThePageIsNotRebuiltUnderItsOwnDialog)
{
    Open();
    Page()->addsByDialog = true;
    const QPointer<FakeSettingsPage> before = Page();
    bool stood = false;
    QTimer::singleShot(0, m_dialog.get(), [&] {
        auto* const open = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(open, nullptr);
        int attempts = 0;
        const QList<QTimer*> timers = Area()->findChildren<QTimer*>(QString(), Qt::FindDirectChildrenOnly);
        for (QTimer* const timer : timers) {
            QObject::connect(timer, &QTimer::timeout, open, [&attempts] { ++attempts; });
        }
        DpiTool::SetScale(1.25);
        stood = WaitUntil([&attempts] { return attempts >= 3; }) && !before.isNull();
        open->accept();
    });
    QTest::mouseClick(Page()->addLabel, Qt::LeftButton);
    EXPECT_TRUE(stood);
    ASSERT_EQ(m_gateway.GetWaiting(), 1);
    m_gateway.Answer();
    ASSERT_TRUE(WaitUntil([this] { return m_factory.made == 2 && m_gateway.GetWaiting() == 1; }));
    m_gateway.Answer();
    EXPECT_TRUE(m_gateway.stored.contains(QStringLiteral("added 1")));
    EXPECT_EQ(Page()->GetContent(), m_gateway.stored);
}

TEST_F(HeldInputTest, ADialogOfThePageStandsOverTheSettingsAndDimsThem)
{
    Open();
    QWidget client; // what pages take for the window that the user looks at
    client.setGeometry(0, 0, 200, 100);
    client.show();
    Page()->addsByDialog = true;
    Page()->dialogParent = &client;
    bool dimmed = false;
    QPoint off;
    QTimer::singleShot(0, m_dialog.get(), [&] {
        auto* const open = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(open, nullptr);
        off = open->geometry().center() - m_dialog->geometry().center();
        const auto* const mask = m_dialog->findChild<TLMaskWidget*>();
        dimmed = mask != nullptr && mask->isVisible();
        open->reject();
    });
    QTest::mouseClick(Page()->addLabel, Qt::LeftButton);
    EXPECT_TRUE(dimmed);
    EXPECT_LE(off.manhattanLength(), 2);
    EXPECT_FALSE(m_dialog->findChild<TLMaskWidget*>()->isVisible());
}

TEST_F(HeldInputTest, CallsOfOthersHoldNothingBack)
{
    Open();
    Tick(0);
    m_gateway.Answer();
    QCoreApplication::processEvents();
    // Not on account of input to the page.
    QTimer::singleShot(0, m_dialog.get(), [] {
        IHttpManager::Instance()->Send(QSharedPointer<FakePageRequest>::create("other", QByteArray()),
                                       QSharedPointer<FakePageResponse>::create(false), {}, 0, 1);
    });
    ASSERT_TRUE(WaitUntil([this] { return m_gateway.GetWaiting() == 1; }));
    Tick(1);
    EXPECT_EQ(m_gateway.GetWaiting(), 2);
    EXPECT_TRUE(Page()->GetRow(1)->box->isChecked());
}

TEST_F(HeldInputTest, ARowMayGoInsideItsOwnButtonsSignalWhileMoreInputWaits)
{
    Open();
    Page()->GetRow(0)->remove->show();
    QTest::mouseClick(Page()->GetRow(0)->remove, Qt::LeftButton);
    ASSERT_EQ(m_gateway.GetWaiting(), 1);
    Tick(1); // what is now the second row
    m_gateway.Answer();
    ASSERT_EQ(m_gateway.GetWaiting(), 1);
    m_gateway.Answer();
    EXPECT_EQ(m_gateway.stored, QStringLiteral("beta\t0\ngamma\t1"));
}

TEST_F(HeldInputTest, AScaleChosenInTheDialogWaitsForTheWrite)
{
    Open();
    Tick(0);
    Tick(1);
    Choose(QStringLiteral("Appearance"));
    auto* const scale = m_dialog->findChild<QComboBox*>(QStringLiteral("scale_combo"));
    scale->setFocus(Qt::TabFocusReason);
    Press(Qt::Key_Down);
    EXPECT_TRUE(m_choices.isEmpty());
    m_gateway.Answer();
    QCoreApplication::processEvents();
    EXPECT_TRUE(m_choices.isEmpty()) << "the second click has its own write";
    m_gateway.Answer();
    ASSERT_TRUE(WaitUntil([this] { return !m_choices.isEmpty(); }));
    EXPECT_EQ(m_choices, QStringList(QStringLiteral("scale 125")));
    EXPECT_EQ(m_gateway.stored, QStringLiteral("alpha\t1\nbeta\t1\ngamma\t0"));
}

TEST_F(HeldInputTest, ClosingWaitsForTheAnswerAndForWhatWaits)
{
    Open();
    Tick(0);
    Tick(1);
    m_dialog->close();
    EXPECT_TRUE(m_dialog->isVisible());
    m_gateway.Answer();
    QCoreApplication::processEvents();
    EXPECT_TRUE(m_dialog->isVisible());
    m_gateway.Answer();
    ASSERT_TRUE(WaitUntil([this] { return !m_dialog->isVisible(); }));
    EXPECT_EQ(m_gateway.stored, QStringLiteral("alpha\t1\nbeta\t1\ngamma\t0"));
}

TEST_F(HeldInputTest, ClosingTwiceWaitsForNothing)
{
    Open();
    Tick(0);
    Press(Qt::Key_Escape);
    EXPECT_TRUE(m_dialog->isVisible());
    Press(Qt::Key_Escape);
    EXPECT_FALSE(m_dialog->isVisible());
    m_gateway.Answer();
    EXPECT_EQ(m_gateway.stored, QStringLiteral("alpha\t1\nbeta\t0\ngamma\t0"));
}

TEST_F(HeldInputTest, AClickThatWaitedForARowThatAnEarlierClickDeletesIsDroppedWithoutANotice)
{
    Open();
    Tick(0);
    Page()->GetRow(2)->remove->show();
    QTest::mouseClick(Page()->GetRow(2)->remove, Qt::LeftButton);
    Tick(2);
    m_gateway.Answer();
    ASSERT_EQ(m_gateway.GetWaiting(), 1) << "the row is deleted";
    m_gateway.Answer();
    EXPECT_EQ(m_gateway.GetWaiting(), 0);
    EXPECT_EQ(m_gateway.stored, QStringLiteral("alpha\t1\nbeta\t0"));
    EXPECT_TRUE(NoticeText().isEmpty()) << qPrintable(NoticeText());
    EXPECT_EQ(SaveLine()->text(), QStringLiteral("Saved"));
}

TEST_F(HeldInputTest, AClickThatWaitedForADeletedRowDoesNotGoToAnotherOfTheSameContent)
{
    m_gateway.stored = QStringLiteral("alpha\t0\nbeta\t0\nbeta\t0");
    Open();
    Tick(0);
    Page()->GetRow(2)->remove->show();
    QTest::mouseClick(Page()->GetRow(2)->remove, Qt::LeftButton);
    Tick(2);
    m_gateway.Answer();
    m_gateway.Answer();
    EXPECT_EQ(m_gateway.GetWaiting(), 0);
    EXPECT_EQ(m_gateway.stored, QStringLiteral("alpha\t1\nbeta\t0"));
}

TEST_F(HeldInputTest, WhatIsDroppedAfterAFailureLeavesTheFailureInSight)
{
    Open();
    Tick(0);
    Page()->GetRow(2)->remove->show();
    QTest::mouseClick(Page()->GetRow(2)->remove, Qt::LeftButton);
    Tick(2);
    m_gateway.Answer();
    m_gateway.failures = 1;
    m_gateway.Answer();
    EXPECT_TRUE(NoticeText().startsWith(QStringLiteral("Not saved."))) << qPrintable(NoticeText());
    AnswerQuestion(QStringLiteral("Keep open"));
    m_dialog->close();
    EXPECT_EQ(m_questions, 1);
    EXPECT_TRUE(m_dialog->isVisible());
}

TEST_F(HeldInputTest, WhatIsLostWithThePageLeavesALaterFailureInSight)
{
    Open();
    Tick(0);
    Tick(1);
    Tick(2);
    DpiTool::SetScale(1.5);
    m_gateway.Answer();
    m_gateway.stored = QStringLiteral("alpha\t1\nbeta\t0"); // another machine has removed the last row
    ASSERT_TRUE(WaitUntil([this] { return m_factory.made == 2 && m_gateway.GetWaiting() == 1; }));
    m_gateway.Answer();
    ASSERT_TRUE(WaitUntil([this] { return m_gateway.GetWaiting() == 1; }));
    m_gateway.failures = 1;
    m_gateway.Answer();
    EXPECT_TRUE(NoticeText().startsWith(QStringLiteral("Not saved."))) << qPrintable(NoticeText());
}

/// A second press so soon after the first that it counts as a double click, wherever the first one went.
void PressTwice(QWidget* first, const std::function<QWidget*()>& second)
{
    QTest::mouseClick(first, Qt::LeftButton);
    QTest::mouseDClick(second(), Qt::LeftButton);
    QTest::mouseRelease(second(), Qt::LeftButton);
}

TEST_F(HeldInputTest, ADoubleClickOnDeleteDeletesOneRow)
{
    Open();
    for (int i = 0; i < 3; ++i) {
        Page()->GetRow(i)->remove->show();
    }
    PressTwice(Page()->GetRow(0)->remove, [this] { return Page()->GetRow(0)->remove; });
    AnswerAll();
    EXPECT_EQ(m_gateway.stored, QStringLiteral("beta\t0\ngamma\t0"));
    EXPECT_EQ(m_gateway.writes, 1);
    EXPECT_TRUE(NoticeText().isEmpty());
    EXPECT_EQ(SaveLine()->text(), QStringLiteral("Saved"));
    // The next click is one again.
    QTest::mouseClick(Page()->GetRow(0)->remove, Qt::LeftButton);
    AnswerAll();
    EXPECT_EQ(m_gateway.stored, QStringLiteral("gamma\t0"));
}

TEST_F(HeldInputTest, ADoubleClickOnDeleteThatWaitedDeletesOneRow)
{
    Open();
    for (int i = 0; i < 3; ++i) {
        Page()->GetRow(i)->remove->show();
    }
    Tick(2);
    // While this is on its way no row goes, so the second press is on the same one.
    PressTwice(Page()->GetRow(0)->remove, [this] { return Page()->GetRow(0)->remove; });
    AnswerAll();
    EXPECT_EQ(m_gateway.stored, QStringLiteral("beta\t0\ngamma\t1"));
    EXPECT_EQ(m_gateway.writes, 2);
    EXPECT_TRUE(NoticeText().isEmpty()) << qPrintable(NoticeText());
}

TEST_F(HeldInputTest, ADoubleClickThatMeetsAnotherRowWithNothingOnItsWayDoesNothing)
{
    Open();
    PressTwice(Page()->GetRow(0)->label, [this] { return Page()->GetRow(1)->box; });
    EXPECT_EQ(m_gateway.GetWaiting(), 0);
    EXPECT_FALSE(Page()->GetRow(1)->box->isChecked());
}

TEST_F(HeldInputTest, ADoubleClickOnABoxTicksAndUnticksIt)
{
    Open();
    QWidget* const box = Page()->GetRow(0)->box;
    const QPoint place(8, 8);
    QTest::mouseClick(box, Qt::LeftButton, Qt::NoModifier, place);
    QTest::mouseDClick(box, Qt::LeftButton, Qt::NoModifier, place);
    QTest::mouseRelease(box, Qt::LeftButton, Qt::NoModifier, place);
    EXPECT_EQ(m_gateway.writes, 1);
    m_gateway.Answer();
    EXPECT_EQ(m_gateway.writes, 2);
    AnswerAll();
    EXPECT_EQ(m_gateway.stored, QStringLiteral("alpha\t0\nbeta\t0\ngamma\t0"));
}

} // namespace
