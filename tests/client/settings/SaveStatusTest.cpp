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

class SaveStatusTest : public SettingsDialogTest
{
protected:
    /// Makes a change that the gateway refuses with this code.
    void FailWith(const QString& code)
    {
        m_gateway.failures = 1;
        m_gateway.failureCode = code;
        Tick(0);
        m_gateway.Answer();
    }
};

TEST_F(SaveStatusTest, AQuickSaveSaysSavedAndFadesWithoutEverSayingSaving)
{
    Open();
    Tick(0);
    EXPECT_EQ(SaveLine()->text(), QString());
    m_gateway.Answer();
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
    m_gateway.Answer();
    EXPECT_EQ(SaveLine()->text(), QStringLiteral("Saved"));
}

TEST_F(SaveStatusTest, SavingStaysUntilTheLastOfAQuickSeriesIsSaved)
{
    Open();
    Tick(0);
    Tick(1);
    ASSERT_TRUE(WaitUntil([this] { return SaveLine()->text() == QStringLiteral("Saving…"); }));
    m_gateway.Answer();
    EXPECT_EQ(SaveLine()->text(), QStringLiteral("Saving…"));
    m_gateway.Answer();
    EXPECT_EQ(SaveLine()->text(), QStringLiteral("Saved"));
}

TEST_F(SaveStatusTest, AFailureSaysWhyAndStaysUntilTheNextChangeTakesItAlong)
{
    Open();
    m_gateway.failures = 1;
    Tick(0);
    m_gateway.Answer();
    EXPECT_EQ(NoticeText(),
              QStringLiteral("Not saved. The gateway cannot be reached. The change stays on this "
                             "page and goes out with your next one."));
    EXPECT_TRUE(Page()->GetRow(0)->box->isChecked());
    EXPECT_EQ(SaveLine()->text(), QString());
    Tick(1);
    m_gateway.Answer();
    EXPECT_TRUE(NoticeText().isEmpty());
    EXPECT_EQ(SaveLine()->text(), QStringLiteral("Saved"));
    EXPECT_EQ(m_gateway.stored, QStringLiteral("alpha\t1\nbeta\t1\ngamma\t0"));
}

TEST_F(SaveStatusTest, AGatewayThatCannotStoreAChangeIsTheReason)
{
    Open();
    FailWith(QStringLiteral("5002"));
    EXPECT_TRUE(NoticeText().contains(QStringLiteral("could not store it"))) << qPrintable(NoticeText());
}

TEST_F(SaveStatusTest, ARefusedEntryKeepsThePageFromBeingSavedUntilItIsChanged)
{
    Open();
    FailWith(QStringLiteral("1010"));
    EXPECT_TRUE(NoticeText().contains(QStringLiteral("refused it: said no"))) << qPrintable(NoticeText());
    EXPECT_TRUE(NoticeText().contains(QStringLiteral("until you change or delete that entry")));
    EXPECT_FALSE(NoticeText().contains(QStringLiteral("goes out with your next one")));
}

TEST_F(SaveStatusTest, AFailureThatIsNotTheEntrysFaultLetsTheChangeGoOutWithTheNextOne)
{
    Open();
    // The session is over; the clocks differ.
    for (const QString& code : {QStringLiteral("2003"), QStringLiteral("1006")}) {
        FailWith(code);
        EXPECT_TRUE(NoticeText().contains(QStringLiteral("goes out with your next one"))) << qPrintable(code);
    }
}

TEST_F(SaveStatusTest, ASessionThatIsOverIsTheReason)
{
    Open();
    FailWith(QStringLiteral("2003"));
    EXPECT_TRUE(NoticeText().contains(QStringLiteral("session"))) << qPrintable(NoticeText());
}

TEST_F(SaveStatusTest, AFailureHalfwayThroughAQuickSeriesIsMadeUpForByTheRest)
{
    Open();
    Tick(0);
    Tick(1);
    Tick(2);
    m_gateway.Answer();
    m_gateway.failures = 1;
    m_gateway.Answer();
    ASSERT_EQ(m_gateway.GetWaiting(), 1);
    m_gateway.Answer();
    EXPECT_EQ(m_gateway.stored, QStringLiteral("alpha\t1\nbeta\t1\ngamma\t1"));
    EXPECT_TRUE(NoticeText().isEmpty());
}

TEST_F(SaveStatusTest, LoadAgainDropsTheChangeAndShowsWhatIsStored)
{
    Open();
    m_gateway.failures = 1;
    Tick(0);
    m_gateway.Answer();
    auto* const again = Area()->findChild<QPushButton*>(QStringLiteral("settings_load_again"));
    ASSERT_TRUE(again->isVisible());
    QTest::mouseClick(again, Qt::LeftButton);
    ASSERT_TRUE(WaitUntil([this] { return m_factory.made == 2 && m_gateway.GetWaiting() == 1; }));
    m_gateway.Answer();
    EXPECT_FALSE(Page()->GetRow(0)->box->isChecked());
    EXPECT_TRUE(NoticeText().isEmpty());
    EXPECT_EQ(m_gateway.writes, 1);
}

