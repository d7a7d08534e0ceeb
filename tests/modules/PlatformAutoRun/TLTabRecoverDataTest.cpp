#include "TLTabRecoverData.h"

#include "TabRecordTest.h"

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QMetaProperty>

#include <gmock/gmock.h>

using ::testing::ElementsAre;

namespace {

class TLTabRecoverDataTest : public TabRecordTest
{
protected:
    static TabRecoverItem Item(const char* routerUrl, const char* title, const char* icon, int type)
    {
        TabRecoverItem item;
        item.routerUrl = QString::fromUtf8(routerUrl);
        item.title = QString::fromUtf8(title);
        item.icon = QString::fromUtf8(icon);
        item.type = type;
        return item;
    }

    /// What was read from bytes that nobody wrote must at least be writable and readable again.
    static void ReadAndWriteAgain(const QByteArray& json)
    {
        TLTabRecoverData first;
        first.Parse(json);
        TLTabRecoverData second;
        ASSERT_TRUE(second.Parse(first.ToJson())) << json.constData();
        ASSERT_EQ(second.belongType, first.belongType) << json.constData();
        ASSERT_EQ(second.tabRecoverItems, first.tabRecoverItems) << json.constData();
    }

    TLTabRecoverData data;
};

} // namespace

TEST_F(TLTabRecoverDataTest, DeclaresBelongTypeThenItems)
{
    const QMetaObject& metaObject = TLTabRecoverData::staticMetaObject;
    EXPECT_STREQ(metaObject.className(), "TLTabRecoverData");
    EXPECT_EQ(metaObject.superClass(), &VXJsonParserBase::staticMetaObject);
    std::vector<std::string> declared;
    for (int i = metaObject.propertyOffset(); i < metaObject.propertyCount(); ++i) {
        const QMetaProperty property = metaObject.property(i);
        EXPECT_TRUE(property.isReadable() && property.isWritable()) << property.name();
        declared.push_back(std::string(property.typeName()) + " " + property.name());
    }
    EXPECT_THAT(declared, ElementsAre("QString belongType", "QList<TabRecoverItem> tabRecoverItems"));
}

TEST_F(TLTabRecoverDataTest, StoredSampleOfVersion1IsReadInFull)
{
    ASSERT_TRUE(data.Parse(ReadSample("recovery-record-v1.json")));
    EXPECT_EQ(data.GetParseError(), QStringList());
    EXPECT_EQ(data.belongType, QStringLiteral("merchant"));
    const QList<TabRecoverItem> expected{
        Item("tl://browser/open?url=https%3A%2F%2Forders.example.com%2F", "Orders",
             "https://orders.example.com/favicon.ico", 3),
        Item("tl://plugin/open?code=stock", "Stock \"A\" & B\\C", "https://apps.example.com/stock.png", 4),
        Item("tl://plugin/open?code=ledger", "\xE8\xB4\xA6\xE6\x9C\xAC", "", 5),
        Item("tl://browser/open?url=https%3A%2F%2Fmessages.example.com%2F", "", "", 3)};
    EXPECT_EQ(data.tabRecoverItems, expected);
}

TEST_F(TLTabRecoverDataTest, StoredSampleOfVersion1IsWrittenBackByteByByte)
{
    ASSERT_TRUE(data.Parse(ReadSample("recovery-record-v1.json")));
    EXPECT_EQ(data.ToJson(), ReadSample("recovery-record-v1.json"));
}

TEST_F(TLTabRecoverDataTest, WrittenAndReadAgainItHasTheSameItemsInTheSameOrder)
{
    data.belongType = QStringLiteral("merchant");
    data.tabRecoverItems << Item("tl://z", "last letter first", "", 3) << Item("tl://a", "", "tl://icon", 5)
                         << Item("tl://z", "again", "", -2147483647 - 1) << TabRecoverItem();
    TLTabRecoverData again;
    ASSERT_TRUE(again.Parse(data.ToJson()));
    EXPECT_EQ(again.belongType, data.belongType);
    EXPECT_EQ(again.tabRecoverItems, data.tabRecoverItems);
}

TEST_F(TLTabRecoverDataTest, EmptyRecordIsWrittenWithBothMembers)
{
    EXPECT_EQ(data.ToJson(), QByteArray(R"({"belongType":"","tabRecoverItems":[]})"));
}

TEST_F(TLTabRecoverDataTest, TextThatIsNotJsonGivesAnEmptyBelongTypeAndNoItems)
{
    for (const char* text : {"", " ", "not JSON", "{", "null", "17", "[]", "[{\"belongType\":\"merchant\"}]",
                             "{\"belongType\":\"merchant\"", "\xFF\xFE", "{\"belongType\":\"merchant\"}}"}) {
        TLTabRecoverData record;
        EXPECT_FALSE(record.Parse(QByteArray(text))) << text;
        EXPECT_EQ(record.belongType, QString()) << text;
        EXPECT_TRUE(record.tabRecoverItems.isEmpty()) << text;
    }
}

TEST_F(TLTabRecoverDataTest, MalformedElementStillYieldsAnItemWithInitialValues)
{
    EXPECT_TRUE(data.Parse(QByteArray(
        R"({"tabRecoverItems":[17,{"title":"b"},"text",null,[],{"type":"3","title":7,"icon":"i"},{"type":1.5}]})")));
    EXPECT_EQ(data.GetParseError(), QStringList());
    const TabRecoverItem initial;
    const QList<TabRecoverItem> expected{initial, Item("", "b", "", 0), initial, initial,
                                         initial, Item("", "", "i", 0), initial};
    EXPECT_EQ(data.tabRecoverItems, expected);
}

