#include "EarlierTabsDialog.h"

#include "EarlierTabsModel.h"
#include "look/LanguageManager.h"

#include <QtCore/QLocale>
#include <QtCore/QPointer>
#include <QtGui/QAccessible>
#include <QtGui/QScreen>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QTreeView>

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>

namespace {

TabRecord MakeTab(const QString& name)
{
    TabRecord tab;
    tab.routerUrl = QStringLiteral("tl://browser/open?url=https%3A%2F%2F%1.example%2F").arg(name);
    tab.title = name;
    tab.address = QUrl(QStringLiteral("https://%1.example/").arg(name));
    tab.iconUrl = QStringLiteral("https://%1.example/icon.png").arg(name);
    return tab;
}

EarlierTabSet MakeSet(EarlierTabSet::Reason reason, const QStringList& names)
{
    EarlierTabSet set;
    set.when = QDateTime::currentDateTime();
    set.reason = reason;
    for (const QString& name : names) {
        set.tabs.append(MakeTab(name));
    }
    return set;
}

QStringList GetTitles(const QVector<TabRecord>& tabs)
{
    QStringList titles;
    for (const TabRecord& tab : tabs) {
        titles << tab.title;
    }
    return titles;
}

class EarlierTabsDialogTest : public ::testing::Test
{
protected:
    /// Shows a dialog with two sets: one of three tabs and one of two.
    void Show()
    {
        Show({MakeSet(EarlierTabSet::Reason::Declined,
                      {QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")}),
              MakeSet(EarlierTabSet::Reason::Offered, {QStringLiteral("d"), QStringLiteral("e")})});
    }
    void Show(const QVector<EarlierTabSet>& sets, const PictureLoader& loadPicture = {})
    {
        m_dialog = std::make_unique<EarlierTabsDialog>(sets, loadPicture);
        m_tree = m_dialog->findChild<QTreeView*>();
        m_open = m_dialog->findChild<QPushButton*>(QStringLiteral("earlier_tabs_open"));
        m_close = m_dialog->findChild<QPushButton*>(QStringLiteral("earlier_tabs_close"));
        QObject::connect(m_dialog.get(), &EarlierTabsDialog::SigOpen, m_dialog.get(),
                         [this](const QVector<TabRecord>& tabs) { m_opened.append(tabs); });
        m_dialog->open();
        m_dialog->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(m_dialog.get()));
    }
    QModelIndex At(int set, int tab = -1) const
    {
        const QModelIndex top = m_tree->model()->index(set, 0);
        return tab < 0 ? top : m_tree->model()->index(tab, 0, top);
    }
    Qt::CheckState GetState(int set, int tab = -1) const
    {
        return static_cast<Qt::CheckState>(At(set, tab).data(Qt::CheckStateRole).toInt());
    }
    void ClickBox(const QModelIndex& index)
    {
        const QRect row = m_tree->visualRect(index);
        QTest::mouseClick(m_tree->viewport(), Qt::LeftButton, {}, QPoint(row.left() + 16, row.center().y()));
    }
    void ClickText(const QModelIndex& index)
    {
        const QRect row = m_tree->visualRect(index);
        QTest::mouseClick(m_tree->viewport(), Qt::LeftButton, {}, QPoint(row.left() + 150, row.center().y()));
    }
    /// Sends the key to the widget with the focus, as the keyboard does.
    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        ASSERT_NE(QApplication::focusWidget(), nullptr);
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    }

    std::unique_ptr<EarlierTabsDialog> m_dialog;
    QTreeView* m_tree = nullptr;
    QPushButton* m_open = nullptr;
    QPushButton* m_close = nullptr;
    QVector<QVector<TabRecord>> m_opened;
};

} // namespace

TEST_F(EarlierTabsDialogTest, NothingCanBeOpenedBeforeSomethingIsTicked)
{
    Show();
    EXPECT_FALSE(m_open->isEnabled());
    EXPECT_EQ(m_open->text(), QStringLiteral("Open"));
    Press(Qt::Key_Return);
    EXPECT_TRUE(m_dialog->isVisible());
    EXPECT_TRUE(m_opened.isEmpty());

    ClickText(At(0, 1));
    EXPECT_TRUE(m_open->isEnabled());
    EXPECT_EQ(m_open->text(), QStringLiteral("Open 1 tab"));
    ClickText(At(0, 2));
    EXPECT_EQ(m_open->text(), QStringLiteral("Open 2 tabs"));
    ClickText(At(0, 1));
    ClickBox(At(0, 2));
    EXPECT_FALSE(m_open->isEnabled());
    EXPECT_EQ(m_open->text(), QStringLiteral("Open"));
}

