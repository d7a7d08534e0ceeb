#include "KeptTabsExamples.h"
#include "UserStore.h"

#include "app/tabs/EarlierTabs.h"
#include "app/tabs/KeptTabsText.h"

#include "settings-store/VXSettingManager.h"

#include <gtest/gtest.h>

using Fate = EarlierTabs::Fate;
using KeptTabsExamples::MakeTabs;

namespace {

const QString section = QStringLiteral("CLIENT");
const QString listField = QStringLiteral("EARLIER_TABS");

QString SlotField(int slot)
{
    return QStringLiteral("EARLIER_TABS_%1").arg(slot);
}

/// A set that differs from those of other numbers by its time and by how many tabs it has.
KeptTabs MakeSet(int number)
{
    KeptTabs set = MakeTabs(number);
    set.when = set.when.addSecs(number);
    return set;
}

QString TextOf(int number)
{
    return KeptTabsText::Write(MakeSet(number));
}

void SetValue(const QString& field, const QString& value)
{
    VXSettingManager::Instance()->SetUserValue(section, field, value);
}

QString GetValue(const QString& field)
{
    return VXSettingManager::Instance()->GetUserValue(section, field);
}

/// The numbers of the sets that are there.
QVector<int> GetNumbers()
{
    QVector<int> numbers;
    const QVector<EarlierTabs::Set> sets = EarlierTabs::GetSets();
    for (const EarlierTabs::Set& set : sets) {
        numbers.append(set.tabs.tabs.size());
    }
    return numbers;
}

} // namespace

class EarlierTabsTest : public ::testing::Test
{
protected:
    UserStore m_store;
};

TEST_F(EarlierTabsTest, WithoutAnyThereAreNone)
{
    EXPECT_TRUE(EarlierTabs::GetSets().isEmpty());
}

TEST_F(EarlierTabsTest, SetComesBackAsItsRunLeftIt)
{
    EarlierTabs::Add(TextOf(3), Fate::Declined);
    const QVector<EarlierTabs::Set> sets = EarlierTabs::GetSets();
    ASSERT_EQ(sets.size(), 1);
    EXPECT_EQ(sets.first().fate, Fate::Declined);
    EXPECT_TRUE(sets.first().whole);
    EXPECT_EQ(sets.first().tabs, MakeSet(3));
}

TEST_F(EarlierTabsTest, EveryFateComesBack)
{
    for (const Fate fate : {Fate::Dropped, Fate::Declined, Fate::Reopened, Fate::NotWhole}) {
        EarlierTabs::Add(TextOf(1), fate);
        EXPECT_EQ(EarlierTabs::GetSets().constFirst().fate, fate);
    }
}

TEST_F(EarlierTabsTest, NewestStandsFirstAndTheOldestMakesRoom)
{
    for (int number = 1; number <= 12; ++number) {
        EarlierTabs::Add(TextOf(number), Fate::Dropped);
        EXPECT_EQ(GetNumbers().constFirst(), number);
        EXPECT_LE(GetNumbers().size(), EarlierTabs::limit);
    }
    EXPECT_EQ(GetNumbers(), (QVector<int>{12, 11, 10, 9, 8}));
}

TEST_F(EarlierTabsTest, SameSetChangesItsFateAndIsNotDoubled)
{
    EarlierTabs::Add(TextOf(1), Fate::Dropped);
    EarlierTabs::Add(TextOf(2), Fate::Dropped);
    EarlierTabs::Add(TextOf(2), Fate::Declined);
    EXPECT_EQ(GetNumbers(), (QVector<int>{2, 1}));
    EXPECT_EQ(EarlierTabs::GetSets().constFirst().fate, Fate::Declined);
    EXPECT_EQ(EarlierTabs::GetSets().constLast().fate, Fate::Dropped);
}

TEST_F(EarlierTabsTest, SameSetAgainPushesNoneOfAFullListOut)
{
    for (int number = 1; number <= 5; ++number) {
        EarlierTabs::Add(TextOf(number), Fate::Dropped);
    }
    EarlierTabs::Add(TextOf(5), Fate::Reopened);
    EXPECT_EQ(GetNumbers(), (QVector<int>{5, 4, 3, 2, 1}));
}

