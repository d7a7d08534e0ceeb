#include "base-ui/TLBaseDialog.h"
#include "base-ui/TLLineEdit.h"
#include "base-ui/TLPushButton.h"

#include <QtCore/QPointer>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLabel>
#include <QtWidgets/QVBoxLayout>

#include <gtest/gtest.h>

namespace {

class FormDialog final : public TLBaseDialog
{
public:
    explicit FormDialog(Qt::WindowFlags flags = Qt::WindowCloseButtonHint,
                        int titleType = TitleType::TitleBar, bool movable = true)
        : TLBaseDialog(nullptr, flags, titleType, movable)
        , field(new TLLineEdit(GetContentWidget()))
        , ok(new TLPushButton(QStringLiteral("OK"), GetContentWidget()))
        , cancel(new TLPushButton(QStringLiteral("Cancel"), GetContentWidget()))
    {
        auto* layout = new QVBoxLayout(GetContentWidget());
        layout->addWidget(field);
        layout->addWidget(ok);
        layout->addWidget(cancel);
        resize(400, 200);
    }

    void ChangeSkin() override { ++skins; }

    TLLineEdit* field;
    TLPushButton* ok;
    TLPushButton* cancel;
    int skins = 0;
};

void ShowActive(QWidget* widget)
{
    widget->show();
    widget->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(widget));
}

QWidget* Find(const QWidget& dialog, const char* name)
{
    return dialog.findChild<QWidget*>(QLatin1String(name));
}

/// Drags the title bar and says how far the dialog came along.
QPoint Drag(QWidget* dialog, const QPoint& way)
{
    QWidget* const bar = Find(*dialog, "title_bar");
    const QPoint grip(60, 10);
    const QPoint before = dialog->pos();
    QTest::mousePress(bar, Qt::LeftButton, Qt::NoModifier, grip);
    QMouseEvent move(QEvent::MouseMove, grip + way, bar->mapToGlobal(grip + way), Qt::NoButton,
                     Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(bar, &move);
    QTest::mouseRelease(bar, Qt::LeftButton, Qt::NoModifier, grip);
    return dialog->pos() - before;
}

} // namespace

TEST(TLBaseDialogTest, ItsContentWidgetIsFreeForAForm)
{
    TLBaseDialog dialog;
    ASSERT_NE(dialog.GetContentWidget(), nullptr);
    EXPECT_TRUE(dialog.GetContentWidget()->objectName().isEmpty());
    EXPECT_EQ(dialog.GetContentWidget()->layout(), nullptr);
}

TEST(TLBaseDialogTest, ItsContentWidgetIsAsWideAsTheDialogAndBelowTheTitleBar)
{
    FormDialog dialog;
    dialog.setFixedSize(532, 228);
    ShowActive(&dialog);
    const QRect content = dialog.GetContentWidget()->geometry();
    EXPECT_GE(content.width(), 530);
    EXPECT_EQ(content.top(), Find(dialog, "title_bar")->geometry().bottom() + 1);
    EXPECT_GE(content.bottom(), 225);
}

TEST(TLBaseDialogTest, TheTitleStandsInTheBarAndNamesTheWindow)
{
    FormDialog dialog;
    dialog.SetTitleText(QStringLiteral("Edit <b>Url</b>"), true);
    auto* const label = dialog.findChild<QLabel*>(QStringLiteral("title_label"));
    ASSERT_NE(label, nullptr);
    EXPECT_EQ(label->text(), QStringLiteral("Edit <b>Url</b>"));
    EXPECT_EQ(label->textFormat(), Qt::PlainText);
    EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Edit <b>Url</b>"));

    dialog.SetTitleText(QStringLiteral("Other"), false);
    EXPECT_EQ(label->text(), QStringLiteral("Other"));
    EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Edit <b>Url</b>"));
}