TEST_F(EarlierTabsDialogTest, ASetIsTickedAsAWholeAndSaysWhenItIsPartlyTicked)
{
    Show();
    EXPECT_EQ(GetState(0), Qt::Unchecked);
    ClickBox(At(0, 1));
    EXPECT_EQ(GetState(0), Qt::PartiallyChecked);
    ClickBox(At(0));
    EXPECT_EQ(GetState(0), Qt::Checked);
    EXPECT_EQ(GetState(0, 0), Qt::Checked);
    EXPECT_EQ(GetState(0, 2), Qt::Checked);
    EXPECT_EQ(GetState(1), Qt::Unchecked) << "the other set was ticked too";
    EXPECT_EQ(m_open->text(), QStringLiteral("Open 3 tabs"));
    ClickBox(At(0, 0));
    EXPECT_EQ(GetState(0), Qt::PartiallyChecked);
    ClickBox(At(0));
    ClickBox(At(0));
    EXPECT_EQ(GetState(0), Qt::Unchecked);
    EXPECT_EQ(GetState(0, 1), Qt::Unchecked);
    EXPECT_FALSE(m_open->isEnabled());
}

TEST_F(EarlierTabsDialogTest, AClickBesideTheBoxOfASetTicksNothing)
{
    Show();
    ClickText(At(0));
    EXPECT_EQ(GetState(0), Qt::Unchecked);
    QTest::mouseClick(m_tree->viewport(), Qt::RightButton, {}, m_tree->visualRect(At(0, 0)).center());
    EXPECT_EQ(GetState(0, 0), Qt::Unchecked) << "the right button ticks";
}

