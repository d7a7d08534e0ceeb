#include "LoginDialog.h"

#include "LoginTexts.h"

#include <QtCore/QLocale>
#include <QtCore/QTranslator>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QToolButton>

#include <gtest/gtest.h>

/// The dialog on the screen, driven with keys and the mouse.
class LoginDialogTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        m_dialog.show();
        m_dialog.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&m_dialog));
    }

    template <class Widget>
    Widget* Find(const char* name)
    {
        auto* const widget = m_dialog.findChild<Widget*>(QLatin1String(name));
        EXPECT_NE(widget, nullptr) << name;
        return widget;
    }
    QLineEdit* Pin() { return Find<QLineEdit>("pin_edit"); }
    QLineEdit* Password() { return Find<QLineEdit>("password_edit"); }
    QPushButton* LogInButton() { return Find<QPushButton>("login_button"); }
    std::string Message()
    {
        auto* const label = Find<QLabel>("login_message");
        return label->isVisible() ? label->text().toStdString() : std::string();
    }
    void Type(const char* text) { QTest::keyClicks(QApplication::focusWidget(), QLatin1String(text)); }
    void Press(Qt::Key key) { QTest::keyClick(QApplication::focusWidget(), key); }

    LoginDialog m_dialog;
    QSignalSpy m_logIn{&m_dialog, &LoginDialog::SigLogIn};
    QSignalSpy m_cancel{&m_dialog, &LoginDialog::SigCancel};
    QSignalSpy m_rejected{&m_dialog, &LoginDialog::rejected};
};

TEST_F(LoginDialogTest, TypingBothAndEnterLogsIn)
{
    EXPECT_EQ(QApplication::focusWidget(), Pin());
    Type(" demo ");
    Press(Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), Password());
    Type(" pass word ");
    Press(Qt::Key_Return);
    ASSERT_EQ(m_logIn.count(), 1);
    EXPECT_EQ(m_logIn.at(0).at(0).toString(), QStringLiteral("demo"));
    EXPECT_EQ(m_logIn.at(0).at(1).toString(), QStringLiteral(" pass word "));
    EXPECT_FALSE(m_logIn.at(0).at(2).toBool());
}

TEST_F(LoginDialogTest, ClickOnTheButtonLogsInAndAsksToStaySignedIn)
{
    m_dialog.SetStaySignedInAvailable(true, QString());
    Type("demo");
    Password()->setFocus();
    Type("secret");
    QTest::mouseClick(Find<QCheckBox>("stay_box"), Qt::LeftButton, Qt::NoModifier, QPoint(10, 17));
    QTest::mouseClick(LogInButton(), Qt::LeftButton);
    ASSERT_EQ(m_logIn.count(), 1);
    EXPECT_TRUE(m_logIn.at(0).at(2).toBool());
}

TEST_F(LoginDialogTest, EmptyPinIsReportedAndGetsTheFocus)
{
    Type("   ");
    Password()->setFocus();
    Type("secret");
    Press(Qt::Key_Return);
    EXPECT_EQ(m_logIn.count(), 0);
    EXPECT_EQ(Message(), "Please enter your account.");
    EXPECT_EQ(QApplication::focusWidget(), Pin());
}

TEST_F(LoginDialogTest, EmptyPasswordIsReportedAndGetsTheFocus)
{
    Type("demo");
    Press(Qt::Key_Return);
    EXPECT_EQ(m_logIn.count(), 0);
    EXPECT_EQ(Message(), "Please enter your password.");
    EXPECT_EQ(QApplication::focusWidget(), Password());
}

TEST_F(LoginDialogTest, RememberedPinLeavesOnlyThePasswordToType)
{
    m_dialog.SetPin(QStringLiteral("demo"));
    EXPECT_EQ(QApplication::focusWidget(), Password());
    Type("secret");
    Press(Qt::Key_Enter);
    ASSERT_EQ(m_logIn.count(), 1);
    EXPECT_EQ(m_logIn.at(0).at(0).toString(), QStringLiteral("demo"));
}