TEST(TLBaseDialogTest, HasItsOwnFrameUnlessTheSystemGivesOne)
{
    EXPECT_TRUE((FormDialog().windowFlags() & Qt::FramelessWindowHint) != 0);
    EXPECT_EQ(FormDialog().windowType(), Qt::Dialog);
    FormDialog plain(Qt::WindowCloseButtonHint, TitleType::System);
    EXPECT_FALSE((plain.windowFlags() & Qt::FramelessWindowHint) != 0);
    EXPECT_EQ(Find(plain, "title_bar"), nullptr);
    FormDialog borderless(Qt::WindowCloseButtonHint, TitleType::Borderless);
    EXPECT_TRUE((borderless.windowFlags() & Qt::FramelessWindowHint) != 0);
    EXPECT_EQ(Find(borderless, "title_bar"), nullptr);
}

TEST(TLBaseDialogTest, HasAButtonToCloseOnlyWhenTheFlagsSaySo)
{
    FormDialog without(Qt::WindowFlags{});
    EXPECT_EQ(Find(without, "title_close_button"), nullptr);

    FormDialog dialog;
    QWidget* const close = Find(dialog, "title_close_button");
    ASSERT_NE(close, nullptr);
    EXPECT_FALSE(close->accessibleName().isEmpty());
    ShowActive(&dialog);
    QSignalSpy rejected(&dialog, &QDialog::rejected);
    QTest::mouseClick(close, Qt::LeftButton);
    EXPECT_EQ(rejected.count(), 1);
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(dialog.result(), QDialog::Rejected);
}

TEST(TLBaseDialogTest, EscapeRejectsFromWithinAField)
{
    FormDialog dialog;
    ShowActive(&dialog);
    dialog.setResult(QDialog::Accepted);
    QTest::keyClick(dialog.field, Qt::Key_Escape);
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(dialog.result(), QDialog::Rejected);
}

TEST(TLBaseDialogTest, EnterInAFieldPressesTheFirstButton)
{
    FormDialog dialog;
    ShowActive(&dialog);
    QSignalSpy ok(dialog.ok, &QPushButton::clicked);
    QSignalSpy cancel(dialog.cancel, &QPushButton::clicked);
    QTest::keyClick(dialog.field, Qt::Key_Return);
    EXPECT_EQ(ok.count(), 1);
    EXPECT_EQ(cancel.count(), 0);
    EXPECT_TRUE(dialog.isVisible());
}

TEST(TLBaseDialogTest, TheFormHasTheFocusFirstAndTheTitleBarLast)
{
    FormDialog dialog;
    ShowActive(&dialog);
    EXPECT_EQ(QApplication::focusWidget(), dialog.field);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), dialog.ok);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), dialog.cancel);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), Find(dialog, "title_close_button"));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    EXPECT_FALSE(dialog.isVisible());
}

TEST(TLBaseDialogTest, KeepsTheFocusThatTheFormAskedFor)
{
    FormDialog dialog;
    dialog.cancel->setFocus();
    ShowActive(&dialog);
    EXPECT_EQ(QApplication::focusWidget(), dialog.cancel);
}

TEST(TLBaseDialogTest, IsDraggedByItsTitleBar)
{
    FormDialog dialog;
    dialog.move(100, 100);
    ShowActive(&dialog);
    EXPECT_EQ(Drag(&dialog, QPoint(30, 20)), QPoint(30, 20));
}

TEST(TLBaseDialogTest, StaysWhereItIsWhenItIsNotMovable)
{
    FormDialog dialog(Qt::WindowCloseButtonHint, TitleType::TitleBar, false);
    dialog.move(100, 100);
    ShowActive(&dialog);
    EXPECT_EQ(Drag(&dialog, QPoint(30, 20)), QPoint());
}

TEST(TLBaseDialogTest, IsAskedToChangeItsSkinWithTheTheme)
{
    FormDialog dialog;
    ShowActive(&dialog);
    dialog.skins = 0;
    qApp->setStyleSheet(QStringLiteral("QLabel { color: #123456; }"));
    EXPECT_GE(dialog.skins, 1);
    qApp->setStyleSheet(QString());
}

TEST(TLBaseDialogTest, GoesWithAHiddenParent)
{
    QWidget window;
    auto* parent = new QWidget(&window);
    parent->hide();
    window.show();
    auto* dialog = new TLBaseDialog(parent);
    dialog->show();
    EXPECT_TRUE(dialog->isVisible());
    const QPointer<QWidget> watched(dialog);
    delete parent;
    EXPECT_TRUE(watched.isNull());
}
