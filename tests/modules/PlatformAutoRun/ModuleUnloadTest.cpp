#include "TabRecordTest.h"

#include "AutoRunCollectionEntity.h"
#include "QueuedEvents.h"

#include "base/VXRouterProtocol.h"
#include "frame-core/IBusinessModule.h"
#include "frame-core/ILifeCycle.h"
#include "frame-core/IRouteInterceptor.h"
#include "http-module/HttpResponseObjectDsm.h"
#include "http/IHttpRequest.h"
#include "settings-store/VXSettingManager.h"

#include <QtCore/QPluginLoader>
#include <QtCore/QPointer>
#include <QtCore/QTemporaryDir>

#include <gtest/gtest.h>

namespace {

class ModuleUnloadTest : public TabRecordTest
{
protected:
    // By default the loader would leave the module's code in the process.
    ModuleUnloadTest() { loader.setLoadHints({}); }

    QPluginLoader loader{QStringLiteral(TL_MODULE_FILE)};
};

} // namespace

TEST_F(ModuleUnloadTest, ProcessWideObjectsEndWithTheModuleAndNotBefore)
{
    // Texts of the module's code end with it, so that nobody may keep an event.
    const Provided<IModuleEventDispatch> noDispatch(nullptr);
    QObject* root = loader.instance();
    ASSERT_NE(root, nullptr) << qUtf8Printable(loader.errorString());
    auto* module = qobject_cast<IBusinessModule*>(root);
    ASSERT_NE(module, nullptr);
    module->InitModule();
    module->GetLifeCycle()->MainFrameCreate();
    module->GetLifeCycle()->MainFrameShow();

    // What the loaded module's logic keeps, seen through the response that it was parsed into.
    ASSERT_EQ(http.GetCallCount(), 1);
    QPointer<QObject> cached = http.GetCall(0)
                                   .response.dynamicCast<HttpResponseObjectDsm<AutoRunCollectionEntity>>()
                                   ->GetEntity()
                                   .data();
    AnswerConfiguration(R"({"url":"https://a/","checked":true})");
    RunQueuedEvents();
    EXPECT_EQ(browser.GetCalls(), QStringList{QStringLiteral("url https://a/")});

    module->GetLifeCycle()->MainFrameQuit();
    module->UninitModule();
    EXPECT_FALSE(cached.isNull()) << "the configuration outlives a log-in";
    ASSERT_TRUE(loader.unload()) << qUtf8Printable(loader.errorString());
    EXPECT_TRUE(cached.isNull());
}

TEST_F(ModuleUnloadTest, SettingsThatTheModuleStoredAreWrittenAfterItIsGone)
{
    const QTemporaryDir folder;
    ASSERT_TRUE(VXSettingManager::Instance()->Open(folder.filePath(QStringLiteral("settings.db"))));
    auto* module = qobject_cast<IBusinessModule*>(loader.instance());
    ASSERT_NE(module, nullptr) << qUtf8Printable(loader.errorString());
    AddTab(3, QStringLiteral("tl://a"));
    module->InitModule();
    IRouteInterceptor* router = module->GetRouteInterceptor();
    ASSERT_NE(router, nullptr);
    EXPECT_TRUE(router->InterceptRoute(VXRouterProtocol(QStringLiteral("tl://autorun/update"))));
    EXPECT_TRUE(router->InterceptRoute(VXRouterProtocol(QStringLiteral("tl://autorun/restart/update"))));
    module->UninitModule();
    ASSERT_TRUE(loader.unload()) << qUtf8Printable(loader.errorString());

    EXPECT_FALSE(GetRecoverText().isEmpty());
    EXPECT_FALSE(GetRestartText().isEmpty());
    EXPECT_TRUE(VXSettingManager::Instance()->Flush());
    VXSettingManager::Instance()->Close();
}