TEST_F(LoginDialogTest, TypingClearsTheMessage)
{
    m_dialog.SetPin(QStringLiteral("demo"));
    m_dialog.ShowProblem({LoginProblem::Kind::WrongPassword, QString(), QDateTime()});
    EXPECT_EQ(Message(), "The account or password is incorrect.");
    Type("x");
    EXPECT_EQ(Message(), "");
}

TEST_F(LoginDialogTest, WrongPasswordIsSelectedToBeTypedOver)
{
    m_dialog.SetPin(QStringLiteral("demo"));
    Type("wrong");
    m_dialog.ShowProblem({LoginProblem::Kind::WrongPassword, QString(), QDateTime()});
    Type("right");
    EXPECT_EQ(Password()->text(), QStringLiteral("right"));
}

TEST_F(LoginDialogTest, PasswordCanBeShownAndHidesAtTheLogIn)
{
    auto* const show = Find<QToolButton>("show_password_button");
    m_dialog.SetPin(QStringLiteral("demo"));
    Type("secret");
    EXPECT_EQ(Password()->echoMode(), QLineEdit::Password);
    QTest::mouseClick(show, Qt::LeftButton);
    EXPECT_EQ(Password()->echoMode(), QLineEdit::Normal);
    EXPECT_EQ(show->text(), QStringLiteral("Hide"));
    Password()->setFocus();
    Press(Qt::Key_Return);
    EXPECT_EQ(Password()->echoMode(), QLineEdit::Password);
    EXPECT_EQ(show->text(), QStringLiteral("Show"));
}

TEST_F(LoginDialogTest, WhileBusyNothingCanBeChanged)
{
    m_dialog.SetPin(QStringLiteral("demo"));
    Type("secret");
    m_dialog.SetBusy(true);
    EXPECT_FALSE(Pin()->isEnabled());
    EXPECT_FALSE(Password()->isEnabled());
    EXPECT_FALSE(LogInButton()->isEnabled());
    EXPECT_TRUE(Find<QPushButton>("cancel_button")->isVisible());
}

TEST_F(LoginDialogTest, EscapeAndTheButtonCancelARunningLogIn)
{
    m_dialog.SetBusy(true);
    Press(Qt::Key_Escape);
    EXPECT_EQ(m_cancel.count(), 1);
    EXPECT_EQ(m_rejected.count(), 0);
    EXPECT_TRUE(m_dialog.isVisible());
    QTest::mouseClick(Find<QPushButton>("cancel_button"), Qt::LeftButton);
    EXPECT_EQ(m_cancel.count(), 2);
}

TEST_F(LoginDialogTest, ClosingItWhileBusyCancelsTheLogInFirst)
{
    m_dialog.SetBusy(true);
    m_dialog.close();
    EXPECT_EQ(m_cancel.count(), 1);
    EXPECT_EQ(m_rejected.count(), 0);
    m_dialog.SetBusy(false);
    m_dialog.close();
    EXPECT_EQ(m_rejected.count(), 1);
}

TEST_F(LoginDialogTest, EscapeGivesUpWhenNothingRuns)
{
    Press(Qt::Key_Escape);
    EXPECT_EQ(m_rejected.count(), 1);
    EXPECT_FALSE(m_dialog.isVisible());
}

TEST_F(LoginDialogTest, AfterACancelledLogInTheFieldsAreAsTheyWere)
{
    m_dialog.SetPin(QStringLiteral("demo"));
    Type("secret");
    m_dialog.SetBusy(true);
    m_dialog.SetBusy(false);
    EXPECT_EQ(Password()->text(), QStringLiteral("secret"));
    EXPECT_EQ(QApplication::focusWidget(), Password());
    EXPECT_FALSE(Find<QPushButton>("cancel_button")->isVisible());
}

TEST_F(LoginDialogTest, WithoutAKeyStoreTheBoxIsOffAndSaysWhy)
{
    auto* const box = Find<QCheckBox>("stay_box");
    m_dialog.SetStaySignedInAvailable(true, QString());
    box->setChecked(true);
    m_dialog.SetStaySignedInAvailable(false, QStringLiteral("There is no key store."));
    EXPECT_FALSE(box->isEnabled());
    EXPECT_FALSE(box->isChecked());
    EXPECT_EQ(box->toolTip(), QStringLiteral("<p>There is no key store.</p>"));
}

