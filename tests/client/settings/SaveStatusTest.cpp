#include "SettingsDialogTest.h"

#include "WaitUntil.h"

#include "base/DpiTool.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QTimer>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QGraphicsOpacityEffect>
#include <QtWidgets/QPushButton>

namespace {

using SaveStatusTest = SettingsDialogTest;

TEST_F(SaveStatusTest, AQuickSaveSaysSavedAndFadesWithoutEverSayingSaving)
{
    Open();
    Tick(0);
    EXPECT_EQ(SaveLine()->text(), QString());
    gateway.Answer();
    EXPECT_EQ(SaveLine()->text(), QStringLiteral("Saved"));
    ASSERT_TRUE(WaitUntil([this] { return SaveLine()->text().isEmpty(); }));
    EXPECT_FALSE(Notice()->isVisible());
}

TEST_F(SaveStatusTest, ASlowSaveSaysSavingAfter300Milliseconds)
{
    Open();
    QElapsedTimer clock;
    clock.start();
    Tick(0);
    ASSERT_TRUE(WaitUntil([this] { return !SaveLine()->text().isEmpty(); }));
    EXPECT_GE(clock.elapsed(), 290);
    EXPECT_EQ(SaveLine()->text(), QStringLiteral("Saving…"));
    gateway.Answer();
    EXPECT_EQ(SaveLine()->text(), QStringLiteral("Saved"));
}

TEST_F(SaveStatusTest, SavingStaysUntilTheLastOfAQuickSeriesIsSaved)
{
    Open();
    Tick(0);
    Tick(1);
    ASSERT_TRUE(WaitUntil([this] { return SaveLine()->text() == QStringLiteral("Saving…"); }));
    gateway.Answer();
    EXPECT_EQ(SaveLine()->text(), QStringLiteral("Saving…"));
    gateway.Answer();
    EXPECT_EQ(SaveLine()->text(), QStringLiteral("Saved"));
}

TEST_F(SaveStatusTest, AFailureSaysWhyAndStaysUntilTheNextChangeTakesItAlong)
{
    Open();
    gateway.failures = 1;
    Tick(0);
    gateway.Answer();
    EXPECT_EQ(NoticeText(),
              QStringLiteral("Not saved. The gateway cannot be reached. The change stays on this "
                             "page and goes out with your next one."));
    EXPECT_TRUE(Page()->GetRow(0)->box->isChecked());
    EXPECT_EQ(SaveLine()->text(), QString());
    Tick(1);
    gateway.Answer();
    EXPECT_TRUE(NoticeText().isEmpty());
    EXPECT_EQ(SaveLine()->text(), QStringLiteral("Saved"));
    EXPECT_EQ(gateway.stored, QStringLiteral("alpha\t1\nbeta\t1\ngamma\t0"));
}

TEST_F(SaveStatusTest, TheReasonIsThatOfTheGateway)
{
    Open();
    gateway.failures = 3;
    gateway.failureCode = QStringLiteral("5002");
    Tick(0);
    gateway.Answer();
    EXPECT_TRUE(NoticeText().contains(QStringLiteral("could not store it"))) << qPrintable(NoticeText());
    gateway.failureCode = QStringLiteral("1010");
    Tick(0);
    gateway.Answer();
    EXPECT_TRUE(NoticeText().contains(QStringLiteral("refused it: said no"))) << qPrintable(NoticeText());
    EXPECT_TRUE(NoticeText().contains(QStringLiteral("until you change or delete that entry")));
    EXPECT_FALSE(NoticeText().contains(QStringLiteral("goes out with your next one")));
    gateway.failureCode = QStringLiteral("2003");
    Tick(0);
    gateway.Answer();
    EXPECT_TRUE(NoticeText().contains(QStringLiteral("session"))) << qPrintable(NoticeText());
    EXPECT_TRUE(NoticeText().contains(QStringLiteral("goes out with your next one")));
    gateway.failures = 1;
    gateway.failureCode = QStringLiteral("1006"); // the clocks differ, which is not the entry's fault
    Tick(0);
    gateway.Answer();
    EXPECT_TRUE(NoticeText().contains(QStringLiteral("goes out with your next one")));
}

TEST_F(SaveStatusTest, AFailureHalfwayThroughAQuickSeriesIsMadeUpForByTheRest)
{
    Open();
    Tick(0);
    Tick(1);
    Tick(2);
    gateway.Answer();
    gateway.failures = 1;
    gateway.Answer();
    ASSERT_EQ(gateway.GetWaiting(), 1);
    gateway.Answer();
    EXPECT_EQ(gateway.stored, QStringLiteral("alpha\t1\nbeta\t1\ngamma\t1"));
    EXPECT_TRUE(NoticeText().isEmpty());
}

TEST_F(SaveStatusTest, LoadAgainDropsTheChangeAndShowsWhatIsStored)
{
    Open();
    gateway.failures = 1;
    Tick(0);
    gateway.Answer();
    auto* const again = Area()->findChild<QPushButton*>(QStringLiteral("settings_load_again"));
    ASSERT_TRUE(again->isVisible());
    QTest::mouseClick(again, Qt::LeftButton);
    ASSERT_TRUE(WaitUntil([this] { return factory.made == 2 && gateway.GetWaiting() == 1; }));
    gateway.Answer();
    EXPECT_FALSE(Page()->GetRow(0)->box->isChecked());
    EXPECT_TRUE(NoticeText().isEmpty());
    EXPECT_EQ(gateway.writes, 1);
}

TEST_F(SaveStatusTest, AScreenThatChangesTheScaleOverAnUnsavedChangeIsToldOf)
{
    Open();
    gateway.failures = 1;
    Tick(0);
    gateway.Answer();
    DpiTool::SetScale(1.5);
    ASSERT_TRUE(WaitUntil([this] { return factory.made == 2 && gateway.GetWaiting() == 1; }));
    gateway.Answer();
    EXPECT_TRUE(NoticeText().contains(QStringLiteral("loaded again"))) << qPrintable(NoticeText());
    EXPECT_TRUE(WaitUntil([this] { return Page()->GetRowCount() == 3; }));
}

TEST_F(SaveStatusTest, AChosenScaleAsksBeforeItDropsAnUnsavedChange)
{
    Open();
    gateway.failures = 1;
    Tick(0);
    gateway.Answer();
    Choose(QStringLiteral("Appearance"));
    auto* const scale = dialog->findChild<QComboBox*>(QStringLiteral("scale_combo"));
    scale->setFocus(Qt::TabFocusReason);
    AnswerQuestion(QStringLiteral("Cancel"));
    Press(Qt::Key_Down);
    EXPECT_EQ(questions, 1);
    EXPECT_TRUE(choices.isEmpty());
    EXPECT_EQ(scale->currentText(), QStringLiteral("100 %"));
    dialog->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(dialog.get()));
    scale->setFocus(Qt::TabFocusReason);
    AnswerQuestion(QStringLiteral("Continue"));
    Press(Qt::Key_Down);
    EXPECT_EQ(questions, 2);
    EXPECT_EQ(choices, QStringList(QStringLiteral("scale 125")));
}

