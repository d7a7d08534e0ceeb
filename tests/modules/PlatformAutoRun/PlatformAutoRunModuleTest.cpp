#include "PlatformAutoRunModule.h"

#include "PlatformAutoRunLifeCycle.h"
#include "PlatformAutoRunRouter.h"
#include "PlatformAutoRunSettingFactory.h"

#include <QtCore/QPointer>

#include <gtest/gtest.h>

TEST(PlatformAutoRunModuleTest, DeclaresNoSignalSlotOrProperty)
{
    const QMetaObject& metaObject = PlatformAutoRunModule::staticMetaObject;
    EXPECT_STREQ(metaObject.className(), "PlatformAutoRunModule");
    EXPECT_EQ(metaObject.superClass(), &QObject::staticMetaObject);
    EXPECT_EQ(metaObject.methodCount(), metaObject.methodOffset());
    EXPECT_EQ(metaObject.propertyCount(), metaObject.propertyOffset());
}

TEST(PlatformAutoRunModuleTest, AccessorsAreNullBeforeInit)
{
    PlatformAutoRunModule module;
    EXPECT_EQ(module.GetLifeCycle(), nullptr);
    EXPECT_EQ(module.GetRouteInterceptor(), nullptr);
    EXPECT_EQ(module.GetSysSettingFactory(), nullptr);
}

TEST(PlatformAutoRunModuleTest, UninitWithoutInitDoesNothing)
{
    PlatformAutoRunModule module;
    module.UninitModule();
    EXPECT_EQ(module.GetLifeCycle(), nullptr);
}

TEST(PlatformAutoRunModuleTest, InitMakesTheLifeCycleHooksWithoutAParent)
{
    PlatformAutoRunModule module;
    module.InitModule();
    auto* lifeCycle = dynamic_cast<PlatformAutoRunLifeCycle*>(module.GetLifeCycle());
    ASSERT_NE(lifeCycle, nullptr);
    EXPECT_EQ(lifeCycle->parent(), nullptr);
    EXPECT_EQ(module.GetLifeCycle(), lifeCycle) << "the same object each time";
    module.UninitModule();
}

TEST(PlatformAutoRunModuleTest, InitMakesTheRouteInterceptorWithoutAParent)
{
    PlatformAutoRunModule module;
    module.InitModule();
    auto* router = dynamic_cast<PlatformAutoRunRouter*>(module.GetRouteInterceptor());
    ASSERT_NE(router, nullptr);
    EXPECT_EQ(router->parent(), nullptr);
    EXPECT_EQ(module.GetRouteInterceptor(), router) << "the same object each time";
    module.UninitModule();
}

TEST(PlatformAutoRunModuleTest, InitMakesTheSettingsFactoryWithoutAParent)
{
    PlatformAutoRunModule module;
    module.InitModule();
    auto* factory = dynamic_cast<PlatformAutoRunSettingFactory*>(module.GetSysSettingFactory());
    ASSERT_NE(factory, nullptr);
    EXPECT_EQ(factory->parent(), nullptr);
    EXPECT_EQ(module.GetSysSettingFactory(), factory) << "the same object each time";
    module.UninitModule();
}

TEST(PlatformAutoRunModuleTest, UninitDeletesTheHooksAndASecondUninitDoesNothing)
{
    PlatformAutoRunModule module;
    module.InitModule();
    const QPointer<QObject> lifeCycle = dynamic_cast<PlatformAutoRunLifeCycle*>(module.GetLifeCycle());
    const QPointer<QObject> router = dynamic_cast<PlatformAutoRunRouter*>(module.GetRouteInterceptor());
    const QPointer<QObject> factory =
        dynamic_cast<PlatformAutoRunSettingFactory*>(module.GetSysSettingFactory());
    ASSERT_FALSE(lifeCycle.isNull());
    ASSERT_FALSE(router.isNull());
    ASSERT_FALSE(factory.isNull());
    module.UninitModule();
    EXPECT_TRUE(lifeCycle.isNull());
    EXPECT_TRUE(router.isNull());
    EXPECT_TRUE(factory.isNull());
    EXPECT_EQ(module.GetLifeCycle(), nullptr);
    EXPECT_EQ(module.GetRouteInterceptor(), nullptr);
    EXPECT_EQ(module.GetSysSettingFactory(), nullptr);
    module.UninitModule();
    EXPECT_EQ(module.GetLifeCycle(), nullptr);
    EXPECT_EQ(module.GetRouteInterceptor(), nullptr);
    EXPECT_EQ(module.GetSysSettingFactory(), nullptr);
}

TEST(PlatformAutoRunModuleTest, FacilitiesThatAreNotOfferedAreNull)
{
    PlatformAutoRunModule module;
    module.InitModule();
    EXPECT_EQ(module.GetReserved5(), nullptr);
    EXPECT_EQ(module.GetReserved6(), nullptr);
    EXPECT_EQ(module.GetReserved7(), nullptr);
    EXPECT_EQ(module.GetReserved9(), nullptr);
    module.UninitModule();
}

TEST(PlatformAutoRunModuleTest, DestructorLeavesTheHooksToUninit)
{
    ILifeCycle* lifeCycle = nullptr;
    IRouteInterceptor* router = nullptr;
    ISysSettingFactory* factory = nullptr;
    QPointer<QObject> watchedLifeCycle;
    QPointer<QObject> watchedRouter;
    QPointer<QObject> watchedFactory;
    {
        PlatformAutoRunModule module;
        module.InitModule();
        lifeCycle = module.GetLifeCycle();
        router = module.GetRouteInterceptor();
        watchedLifeCycle = dynamic_cast<PlatformAutoRunLifeCycle*>(lifeCycle);
        factory = module.GetSysSettingFactory();
        watchedRouter = dynamic_cast<PlatformAutoRunRouter*>(router);
        watchedFactory = dynamic_cast<PlatformAutoRunSettingFactory*>(factory);
        ASSERT_FALSE(watchedLifeCycle.isNull());
        ASSERT_FALSE(watchedRouter.isNull());
        ASSERT_FALSE(watchedFactory.isNull());
    }
    EXPECT_FALSE(watchedLifeCycle.isNull());
    EXPECT_FALSE(watchedRouter.isNull());
    EXPECT_FALSE(watchedFactory.isNull());
    delete lifeCycle;
    delete router;
    delete factory;
}

TEST(PlatformAutoRunModuleTest, CastsToTheInterfaceAlsoByItsId)
{
    PlatformAutoRunModule module;
    QObject* object = &module;
    EXPECT_EQ(qobject_cast<IBusinessModule*>(object), &module);
    EXPECT_NE(object->qt_metacast("com.kelvorant.localhost.IBusinessModule/8.7.0.0"), nullptr);
}
