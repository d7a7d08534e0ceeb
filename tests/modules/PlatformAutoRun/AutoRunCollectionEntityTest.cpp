#include "AutoRunCollectionEntity.h"

#include <QtCore/QFile>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>

#include <gtest/gtest.h>

#include <tuple>

namespace {

using Values = std::tuple<QString, QString, QString, bool, bool, bool, int>;

Values ValuesOf(const AutoRunInfoEntityPtr& entry)
{
    return {entry->itemId,  entry->name,       entry->url, entry->systemItem,
            entry->checked, entry->activeItem, entry->type};
}

QList<Values> ValuesOf(const QList<AutoRunInfoEntityPtr>& entries)
{
    QList<Values> values;
    for (const AutoRunInfoEntityPtr& entry : entries) {
        values.append(ValuesOf(entry));
    }
    return values;
}

AutoRunInfoEntityPtr Entry(const QString& itemId, int type = 0)
{
    const auto entry = AutoRunInfoEntityPtr::create();
    entry->itemId = itemId;
    entry->type = type;
    return entry;
}

QByteArray ReadSample(const char* name)
{
    QFile file(QStringLiteral(TL_AUTORUN_TEST_DATA "/") + QLatin1String(name));
    if (!file.open(QIODevice::ReadOnly)) {
        throw std::runtime_error(file.errorString().toStdString());
    }
    return file.readAll();
}

const Values Initial{QString(), QString(), QString(), false, false, false, 0};

} // namespace

TEST(AutoRunCollectionEntityTest, StoredSampleOfVersion1IsReadInFull)
{
    AutoRunCollectionEntity collection;
    ASSERT_TRUE(collection.Parse(ReadSample("configuration-v1.json")));
    EXPECT_EQ(collection.GetParseError(), QStringList());

    const QList<Values> systemItems{
        {QStringLiteral("FA2F7923-A7F9-4703-8255-B3218DFF6062"), QStringLiteral("Homepage"),
         QStringLiteral("https://home.example.com/"), true, true, false, 0},
        {QStringLiteral("9d1c2f0e-sys-2"),
         QString::fromUtf8("\xE6\xB6\x88\xE6\x81\xAF\xE4\xB8\xAD\xE5\xBF\x83"),
         QStringLiteral("https://messages.example.com/inbox?tab=1&sort=new"), true, false, false, 3}};
    const QList<Values> customItems{{QStringLiteral("{2c1f6f3a-51f9-4d0e-8f0f-2b9f6a1f0c11}"),
                                     QStringLiteral("Orders"), QStringLiteral("https://orders.example.com/"),
                                     false, true, true, 0}};
    const QList<Values> pluginItems{{QStringLiteral("{7b0a3f55-6f1c-4a7e-9a55-3f0f4a1d2e22}"),
                                     QStringLiteral("Stock"), QStringLiteral("stock"), false, true, false, 1},
                                    {QStringLiteral("{0e4d8c77-2a3b-4c5d-8e9f-a0b1c2d3e4f5}"), QString(),
                                     QStringLiteral("ledger"), false, false, false, 1}};
    EXPECT_EQ(ValuesOf(collection.systemItems), systemItems);
    EXPECT_EQ(ValuesOf(collection.customItems), customItems);
    EXPECT_EQ(ValuesOf(collection.pluginItems), pluginItems);
}

TEST(AutoRunCollectionEntityTest, WrittenAndReadAgainItHasTheSameListsInTheSameOrder)
{
    AutoRunCollectionEntity first;
    ASSERT_TRUE(first.Parse(ReadSample("configuration-v1.json")));
    AutoRunCollectionEntity second;
    ASSERT_TRUE(second.Parse(first.ToJson()));

    EXPECT_EQ(ValuesOf(second.systemItems), ValuesOf(first.systemItems));
    EXPECT_EQ(ValuesOf(second.customItems), ValuesOf(first.customItems));
    EXPECT_EQ(ValuesOf(second.pluginItems), ValuesOf(first.pluginItems));
    EXPECT_EQ(second.ToJson(), first.ToJson());
    // Nothing was lost on the way out either: the sample's own JSON comes back.
    EXPECT_EQ(first.ToJsonObject(), QJsonDocument::fromJson(ReadSample("configuration-v1.json")).object());
}

TEST(AutoRunCollectionEntityTest, IsWrittenCompactWithSortedKeys)
{
    AutoRunCollectionEntity collection;
    EXPECT_EQ(collection.ToJson(), QByteArray(R"({"customItems":[],"pluginItems":[],"systemItems":[]})"));

    collection.pluginItems.append(Entry(QStringLiteral("a"), 1));
    EXPECT_EQ(
        collection.ToJson(),
        QByteArray(R"({"customItems":[],"pluginItems":[{"activeItem":false,"checked":false,"itemId":"a",)"
                   R"("name":"","systemItem":false,"type":1,"url":""}],"systemItems":[]})"));
}

