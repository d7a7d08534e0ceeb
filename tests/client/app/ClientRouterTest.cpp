#include "FakeModule.h"

#include "ClientRouterUrls.h"
#include "ClientRoutes.h"
#include "browser/TabRouterUrls.h"
#include "modules/ClientRouter.h"

#include "base/Provided.h"
#include "base/VXRouterProtocol.h"
#include "frame-data/ITabOpener.h"
#include "frame-data/PluginOpenInfo.h"
#include "frame-data/TLPluginBaseManager.h"
#include "frame-data/TabOpenInfo.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

class RecordingTabOpener final : public ITabOpener
{
public:
    void OpenPlugin(const PluginOpenInfo& info, int index) override
    {
        plugins.push_back(info);
        lastIndex = index;
    }
    void OpenUrl(const TabOpenInfo& info, int index) override
    {
        pages.push_back(info);
        lastIndex = index;
    }

    std::vector<PluginOpenInfo> plugins;
    std::vector<TabOpenInfo> pages;
    int lastIndex = 0;
};

int warnings = 0;

void CountWarnings(QtMsgType type, const QMessageLogContext&, const QString&)
{
    if (type == QtWarningMsg) {
        ++warnings;
    }
}

} // namespace

class ClientRouterTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        AddTabRoutes(m_router);
        warnings = 0;
        m_handlerBefore = qInstallMessageHandler(CountWarnings);
    }
    void TearDown() override { qInstallMessageHandler(m_handlerBefore); }

    bool Execute(const char* url) { return VXRouterProtocol(QLatin1String(url)).Execute(); }

    QStringList m_calls;
    FakeModule m_module{QStringLiteral("a"), &m_calls};
    RecordingTabOpener m_opener;
    ClientRouter m_router;
    Provided<IRouteExecutor> m_routerProvided{&m_router};
    Provided<ITabOpener> m_openerProvided{&m_opener};
    QtMessageHandler m_handlerBefore = nullptr;
};

TEST_F(ClientRouterTest, PageUrlOpensATabAtTheEndAndInTheBackground)
{
    EXPECT_TRUE(VXRouterProtocol(TabRouterUrls::BrowserOpen)
                    .With(QStringLiteral("url"), QStringLiteral("https://a.example/?x=1&y=ü"))
                    .With(QStringLiteral("title"), QStringLiteral("A & B"))
                    .With(QStringLiteral("icon"), QStringLiteral("https://a.example/i.png"))
                    .With(QStringLiteral("isDelay"), QStringLiteral("1"))
                    .Execute());
    ASSERT_EQ(m_opener.pages.size(), 1U);
    EXPECT_EQ(m_opener.pages[0].address, QStringLiteral("https://a.example/?x=1&y=ü"));
    EXPECT_EQ(m_opener.pages[0].title, QStringLiteral("A & B"));
    EXPECT_EQ(m_opener.pages[0].iconUrl, QStringLiteral("https://a.example/i.png"));
    EXPECT_TRUE(m_opener.pages[0].isDelay);
    EXPECT_FALSE(m_opener.pages[0].activate);
    EXPECT_EQ(m_opener.lastIndex, -1);
    EXPECT_EQ(warnings, 0);
}

TEST_F(ClientRouterTest, AppUrlOpensTheApp)
{
    EXPECT_TRUE(Execute("tl://plugin/open?code=orders&title=Orders"));
    ASSERT_EQ(m_opener.plugins.size(), 1U);
    EXPECT_EQ(m_opener.plugins[0].serviceCode, QStringLiteral("orders"));
    EXPECT_EQ(m_opener.plugins[0].title, QStringLiteral("Orders"));
    EXPECT_FALSE(m_opener.plugins[0].isDelay);
}

TEST_F(ClientRouterTest, OnlyOneMeansDelayed)
{
    for (const char* url :
         {"tl://browser/open?url=https://a&isDelay=0", "tl://browser/open?url=https://a&isDelay=true",
          "tl://browser/open?url=https://a&isDelay="}) {
        EXPECT_TRUE(Execute(url));
        EXPECT_FALSE(m_opener.pages.back().isDelay) << url;
    }
}

TEST_F(ClientRouterTest, UnknownUrlIsFalseAndOneWarning)
{
    EXPECT_FALSE(Execute("tl://nobody/knows?this=1"));
    EXPECT_EQ(warnings, 1);
    for (const char* url : {"", "tl://", "https://a.example/", "tl://browser", "::::"}) {
        EXPECT_FALSE(Execute(url)) << url;
    }
}

