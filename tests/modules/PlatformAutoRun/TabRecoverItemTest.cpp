#include "TabRecoverItem.h"

#include <QtCore/QJsonObject>
#include <QtCore/QMetaProperty>

#include <gmock/gmock.h>

using ::testing::ElementsAre;

namespace {

TabRecoverItem StockItem()
{
    TabRecoverItem item;
    item.routerUrl = QStringLiteral("tl://plugin/open?code=stock");
    item.title = QStringLiteral("Stock");
    item.icon = QStringLiteral("https://apps.example.com/stock.png");
    item.type = 4;
    return item;
}

} // namespace

TEST(TabRecoverItemTest, BeginsEmptyWithType0)
{
    const TabRecoverItem item;
    EXPECT_EQ(item.routerUrl, QString());
    EXPECT_EQ(item.title, QString());
    EXPECT_EQ(item.icon, QString());
    EXPECT_EQ(item.type, 0);
}

TEST(TabRecoverItemTest, DeclaresItsFourPropertiesInOrderAndEachIsReadableAndWritable)
{
    const QMetaObject& metaObject = TabRecoverItem::staticMetaObject;
    EXPECT_STREQ(metaObject.className(), "TabRecoverItem");
    EXPECT_EQ(metaObject.superClass(), &VXJsonParserBase::staticMetaObject);
    std::vector<std::string> declared;
    for (int i = metaObject.propertyOffset(); i < metaObject.propertyCount(); ++i) {
        const QMetaProperty property = metaObject.property(i);
        EXPECT_TRUE(property.isReadable() && property.isWritable()) << property.name();
        declared.push_back(std::string(property.typeName()) + " " + property.name());
    }
    EXPECT_THAT(declared, ElementsAre("QString routerUrl", "QString title", "QString icon", "int type"));
}

TEST(TabRecoverItemTest, IsReadFromJsonUnderThePropertiesNames)
{
    TabRecoverItem item;
    EXPECT_TRUE(item.Parse(QByteArray(
        R"({"type":4,"title":"Stock","routerUrl":"tl://plugin/open?code=stock","icon":"https://apps.example.com/stock.png"})")));
    EXPECT_EQ(item, StockItem());
}

TEST(TabRecoverItemTest, IsWrittenAsFourMembers)
{
    EXPECT_EQ(
        StockItem().ToJson(),
        QByteArray(
            R"({"icon":"https://apps.example.com/stock.png","routerUrl":"tl://plugin/open?code=stock","title":"Stock","type":4})"));
    EXPECT_EQ(TabRecoverItem().ToJson(), QByteArray(R"({"icon":"","routerUrl":"","title":"","type":0})"));
}

TEST(TabRecoverItemTest, WrittenAndReadAgainItIsEqual)
{
    TabRecoverItem again;
    EXPECT_TRUE(again.Parse(StockItem().ToJson()));
    EXPECT_EQ(again, StockItem());
}

TEST(TabRecoverItemTest, CopyHasTheFieldsAndTheParseErrorsAndIsIndependent)
{
    TabRecoverItem original = StockItem();
    EXPECT_FALSE(original.Parse(QByteArray(R"({"type":"four"})")));
    ASSERT_EQ(original.GetParseError().size(), 1);

    TabRecoverItem copy(original);
    EXPECT_EQ(copy, StockItem());
    EXPECT_EQ(copy.GetParseError(), original.GetParseError());
    copy.title = QStringLiteral("Ledger");
    EXPECT_EQ(original, StockItem());

    TabRecoverItem assigned;
    assigned = original;
    EXPECT_EQ(assigned, StockItem());
    EXPECT_EQ(assigned.GetParseError(), original.GetParseError());
}

TEST(TabRecoverItemTest, DiffersWhenAnyFieldDiffers)
{
    const TabRecoverItem stock = StockItem();
    TabRecoverItem other = stock;
    EXPECT_FALSE(other != stock);
    other.routerUrl.clear();
    EXPECT_NE(other, stock);
    other = stock;
    other.title.clear();
    EXPECT_NE(other, stock);
    other = stock;
    other.icon.clear();
    EXPECT_NE(other, stock);
    other = stock;
    other.type = 5;
    EXPECT_NE(other, stock);
}