TEST_F(SaveStatusTest, AScreenThatChangesTheScaleOverAnUnsavedChangeIsToldOf)
{
    Open();
    m_gateway.failures = 1;
    Tick(0);
    m_gateway.Answer();
    DpiTool::SetScale(1.5);
    ASSERT_TRUE(WaitUntil([this] { return m_factory.made == 2 && m_gateway.GetWaiting() == 1; }));
    m_gateway.Answer();
    EXPECT_TRUE(NoticeText().contains(QStringLiteral("loaded again"))) << qPrintable(NoticeText());
    EXPECT_TRUE(WaitUntil([this] { return Page()->GetRowCount() == 3; }));
}

TEST_F(SaveStatusTest, AChosenScaleAsksBeforeItDropsAnUnsavedChange)
{
    Open();
    m_gateway.failures = 1;
    Tick(0);
    m_gateway.Answer();
    Choose(QStringLiteral("Appearance"));
    auto* const scale = m_dialog->findChild<QComboBox*>(QStringLiteral("scale_combo"));
    scale->setFocus(Qt::TabFocusReason);
    AnswerQuestion(QStringLiteral("Cancel"));
    Press(Qt::Key_Down);
    EXPECT_EQ(m_questions, 1);
    EXPECT_TRUE(m_choices.isEmpty());
    EXPECT_EQ(scale->currentText(), QStringLiteral("100 %"));
    m_dialog->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(m_dialog.get()));
    scale->setFocus(Qt::TabFocusReason);
    AnswerQuestion(QStringLiteral("Continue"));
    Press(Qt::Key_Down);
    EXPECT_EQ(m_questions, 2);
    EXPECT_EQ(m_choices, QStringList(QStringLiteral("scale 125")));
}

TEST_F(SaveStatusTest, TheEndOfTheClientAsksNothing)
{
    Open();
    m_gateway.failures = 1;
    Tick(0);
    m_gateway.Answer();
    m_dialog->CloseAtEnd();
    EXPECT_FALSE(m_dialog->isVisible());
}

TEST_F(SaveStatusTest, TheEndOfTheClientWaitsForTheAnswer)
{
    Open();
    Tick(0);
    m_dialog->CloseAtEnd();
    EXPECT_TRUE(m_dialog->isVisible());
    m_gateway.failures = 1;
    m_gateway.Answer();
    EXPECT_TRUE(WaitUntil([this] { return !m_dialog->isVisible(); }));
}

TEST_F(SaveStatusTest, TheDialogMayGoWhileItsQuestionIsOpen)
{
    Open();
    m_gateway.failures = 1;
    Tick(0);
    m_gateway.Answer();
    QTimer::singleShot(0, &m_gateway, [this] {
        ASSERT_NE(QApplication::activeModalWidget(), nullptr);
        m_dialog.reset();
    });
    m_dialog->reject();
    EXPECT_EQ(m_dialog, nullptr);
}

TEST_F(SaveStatusTest, ClosingAsksBeforeItDropsAnUnsavedChange)
{
    Open();
    m_gateway.failures = 1;
    Tick(0);
    m_gateway.Answer();
    AnswerQuestion(QStringLiteral("Keep open"));
    Press(Qt::Key_Escape);
    EXPECT_TRUE(m_dialog->isVisible());
    AnswerQuestion(QStringLiteral("Close anyway"));
    Press(Qt::Key_Escape);
    EXPECT_FALSE(m_dialog->isVisible());
    EXPECT_EQ(m_questions, 2);
}

TEST_F(SaveStatusTest, AChosenScaleThatWaitsForAWriteThatFailsAsksBeforeItDropsTheChange)
{
    Open();
    Tick(0);
    Choose(QStringLiteral("Appearance"));
    auto* const scale = m_dialog->findChild<QComboBox*>(QStringLiteral("scale_combo"));
    scale->setFocus(Qt::TabFocusReason);
    Press(Qt::Key_Down);
    AnswerQuestion(QStringLiteral("Cancel"));
    m_gateway.failures = 1;
    m_gateway.Answer();
    ASSERT_TRUE(WaitUntil([this] { return m_questions == 1; }));
    ASSERT_TRUE(WaitUntil([scale] { return scale->currentText() == QStringLiteral("100 %"); }));
    EXPECT_TRUE(m_choices.isEmpty());
    EXPECT_TRUE(Page()->GetRow(0)->box->isChecked());
    EXPECT_EQ(m_factory.made, 1);
    Choose(QStringLiteral("Opening at start"));
    EXPECT_TRUE(NoticeText().startsWith(QStringLiteral("Not saved.")));
}