TEST(AutoRunCollectionEntityTest, EmptyArrayGivesAnEmptyList)
{
    AutoRunCollectionEntity collection;
    collection.systemItems.append(Entry(QStringLiteral("old")));
    EXPECT_TRUE(collection.Parse(QByteArray(R"({"systemItems":[]})")));
    EXPECT_TRUE(collection.systemItems.isEmpty());
}

TEST(AutoRunCollectionEntityTest, MissingKeyLeavesTheListEmptyOnAFreshCollection)
{
    AutoRunCollectionEntity collection;
    EXPECT_TRUE(collection.Parse(QByteArray(R"({"customItems":[{"itemId":"c"}]})")));
    EXPECT_TRUE(collection.systemItems.isEmpty());
    EXPECT_EQ(collection.customItems.size(), 1);
}

TEST(AutoRunCollectionEntityTest, ElementThatIsNoObjectGivesAnEntryWithInitialValues)
{
    AutoRunCollectionEntity collection;
    EXPECT_TRUE(collection.Parse(QByteArray(R"({"systemItems":[17,{"itemId":"b"},"text",null,[]]})")));
    ASSERT_EQ(collection.systemItems.size(), 5);
    EXPECT_EQ(ValuesOf(collection.systemItems.at(0)), Initial);
    EXPECT_EQ(collection.systemItems.at(1)->itemId, QStringLiteral("b"));
    EXPECT_EQ(ValuesOf(collection.systemItems.at(2)), Initial);
    EXPECT_EQ(ValuesOf(collection.systemItems.at(3)), Initial);
    EXPECT_EQ(ValuesOf(collection.systemItems.at(4)), Initial);
}

TEST(AutoRunCollectionEntityTest, WrongMemberOfAnElementKeepsItsInitialValueAndIsNoErrorOfTheCollection)
{
    AutoRunCollectionEntity collection;
    EXPECT_TRUE(collection.Parse(
        QByteArray(R"({"pluginItems":[{"itemId":7,"checked":"true","type":"1","url":"stock"}]})")));
    EXPECT_EQ(collection.GetParseError(), QStringList());
    ASSERT_EQ(collection.pluginItems.size(), 1);
    const Values expected{QString(), QString(), QStringLiteral("stock"), false, false, false, 0};
    EXPECT_EQ(ValuesOf(collection.pluginItems.first()), expected);
}

TEST(AutoRunCollectionEntityTest, ListThatIsNoArrayEmptiesTheList)
{
    AutoRunCollectionEntity collection;
    collection.systemItems.append(Entry(QStringLiteral("old")));
    EXPECT_TRUE(collection.Parse(QByteArray(R"({"systemItems":"none"})")));
    EXPECT_TRUE(collection.systemItems.isEmpty());
}

TEST(AutoRunCollectionEntityTest, ParsingAgainReplacesTheNamedListsAndLeavesTheOthers)
{
    AutoRunCollectionEntity collection;
    ASSERT_TRUE(collection.Parse(
        QByteArray(R"({"systemItems":[{"itemId":"s1"},{"itemId":"s2"}],"customItems":[{"itemId":"c1"}]})")));
    const AutoRunInfoEntityPtr kept = collection.customItems.first();
    const QWeakPointer<AutoRunInfoEntity> old = collection.systemItems.first();

    ASSERT_TRUE(collection.Parse(QByteArray(R"({"systemItems":[{"itemId":"s3"}]})")));
    ASSERT_EQ(collection.systemItems.size(), 1);
    EXPECT_EQ(collection.systemItems.first()->itemId, QStringLiteral("s3"));
    EXPECT_TRUE(old.isNull()) << "the old entries are released";
    ASSERT_EQ(collection.customItems.size(), 1);
    EXPECT_EQ(collection.customItems.first(), kept);
}

TEST(AutoRunCollectionEntityTest, EmptyPointerInAListIsWrittenWithoutAnElement)
{
    AutoRunCollectionEntity collection;
    collection.customItems.append(Entry(QStringLiteral("a")));
    collection.customItems.append(AutoRunInfoEntityPtr());
    collection.customItems.append(Entry(QStringLiteral("b")));
    const QJsonArray written = collection.ToJsonObject().value(QStringLiteral("customItems")).toArray();
    ASSERT_EQ(written.size(), 2);
    EXPECT_EQ(written.at(0).toObject().value(QStringLiteral("itemId")), QJsonValue(QStringLiteral("a")));
    EXPECT_EQ(written.at(1).toObject().value(QStringLiteral("itemId")), QJsonValue(QStringLiteral("b")));
}

TEST(AutoRunCollectionEntityTest, CopiedListSharesTheEntries)
{
    AutoRunCollectionEntity first;
    first.customItems.append(Entry(QStringLiteral("a")));
    AutoRunCollectionEntity second;
    second.customItems = first.customItems;
    first.customItems.first()->checked = true;
    EXPECT_TRUE(second.customItems.first()->checked);
}