TEST_F(SaveStatusTest, TheEndOfTheClientAsksNothing)
{
    Open();
    gateway.failures = 1;
    Tick(0);
    gateway.Answer();
    dialog->CloseAtEnd();
    EXPECT_FALSE(dialog->isVisible());
}

TEST_F(SaveStatusTest, TheEndOfTheClientWaitsForTheAnswer)
{
    Open();
    Tick(0);
    dialog->CloseAtEnd();
    EXPECT_TRUE(dialog->isVisible());
    gateway.failures = 1;
    gateway.Answer();
    EXPECT_TRUE(WaitUntil([this] { return !dialog->isVisible(); }));
}

TEST_F(SaveStatusTest, TheDialogMayGoWhileItsQuestionIsOpen)
{
    Open();
    gateway.failures = 1;
    Tick(0);
    gateway.Answer();
    QTimer::singleShot(0, &gateway, [this] {
        ASSERT_NE(QApplication::activeModalWidget(), nullptr);
        dialog.reset();
    });
    dialog->reject();
    EXPECT_EQ(dialog, nullptr);
}

TEST_F(SaveStatusTest, ClosingAsksBeforeItDropsAnUnsavedChange)
{
    Open();
    gateway.failures = 1;
    Tick(0);
    gateway.Answer();
    AnswerQuestion(QStringLiteral("Keep open"));
    Press(Qt::Key_Escape);
    EXPECT_TRUE(dialog->isVisible());
    AnswerQuestion(QStringLiteral("Close anyway"));
    Press(Qt::Key_Escape);
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_EQ(questions, 2);
}

TEST_F(SaveStatusTest, AChosenScaleThatWaitsForAWriteThatFailsAsksBeforeItDropsTheChange)
{
    Open();
    Tick(0);
    Choose(QStringLiteral("Appearance"));
    auto* const scale = dialog->findChild<QComboBox*>(QStringLiteral("scale_combo"));
    scale->setFocus(Qt::TabFocusReason);
    Press(Qt::Key_Down);
    AnswerQuestion(QStringLiteral("Cancel"));
    gateway.failures = 1;
    gateway.Answer();
    ASSERT_TRUE(WaitUntil([this] { return questions == 1; }));
    ASSERT_TRUE(WaitUntil([scale] { return scale->currentText() == QStringLiteral("100 %"); }));
    EXPECT_TRUE(choices.isEmpty());
    EXPECT_TRUE(Page()->GetRow(0)->box->isChecked());
    EXPECT_EQ(factory.made, 1);
    Choose(QStringLiteral("Opening at start"));
    EXPECT_TRUE(NoticeText().startsWith(QStringLiteral("Not saved.")));
}

