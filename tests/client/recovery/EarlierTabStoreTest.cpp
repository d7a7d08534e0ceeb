#include "TabSetExamples.h"
#include "UserStore.h"

#include "TabSetText.h"
#include "recovery/EarlierTabStore.h"

#include "settings-store/VXSettingManager.h"

#include <gtest/gtest.h>

using Fate = EarlierTabStore::Fate;
using TabSetExamples::MakeTabs;

namespace {

const QString Section = QStringLiteral("CLIENT");
const QString ListField = QStringLiteral("EARLIER_TABS");

QString SlotField(int slot)
{
    return QStringLiteral("EARLIER_TABS_%1").arg(slot);
}

/// A set that differs from those with other numbers in its time and its count of tabs.
TabSet MakeSet(int number)
{
    TabSet set = MakeTabs(number);
    set.when = set.when.addSecs(number);
    return set;
}

QString TextOf(int number)
{
    return TabSetText::Write(MakeSet(number));
}

void SetValue(const QString& field, const QString& value)
{
    VXSettingManager::Instance()->SetUserValue(Section, field, value);
}

QString GetValue(const QString& field)
{
    return VXSettingManager::Instance()->GetUserValue(Section, field);
}

/// The numbers of the stored sets.
QVector<int> GetNumbers()
{
    QVector<int> numbers;
    const QVector<EarlierTabStore::Set> sets = EarlierTabStore::GetSets();
    for (const EarlierTabStore::Set& set : sets) {
        numbers.append(set.tabs.tabs.size());
    }
    return numbers;
}

} // namespace

class EarlierTabStoreTest : public ::testing::Test
{
protected:
    UserStore m_store;
};

TEST_F(EarlierTabStoreTest, WithoutAnyThereAreNone)
{
    EXPECT_TRUE(EarlierTabStore::GetSets().isEmpty());
}

TEST_F(EarlierTabStoreTest, SetComesBackAsItsRunLeftIt)
{
    EarlierTabStore::Add(TextOf(3), Fate::Declined);
    const QVector<EarlierTabStore::Set> sets = EarlierTabStore::GetSets();
    ASSERT_EQ(sets.size(), 1);
    EXPECT_EQ(sets.first().fate, Fate::Declined);
    EXPECT_TRUE(sets.first().whole);
    EXPECT_EQ(sets.first().tabs, MakeSet(3));
}

TEST_F(EarlierTabStoreTest, EveryFateComesBack)
{
    for (const Fate fate : {Fate::Dropped, Fate::Declined, Fate::Reopened, Fate::NotWhole}) {
        EarlierTabStore::Add(TextOf(1), fate);
        EXPECT_EQ(EarlierTabStore::GetSets().constFirst().fate, fate);
    }
}

TEST_F(EarlierTabStoreTest, NewestStandsFirstAndTheOldestMakesRoom)
{
    for (int number = 1; number <= 12; ++number) {
        EarlierTabStore::Add(TextOf(number), Fate::Dropped);
        EXPECT_EQ(GetNumbers().constFirst(), number);
        EXPECT_LE(GetNumbers().size(), EarlierTabStore::Limit);
    }
    EXPECT_EQ(GetNumbers(), (QVector<int>{12, 11, 10, 9, 8}));
}

TEST_F(EarlierTabStoreTest, SameSetChangesItsFateAndIsNotDoubled)
{
    EarlierTabStore::Add(TextOf(1), Fate::Dropped);
    EarlierTabStore::Add(TextOf(2), Fate::Dropped);
    EarlierTabStore::Add(TextOf(2), Fate::Declined);
    EXPECT_EQ(GetNumbers(), (QVector<int>{2, 1}));
    EXPECT_EQ(EarlierTabStore::GetSets().constFirst().fate, Fate::Declined);
    EXPECT_EQ(EarlierTabStore::GetSets().constLast().fate, Fate::Dropped);
}

TEST_F(EarlierTabStoreTest, SameSetAgainPushesNoneOfAFullListOut)
{
    for (int number = 1; number <= 5; ++number) {
        EarlierTabStore::Add(TextOf(number), Fate::Dropped);
    }
    EarlierTabStore::Add(TextOf(5), Fate::Reopened);
    EXPECT_EQ(GetNumbers(), (QVector<int>{5, 4, 3, 2, 1}));
}