TEST_F(SaveStatusTest, AChosenScaleThatWaitsForAWriteThatFailsIsAppliedWhenTheUserSaysSo)
{
    Open();
    Tick(0);
    Choose(QStringLiteral("Appearance"));
    m_dialog->findChild<QComboBox*>(QStringLiteral("scale_combo"))->setFocus(Qt::TabFocusReason);
    Press(Qt::Key_Down);
    AnswerQuestion(QStringLiteral("Continue"));
    m_gateway.failures = 1;
    m_gateway.Answer();
    ASSERT_TRUE(WaitUntil([this] { return !m_choices.isEmpty(); }));
    EXPECT_EQ(m_questions, 1);
    EXPECT_EQ(m_choices, QStringList(QStringLiteral("scale 125")));
}

TEST_F(SaveStatusTest, AScaleAndALanguageThatWaitAreBothApplied)
{
    Open();
    Tick(0);
    Choose(QStringLiteral("Appearance"));
    m_dialog->findChild<QComboBox*>(QStringLiteral("scale_combo"))->setFocus(Qt::TabFocusReason);
    Press(Qt::Key_Down);
    Choose(QStringLiteral("Language"));
    m_dialog->findChild<QComboBox*>(QStringLiteral("language_combo"))->setFocus(Qt::TabFocusReason);
    Press(Qt::Key_Down);
    EXPECT_TRUE(m_choices.isEmpty());
    m_gateway.Answer();
    ASSERT_TRUE(WaitUntil([this] { return m_choices.size() == 2; })) << qPrintable(m_choices.join(u' '));
}

TEST_F(SaveStatusTest, TheDialogMayGoWhileItAsksAboutAChoice)
{
    Open();
    Tick(0);
    Choose(QStringLiteral("Appearance"));
    m_dialog->findChild<QComboBox*>(QStringLiteral("scale_combo"))->setFocus(Qt::TabFocusReason);
    Press(Qt::Key_Down);
    m_gateway.failures = 1;
    m_gateway.Answer();
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &m_gateway, [this] {
        if (QApplication::activeModalWidget() != nullptr) {
            m_dialog.reset();
        }
    });
    timer.start(10);
    EXPECT_TRUE(WaitUntil([this] { return m_dialog == nullptr; }));
    EXPECT_TRUE(m_choices.isEmpty());
}

TEST_F(SaveStatusTest, ClosingOverAWriteThatFailsAsksOnceAndAppliesTheChoiceThatWaits)
{
    Open();
    Tick(0);
    Choose(QStringLiteral("Appearance"));
    m_dialog->findChild<QComboBox*>(QStringLiteral("scale_combo"))->setFocus(Qt::TabFocusReason);
    Press(Qt::Key_Down);
    m_dialog->close();
    AnswerQuestion(QStringLiteral("Close anyway"));
    m_gateway.failures = 1;
    m_gateway.Answer();
    ASSERT_TRUE(WaitUntil([this] { return !m_dialog->isVisible(); }));
    EXPECT_EQ(m_questions, 1);
    EXPECT_EQ(m_choices, QStringList(QStringLiteral("scale 125")));
}

TEST_F(SaveStatusTest, TheEndOfTheClientAsksNothingForAChoiceThatWaits)
{
    Open();
    Tick(0);
    Choose(QStringLiteral("Appearance"));
    m_dialog->findChild<QComboBox*>(QStringLiteral("scale_combo"))->setFocus(Qt::TabFocusReason);
    Press(Qt::Key_Down);
    m_dialog->CloseAtEnd();
    m_gateway.failures = 1;
    AnswerQuestion(QStringLiteral("Cancel"));
    m_gateway.Answer();
    ASSERT_TRUE(WaitUntil([this] { return !m_dialog->isVisible(); }));
    EXPECT_EQ(m_questions, 0);
    EXPECT_EQ(m_choices, QStringList(QStringLiteral("scale 125")));
}

TEST_F(SaveStatusTest, SavedShowsAlsoWhenWhatWaitedWasNoChange)
{
    Open();
    Tick(0);
    Press(Qt::Key_Tab);
    m_gateway.Answer();
    EXPECT_EQ(m_gateway.GetWaiting(), 0);
    EXPECT_EQ(SaveLine()->text(), QStringLiteral("Saved"));
}

TEST_F(SaveStatusTest, SavedDoesNotShowWhenWhatWaitedCouldNotBeSaved)
{
    Open();
    Tick(0);
    Tick(1);
    Press(Qt::Key_Tab);
    m_gateway.Answer();
    m_gateway.failures = 1;
    m_gateway.Answer();
    EXPECT_EQ(m_gateway.GetWaiting(), 0);
    EXPECT_EQ(SaveLine()->text(), QString());
    EXPECT_TRUE(NoticeText().startsWith(QStringLiteral("Not saved.")));
}

} // namespace
