#include "frame-data/TLPluginBaseManager.h"

#include <QtTest/QSignalSpy>

#include <gtest/gtest.h>

namespace {

QSharedPointer<TLPluginBaseEntity> App(const QByteArray& json)
{
    auto app = QSharedPointer<TLPluginBaseEntity>::create();
    EXPECT_TRUE(app->Parse(json)) << json.constData();
    return app;
}

TEST(TLPluginBaseEntityTest, ReadsAllItsFields)
{
    const auto app = App(R"({"name":"Orders","serviceCode":"orders","iconUrl":"https://x.test/i.png",)"
                         R"("address":"https://x.test/","availability":1})");
    EXPECT_EQ(app->GetPluginName(), QStringLiteral("Orders"));
    EXPECT_EQ(app->GetServiceCode(), QStringLiteral("orders"));
    EXPECT_EQ(app->GetIconUrl(), QStringLiteral("https://x.test/i.png"));
    EXPECT_EQ(app->GetAddress(), QStringLiteral("https://x.test/"));
    EXPECT_EQ(app->availability, 1);
}

TEST(TLPluginBaseEntityTest, IsOfferedUnlessTheListSaysOtherwise)
{
    EXPECT_EQ(App("{}")->availability, 0);
}

TEST(TLPluginBaseEntityTest, WhatIsWrittenReadsBackEqual)
{
    const auto app = App(R"({"name":"\u4e2d","serviceCode":"c","address":"a","availability":1})");
    EXPECT_EQ(App(app->ToJson())->ToJson(), app->ToJson());
}

TEST(TLPluginBaseManagerTest, IsEmptyBeforeTheListArrived)
{
    const TLPluginBaseManager manager;
    EXPECT_TRUE(manager.GetPlugins().isEmpty());
    EXPECT_TRUE(manager.GetPlugin(QStringLiteral("a")).isNull());
}

TEST(TLPluginBaseManagerTest, KeepsTheOrderAndFindsByExactKey)
{
    TLPluginBaseManager manager;
    QSignalSpy changed(&manager, &TLPluginBaseManager::SigPluginsChanged);
    const auto b = App(R"({"serviceCode":"b"})");
    const auto a = App(R"({"serviceCode":"a"})");
    manager.SetPlugins({b, a});
    EXPECT_EQ(manager.GetPlugins(), QList<QSharedPointer<TLPluginBaseEntity>>({b, a}));
    EXPECT_EQ(manager.GetPlugin(QStringLiteral("a")), a);
    EXPECT_TRUE(manager.GetPlugin(QStringLiteral("A")).isNull());
    EXPECT_EQ(changed.count(), 1);
    manager.SetPlugins({});
    EXPECT_TRUE(manager.GetPlugins().isEmpty());
    EXPECT_TRUE(manager.GetPlugin(QStringLiteral("a")).isNull());
    EXPECT_EQ(changed.count(), 2);
}

TEST(TLPluginBaseManagerTest, OfTwoAppsWithOneKeyTheFirstCounts)
{
    TLPluginBaseManager manager;
    const auto first = App(R"({"serviceCode":"a","name":"first"})");
    manager.SetPlugins({first, App(R"({"serviceCode":"a","name":"second"})")});
    EXPECT_EQ(manager.GetPlugins().size(), 1);
    EXPECT_EQ(manager.GetPlugin(QStringLiteral("a")), first);
}

TEST(TLPluginBaseManagerTest, LeavesOutNullPointersAndAppsWithoutKey)
{
    TLPluginBaseManager manager;
    manager.SetPlugins({{}, App(R"({"name":"keyless"})"), App(R"({"serviceCode":"a"})")});
    EXPECT_EQ(manager.GetPlugins().size(), 1);
    EXPECT_TRUE(manager.GetPlugin(QString()).isNull());
}

} // namespace