TEST_F(LoginDialogTest, WithoutAKeyStoreTheBoxStaysOffAfterALogIn)
{
    m_dialog.SetStaySignedInAvailable(false, QStringLiteral("There is no key store."));
    m_dialog.SetBusy(true);
    m_dialog.SetBusy(false);
    EXPECT_FALSE(Find<QCheckBox>("stay_box")->isEnabled());
}

TEST_F(LoginDialogTest, KeyStoreThatAnswersLateSwitchesTheBoxOn)
{
    auto* const box = Find<QCheckBox>("stay_box");
    m_dialog.SetStaySignedInAvailable(false, QStringLiteral("There is no key store."));
    m_dialog.SetStaySignedInAvailable(true, QString());
    EXPECT_TRUE(box->isEnabled());
    EXPECT_TRUE(box->toolTip().isEmpty());
}

TEST_F(LoginDialogTest, LettersInTheWrongCaseHintAtCapsLock)
{
    auto* const hint = Find<QLabel>("caps_label");
    Password()->setFocus();
    EXPECT_FALSE(hint->isVisible());
    QTest::sendKeyEvent(QTest::Click, Password(), Qt::Key_A, QStringLiteral("A"), Qt::NoModifier);
    EXPECT_TRUE(hint->isVisible());
    QTest::sendKeyEvent(QTest::Click, Password(), Qt::Key_1, QStringLiteral("1"), Qt::NoModifier);
    EXPECT_TRUE(hint->isVisible());
    QTest::sendKeyEvent(QTest::Click, Password(), Qt::Key_A, QStringLiteral("A"), Qt::ShiftModifier);
    EXPECT_FALSE(hint->isVisible());
}

TEST_F(LoginDialogTest, MessageFollowsTheLanguage)
{
    class Translator final : public QTranslator
    {
    public:
        QString translate(const char*, const char* text, const char*, int) const override
        {
            return QStringLiteral("<") + QLatin1String(text) + QStringLiteral(">");
        }
        bool isEmpty() const override { return false; }
    } translator;
    m_dialog.ShowProblem({LoginProblem::Kind::WrongPassword, QString(), QDateTime()});
    ASSERT_TRUE(QCoreApplication::installTranslator(&translator));
    QCoreApplication::sendPostedEvents();
    EXPECT_EQ(Message(), "<The account or password is incorrect.>");
    EXPECT_EQ(LogInButton()->text(), QStringLiteral("<Log in>"));
    QCoreApplication::removeTranslator(&translator);
    QCoreApplication::sendPostedEvents();
    EXPECT_EQ(Message(), "The account or password is incorrect.");
}

TEST(LoginTextsTest, EveryProblemHasASentenceOfItsOwn)
{
    QStringList seen;
    for (int kind = static_cast<int>(LoginProblem::Kind::EmptyPin);
         kind <= static_cast<int>(LoginProblem::Kind::SessionRefused); ++kind) {
        const QString text =
            LoginTexts::Describe({static_cast<LoginProblem::Kind>(kind), QString(), QDateTime()});
        EXPECT_FALSE(text.isEmpty()) << kind;
        EXPECT_FALSE(seen.contains(text)) << text.toStdString();
        seen.append(text);
    }
    EXPECT_TRUE(LoginTexts::Describe(LoginProblem()).isEmpty());
}

TEST(LoginTextsTest, TimesAreGivenInTheUsersTimeZone)
{
    const QDateTime when(QDate(2026, 11, 21), QTime(8, 15), Qt::UTC);
    const QString expected = QLocale().toString(when.toLocalTime().time(), QLocale::ShortFormat);
    EXPECT_TRUE(
        LoginTexts::Describe({LoginProblem::Kind::TooManyAttempts, QString(), when}).contains(expected));
    EXPECT_TRUE(LoginTexts::Describe({LoginProblem::Kind::ClockOff, QString(), when})
                    .contains(QLocale().toString(when.toLocalTime(), QLocale::ShortFormat)));
}
