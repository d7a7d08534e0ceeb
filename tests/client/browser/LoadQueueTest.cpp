#include "LoadQueue.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QStringList>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

#include <gtest/gtest.h>

namespace {

constexpr int Never = 1000 * 1000; // [ms]

TabRecord MakePage(const QString& routerUrl)
{
    TabRecord record;
    record.routerUrl = routerUrl;
    return record;
}

/// All router URLs that begin with "set" belong to the set.
std::optional<TabRecord> ClaimSet(const QString& routerUrl)
{
    if (!routerUrl.startsWith(QLatin1String("set"))) {
        return std::nullopt;
    }
    TabRecord record;
    record.title = QStringLiteral("saved title");
    record.iconUrl = QStringLiteral("saved icon");
    return record;
}

class LoadQueueTest : public ::testing::Test
{
protected:
    explicit LoadQueueTest(int frontGoesFirst = Never)
        : m_queue(frontGoesFirst, [this] { return m_pageInFront; })
    {
        QObject::connect(&m_queue, &LoadQueue::SigTurn, &m_queue, [this](TabId tab) { m_turns << tab; });
    }

    /// Admits the pages 1 to `count` of a set and appends those that load.
    void Reopen(int count, int loading)
    {
        m_queue.Begin(&ClaimSet, loading);
        for (int i = 1; i <= count; ++i) {
            TabRecord record = MakePage(QStringLiteral("set %1").arg(i));
            if (m_queue.Admit(record, false)) {
                m_queue.Append(TabId(i));
            }
        }
        m_queue.End();
    }
    /// Runs what stands in the event loop now; tabs may follow in later turns.
    static void RunTurn() { QCoreApplication::processEvents(); }
    bool WaitForTurns(int count)
    {
        return QTest::qWaitFor([this, count] { return m_turns.size() >= count; });
    }

    bool m_pageInFront = false;
    QList<TabId> m_turns;
    LoadQueue m_queue;
};

class ShortLoadQueueTest : public LoadQueueTest
{
protected:
    ShortLoadQueueTest() : LoadQueueTest(1) {}
};

} // namespace

TEST_F(LoadQueueTest, ATabOfTheSetStaysUnloadedAndGetsTheSavedFace)
{
    m_queue.Begin(&ClaimSet, 1);
    TabRecord first = MakePage(QStringLiteral("set 1"));
    EXPECT_TRUE(m_queue.Admit(first, false));
    EXPECT_TRUE(first.delayed);
    EXPECT_EQ(first.title, QStringLiteral("saved title"));
    EXPECT_EQ(first.iconUrl, QStringLiteral("saved icon"));

    TabRecord second = MakePage(QStringLiteral("set 2"));
    second.iconUrl = QStringLiteral("own icon");
    EXPECT_FALSE(m_queue.Admit(second, false)) << "only one was to load";
    EXPECT_TRUE(second.delayed);
    EXPECT_EQ(second.iconUrl, QStringLiteral("own icon"));

    TabRecord titled = MakePage(QStringLiteral("set 3"));
    titled.title = QStringLiteral("own title");
    m_queue.Admit(titled, false);
    EXPECT_EQ(titled.title, QStringLiteral("own title"));
    EXPECT_EQ(titled.iconUrl, QString()) << "title and icon are of one opener";
}

TEST_F(LoadQueueTest, ATabThatIsDelayedOrComesToTheFrontDoesNotCount)
{
    m_queue.Begin(&ClaimSet, 1);
    TabRecord delayed = MakePage(QStringLiteral("set 1"));
    delayed.delayed = true;
    EXPECT_FALSE(m_queue.Admit(delayed, false));
    TabRecord front = MakePage(QStringLiteral("set 2"));
    EXPECT_FALSE(m_queue.Admit(front, true));
    EXPECT_FALSE(front.delayed);
    EXPECT_EQ(front.title, QStringLiteral("saved title"));
    TabRecord third = MakePage(QStringLiteral("set 3"));
    EXPECT_TRUE(m_queue.Admit(third, false));
}

TEST_F(LoadQueueTest, ATabOfNoSetIsLeftAlone)
{
    TabRecord before = MakePage(QStringLiteral("set 1"));
    EXPECT_FALSE(m_queue.Admit(before, false)) << "no set is being reopened";
    m_queue.Begin(&ClaimSet, 1);
    TabRecord other = MakePage(QStringLiteral("other"));
    EXPECT_FALSE(m_queue.Admit(other, false));
    m_queue.End();
    TabRecord after = MakePage(QStringLiteral("set 1"));
    EXPECT_FALSE(m_queue.Admit(after, false));
    EXPECT_EQ(before, MakePage(QStringLiteral("set 1")));
    EXPECT_EQ(other, MakePage(QStringLiteral("other")));
    EXPECT_EQ(after, MakePage(QStringLiteral("set 1")));
}

TEST_F(LoadQueueTest, WithoutAPageInFrontTheFirstLoadOneByOne)
{
    const QSignalSpy empty(&m_queue, &LoadQueue::SigEmpty);
    QObject::connect(&m_queue, &LoadQueue::SigTurn, &m_queue, [&](TabId tab) {
        EXPECT_EQ(m_queue.IsEmpty(), tab == 3);
        EXPECT_EQ(empty.size(), 0);
    });
    Reopen(5, 3);
    EXPECT_TRUE(m_turns.isEmpty()) << "the right tab is yet to be brought to the front";
    EXPECT_FALSE(m_queue.IsEmpty());
    ASSERT_TRUE(WaitForTurns(3));
    EXPECT_EQ(m_turns, QList<TabId>({1, 2, 3}));
    EXPECT_TRUE(m_queue.IsEmpty());
    EXPECT_EQ(empty.size(), 1);
}

TEST_F(LoadQueueTest, ThePageInFrontGoesFirst)
{
    Reopen(2, 2);
    m_pageInFront = true;
    RunTurn();
    RunTurn();
    EXPECT_TRUE(m_turns.isEmpty());
    m_queue.HandleFrontLoaded();
    EXPECT_EQ(m_turns, QList<TabId>({1}));
    m_queue.HandleFrontLoaded(); // another page that came to the front has loaded
    EXPECT_EQ(m_turns, QList<TabId>({1}));
    EXPECT_TRUE(WaitForTurns(2));
}

TEST_F(ShortLoadQueueTest, ThePageInFrontDoesNotHoldThemUpForEver)
{
    m_pageInFront = true;
    Reopen(2, 2);
    EXPECT_TRUE(WaitForTurns(2));
}

TEST_F(LoadQueueTest, ASecondSetIsAppendedToTheFirst)
{
    m_pageInFront = true;
    Reopen(2, 2);
    RunTurn();
    m_queue.HandleFrontLoaded();
    m_queue.Begin(&ClaimSet, 1);
    TabRecord record = MakePage(QStringLiteral("set 9"));
    ASSERT_TRUE(m_queue.Admit(record, false)) << "each set has its own first tabs";
    m_queue.Append(9);
    m_queue.End();
    ASSERT_TRUE(WaitForTurns(3));
    EXPECT_EQ(m_turns, QList<TabId>({1, 2, 9}));
}

TEST_F(LoadQueueTest, AnEmptySetStartsNothing)
{
    const QSignalSpy empty(&m_queue, &LoadQueue::SigEmpty);
    m_queue.Begin(&ClaimSet, 3);
    m_queue.End();
    RunTurn();
    m_queue.HandleFrontLoaded();
    EXPECT_TRUE(m_turns.isEmpty());
    EXPECT_EQ(empty.size(), 0);
}
