#include "frame-core/IBusinessModule.h"
#include "frame-core/ILifeCycle.h"
#include "frame-core/IRouteInterceptor.h"
#include "frame-core/ISysSettingFactory.h"

#include "base/VXRouterProtocol.h"

#include <gtest/gtest.h>

namespace {

class PlainLifeCycle final : public ILifeCycle
{};

class PlainInterceptor final : public IRouteInterceptor
{
public:
    bool InterceptRoute(const VXRouterProtocol&) override { return false; }
    QStringList GetRouteUrls() override { return {}; }
};

class PlainFactory final : public ISysSettingFactory
{
public:
    QList<SettingWidgetId> GetSettingWidgetIds() override { return {}; }
    SettingItemBaseWidget* CreateSettingWidget(SettingWidgetId) override { return nullptr; }
    QStringList GetSearchKeywords(SettingWidgetId) override { return {}; }
};

class PlainModule final : public IBusinessModule
{
public:
    void InitModule() override {}
    void UninitModule() override {}
    ILifeCycle* GetLifeCycle() override { return nullptr; }
    IRouteInterceptor* GetRouteInterceptor() override { return nullptr; }
    ISysSettingFactory* GetSysSettingFactory() override { return nullptr; }
};

TEST(ModuleInterfaceDefaultsTest, LifeCycleDoesNothingAndLetsTheWindowClose)
{
    PlainLifeCycle lifeCycle;
    lifeCycle.LoginSuccess();
    lifeCycle.GetUserInfoSuccess();
    lifeCycle.LogOut();
    lifeCycle.ReLoginSuccess();
    lifeCycle.SwitchUserStateSuccess();
    lifeCycle.StartApp();
    lifeCycle.BeforeLoginConstruct();
    lifeCycle.MainFrameCreate();
    lifeCycle.MainFrameShow();
    lifeCycle.MainFrameQuit();
    lifeCycle.BeforeMainFrameDestruct();
    lifeCycle.ExitApp();
    EXPECT_EQ(lifeCycle.BeforeClose(), BeforeCloseResult::Close);
}

TEST(ModuleInterfaceDefaultsTest, InterceptorHasNoValues)
{
    PlainInterceptor interceptor;
    const VXRouterProtocol route(QStringLiteral("tl://a/b"));
    EXPECT_FALSE(interceptor.HasRouteValue(route));
    EXPECT_FALSE(interceptor.GetRouteValue(route).isValid());
}

TEST(ModuleInterfaceDefaultsTest, FactoryAddsNoGroup)
{
    PlainFactory factory;
    EXPECT_EQ(factory.GetSettingGroup().id, 0);
    EXPECT_EQ(factory.GetSettingGroup().order, 0);
}

TEST(ModuleInterfaceDefaultsTest, ModuleOffersNothingReserved)
{
    PlainModule module;
    EXPECT_EQ(module.GetReserved5(), nullptr);
    EXPECT_EQ(module.GetReserved6(), nullptr);
    EXPECT_EQ(module.GetReserved7(), nullptr);
    EXPECT_EQ(module.GetReserved9(), nullptr);
}

TEST(ModuleInterfaceDefaultsTest, InterfaceIdIsTheOneThatModulesCarry)
{
    EXPECT_STREQ(IBusinessModule_iid, "com.kelvorant.localhost.IBusinessModule/8.7.0.0");
    EXPECT_STREQ(qobject_interface_iid<IBusinessModule*>(), IBusinessModule_iid);
}

} // namespace