TEST_F(TLTabRecoverDataTest, ItemsThatAreNoArrayAreNoItems)
{
    for (const char* items : {"null", "{}", "\"text\"", "17", "true", "[]"}) {
        data.tabRecoverItems = {Item("tl://old", "", "", 3)};
        EXPECT_TRUE(data.Parse(QByteArray("{\"tabRecoverItems\":") + items + "}")) << items;
        EXPECT_TRUE(data.tabRecoverItems.isEmpty()) << items;
    }
}

TEST_F(TLTabRecoverDataTest, ParsedAgainTheItemsAreReplacedNotAppended)
{
    ASSERT_TRUE(data.Parse(ReadSample("recovery-record-v1.json")));
    ASSERT_TRUE(data.Parse(QByteArray(R"({"tabRecoverItems":[{"title":"only"}]})")));
    EXPECT_EQ(data.tabRecoverItems, QList<TabRecoverItem>{Item("", "only", "", 0)});
    EXPECT_EQ(data.belongType, QStringLiteral("merchant")) << "a missing key leaves the value alone";
}

TEST_F(TLTabRecoverDataTest, UnknownKeysOfALaterVersionAreIgnored)
{
    EXPECT_TRUE(data.Parse(QByteArray(
        R"({"version":2,"belongType":"merchant","windows":[{"x":1}],"objectName":"n",)"
        R"("tabRecoverItems":[{"routerUrl":"tl://a","pinned":true,"type":3,"history":{"back":[]}}]})")));
    EXPECT_EQ(data.belongType, QStringLiteral("merchant"));
    EXPECT_EQ(data.tabRecoverItems, QList<TabRecoverItem>{Item("tl://a", "", "", 3)});
    EXPECT_EQ(data.objectName(), QString());
}

TEST_F(TLTabRecoverDataTest, OddContentIsKeptAsItIs)
{
    const QString everything = QString::fromUtf8("\"\\/\b\f\n\r\t\x01 <b>&amp;</b> %41 \xF0\x9F\x9B\x92 ") +
                               QChar(0x202E) + QChar(0) + QChar(0xFEFF);
    data.belongType = everything;
    TabRecoverItem item;
    item.routerUrl = everything;
    item.title = QString(1000000, QChar(0x8d26));
    item.icon = everything;
    item.type = 2147483647;
    data.tabRecoverItems << item;
    TLTabRecoverData again;
    ASSERT_TRUE(again.Parse(data.ToJson()));
    EXPECT_EQ(again.belongType, everything);
    EXPECT_EQ(again.tabRecoverItems, data.tabRecoverItems);
}

TEST_F(TLTabRecoverDataTest, HundredThousandItemsAreRead)
{
    QByteArray json = R"({"belongType":"merchant","tabRecoverItems":[)";
    for (int i = 0; i < 100000; ++i) {
        json += "{\"type\":" + QByteArray::number(i) + "},";
    }
    json += "{}]}";
    EXPECT_TRUE(data.Parse(json));
    ASSERT_EQ(data.tabRecoverItems.size(), 100001);
    EXPECT_EQ(data.tabRecoverItems.at(99999).type, 99999);
}

TEST_F(TLTabRecoverDataTest, DeepNestingIsNoRecord)
{
    const QByteArray deep =
        QByteArray(R"({"tabRecoverItems":)") + QByteArray(100000, '[') + QByteArray(100000, ']') + "}";
    EXPECT_FALSE(data.Parse(deep));
    EXPECT_TRUE(data.tabRecoverItems.isEmpty());
}

TEST_F(TLTabRecoverDataTest, CutAtAnyByteItIsEmpty)
{
    const QByteArray sample = ReadSample("recovery-record-v1.json");
    for (int length = 0; length < sample.size(); ++length) {
        TLTabRecoverData record;
        EXPECT_FALSE(record.Parse(sample.left(length))) << length;
        EXPECT_EQ(record.belongType, QString()) << length;
        EXPECT_TRUE(record.tabRecoverItems.isEmpty()) << length;
    }
}

TEST_F(TLTabRecoverDataTest, AnyByteFlippedItIsReadWithoutHarm)
{
    const QByteArray sample = ReadSample("recovery-record-v1.json");
    for (int i = 0; i < sample.size(); ++i) {
        for (const int mask : {0x01, 0x02, 0x04, 0x08, 0x10, 0x20, 0x40, 0x80, 0xFF}) {
            QByteArray damaged = sample;
            damaged[i] = static_cast<char>(damaged.at(i) ^ mask);
            ReadAndWriteAgain(damaged);
        }
    }
}

TEST_F(TLTabRecoverDataTest, AnyByteLostOrDoubledItIsReadWithoutHarm)
{
    const QByteArray sample = ReadSample("recovery-record-v1.json");
    for (int i = 0; i < sample.size(); ++i) {
        ReadAndWriteAgain(QByteArray(sample).remove(i, 1));
        ReadAndWriteAgain(QByteArray(sample).insert(i, sample.at(i)));
    }
}
