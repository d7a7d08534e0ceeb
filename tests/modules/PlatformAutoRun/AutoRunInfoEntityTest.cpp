#include "AutoRunInfoEntityPtr.h"

#include "AutoRunCollectionEntity.h"
#include "AutoRunIdentifiers.h"

#include <QtCore/QJsonObject>
#include <QtCore/QMetaProperty>
#include <QtCore/QPointer>

#include <gtest/gtest.h>

namespace {

struct DeclaredProperty
{
    const char* name;
    const char* type;
};

template <size_t Count>
void ExpectProperties(const QMetaObject& metaObject, const DeclaredProperty (&expected)[Count])
{
    ASSERT_EQ(metaObject.propertyCount() - metaObject.propertyOffset(), int(Count));
    for (size_t i = 0; i < Count; ++i) {
        const QMetaProperty property = metaObject.property(metaObject.propertyOffset() + int(i));
        EXPECT_STREQ(property.name(), expected[i].name);
        EXPECT_STREQ(property.typeName(), expected[i].type);
        EXPECT_TRUE(property.isReadable()) << expected[i].name;
        EXPECT_TRUE(property.isWritable()) << expected[i].name;
    }
}

} // namespace

TEST(AutoRunInfoEntityTest, DeclaresItsSevenPropertiesInOrder)
{
    const DeclaredProperty expected[] = {{"itemId", "QString"},  {"name", "QString"}, {"url", "QString"},
                                         {"systemItem", "bool"}, {"checked", "bool"}, {"activeItem", "bool"},
                                         {"type", "int"}};
    ExpectProperties(AutoRunInfoEntity::staticMetaObject, expected);
    EXPECT_STREQ(AutoRunInfoEntity::staticMetaObject.superClass()->className(), "VXJsonParserBase");
}

TEST(AutoRunInfoEntityTest, IsEmptyUncheckedAndAWebAddressToBeginWith)
{
    const AutoRunInfoEntity entry;
    EXPECT_EQ(entry.itemId, QString());
    EXPECT_EQ(entry.name, QString());
    EXPECT_EQ(entry.url, QString());
    EXPECT_FALSE(entry.systemItem);
    EXPECT_FALSE(entry.checked);
    EXPECT_FALSE(entry.activeItem);
    EXPECT_EQ(entry.type, 0);
    EXPECT_EQ(entry.parent(), nullptr);
}

TEST(AutoRunInfoEntityTest, TakesAParent)
{
    QObject parent;
    auto* entry = new AutoRunInfoEntity(&parent);
    EXPECT_EQ(entry->parent(), &parent);
}

TEST(AutoRunInfoEntityTest, PropertiesAreTheMembers)
{
    AutoRunInfoEntity entry;
    EXPECT_TRUE(entry.setProperty("url", QStringLiteral("stock")));
    EXPECT_TRUE(entry.setProperty("activeItem", true));
    EXPECT_TRUE(entry.setProperty("type", 1));
    EXPECT_EQ(entry.url, QStringLiteral("stock"));
    EXPECT_TRUE(entry.activeItem);
    EXPECT_EQ(entry.type, 1);
    entry.checked = true;
    EXPECT_EQ(entry.property("checked"), QVariant(true));
}

TEST(AutoRunInfoEntityTest, TypeTravelsAsANumberAlsoWhenItIsUnknown)
{
    AutoRunInfoEntity entry;
    entry.type = 3;
    EXPECT_EQ(entry.ToJsonObject().value(QStringLiteral("type")), QJsonValue(3));
    EXPECT_EQ(entry.ToJson(), QByteArray(R"({"activeItem":false,"checked":false,"itemId":"","name":"",)"
                                         R"("systemItem":false,"type":3,"url":""})"));

    AutoRunInfoEntity read;
    EXPECT_TRUE(read.Parse(entry.ToJson()));
    EXPECT_EQ(read.type, 3);
}

TEST(AutoRunInfoEntityTest, TypeGivenAsTextIsAParseErrorAndStaysAsItWas)
{
    AutoRunInfoEntity entry;
    EXPECT_FALSE(entry.Parse(QByteArray(R"({"type":"1","url":"stock"})")));
    EXPECT_EQ(entry.type, 0);
    EXPECT_EQ(entry.url, QStringLiteral("stock"));
    EXPECT_EQ(entry.GetParseError().size(), 1);
}

TEST(AutoRunInfoEntityTest, WeakPointerFromThePlainObjectFollowsTheSharedOwnership)
{
    AutoRunCollectionEntity collection;
    collection.Parse(QByteArray(R"({"systemItems":[{}]})"));
    ASSERT_EQ(collection.systemItems.size(), 1);

    QObject* object = collection.systemItems.first().data();
    const QPointer<QObject> weak = object;
    AutoRunInfoEntityPtr strong = collection.systemItems.first();
    collection.systemItems.clear();
    EXPECT_EQ(weak.data(), object) << "someone still holds the entry";
    strong.clear();
    EXPECT_TRUE(weak.isNull());
}

TEST(AutoRunCollectionEntityTest, DeclaresItsThreeListsInOrderUnderTheirExactTypeName)
{
    const DeclaredProperty expected[] = {{"systemItems", "QList<AutoRunInfoEntityPtr>"},
                                         {"customItems", "QList<AutoRunInfoEntityPtr>"},
                                         {"pluginItems", "QList<AutoRunInfoEntityPtr>"}};
    ExpectProperties(AutoRunCollectionEntity::staticMetaObject, expected);
    EXPECT_STREQ(AutoRunCollectionEntity::staticMetaObject.superClass()->className(), "VXJsonParserBase");
}

TEST(AutoRunCollectionEntityTest, ListPropertiesAreTheMembers)
{
    qRegisterMetaType<QList<AutoRunInfoEntityPtr>>("QList<AutoRunInfoEntityPtr>");
    AutoRunCollectionEntity collection;
    const QList<AutoRunInfoEntityPtr> entries{AutoRunInfoEntityPtr::create()};
    EXPECT_TRUE(collection.setProperty("customItems", QVariant::fromValue(entries)));
    EXPECT_EQ(collection.customItems, entries);
    EXPECT_EQ(collection.property("customItems").value<QList<AutoRunInfoEntityPtr>>(), entries);
}

TEST(AutoRunIdentifiersTest, FixedTextsAndNumbersAreTheAgreedOnes)
{
    EXPECT_EQ(AutoRunIdentifiers::HomeItemId(), QStringLiteral("FA2F7923-A7F9-4703-8255-B3218DFF6062"));
    EXPECT_EQ(AutoRunIdentifiers::SettingPageIdentity(),
              QStringLiteral("6844BE03-D3FF-4ADC-9E01-005CEC79F162"));
    EXPECT_EQ(AutoRunIdentifiers::ReadFinished, 10400);
    EXPECT_EQ(AutoRunIdentifiers::WriteFinished, 10401);
}
