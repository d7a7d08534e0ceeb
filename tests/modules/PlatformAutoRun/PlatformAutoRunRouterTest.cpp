#include "PlatformAutoRunRouter.h"

#include "TabRecordTest.h"

#include "TLRecoverManager.h"
#include "TLRestartManager.h"
#include "TLRestartRecord.h"
#include "TLTabRecoverData.h"

#include "base/VXRouterProtocol.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QThread>

#include <gtest/gtest.h>

#include <thread>

namespace {

class PlatformAutoRunRouterTest : public TabRecordTest
{
protected:
    bool Intercept(const char* url)
    {
        return router.InterceptRoute(VXRouterProtocol(QString::fromUtf8(url)));
    }

    /// Whether the process-wide object is there already: who asks first makes it on the own thread.
    template <class Manager>
    static bool IsMade()
    {
        QThread* threadOfManager = nullptr;
        std::thread elsewhere([&threadOfManager] { threadOfManager = Manager::Instance()->thread(); });
        elsewhere.join();
        return threadOfManager == QCoreApplication::instance()->thread();
    }

    PlatformAutoRunRouter router;
    const QString before = QStringLiteral("as it was");
};

} // namespace

TEST_F(PlatformAutoRunRouterTest, DeclaresNoSignalSlotOrProperty)
{
    const QMetaObject& metaObject = PlatformAutoRunRouter::staticMetaObject;
    EXPECT_STREQ(metaObject.className(), "PlatformAutoRunRouter");
    EXPECT_EQ(metaObject.superClass(), &QObject::staticMetaObject);
    EXPECT_EQ(metaObject.methodCount(), metaObject.methodOffset());
    EXPECT_EQ(metaObject.propertyCount(), metaObject.propertyOffset());
}

TEST_F(PlatformAutoRunRouterTest, RouteUrlsAreExactlyThreeInOrder)
{
    const QStringList expected{QStringLiteral("tl://autorun/update"), QStringLiteral("tl://autorun/clean"),
                               QStringLiteral("tl://autorun/restart/update")};
    EXPECT_EQ(router.GetRouteUrls(), expected);
    EXPECT_EQ(router.GetRouteUrls(), expected) << "the same each time";
}

TEST_F(PlatformAutoRunRouterTest, UpdateSavesTheOpenTabs)
{
    AddTab(3, QStringLiteral("tl://a"));
    SetRestartText(before);
    EXPECT_TRUE(Intercept("tl://autorun/update"));
    TLTabRecoverData data;
    EXPECT_TRUE(data.Parse(GetRecoverText().toUtf8()));
    ASSERT_EQ(data.tabRecoverItems.size(), 1);
    EXPECT_EQ(data.tabRecoverItems.first().routerUrl, QStringLiteral("tl://a"));
    EXPECT_EQ(GetRestartText(), before);
}

TEST_F(PlatformAutoRunRouterTest, CleanEmptiesTheRecoveryRecordWhoeverIsSignedIn)
{
    SignOut();
    SetRecoverText(before);
    SetRestartText(before);
    EXPECT_TRUE(Intercept("tl://autorun/clean"));
    EXPECT_EQ(GetRecoverText(), QString());
    EXPECT_EQ(GetRestartText(), before);
}

TEST_F(PlatformAutoRunRouterTest, RestartUpdateSavesTheTabsButTheIgnoredOne)
{
    AddTab(3, QStringLiteral("tl://browser/open?url=https%3A%2F%2Fa%2F"));
    AddTab(3, QStringLiteral("tl://browser/open?url=https%3A%2F%2Fb%2F"));
    SetRecoverText(before);
    VXRouterProtocol route(QStringLiteral("tl://autorun/restart/update"));
    route.With(QStringLiteral("ignore"), QStringLiteral("tl://browser/open?url=https%3A%2F%2Fa%2F"));
    EXPECT_TRUE(router.InterceptRoute(route));
    EXPECT_EQ(TLRestartRecord::FromText(GetRestartText()).routerUrls,
              QStringList{QStringLiteral("tl://browser/open?url=https%3A%2F%2Fb%2F")});
    EXPECT_EQ(GetRecoverText(), before);
}

TEST_F(PlatformAutoRunRouterTest, RestartUpdateWithoutIgnoreSavesAllTabsAndReturnsTrue)
{
    AddTab(3, QStringLiteral("tl://a"));
    AddTab(3, QStringLiteral("tl://b"));
    EXPECT_TRUE(Intercept("tl://autorun/restart/update"));
    const QStringList expected{QStringLiteral("tl://a"), QStringLiteral("tl://b")};
    EXPECT_EQ(TLRestartRecord::FromText(GetRestartText()).routerUrls, expected);
}

TEST_F(PlatformAutoRunRouterTest, UrlThatMatchesIsAnsweredWithTrueEvenWhenNothingCouldBeSaved)
{
    SignOut();
    const Provided<IBrowserMain> noBrowser(nullptr);
    EXPECT_TRUE(Intercept("tl://autorun/update"));
    EXPECT_TRUE(Intercept("tl://autorun/restart/update?ignore=tl%3A%2F%2Fa"));
    EXPECT_TRUE(Intercept("tl://autorun/clean"));
}

TEST_F(PlatformAutoRunRouterTest, UrlOfAnotherModuleIsFalseAndNoManagerIsMadeOrTouched)
{
    AddTab(3, QStringLiteral("tl://a"));
    SetRecoverText(before);
    SetRestartText(before);
    for (const char* url : {"tl://plugins/object", "tl://autorun", "tl://autorun/", "tl://autorun/updates",
                            "tl://autorun/update/", "tl://autorun/restart", "tl://autorun/restart/clean",
                            "tl://autoruns/update", "https://autorun/update", "", "not a URL"}) {
        EXPECT_FALSE(Intercept(url)) << url;
    }
    EXPECT_EQ(GetRecoverText(), before);
    EXPECT_EQ(GetRestartText(), before);
    EXPECT_FALSE(IsMade<TLRecoverManager>());
    EXPECT_FALSE(IsMade<TLRestartManager>());
}

TEST_F(PlatformAutoRunRouterTest, OnlyTheManagerOfTheUrlIsMade)
{
    EXPECT_TRUE(Intercept("tl://autorun/restart/update"));
    EXPECT_FALSE(IsMade<TLRecoverManager>());
    EXPECT_TRUE(IsMade<TLRestartManager>());

    TLRecoverManager::ReleaseInstance();
    TLRestartManager::ReleaseInstance();
    EXPECT_TRUE(Intercept("tl://autorun/update"));
    EXPECT_TRUE(IsMade<TLRecoverManager>());
    EXPECT_FALSE(IsMade<TLRestartManager>());
}

TEST_F(PlatformAutoRunRouterTest, HasNoValueForAnyUrl)
{
    const VXRouterProtocol route(QStringLiteral("tl://autorun/update"));
    EXPECT_FALSE(router.HasRouteValue(route));
    EXPECT_FALSE(router.GetRouteValue(route).isValid());
}