TEST_F(EarlierTabsDialogTest, TheNewestSetIsUnfoldedAndTheOthersUnfoldOnADoubleClick)
{
    Show();
    EXPECT_TRUE(m_tree->isExpanded(At(0)));
    EXPECT_FALSE(m_tree->isExpanded(At(1)));
    const QRect row = m_tree->visualRect(At(1));
    const QPoint place(row.left() + 150, row.center().y());
    QTest::mouseClick(m_tree->viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(m_tree->viewport(), Qt::LeftButton, {}, place);
    EXPECT_TRUE(m_tree->isExpanded(At(1)));
    EXPECT_EQ(GetState(1), Qt::Unchecked);
}

TEST_F(EarlierTabsDialogTest, WhatIsTickedIsOpenedInTheOrderShownAndTheDialogCloses)
{
    Show();
    m_tree->expandAll();
    ClickBox(At(1, 1));
    ClickBox(At(0, 2));
    ClickBox(At(0, 0));
    QTest::mouseClick(m_open, Qt::LeftButton);
    ASSERT_EQ(m_opened.size(), 1);
    EXPECT_EQ(GetTitles(m_opened.first()),
              QStringList({QStringLiteral("a"), QStringLiteral("c"), QStringLiteral("e")}));
    EXPECT_EQ(m_opened.first().first(), MakeTab(QStringLiteral("a"))) << "something of the tab was lost";
    EXPECT_FALSE(m_dialog->isVisible());
    EXPECT_EQ(m_dialog->result(), QDialog::Accepted);
}

TEST_F(EarlierTabsDialogTest, TheKeyboardIsEnoughForEverything)
{
    Show();
    EXPECT_TRUE(m_tree->hasFocus());
    Press(Qt::Key_Down);
    Press(Qt::Key_Space);
    EXPECT_EQ(GetState(0, 0), Qt::Checked);
    Press(Qt::Key_Up);
    Press(Qt::Key_Left);
    EXPECT_FALSE(m_tree->isExpanded(At(0)));
    Press(Qt::Key_Down);
    Press(Qt::Key_Space);
    EXPECT_EQ(GetState(1), Qt::Checked);
    EXPECT_EQ(GetState(1, 1), Qt::Checked);

    Press(Qt::Key_Tab);
    EXPECT_TRUE(m_open->hasFocus());
    Press(Qt::Key_Tab);
    EXPECT_TRUE(m_close->hasFocus());
    Press(Qt::Key_Tab);
    EXPECT_TRUE(m_tree->hasFocus());
    Press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_TRUE(m_close->hasFocus());
    Press(Qt::Key_Backtab, Qt::ShiftModifier);
    Press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_TRUE(m_tree->hasFocus());

    Press(Qt::Key_Return);
    ASSERT_EQ(m_opened.size(), 1);
    EXPECT_EQ(GetTitles(m_opened.first()),
              QStringList({QStringLiteral("a"), QStringLiteral("d"), QStringLiteral("e")}));
}

TEST_F(EarlierTabsDialogTest, EnterOnTheCloseButtonOpensNothing)
{
    Show();
    ClickBox(At(0));
    m_close->setFocus(Qt::TabFocusReason);
    Press(Qt::Key_Space);
    EXPECT_FALSE(m_dialog->isVisible());
    EXPECT_EQ(m_dialog->result(), QDialog::Rejected);
    EXPECT_TRUE(m_opened.isEmpty());
}

TEST_F(EarlierTabsDialogTest, EscapeClosesWithoutOpening)
{
    Show();
    ClickBox(At(0));
    Press(Qt::Key_Escape);
    EXPECT_FALSE(m_dialog->isVisible());
    EXPECT_TRUE(m_opened.isEmpty());
}

TEST_F(EarlierTabsDialogTest, TheFocusedRowLooksDifferent)
{
    Show();
    const auto look = [this](int tab) {
        return m_tree->viewport()->grab(m_tree->visualRect(At(0, tab))).toImage();
    };
    const QImage before = look(1);
    m_tree->setCurrentIndex(At(0, 1));
    EXPECT_NE(look(1), before);
}

TEST_F(EarlierTabsDialogTest, EveryReasonHasASentenceOfItsOwn)
{
    QVector<EarlierTabSet> sets;
    for (const auto reason :
         {EarlierTabSet::Reason::Offered, EarlierTabSet::Reason::Declined, EarlierTabSet::Reason::Dropped,
          EarlierTabSet::Reason::Unreadable, EarlierTabSet::Reason::NotRestored}) {
        sets.append(MakeSet(reason, {QStringLiteral("a")}));
    }
    sets.append(sets.last());
    sets.last().incomplete = true;
    Show(sets);
    QStringList sentences;
    for (int i = 0; i < sets.size(); ++i) {
        sentences << At(i).data(EarlierTabsModel::DetailRole).toString();
    }
    EXPECT_FALSE(sentences.contains(QString()));
    EXPECT_EQ(sentences.removeDuplicates(), 0);
    EXPECT_TRUE(sentences.last().contains(QStringLiteral("missing"))) << "nothing says that tabs are missing";
}

TEST_F(EarlierTabsDialogTest, ASetSaysWhenItWasAndHowManyTabsItHas)
{
    auto many = MakeSet(EarlierTabSet::Reason::Dropped, {});
    many.tabs = QVector<TabRecord>(1234, MakeTab(QStringLiteral("a")));
    const EarlierTabSet one = MakeSet(EarlierTabSet::Reason::Dropped, {QStringLiteral("a")});
    Show({one, many});
    // The day may end between making and showing it.
    const QString today = EarlierTabsModel::GetWhenText(one.when, one.when);
    const QString yesterday = EarlierTabsModel::GetWhenText(one.when, one.when.addDays(1));
    const QString shown = At(0).data().toString();
    EXPECT_TRUE(shown.startsWith(today) || shown.startsWith(yesterday)) << shown.toStdString();
    EXPECT_TRUE(At(0).data().toString().endsWith(QStringLiteral(" 1 tab")));
    EXPECT_TRUE(At(1).data().toString().endsWith(QLocale().toString(1234) + QStringLiteral(" tabs")));
    ClickBox(At(1));
    EXPECT_EQ(m_open->text(), QStringLiteral("Open %1 tabs").arg(QLocale().toString(1234)));
}

TEST_F(EarlierTabsDialogTest, ASetOfWhichNothingIsLeftCannotBeTicked)
{
    auto lost = MakeSet(EarlierTabSet::Reason::Unreadable, {});
    lost.incomplete = true;
    Show({lost});
    ClickBox(At(0));
    Press(Qt::Key_Space);
    EXPECT_FALSE(At(0).data(Qt::CheckStateRole).isValid());
    EXPECT_FALSE(m_open->isEnabled());
}

TEST(EarlierTabsWhenTest, TodayAndYesterdayAreNamedAndOtherDaysAreDated)
{
    const QDateTime now(QDate(2024, 3, 1), QTime(0, 30));
    const auto text = [&now](const QDateTime& when) { return EarlierTabsModel::GetWhenText(when, now); };
    const QLocale locale;
    const auto time = [&locale](int hours, int minutes) {
        return locale.toString(QTime(hours, minutes), QLocale::ShortFormat);
    };
    const auto date = [&locale](int year, int month, int day) {
        return locale.toString(QDate(year, month, day), QLocale::ShortFormat);
    };
    EXPECT_EQ(text(QDateTime(QDate(2024, 3, 1), QTime(0, 5))), QStringLiteral("Today at ") + time(0, 5));
    EXPECT_EQ(text(QDateTime(QDate(2024, 2, 29), QTime(23, 59))),
              QStringLiteral("Yesterday at ") + time(23, 59));
    EXPECT_EQ(text(QDateTime(QDate(2024, 2, 28), QTime(23, 59))),
              QStringLiteral("%1 at %2").arg(date(2024, 2, 28), time(23, 59)));
    EXPECT_EQ(text(QDateTime(QDate(2024, 3, 2), QTime(1, 0))),
              QStringLiteral("%1 at %2").arg(date(2024, 3, 2), time(1, 0)))
        << "a clock that was put back";
    EXPECT_EQ(text(QDateTime(QDate(2024, 3, 1), QTime(0, 5)).toUTC()),
              QStringLiteral("Today at ") + time(0, 5));
    EXPECT_EQ(text(QDateTime()), QStringLiteral("At an unknown time"));
}

TEST_F(EarlierTabsDialogTest, WhatPagesSayIsNeverReadAsMarkup)
{
    TabRecord tab = MakeTab(QStringLiteral("a"));
    tab.title = QStringLiteral("  <img src='https://evil.example/x.png'>\n &amp; more ");
    tab.address = QUrl(QStringLiteral("https://a.example/?b=1&lt=2"));
    EarlierTabSet set = MakeSet(EarlierTabSet::Reason::Dropped, {});
    set.tabs.append(tab);
    Show({set});
    const QString title = QStringLiteral("<img src='https://evil.example/x.png'> &amp; more");
    EXPECT_EQ(At(0, 0).data().toString(), title);
    const QString toolTip = At(0, 0).data(Qt::ToolTipRole).toString();
    EXPECT_TRUE(toolTip.contains(title.toHtmlEscaped()));
    EXPECT_TRUE(toolTip.contains(tab.address.toDisplayString().toHtmlEscaped()));
    EXPECT_FALSE(toolTip.contains(QStringLiteral("<img")));
    ClickBox(At(0, 0));
    QTest::mouseClick(m_open, Qt::LeftButton);
    EXPECT_EQ(m_opened.first().first(), tab) << "the tab was changed by being shown";
}

TEST_F(EarlierTabsDialogTest, ATabWithoutTitleOrAddressStillHasAName)
{
    TabRecord untitled = MakeTab(QStringLiteral("a"));
    untitled.title.clear();
    TabRecord app;
    app.routerUrl = QStringLiteral("tl://plugin/open?code=orders");
    app.type = TabType::WebApp;
    EarlierTabSet set = MakeSet(EarlierTabSet::Reason::Dropped, {});
    set.tabs = {untitled, app};
    Show({set});
    EXPECT_EQ(At(0, 0).data().toString(), untitled.address.toDisplayString());
    EXPECT_EQ(At(0, 1).data().toString(), app.routerUrl);
    EXPECT_EQ(At(0, 1).data(EarlierTabsModel::DetailRole).toString(), QStringLiteral("App"));
}

TEST_F(EarlierTabsDialogTest, WithoutSetsItSaysWhatWouldStandThere)
{
    Show(QVector<EarlierTabSet>());
    EXPECT_FALSE(m_tree->isVisible());
    EXPECT_FALSE(m_open->isVisible());
    const auto* empty = m_dialog->findChild<QLabel*>(QStringLiteral("earlier_tabs_empty"));
    EXPECT_TRUE(empty->isVisible());
    EXPECT_TRUE(empty->text().startsWith(QStringLiteral("There are no earlier tabs.")));
    EXPECT_TRUE(m_close->hasFocus());
    Press(Qt::Key_Return);
    EXPECT_FALSE(m_dialog->isVisible());
    EXPECT_TRUE(m_opened.isEmpty());
}

TEST_F(EarlierTabsDialogTest, AnotherLanguageReachesTheOpenDialog)
{
    Show();
    ClickBox(At(0));
    LanguageManager languages(QStringLiteral(TL_TRANSLATIONS_DIR));
    languages.Apply(QStringLiteral("zh_CN"));
    ASSERT_TRUE(
        QTest::qWaitFor([this] { return m_dialog->windowTitle() == QStringLiteral("以前的标签页"); }));
    EXPECT_EQ(m_open->text(), QStringLiteral("打开 3 个标签页"));
    EXPECT_EQ(m_close->text(), QStringLiteral("关闭"));
    EXPECT_TRUE(At(0).data().toString().startsWith(QStringLiteral("今天 ")));
    EXPECT_EQ(GetState(0), Qt::Checked);
    languages.Apply(QStringLiteral("en"));
    EXPECT_TRUE(
        QTest::qWaitFor([this] { return m_dialog->windowTitle() == QStringLiteral("Earlier tabs"); }));
}

TEST_F(EarlierTabsDialogTest, IconsAreFetchedOnceAndOnlyForRowsInSight)
{
    QStringList asked;
    QHash<QString, std::function<void(const QPixmap&)>> waiting;
    QStringList names;
    for (int i = 0; i < 1000; ++i) {
        names << QStringLiteral("shop-%1").arg(i);
    }
    EarlierTabSet set = MakeSet(EarlierTabSet::Reason::Dropped, names);
    set.tabs[1].iconUrl = set.tabs[0].iconUrl;
    Show({set}, [&](const QString& url, QObject*, const std::function<void(const QPixmap&)>& done) {
        asked << url;
        waiting.insert(url, done);
    });
    ASSERT_TRUE(QTest::qWaitFor([&] { return !asked.isEmpty(); }));
    m_tree->viewport()->repaint();
    EXPECT_EQ(asked.count(set.tabs[0].iconUrl), 1);
    EXPECT_LT(asked.size(), 40);
    EXPECT_FALSE(asked.contains(set.tabs[900].iconUrl));

    QPixmap red(16, 16);
    red.fill(Qt::red);
    QSignalSpy changed(m_tree->model(), &QAbstractItemModel::dataChanged);
    waiting.value(set.tabs[0].iconUrl)(red);
    EXPECT_EQ(changed.size(), 2) << "both rows have this icon";
    const auto icon = At(0, 1).data(Qt::DecorationRole).value<QIcon>();
    EXPECT_EQ(icon.pixmap(16, 16).toImage().pixelColor(8, 8), QColor(Qt::red));

    m_tree->scrollToBottom();
    EXPECT_TRUE(QTest::qWaitFor([&] { return asked.contains(set.tabs[999].iconUrl); }));
    EXPECT_EQ(asked.count(set.tabs[0].iconUrl), 1);
}

TEST_F(EarlierTabsDialogTest, ScreenReadersAreToldNamesAndTicks)
{
    Show();
    ClickBox(At(0, 1));
    QAccessibleInterface* tree = QAccessible::queryAccessibleInterface(m_tree);
    ASSERT_NE(tree, nullptr);
    EXPECT_EQ(tree->text(QAccessible::Name), QStringLiteral("Earlier tabs"));
    QStringList names;
    QStringList ticked;
    for (int i = 0; i < tree->childCount(); ++i) {
        QAccessibleInterface* row = tree->child(i);
        names << row->text(QAccessible::Name);
        if (row->state().checked) {
            ticked << names.last();
        }
    }
    EXPECT_TRUE(names.contains(QStringLiteral("b")));
    EXPECT_EQ(ticked, QStringList({QStringLiteral("b")}));
}

TEST_F(EarlierTabsDialogTest, FitsASmallScreen)
{
    Show();
    EXPECT_LE(m_dialog->minimumSizeHint().width(), 640);
    EXPECT_LE(m_dialog->minimumSizeHint().height(), 400);
    EXPECT_LE(m_dialog->width(), m_dialog->screen()->availableGeometry().width());
    EXPECT_LE(m_dialog->height(), m_dialog->screen()->availableGeometry().height());
}
