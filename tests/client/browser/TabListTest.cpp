#include "TabList.h"

#include <QtCore/QStringList>
#include <QtTest/QSignalSpy>

#include <gtest/gtest.h>

#include <memory>

namespace {

TabRecord MakePage(const QString& title)
{
    TabRecord record;
    record.title = title;
    record.address = QUrl(QStringLiteral("https://%1.example/").arg(title));
    return record;
}

/// A list with the home tab; pages are named by letters, and their ids count from 1.
class TabListTest : public ::testing::Test
{
protected:
    TabListTest()
    {
        TabRecord home;
        home.title = QStringLiteral("home");
        home.type = TabType::Home;
        m_list.Insert(Home, home, 0);
    }

    TabId Insert(const QString& title, int index = -1)
    {
        m_list.Insert(++m_last, MakePage(title), index);
        return m_last;
    }
    void InsertAll(const QStringList& titles)
    {
        for (const QString& title : titles) {
            Insert(title);
        }
    }
    /// A tab that another one opens, as the window goes about it.
    TabId OpenFrom(TabId opener, const QString& title, bool inFront)
    {
        const TabId id = Insert(title, m_list.FindPlaceBeside(opener, inFront));
        if (inFront) {
            m_list.Select(m_list.IndexOf(id));
        }
        m_list.SetOpener(id, opener);
        return id;
    }
    void Remove(int index) { m_list.Remove(index, m_list.GetRecord(index)); }
    QString GetOrder() const
    {
        QString order;
        for (const TabRecord& record : m_list.GetRecords()) {
            order += record.title + QLatin1Char(' ');
        }
        return order.trimmed();
    }
    QString GetCurrentTitle() const { return m_list.GetRecord(m_list.GetCurrent()).title; }

    static constexpr TabId Home = 1000;
    TabList m_list;
    TabId m_last = NoTab;
};

} // namespace

TEST_F(TabListTest, BeginsWithTheHomeTabInFront)
{
    TabList list;
    EXPECT_EQ(list.GetCount(), 0);
    EXPECT_EQ(list.GetCurrent(), -1);
    const QSignalSpy inserted(&list, &TabList::SigInserted);
    const QSignalSpy current(&list, &TabList::SigCurrentChanged);
    EXPECT_EQ(list.Insert(7, TabRecord(), -1), 0);
    EXPECT_EQ(list.GetCurrent(), 0);
    EXPECT_EQ(list.GetId(0), TabId(7));
    EXPECT_EQ(inserted.size(), 1);
    EXPECT_EQ(current.size(), 1);
}

TEST_F(TabListTest, InsertsWhereItIsAskedToButNeverBeforeTheHomeTab)
{
    InsertAll({QStringLiteral("a"), QStringLiteral("b")});
    const QSignalSpy inserted(&m_list, &TabList::SigInserted);
    Insert(QStringLiteral("c"), 0);
    EXPECT_EQ(GetOrder(), QStringLiteral("home c a b"));
    Insert(QStringLiteral("d"), 2);
    EXPECT_EQ(GetOrder(), QStringLiteral("home c d a b"));
    Insert(QStringLiteral("e"), 5);
    Insert(QStringLiteral("f"), 100);
    Insert(QStringLiteral("g"), -5);
    EXPECT_EQ(GetOrder(), QStringLiteral("home c d a b e f g"));
    QList<int> places;
    for (const QList<QVariant>& arguments : inserted) {
        places << arguments.first().toInt();
    }
    EXPECT_EQ(places, QList<int>({1, 2, 5, 6, 7}));
}

