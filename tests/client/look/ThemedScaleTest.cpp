#include "ScaledWindowTest.h"

#include "TabListPopup.h"
#include "look/ThemeManager.h"
#include "notices/NoticeBar.h"
#include "pages/PageDialog.h"

#include <QtGui/QScreen>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QListWidget>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QStyle>
#include <QtWidgets/QStyleOptionButton>
#include <QtWidgets/QStyleOptionFrame>
#include <QtWidgets/QToolButton>

/// Sizes that come from a theme's style sheet.
class ThemedScaleTest : public ScaledWindowTest
{
protected:
    ThemedScaleTest() { m_themes.Apply(Theme::Light); }

    ThemeManager m_themes;
};

TEST_F(ThemedScaleTest, OpenListOfTabsStaysBelowItsButton)
{
    const QRect screen = m_window->screen()->availableGeometry();
    m_window->resize(600, 600); // so that the button is on the screen
    QStringList titles;
    for (int i = 0; i < 5; ++i) {
        titles << QStringLiteral("Tab %1").arg(i);
    }
    auto* anchor = m_window->findChild<QToolButton*>(QStringLiteral("strip_list"));
    TabListPopup list(titles, 0, nullptr);
    list.setAttribute(Qt::WA_DeleteOnClose, false);
    list.PopUp(anchor);
    const auto* rows = list.findChild<QListWidget*>();
    for (const double scale : {1.5, 1.25, 1.0}) {
        SetScale(scale);
        EXPECT_EQ(list.width(), qRound(360 * scale));
        EXPECT_EQ(list.x() + list.width() - 1, anchor->mapToGlobal(anchor->rect().bottomRight()).x())
            << scale;
        EXPECT_EQ(list.y(), anchor->mapToGlobal(QPoint(0, anchor->height())).y() + qRound(4 * scale));
        EXPECT_EQ(rows->height(), 5 * qMax(rows->sizeHintForRow(0), qRound(24 * scale)) + qRound(4 * scale));
        EXPECT_EQ(list.height(), rows->height() + list.findChild<QLineEdit*>()->height() +
                                     3 * qRound(8 * scale) + 2 * qRound(scale))
            << scale;
    }
    SetScale(4);
    EXPECT_LE(list.width(), screen.width());
}

TEST_F(ThemedScaleTest, OpenQuestionOfAPageIsAsLargeAsNecessary)
{
    PageDialog dialog(PageDialog::Kind::Prompt, QUrl(), QStringLiteral("text"), QString(), true);
    dialog.show();
    const QSize before = dialog.size();
    for (const double scale : {1.5, 1.25, 1.0}) {
        SetScale(scale);
        EXPECT_EQ(dialog.width(), qRound(440 * scale));
        EXPECT_EQ(dialog.height(), dialog.heightForWidth(dialog.width())) << scale;
    }
    EXPECT_EQ(dialog.size(), before);
}

TEST_F(ThemedScaleTest, WidgetsGrowWithTheScale)
{
    QPushButton button(QStringLiteral("Text"));
    QLineEdit field;
    NoticeBar notices;
    NoticeAction action;
    action.text = QStringLiteral("Do");
    notices.Show(QStringLiteral("a"), NoticeKind::Info, QStringLiteral("text"), {action});
    auto* noticeButton = notices.findChild<QPushButton*>();
    const QVector<QWidget*> widgets = {&button, &field, noticeButton};
    QVector<QSize> before;
    for (QWidget* widget : widgets) {
        widget->ensurePolished();
        before << widget->sizeHint();
    }
    for (const double scale : {1.25, 1.5, 2.0}) {
        SetScale(scale);
        for (int i = 0; i < widgets.size(); ++i) {
            // Border, padding and text are each rounded, and Qt adds two pixels to fields.
            EXPECT_NEAR(widgets.at(i)->sizeHint().height(), before.at(i).height() * scale, 3)
                << i << " at " << scale;
        }
    }
    SetScale(1);
    for (int i = 0; i < widgets.size(); ++i) {
        EXPECT_EQ(widgets.at(i)->sizeHint(), before.at(i)) << i;
    }
}

TEST_F(ThemedScaleTest, IconInTheSearchFieldFollows)
{
    m_themes.Apply(Theme::Dark);
    const auto home = MakeHome();
    home->show();
    const auto* sign = home->findChild<QLineEdit*>(QStringLiteral("home_search"))->findChild<QToolButton*>();
    for (const double scale : {1.0, 2.0, 1.5, 1.0}) {
        SetScale(scale);
        EXPECT_NEAR(sign->width(), 16 * scale, 8) << scale; // with a little room around it
    }
}

TEST_F(ThemedScaleTest, ThickerBorderOfTheFocusDoesNotMoveTheText)
{
    QPushButton button(QStringLiteral("Text"));
    QLineEdit field;
    button.resize(400, 200);
    field.resize(400, 200);
    for (QWidget* widget : {static_cast<QWidget*>(&button), static_cast<QWidget*>(&field)}) {
        widget->ensurePolished();
    }
    for (const double scale : {1.0, 1.25, 1.5, 1.75, 2.0}) {
        SetScale(scale);
        QStyleOptionButton plain;
        plain.initFrom(&button);
        QStyleOptionButton focused(plain);
        focused.state |= QStyle::State_HasFocus;
        EXPECT_EQ(button.style()->subElementRect(QStyle::SE_PushButtonContents, &focused, &button),
                  button.style()->subElementRect(QStyle::SE_PushButtonContents, &plain, &button))
            << scale;
        QStyleOptionFrame line;
        line.initFrom(&field);
        line.lineWidth = 1;
        QStyleOptionFrame focusedLine(line);
        focusedLine.state |= QStyle::State_HasFocus;
        EXPECT_EQ(field.style()->subElementRect(QStyle::SE_LineEditContents, &focusedLine, &field),
                  field.style()->subElementRect(QStyle::SE_LineEditContents, &line, &field))
            << scale;
    }
}