TEST_F(ClientRouterTest, ModuleIsAskedForItsUrlsOnlyAndBeforeTheClient)
{
    m_module.urls = QStringList{QStringLiteral("tl://autorun/update"), TabRouterUrls::PluginOpen};
    m_module.intercepts = true;
    m_router.SetModules({m_module.AsLoaded()});
    m_calls.clear();
    EXPECT_TRUE(Execute("tl://autorun/update"));
    EXPECT_TRUE(Execute("tl://plugin/open?code=orders"));
    EXPECT_EQ(m_calls.size(), 2);
    EXPECT_TRUE(m_opener.plugins.empty());
    EXPECT_TRUE(Execute("tl://browser/open?url=https://a"));
    EXPECT_EQ(m_calls.size(), 2);
    EXPECT_EQ(m_opener.pages.size(), 1U);
}

TEST_F(ClientRouterTest, WhatAModuleLeavesIsRoutedOn)
{
    m_module.urls = QStringList{TabRouterUrls::PluginOpen};
    m_router.SetModules({m_module.AsLoaded()});
    EXPECT_TRUE(Execute("tl://plugin/open?code=orders"));
    EXPECT_EQ(m_opener.plugins.size(), 1U);
}

TEST_F(ClientRouterTest, ModuleThatThrowsLeavesItsUrl)
{
    m_module.urls = QStringList{QStringLiteral("tl://autorun/update")};
    m_module.throwsIn = QStringLiteral("InterceptRoute");
    m_router.SetModules({m_module.AsLoaded()});
    EXPECT_FALSE(Execute("tl://autorun/update"));
}

TEST_F(ClientRouterTest, TellsWhichModuleListedAUrl)
{
    const QString url = QStringLiteral("tl://autorun/update");
    m_module.urls = QStringList{url};
    m_router.SetModules({m_module.AsLoaded()});
    EXPECT_TRUE(m_router.IsListed(url, m_module.AsLoaded().key));
    EXPECT_FALSE(m_router.IsListed(url, QStringLiteral("another")));
    EXPECT_FALSE(m_router.IsListed(url, QString()));
    EXPECT_FALSE(m_router.IsListed(TabRouterUrls::PluginOpen, m_module.AsLoaded().key));
}

TEST_F(ClientRouterTest, ModulesTakenOutAreNotAskedAnyMore)
{
    m_module.urls = QStringList{QStringLiteral("tl://autorun/update")};
    m_module.intercepts = true;
    m_router.SetModules({m_module.AsLoaded()});
    m_router.SetModules({});
    EXPECT_FALSE(Execute("tl://autorun/update"));
}

TEST_F(ClientRouterTest, UrlListIsReadOnce)
{
    m_router.SetModules({m_module.AsLoaded()});
    Execute("tl://a/b");
    Execute("tl://a/b");
    EXPECT_EQ(m_calls, QStringList{QStringLiteral("a GetRouteUrls")});
}

TEST_F(ClientRouterTest, ObjectsAreFoundAsLongAsTheyLive)
{
    auto plugins = std::make_unique<TLPluginBaseManager>();
    m_router.AddObject(ClientRouterUrls::PluginsObject, plugins.get());
    EXPECT_EQ(VXRouterProtocol(QStringLiteral("tl://plugins/object")).GetObj(), plugins.get());
    plugins.reset();
    EXPECT_EQ(VXRouterProtocol(QStringLiteral("tl://plugins/object")).GetObj(), nullptr);
    EXPECT_EQ(VXRouterProtocol(QStringLiteral("tl://nothing/object")).GetObj(), nullptr);
}

TEST_F(ClientRouterTest, ObjectOfAModuleIsFound)
{
    QObject object;
    m_module.urls = QStringList{QStringLiteral("tl://autorun/object")};
    m_module.object = &object;
    m_router.SetModules({m_module.AsLoaded()});
    EXPECT_EQ(VXRouterProtocol(QStringLiteral("tl://autorun/object")).GetObj(), &object);
}

TEST_F(ClientRouterTest, WithoutABrowserNothingOpens)
{
    const Provided<ITabOpener> none(nullptr);
    EXPECT_FALSE(Execute("tl://browser/open?url=https://a"));
    EXPECT_FALSE(Execute("tl://plugin/open?code=orders"));
}