TEST_F(EarlierTabsTest, DamagedListCostsTheOrderAndTheFatesOnly)
{
    for (int number = 1; number <= 5; ++number) {
        EarlierTabs::Add(TextOf(number), Fate::Declined);
    }
    const QString list = GetValue(listField);
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
        SetValue(listField, text);
        QVector<int> numbers = GetNumbers();
        std::sort(numbers.begin(), numbers.end());
        EXPECT_EQ(numbers, (QVector<int>{1, 2, 3, 4, 5})) << text.left(100).toStdString();
    }
    EarlierTabs::Add(TextOf(6), Fate::Declined);
    EXPECT_EQ(GetNumbers().size(), 5);
    EXPECT_EQ(GetNumbers().constFirst(), 6);
}

TEST_F(EarlierTabsTest, ListThatNamesASlotTwiceShowsItOnce)
{
    EarlierTabs::Add(TextOf(1), Fate::Dropped);
    SetValue(listField, QStringLiteral(R"([{"slot":0,"fate":2},{"slot":0,"fate":1},{"slot":3,"fate":1}])"));
    EXPECT_EQ(GetNumbers(), QVector<int>{1});
    EXPECT_EQ(EarlierTabs::GetSets().constFirst().fate, Fate::Reopened);
}

TEST_F(EarlierTabsTest, UnknownFateIsThatNobodyWasAsked)
{
    EarlierTabs::Add(TextOf(1), Fate::Reopened);
    for (const char* fate : {"4", "-1", "2147483647", "1e300", "\"1\"", "null"}) {
        SetValue(listField, QStringLiteral(R"([{"slot":0,"fate":%1}])").arg(QLatin1String(fate)));
        EXPECT_EQ(EarlierTabs::GetSets().constFirst().fate, Fate::Dropped) << fate;
    }
}

TEST_F(EarlierTabsTest, DamagedSetCostsOnlyItself)
{
    for (int number = 1; number <= 5; ++number) {
        EarlierTabs::Add(TextOf(number), Fate::Declined);
    }
    SetValue(SlotField(2), QStringLiteral("nothing that can be read"));
    EXPECT_EQ(GetNumbers(), (QVector<int>{5, 4, 2, 1}));
    SetValue(SlotField(1), QString());
    EXPECT_EQ(GetNumbers(), (QVector<int>{5, 4, 1}));
    SetValue(SlotField(3), TextOf(4).section(QLatin1Char('\n'), 0, 2));
    const QVector<EarlierTabs::Set> sets = EarlierTabs::GetSets();
    EXPECT_EQ(GetNumbers(), (QVector<int>{5, 2, 1}));
    EXPECT_TRUE(sets.at(0).whole);
    EXPECT_FALSE(sets.at(1).whole);
    EXPECT_EQ(sets.at(1).tabs.tabs, MakeTabs(2).tabs);
}

TEST_F(EarlierTabsTest, DamagedSetIsKeptAsItIs)
{
    const QString text = TextOf(3).chopped(7);
    EarlierTabs::Add(text, Fate::NotWhole);
    EXPECT_EQ(GetValue(SlotField(0)), text);
    EXPECT_FALSE(EarlierTabs::GetSets().constFirst().whole);
}

TEST_F(EarlierTabsTest, EachUserHasTheirOwn)
{
    EarlierTabs::Add(TextOf(1), Fate::Declined);
    UserStore::SignIn(QStringLiteral("other"));
    EXPECT_TRUE(EarlierTabs::GetSets().isEmpty());
    EarlierTabs::Add(TextOf(2), Fate::Declined);
    UserStore::SignIn(QStringLiteral("demo"));
    EXPECT_EQ(GetNumbers(), QVector<int>{1});
}

TEST_F(EarlierTabsTest, FiveSetsOfAThousandTabsAreKept)
{
    for (int number = 1; number <= 5; ++number) {
        KeptTabs set = MakeTabs(1000);
        set.when = set.when.addSecs(number);
        EarlierTabs::Add(KeptTabsText::Write(set), Fate::Dropped);
    }
    EXPECT_EQ(GetNumbers(), QVector<int>(5, 1000));
}