TEST_F(TabListTest, ATabKeepsItsIdWhereverItMoves)
{
    InsertAll({QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")});
    const TabId b = m_list.GetId(2);
    m_list.Move(2, 1);
    EXPECT_EQ(m_list.IndexOf(b), 1);
    Remove(1);
    EXPECT_EQ(m_list.IndexOf(b), -1);
    EXPECT_EQ(m_list.GetId(-1), NoTab);
    EXPECT_EQ(m_list.GetId(3), NoTab);
    EXPECT_EQ(m_list.IndexOf(NoTab), -1);
}

TEST_F(TabListTest, TheCurrentTabStaysTheSameWhenOthersComeMoveAndGo)
{
    InsertAll({QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")});
    m_list.Select(2);
    const QSignalSpy current(&m_list, &TabList::SigCurrentChanged);
    Insert(QStringLiteral("d"), 1);
    EXPECT_EQ(GetCurrentTitle(), QStringLiteral("b"));
    m_list.Move(1, 4);
    EXPECT_EQ(GetCurrentTitle(), QStringLiteral("b"));
    m_list.Move(3, 1);
    EXPECT_EQ(GetCurrentTitle(), QStringLiteral("b"));
    m_list.Move(m_list.GetCurrent(), 1);
    EXPECT_EQ(GetCurrentTitle(), QStringLiteral("b"));
    EXPECT_EQ(m_list.GetCurrent(), 1);
    Remove(4);
    Remove(3);
    EXPECT_EQ(GetCurrentTitle(), QStringLiteral("b"));
    EXPECT_EQ(current.size(), 0);
}

TEST_F(TabListTest, TheHomeTabNeitherMovesNorGoes)
{
    InsertAll({QStringLiteral("a"), QStringLiteral("b")});
    const QSignalSpy moved(&m_list, &TabList::SigMoved);
    const QSignalSpy removed(&m_list, &TabList::SigRemoved);
    EXPECT_FALSE(m_list.Move(0, 1));
    EXPECT_FALSE(m_list.Move(1, 0));
    EXPECT_FALSE(m_list.Move(1, 3));
    EXPECT_FALSE(m_list.Move(1, 1));
    EXPECT_FALSE(m_list.Move(-1, 1));
    Remove(0);
    m_list.Remove(-1, TabRecord());
    m_list.Remove(3, TabRecord());
    EXPECT_EQ(GetOrder(), QStringLiteral("home a b"));
    EXPECT_EQ(moved.size(), 0);
    EXPECT_EQ(removed.size(), 0);
    EXPECT_TRUE(m_list.Move(2, 1));
    EXPECT_EQ(moved.value(0), QList<QVariant>({2, 1}));
}

TEST_F(TabListTest, TheNeighbourFollowsACurrentTabThatGoes)
{
    InsertAll({QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")});
    m_list.Select(2);
    const QSignalSpy current(&m_list, &TabList::SigCurrentChanged);
    Remove(2);
    EXPECT_EQ(GetCurrentTitle(), QStringLiteral("c")) << "the one behind takes its place";
    Remove(2);
    EXPECT_EQ(GetCurrentTitle(), QStringLiteral("a")) << "there is none behind";
    Remove(1);
    EXPECT_EQ(GetCurrentTitle(), QStringLiteral("home"));
    EXPECT_EQ(current.size(), 3);
}

TEST_F(TabListTest, ATabThatGoesIsRemovedBeforeAnotherBecomesCurrent)
{
    InsertAll({QStringLiteral("a"), QStringLiteral("b")});
    m_list.Select(1);
    QStringList order;
    QObject::connect(&m_list, &TabList::SigRemoved, &m_list,
                     [&] { order << QStringLiteral("removed of %1").arg(m_list.GetCount()); });
    QObject::connect(&m_list, &TabList::SigCurrentChanged, &m_list,
                     [&](int index) { order << QStringLiteral("current %1").arg(index); });
    Remove(1);
    EXPECT_EQ(order, QStringList({QStringLiteral("removed of 2"), QStringLiteral("current 1")}));
}

TEST_F(TabListTest, AReceiverMaySelectAnotherTabWhileOneGoes)
{
    InsertAll({QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")});
    m_list.Select(2);
    QObject::connect(&m_list, &TabList::SigRemoved, &m_list, [&] { m_list.Select(0); });
    const QSignalSpy current(&m_list, &TabList::SigCurrentChanged);
    Remove(2);
    EXPECT_EQ(m_list.GetCurrent(), 0);
    EXPECT_EQ(current.size(), 1) << "the same choice was announced twice";
}

TEST_F(TabListTest, WhatATabOpensAsideStandsBehindItInTheOrderOfOpening)
{
    const TabId a = Insert(QStringLiteral("a"));
    Insert(QStringLiteral("b"));
    m_list.Select(1);
    OpenFrom(a, QStringLiteral("a1"), false);
    OpenFrom(a, QStringLiteral("a2"), false);
    EXPECT_EQ(GetOrder(), QStringLiteral("home a a1 a2 b"));
    OpenFrom(a, QStringLiteral("a3"), true);
    EXPECT_EQ(GetOrder(), QStringLiteral("home a a3 a1 a2 b")) << "one in front stands right beside it";
}

TEST_F(TabListTest, TheOpenerFollowsATabThatGoesUntilTheUserGoesElsewhere)
{
    const TabId a = Insert(QStringLiteral("a"));
    InsertAll({QStringLiteral("b"), QStringLiteral("c")});
    m_list.Select(1);
    OpenFrom(a, QStringLiteral("a1"), true);
    m_list.Move(m_list.GetCurrent(), 4);
    Remove(m_list.GetCurrent());
    EXPECT_EQ(GetCurrentTitle(), QStringLiteral("a"));

    OpenFrom(a, QStringLiteral("a2"), true);
    const int a2 = m_list.GetCurrent();
    m_list.Select(3);
    m_list.Select(a2);
    Remove(a2);
    EXPECT_EQ(GetCurrentTitle(), QStringLiteral("b"));
}

TEST_F(TabListTest, AnOpenerThatIsGoneIsNotGoneBackTo)
{
    const TabId a = Insert(QStringLiteral("a"));
    InsertAll({QStringLiteral("b"), QStringLiteral("c")});
    m_list.Select(1);
    const TabId child = OpenFrom(a, QStringLiteral("a1"), true);
    Remove(m_list.IndexOf(a));
    Remove(m_list.IndexOf(child));
    EXPECT_EQ(GetCurrentTitle(), QStringLiteral("b"));
    m_list.SetOpener(child, a); // neither is open: nothing happens
    EXPECT_EQ(GetOrder(), QStringLiteral("home b c"));
}

TEST_F(TabListTest, WhatWasClosedComesBackLastFirst)
{
    InsertAll({QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")});
    EXPECT_FALSE(m_list.HasClosed());
    Remove(2);
    Remove(2);
    ASSERT_TRUE(m_list.HasClosed());
    const auto last = m_list.TakeClosed();
    ASSERT_TRUE(last);
    EXPECT_EQ(last->record.title, QStringLiteral("c"));
    EXPECT_EQ(last->index, 2);
    EXPECT_EQ(m_list.TakeClosed()->record.title, QStringLiteral("b"));
    EXPECT_FALSE(m_list.HasClosed());
    EXPECT_FALSE(m_list.TakeClosed());
}

TEST_F(TabListTest, ATabWithNothingToOpenAgainDoesNotComeBack)
{
    InsertAll({QStringLiteral("a"), QStringLiteral("b")});
    m_list.Remove(1, TabRecord());
    EXPECT_FALSE(m_list.HasClosed());
    TabRecord app;
    app.serviceCode = QStringLiteral("orders");
    m_list.Remove(1, app);
    EXPECT_EQ(m_list.TakeClosed()->record, app);
}

TEST_F(TabListTest, OnlySoManyComeBack)
{
    for (int i = 0; i < TabList::MostClosed + 3; ++i) {
        Insert(QStringLiteral("t%1").arg(i));
        Remove(1);
    }
    QString title;
    int count = 0;
    while (const auto closed = m_list.TakeClosed()) {
        title = closed->record.title;
        ++count;
    }
    EXPECT_EQ(count, TabList::MostClosed);
    EXPECT_EQ(title, QStringLiteral("t3")) << "the oldest are forgotten";
}

TEST_F(TabListTest, ClearingLeavesTheHomeTabAlone)
{
    InsertAll({QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")});
    Remove(1);
    m_list.Select(2);
    const QSignalSpy current(&m_list, &TabList::SigCurrentChanged);
    m_list.Clear();
    EXPECT_EQ(GetOrder(), QStringLiteral("home"));
    EXPECT_EQ(m_list.GetCurrent(), 0);
    EXPECT_FALSE(m_list.HasClosed());
    EXPECT_EQ(current.size(), 1);
    m_list.Clear();
    EXPECT_EQ(current.size(), 1);
}

TEST_F(TabListTest, SelectingSaysWhetherAnythingChanged)
{
    Insert(QStringLiteral("a"));
    const QSignalSpy current(&m_list, &TabList::SigCurrentChanged);
    EXPECT_FALSE(m_list.Select(0));
    EXPECT_FALSE(m_list.Select(2));
    EXPECT_FALSE(m_list.Select(-1));
    EXPECT_TRUE(m_list.Select(1));
    ASSERT_EQ(current.size(), 1);
    EXPECT_EQ(current.first().first().toInt(), 1);
}

TEST_F(TabListTest, ANewRecordIsAnnouncedAndLeavesThoseGivenAwayAlone)
{
    Insert(QStringLiteral("a"));
    const QVector<TabRecord> before = m_list.GetRecords();
    const QSignalSpy changed(&m_list, &TabList::SigChanged);
    TabRecord record = m_list.GetRecord(1);
    record.title = QStringLiteral("another");
    m_list.SetRecord(1, record);
    ASSERT_EQ(changed.size(), 1);
    EXPECT_EQ(changed.first().first().toInt(), 1);
    EXPECT_EQ(m_list.GetRecord(1), record);
    EXPECT_EQ(before.at(1).title, QStringLiteral("a"));
}

TEST_F(TabListTest, TheSameRecordIsAnnouncedButCopiesNothing)
{
    Insert(QStringLiteral("a"));
    const QVector<TabRecord> before = m_list.GetRecords();
    const QSignalSpy changed(&m_list, &TabList::SigChanged);
    m_list.SetRecord(1, before.at(1));
    EXPECT_EQ(changed.size(), 1) << "its picture may be another one";
    EXPECT_EQ(m_list.GetRecords().constData(), before.constData());
}

TEST_F(TabListTest, AllRecordsAreGivenAwayWithoutCopyingThem)
{
    for (int i = 0; i < 1000; ++i) {
        Insert(QStringLiteral("t%1").arg(i));
    }
    const QVector<TabRecord> one = m_list.GetRecords();
    const QVector<TabRecord> other = m_list.GetRecords();
    EXPECT_EQ(one.size(), 1001);
    EXPECT_EQ(one.constData(), other.constData());
}
