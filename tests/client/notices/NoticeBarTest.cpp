#include "notices/NoticeBar.h"

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QLabel>
#include <QtWidgets/QProgressBar>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QToolButton>

#include <gtest/gtest.h>

namespace {

const QString A = QStringLiteral("a");
const QString B = QStringLiteral("b");

template <class Widget>
Widget* FindVisible(NoticeBar& bar, const QString& name)
{
    const auto widgets = bar.findChildren<Widget*>(name);
    for (Widget* widget : widgets) {
        if (widget->isVisibleTo(&bar)) {
            return widget;
        }
    }
    return nullptr;
}

} // namespace

TEST(NoticeBarTest, TakesNoRoomWhileEmpty)
{
    NoticeBar bar;
    EXPECT_TRUE(bar.isHidden());
    bar.Show(A, NoticeKind::Info, QStringLiteral("text"));
    EXPECT_FALSE(bar.isHidden());
    bar.Hide(A);
    EXPECT_TRUE(bar.isHidden());
    EXPECT_EQ(bar.GetCount(), 0);
}

TEST(NoticeBarTest, TheSameIdReplaces)
{
    NoticeBar bar;
    bar.Show(A, NoticeKind::Info, QStringLiteral("one"));
    bar.Show(B, NoticeKind::Warning, QStringLiteral("two"));
    bar.Show(A, NoticeKind::Error, QStringLiteral("three"));
    EXPECT_EQ(bar.GetCount(), 2);
    EXPECT_EQ(bar.GetText(A), QStringLiteral("three"));
    EXPECT_EQ(bar.GetText(B), QStringLiteral("two"));
}

TEST(NoticeBarTest, HidingAMissingBarIsHarmless)
{
    NoticeBar bar;
    QSignalSpy hidden(&bar, &NoticeBar::SigHidden);
    bar.Hide(A);
    bar.SetText(A, QStringLiteral("x"));
    bar.SetProgress(A, 50);
    EXPECT_TRUE(hidden.isEmpty());
    EXPECT_EQ(bar.GetText(A), QString());
}

TEST(NoticeBarTest, TheCloseButtonDismisses)
{
    NoticeBar bar;
    int dismissed = 0;
    bar.Show(A, NoticeKind::Info, QStringLiteral("one"), {}, [&dismissed] { ++dismissed; });
    QSignalSpy hidden(&bar, &NoticeBar::SigHidden);
    FindVisible<QToolButton>(bar, QStringLiteral("notice_close"))->click();
    EXPECT_EQ(dismissed, 1);
    EXPECT_EQ(hidden.size(), 1);
    EXPECT_FALSE(bar.IsShown(A));
}

TEST(NoticeBarTest, ButtonActsAfterTheBarIsGoneAndDoesNotDismiss)
{
    NoticeBar bar;
    bool gone = false;
    int dismissed = 0;
    bar.Show(A, NoticeKind::Info, QStringLiteral("one"),
             {{QStringLiteral("Do"), [&] { gone = !bar.IsShown(A); }}}, [&dismissed] { ++dismissed; });
    FindVisible<QPushButton>(bar, QStringLiteral("notice_button"))->click();
    EXPECT_TRUE(gone);
    EXPECT_EQ(dismissed, 0);
}

TEST(NoticeBarTest, ButtonMayShowTheNextNoticeUnderTheSameId)
{
    NoticeBar bar;
    bar.Show(A, NoticeKind::Info, QStringLiteral("one"),
             {{QStringLiteral("Next"), [&bar] { bar.Show(A, NoticeKind::Info, QStringLiteral("two")); }}});
    FindVisible<QPushButton>(bar, QStringLiteral("notice_button"))->click();
    EXPECT_EQ(bar.GetText(A), QStringLiteral("two"));
    EXPECT_FALSE(bar.isHidden());
}

TEST(NoticeBarTest, ButtonMayKeepTheBarOpen)
{
    NoticeBar bar;
    int calls = 0;
    NoticeAction action;
    action.text = QStringLiteral("Again");
    action.trigger = [&calls] { ++calls; };
    action.keepOpen = true;
    bar.Show(A, NoticeKind::Info, QStringLiteral("one"), {action});
    FindVisible<QPushButton>(bar, QStringLiteral("notice_button"))->click();
    FindVisible<QPushButton>(bar, QStringLiteral("notice_button"))->click();
    EXPECT_EQ(calls, 2);
    EXPECT_TRUE(bar.IsShown(A));
}

TEST(NoticeBarTest, ProgressComesAndGoes)
{
    NoticeBar bar;
    bar.Show(A, NoticeKind::Info, QStringLiteral("one"));
    EXPECT_EQ(FindVisible<QProgressBar>(bar, QStringLiteral("notice_progress")), nullptr);
    bar.SetProgress(A, 140);
    auto* line = FindVisible<QProgressBar>(bar, QStringLiteral("notice_progress"));
    ASSERT_NE(line, nullptr);
    EXPECT_EQ(line->value(), 100);
    bar.SetProgress(A, -1);
    EXPECT_EQ(FindVisible<QProgressBar>(bar, QStringLiteral("notice_progress")), nullptr);
}

TEST(NoticeBarTest, TextsAreNeverMarkup)
{
    NoticeBar bar;
    bar.Show(A, NoticeKind::Info, QStringLiteral("<b>bold</b>"));
    EXPECT_EQ(FindVisible<QLabel>(bar, QStringLiteral("notice_text"))->textFormat(), Qt::PlainText);
}
