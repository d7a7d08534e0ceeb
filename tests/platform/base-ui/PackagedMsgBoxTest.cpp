#include "base-ui/PackagedMsgBox.h"
#include "base-ui/TLPushButton.h"

#include <QtCore/QPointer>
#include <QtCore/QTimer>
#include <QtCore/QTranslator>
#include <QtGui/QAccessible>
#include <QtGui/QClipboard>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QDialog>
#include <QtWidgets/QLabel>

#include <functional>
#include <gtest/gtest.h>
#include <memory>

namespace {

constexpr QMessageBox::StandardButtons YesOrNo = QMessageBox::Yes | QMessageBox::No;
const QString Question = QStringLiteral("recover the tabs?");

/// Asks, and runs `act` as soon as the dialog has the user's attention.
QMessageBox::StandardButton Ask(const std::function<void(QDialog*)>& act, QWidget* parent = nullptr,
                                QMessageBox::StandardButtons buttons = YesOrNo,
                                const QStringList& buttonTexts = {}, TextStyle style = TextStyle::Default)
{
    bool acted = false;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &timer, [&] {
        auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (dialog == nullptr || !dialog->isActiveWindow()) {
            return;
        }
        timer.stop();
        EXPECT_EQ(dialog->objectName(), QStringLiteral("packaged_msg_box"));
        acted = true;
        act(dialog);
    });
    timer.start(1);
    const QMessageBox::StandardButton answer =
        PackagedMsgBox::question(Question, parent, buttons, buttonTexts, style);
    EXPECT_TRUE(acted);
    return answer;
}

TLPushButton* Button(const QDialog* dialog, const char* name)
{
    auto* const button = dialog->findChild<TLPushButton*>(QLatin1String(name));
    EXPECT_NE(button, nullptr) << name;
    return button;
}

void PressKey(Qt::Key key)
{
    QTest::keyClick(QApplication::focusWidget(), key);
}

/// Turns every text of the message box round.
class MirrorTranslator final : public QTranslator
{
public:
    QString translate(const char* context, const char* text, const char*, int) const override
    {
        if (qstrcmp(context, "PackagedMsgBox") != 0) {
            return QString();
        }
        QString turned = QString::fromLatin1(text);
        std::reverse(turned.begin(), turned.end());
        return turned;
    }
    bool isEmpty() const override { return false; }
};

} // namespace

TEST(PackagedMsgBoxTest, AnswersWithTheButtonThatIsClicked)
{
    EXPECT_EQ(Ask([](QDialog* dialog) { QTest::mouseClick(Button(dialog, "yes_button"), Qt::LeftButton); }),
              QMessageBox::Yes);
    EXPECT_EQ(Ask([](QDialog* dialog) { QTest::mouseClick(Button(dialog, "no_button"), Qt::LeftButton); }),
              QMessageBox::No);
}

TEST(PackagedMsgBoxTest, EnterAnswersYes)
{
    EXPECT_EQ(Ask([](QDialog*) { PressKey(Qt::Key_Return); }), QMessageBox::Yes);
    EXPECT_EQ(Ask([](QDialog*) { PressKey(Qt::Key_Enter); }), QMessageBox::Yes);
}

TEST(PackagedMsgBoxTest, EscapeAnswersNo)
{
    EXPECT_EQ(Ask([](QDialog*) { PressKey(Qt::Key_Escape); }), QMessageBox::No);
}

TEST(PackagedMsgBoxTest, ClosingFromOutsideIsTheEscapeAnswer)
{
    EXPECT_EQ(Ask([](QDialog* dialog) { dialog->close(); }), QMessageBox::No);
    EXPECT_EQ(Ask([](QDialog* dialog) { dialog->reject(); }), QMessageBox::No);
    EXPECT_EQ(Ask([](QDialog* dialog) { dialog->close(); }, nullptr, YesOrNo | QMessageBox::Cancel),
              QMessageBox::Cancel);
    EXPECT_EQ(Ask([](QDialog* dialog) { dialog->close(); }, nullptr, QMessageBox::Retry | QMessageBox::Abort),
              QMessageBox::Abort);
    EXPECT_EQ(Ask([](QDialog* dialog) { dialog->close(); }, nullptr, QMessageBox::Ok), QMessageBox::Ok);
}

TEST(PackagedMsgBoxTest, TheButtonOfTheTitleBarIsTheEscapeAnswer)
{
    EXPECT_EQ(Ask([](QDialog* dialog) {
                  auto* const close = dialog->findChild<QWidget*>(QStringLiteral("title_close_button"));
                  ASSERT_NE(close, nullptr);
                  QTest::mouseClick(close, Qt::LeftButton);
              }),
              QMessageBox::No);
}

TEST(PackagedMsgBoxTest, TheEndOfItsParentIsTheEscapeAnswer)
{
    auto parent = std::make_unique<QWidget>();
    parent->show();
    EXPECT_EQ(Ask([&](QDialog*) { parent.reset(); }, parent.get()), QMessageBox::No);
}