TEST_F(EarlierTabStoreTest, DamagedListCostsTheOrderAndTheFatesOnly)
{
    for (int number = 1; number <= 5; ++number) {
        EarlierTabStore::Add(TextOf(number), Fate::Declined);
    }
    const QString list = GetValue(ListField);
    QStringList damaged{QString(),
                        QStringLiteral("null"),
                        QStringLiteral("[]"),
                        QStringLiteral("{}"),
                        QStringLiteral("[1,2,3]"),
                        QStringLiteral(R"([{"slot":-1},{"slot":5},{"slot":1e9}])"),
                        QStringLiteral(R"([{"slot":"0"},{"fate":1},{}])"),
                        QString(5000, QLatin1Char('['))};
    for (int size = 1; size < list.size(); ++size) {
        damaged.append(list.left(size));
    }
    for (const QString& text : qAsConst(damaged)) {
        SetValue(ListField, text);
        QVector<int> numbers = GetNumbers();
        std::sort(numbers.begin(), numbers.end());
        EXPECT_EQ(numbers, (QVector<int>{1, 2, 3, 4, 5})) << text.left(100).toStdString();
    }
    EarlierTabStore::Add(TextOf(6), Fate::Declined);
    EXPECT_EQ(GetNumbers().size(), 5);
    EXPECT_EQ(GetNumbers().constFirst(), 6);
}

TEST_F(EarlierTabStoreTest, ListThatNamesASlotTwiceShowsItOnce)
{
    EarlierTabStore::Add(TextOf(1), Fate::Dropped);
    SetValue(ListField, QStringLiteral(R"([{"slot":0,"fate":2},{"slot":0,"fate":1},{"slot":3,"fate":1}])"));
    EXPECT_EQ(GetNumbers(), QVector<int>{1});
    EXPECT_EQ(EarlierTabStore::GetSets().constFirst().fate, Fate::Reopened);
}

TEST_F(EarlierTabStoreTest, UnknownFateIsThatNobodyWasAsked)
{
    EarlierTabStore::Add(TextOf(1), Fate::Reopened);
    for (const char* fate : {"4", "-1", "2147483647", "1e300", "\"1\"", "null"}) {
        SetValue(ListField, QStringLiteral(R"([{"slot":0,"fate":%1}])").arg(QLatin1String(fate)));
        EXPECT_EQ(EarlierTabStore::GetSets().constFirst().fate, Fate::Dropped) << fate;
    }
}

TEST_F(EarlierTabStoreTest, DamagedSetCostsOnlyItself)
{
    for (int number = 1; number <= 5; ++number) {
        EarlierTabStore::Add(TextOf(number), Fate::Declined);
    }
    SetValue(SlotField(2), QStringLiteral("nothing that can be read"));
    EXPECT_EQ(GetNumbers(), (QVector<int>{5, 4, 2, 1}));
    SetValue(SlotField(1), QString());
    EXPECT_EQ(GetNumbers(), (QVector<int>{5, 4, 1}));
    SetValue(SlotField(3), TextOf(4).section(QLatin1Char('\n'), 0, 2));
    const QVector<EarlierTabStore::Set> sets = EarlierTabStore::GetSets();
    EXPECT_EQ(GetNumbers(), (QVector<int>{5, 2, 1}));
    EXPECT_TRUE(sets.at(0).whole);
    EXPECT_FALSE(sets.at(1).whole);
    EXPECT_EQ(sets.at(1).tabs.tabs, MakeTabs(2).tabs);
}

TEST_F(EarlierTabStoreTest, DamagedSetIsKeptAsItIs)
{
    const QString text = TextOf(3).chopped(7);
    EarlierTabStore::Add(text, Fate::NotWhole);
    EXPECT_EQ(GetValue(SlotField(0)), text);
    EXPECT_FALSE(EarlierTabStore::GetSets().constFirst().whole);
}

TEST_F(EarlierTabStoreTest, EachUserHasTheirOwn)
{
    EarlierTabStore::Add(TextOf(1), Fate::Declined);
    UserStore::SignIn(QStringLiteral("other"));
    EXPECT_TRUE(EarlierTabStore::GetSets().isEmpty());
    EarlierTabStore::Add(TextOf(2), Fate::Declined);
    UserStore::SignIn(QStringLiteral("demo"));
    EXPECT_EQ(GetNumbers(), QVector<int>{1});
}

TEST_F(EarlierTabStoreTest, FiveSetsOfAThousandTabsAreKept)
{
    for (int number = 1; number <= 5; ++number) {
        TabSet set = MakeTabs(1000);
        set.when = set.when.addSecs(number);
        EarlierTabStore::Add(TabSetText::Write(set), Fate::Dropped);
    }
    EXPECT_EQ(GetNumbers(), QVector<int>(5, 1000));
}
