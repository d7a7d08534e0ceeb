#include "ClientServices.h"

#include "Pictures.h"
#include "ScriptedHttpServer.h"
#include "WaitUntil.h"

#include "AppListModel.h"
#include "frame-data/TLPluginBaseEntity.h"
#include "gateway/GatewaySettings.h"
#include "settings-store/VXSettingManager.h"

#include <QtCore/QDir>
#include <QtCore/QTemporaryDir>

#include <gtest/gtest.h>

#include <memory>

namespace {

class ClientServicesTest : public ::testing::Test
{
protected:
    ClientServicesTest()
    {
        EXPECT_TRUE(
            VXSettingManager::Instance()->Open(m_profile.filePath(QStringLiteral("settings.sqlite"))));
        m_services = std::make_unique<ClientServices>(GatewaySettings(), m_profile.path());
    }
    ~ClientServicesTest() override
    {
        m_services.reset();
        VXSettingManager::Instance()->Close();
    }

    QString Url(const QString& path) const { return m_server.GetUrl(path).toString(); }

    void AddApp(const QString& iconUrl)
    {
        const auto app = QSharedPointer<TLPluginBaseEntity>::create();
        app->setProperty("serviceCode", QStringLiteral("app%1").arg(m_services->plugins.GetPlugins().size()));
        app->setProperty("iconUrl", iconUrl);
        m_services->plugins.SetPlugins(m_services->plugins.GetPlugins() << app);
    }

    /// Waits until the image cache has answered all earlier requests.
    bool Settle()
    {
        bool isAnswered = false;
        m_services->images.FetchImage(Url(QStringLiteral("/none")), &m_server,
                                      [&isAnswered](const QImage&) { isAnswered = true; });
        return WaitUntil([&isAnswered] { return isAnswered; });
    }

    QTemporaryDir m_profile;
    ScriptedHttpServer m_server;
    std::unique_ptr<ClientServices> m_services;
};

TEST_F(ClientServicesTest, TheTilesOfAppsShowTheirPictures)
{
    m_server.SetStanding(ScriptedReply::Of(ScriptedReply::Kind::Whole, Pictures::Png(Qt::blue)));
    AddApp(Url(QStringLiteral("/a.png")));
    AddApp(Url(QStringLiteral("/a.png")));
    AppListModel model(&m_services->plugins, &ClientServices::LoadPicture);
    const auto colorOf = [&model](int row) {
        return model.index(row).data(Qt::DecorationRole).value<QPixmap>().toImage().pixelColor(0, 0);
    };
    EXPECT_NE(colorOf(0), QColor(Qt::blue));
    EXPECT_TRUE(WaitUntil([&] { return colorOf(0) == QColor(Qt::blue); }));
    EXPECT_EQ(colorOf(1), QColor(Qt::blue));
    EXPECT_EQ(m_server.GetRequestCount(), 1);
}

TEST_F(ClientServicesTest, APictureThatCannotBeLoadedLeavesTheUsualOne)
{
    AddApp(Url(QStringLiteral("/gone.png")));
    AppListModel model(&m_services->plugins, &ClientServices::LoadPicture);
    const auto before = model.index(0).data(Qt::DecorationRole).value<QPixmap>();
    ASSERT_FALSE(before.isNull());
    ASSERT_TRUE(WaitUntil([this] { return m_server.GetRequestCount() == 1; }));
    ASSERT_TRUE(Settle());
    EXPECT_EQ(model.index(0).data(Qt::DecorationRole).value<QPixmap>().cacheKey(), before.cacheKey());
}

TEST_F(ClientServicesTest, ALargePictureIsHandedOverInTheSizeOfATile)
{
    m_server.Enqueue(ScriptedReply::Of(ScriptedReply::Kind::Whole, Pictures::Png(Qt::red, QSize(512, 256))));
    QPixmap picture;
    ClientServices::LoadPicture(Url(QStringLiteral("/large.png")), &m_server,
                                [&picture](const QPixmap& loaded) { picture = loaded; });
    EXPECT_TRUE(WaitUntil([&picture] { return !picture.isNull(); }));
    EXPECT_EQ(picture.size(), QSize(128, 64));
}

TEST_F(ClientServicesTest, AContextThatIsGoneIsNotCalled)
{
    m_server.SetStanding(ScriptedReply::Of(ScriptedReply::Kind::Whole, Pictures::Png()));
    auto context = std::make_unique<QObject>();
    bool isCalled = false;
    ClientServices::LoadPicture(Url(QStringLiteral("/a.png")), context.get(),
                                [&isCalled](const QPixmap&) { isCalled = true; });
    context.reset();
    ASSERT_TRUE(Settle());
    EXPECT_FALSE(isCalled);
}

TEST_F(ClientServicesTest, PicturesStayInTheProfileForTheNextRun)
{
    m_server.Enqueue(ScriptedReply::Of(ScriptedReply::Kind::Whole, Pictures::Png(Qt::blue)));
    for (int run = 0; run < 2; ++run) {
        bool isThere = false;
        ClientServices::LoadPicture(Url(QStringLiteral("/a.png")), &m_server,
                                    [&isThere](const QPixmap&) { isThere = true; });
        EXPECT_TRUE(WaitUntil([&isThere] { return isThere; })) << run;
        m_services.reset();
        m_services = std::make_unique<ClientServices>(GatewaySettings(), m_profile.path());
    }
    EXPECT_EQ(m_server.GetRequestCount(), 1);
    EXPECT_EQ(QDir(m_profile.filePath(QStringLiteral("pictures"))).entryList(QDir::Files).size(), 1);
}

TEST_F(ClientServicesTest, ModulesFindTheSameImageCache)
{
    EXPECT_EQ(VXImageCache::Instance(), &m_services->images);
    m_services.reset();
    EXPECT_EQ(VXImageCache::Provided(), nullptr);
}

} // namespace