TEST(PackagedMsgBoxTest, ArrowKeysAndTabMoveBetweenTheButtons)
{
    EXPECT_EQ(Ask([](QDialog* dialog) {
                  EXPECT_TRUE(Button(dialog, "yes_button")->hasFocus());
                  PressKey(Qt::Key_Right);
                  EXPECT_TRUE(Button(dialog, "no_button")->hasFocus());
                  PressKey(Qt::Key_Right);
                  EXPECT_TRUE(Button(dialog, "no_button")->hasFocus());
                  PressKey(Qt::Key_Left);
                  EXPECT_TRUE(Button(dialog, "yes_button")->hasFocus());
                  PressKey(Qt::Key_Tab);
                  EXPECT_TRUE(Button(dialog, "no_button")->hasFocus());
                  PressKey(Qt::Key_Tab);
                  EXPECT_EQ(QApplication::focusWidget()->objectName(), QStringLiteral("title_close_button"));
                  PressKey(Qt::Key_Tab);
                  EXPECT_TRUE(Button(dialog, "yes_button")->hasFocus());
                  PressKey(Qt::Key_Right);
                  PressKey(Qt::Key_Return);
              }),
              QMessageBox::No);
}

TEST(PackagedMsgBoxTest, StandsOverTheActiveWindowWhenNoParentIsGiven)
{
    QWidget window;
    window.setGeometry(100, 60, 700, 500);
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    Ask([&](QDialog* dialog) {
        EXPECT_EQ(dialog->parentWidget(), &window);
        EXPECT_TRUE(dialog->isModal());
        EXPECT_EQ(dialog->windowModality(), Qt::ApplicationModal);
        const QPoint distance = dialog->geometry().center() - window.geometry().center();
        EXPECT_LE(distance.manhattanLength(), 40);
        dialog->close();
    });
}

TEST(PackagedMsgBoxTest, ShowsHtmlAsText)
{
    const QString text = QStringLiteral("<b>Open</b> 3 < 4 tabs?");
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &timer, [&] {
        QWidget* const dialog = QApplication::activeModalWidget();
        if (dialog == nullptr) {
            return;
        }
        timer.stop();
        auto* const label = dialog->findChild<QLabel*>(QStringLiteral("text_label"));
        ASSERT_NE(label, nullptr);
        EXPECT_EQ(label->text(), text);
        EXPECT_EQ(label->textFormat(), Qt::PlainText);
        EXPECT_EQ(dialog->accessibleName(), text);
        QAccessibleInterface* const accessible = QAccessible::queryAccessibleInterface(dialog);
        ASSERT_NE(accessible, nullptr);
        EXPECT_EQ(accessible->text(QAccessible::Name), text);
        EXPECT_EQ(accessible->role(), QAccessible::Dialog);
        dialog->close();
    });
    timer.start(1);
    EXPECT_EQ(PackagedMsgBox::question(text), QMessageBox::No);
}

TEST(PackagedMsgBoxTest, TakesButtonTextsInTheOrderOfTheButtons)
{
    Ask(
        [](QDialog* dialog) {
            EXPECT_EQ(Button(dialog, "yes_button")->text(), QStringLiteral("Open them"));
            EXPECT_EQ(Button(dialog, "no_button")->text(), QStringLiteral("Not now"));
            EXPECT_LT(Button(dialog, "yes_button")->x(), Button(dialog, "no_button")->x());
            dialog->close();
        },
        nullptr, YesOrNo, {QStringLiteral("Open them"), QStringLiteral("Not now")});
    Ask(
        [](QDialog* dialog) {
            EXPECT_EQ(Button(dialog, "yes_button")->text(), QStringLiteral("Yes"));
            EXPECT_EQ(Button(dialog, "no_button")->text(), QStringLiteral("No"));
            dialog->close();
        },
        nullptr, YesOrNo, {QString()});
}

TEST(PackagedMsgBoxTest, FollowsAChangeOfLanguageWhileItIsOpen)
{
    MirrorTranslator translator;
    Ask([&](QDialog* dialog) {
        EXPECT_EQ(Button(dialog, "no_button")->text(), QStringLiteral("No"));
        ASSERT_TRUE(QCoreApplication::installTranslator(&translator));
        QCoreApplication::sendPostedEvents(nullptr, QEvent::LanguageChange);
        QCoreApplication::processEvents();
        EXPECT_EQ(Button(dialog, "no_button")->text(), QStringLiteral("oN"));
        dialog->close();
    });
    QCoreApplication::removeTranslator(&translator);
}

TEST(PackagedMsgBoxTest, CopiesItsText)
{
    Ask([](QDialog* dialog) {
        QGuiApplication::clipboard()->clear();
        QTest::keySequence(dialog, QKeySequence::Copy);
        EXPECT_EQ(QGuiApplication::clipboard()->text(), Question);
        dialog->close();
    });
}

TEST(PackagedMsgBoxTest, WritesStrongTextBold)
{
    Ask(
        [](QDialog* dialog) {
            EXPECT_TRUE(dialog->findChild<QLabel*>(QStringLiteral("text_label"))->font().bold());
            dialog->close();
        },
        nullptr, YesOrNo, {}, TextStyle::Strong);
    Ask([](QDialog* dialog) {
        EXPECT_FALSE(dialog->findChild<QLabel*>(QStringLiteral("text_label"))->font().bold());
        dialog->close();
    });
}

TEST(PackagedMsgBoxTest, ShowsALongTextWhole)
{
    const QString text = QStringLiteral("One sentence that needs a few lines. ").repeated(12);
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &timer, [&] {
        QWidget* const dialog = QApplication::activeModalWidget();
        if (dialog == nullptr) {
            return;
        }
        timer.stop();
        auto* const label = dialog->findChild<QLabel*>(QStringLiteral("text_label"));
        EXPECT_GE(label->height(), label->heightForWidth(label->width()));
        EXPECT_LE(dialog->width(), 560);
        dialog->close();
    });
    timer.start(1);
    (void)PackagedMsgBox::question(text);
}