TEST_F(SaveStatusTest, AChosenScaleThatWaitsForAWriteThatFailsIsAppliedWhenTheUserSaysSo)
{
    Open();
    Tick(0);
    Choose(QStringLiteral("Appearance"));
    dialog->findChild<QComboBox*>(QStringLiteral("scale_combo"))->setFocus(Qt::TabFocusReason);
    Press(Qt::Key_Down);
    AnswerQuestion(QStringLiteral("Continue"));
    gateway.failures = 1;
    gateway.Answer();
    ASSERT_TRUE(WaitUntil([this] { return !choices.isEmpty(); }));
    EXPECT_EQ(questions, 1);
    EXPECT_EQ(choices, QStringList(QStringLiteral("scale 125")));
}

TEST_F(SaveStatusTest, AScaleAndALanguageThatWaitAreBothApplied)
{
    Open();
    Tick(0);
    Choose(QStringLiteral("Appearance"));
    dialog->findChild<QComboBox*>(QStringLiteral("scale_combo"))->setFocus(Qt::TabFocusReason);
    Press(Qt::Key_Down);
    Choose(QStringLiteral("Language"));
    dialog->findChild<QComboBox*>(QStringLiteral("language_combo"))->setFocus(Qt::TabFocusReason);
    Press(Qt::Key_Down);
    EXPECT_TRUE(choices.isEmpty());
    gateway.Answer();
    ASSERT_TRUE(WaitUntil([this] { return choices.size() == 2; })) << qPrintable(choices.join(u' '));
}

TEST_F(SaveStatusTest, TheDialogMayGoWhileItAsksAboutAChoice)
{
    Open();
    Tick(0);
    Choose(QStringLiteral("Appearance"));
    dialog->findChild<QComboBox*>(QStringLiteral("scale_combo"))->setFocus(Qt::TabFocusReason);
    Press(Qt::Key_Down);
    gateway.failures = 1;
    gateway.Answer();
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &gateway, [this] {
        if (QApplication::activeModalWidget() != nullptr) {
            dialog.reset();
        }
    });
    timer.start(10);
    EXPECT_TRUE(WaitUntil([this] { return dialog == nullptr; }));
    EXPECT_TRUE(choices.isEmpty());
}

TEST_F(SaveStatusTest, ClosingOverAWriteThatFailsAsksOnceAndAppliesTheChoiceThatWaits)
{
    Open();
    Tick(0);
    Choose(QStringLiteral("Appearance"));
    dialog->findChild<QComboBox*>(QStringLiteral("scale_combo"))->setFocus(Qt::TabFocusReason);
    Press(Qt::Key_Down);
    dialog->close();
    AnswerQuestion(QStringLiteral("Close anyway"));
    gateway.failures = 1;
    gateway.Answer();
    ASSERT_TRUE(WaitUntil([this] { return !dialog->isVisible(); }));
    EXPECT_EQ(questions, 1);
    EXPECT_EQ(choices, QStringList(QStringLiteral("scale 125")));
}

TEST_F(SaveStatusTest, TheEndOfTheClientAsksNothingForAChoiceThatWaits)
{
    Open();
    Tick(0);
    Choose(QStringLiteral("Appearance"));
    dialog->findChild<QComboBox*>(QStringLiteral("scale_combo"))->setFocus(Qt::TabFocusReason);
    Press(Qt::Key_Down);
    dialog->CloseAtEnd();
    gateway.failures = 1;
    AnswerQuestion(QStringLiteral("Cancel"));
    gateway.Answer();
    ASSERT_TRUE(WaitUntil([this] { return !dialog->isVisible(); }));
    EXPECT_EQ(questions, 0);
    EXPECT_EQ(choices, QStringList(QStringLiteral("scale 125")));
}

TEST_F(SaveStatusTest, SavedShowsAlsoWhenWhatWaitedWasNoChange)
{
    Open();
    Tick(0);
    Press(Qt::Key_Tab);
    gateway.Answer();
    EXPECT_EQ(gateway.GetWaiting(), 0);
    EXPECT_EQ(SaveLine()->text(), QStringLiteral("Saved"));
}

TEST_F(SaveStatusTest, SavedDoesNotShowWhenWhatWaitedCouldNotBeSaved)
{
    Open();
    Tick(0);
    Tick(1);
    Press(Qt::Key_Tab);
    gateway.Answer();
    gateway.failures = 1;
    gateway.Answer();
    EXPECT_EQ(gateway.GetWaiting(), 0);
    EXPECT_EQ(SaveLine()->text(), QString());
    EXPECT_TRUE(NoticeText().startsWith(QStringLiteral("Not saved.")));
}

} // namespace
