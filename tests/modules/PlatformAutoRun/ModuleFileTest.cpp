#include "FakeBrowser.h"
#include "FakeGeneralData.h"
#include "FakeHttpManager.h"
#include "QueuedEvents.h"
#include "RecordingEventDispatch.h"
#include "VTableSlots.h"

#include "base/Provided.h"
#include "base/VXRouterProtocol.h"
#include "frame-core/IBusinessModule.h"
#include "frame-core/ILifeCycle.h"
#include "frame-core/IRouteInterceptor.h"
#include "http/IHttpRequest.h"
#include "http/IHttpResponse.h"
#include "settings-store/VXSettingManager.h"

#include <QtCore/QCborMap>
#include <QtCore/QCborValue>
#include <QtCore/QFile>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QPluginLoader>
#include <QtCore/QPointer>
#include <QtCore/QProcess>

#include <gtest/gtest.h>

#include <memory>

namespace {

QString ModuleFile()
{
    return QStringLiteral(TL_MODULE_FILE);
}

/// The module, loaded as the client does it. Other than by default, the loader takes the module's code out
/// of the process again, so that anything left behind shows.
class ModuleFileTest : public ::testing::Test
{
protected:
    // Keeps the library in the process, where linkers leave out what no code names.
    static void SetUpTestSuite() { ASSERT_NE(VXSettingManager::Instance(), nullptr); }

    ModuleFileTest() { loader.setLoadHints(QLibrary::ResolveAllSymbolsHint); }

    IBusinessModule* Load()
    {
        module = loader.instance();
        EXPECT_NE(module, nullptr) << qUtf8Printable(loader.errorString());
        return qobject_cast<IBusinessModule*>(module);
    }

    QPluginLoader loader{ModuleFile()};
    QPointer<QObject> module;
};

bool IsMapped(const QString& file)
{
#if defined(Q_OS_LINUX)
    QFile maps(QStringLiteral("/proc/self/maps"));
    if (!maps.open(QIODevice::ReadOnly)) {
        throw std::runtime_error(maps.errorString().toStdString());
    }
    return maps.readAll().contains(QFile::encodeName(file));
#else
    return QPluginLoader(file).isLoaded();
#endif
}

} // namespace

TEST_F(ModuleFileTest, MetadataNamesInterfaceClassAndKey)
{
    const QJsonObject metaData = loader.metaData();
    EXPECT_EQ(metaData.value(QStringLiteral("IID")),
              QJsonValue(QStringLiteral("com.kelvorant.localhost.IBusinessModule/8.7.0.0")));
    EXPECT_EQ(metaData.value(QStringLiteral("className")),
              QJsonValue(QStringLiteral("PlatformAutoRunModule")));
    const QJsonObject expected{{QStringLiteral("Keys"), QJsonArray{QStringLiteral("PlatformAutoRun")}}};
    EXPECT_EQ(metaData.value(QStringLiteral("MetaData")).toObject(), expected);
    EXPECT_FALSE(loader.isLoaded()) << "metadata is read without running the module's code";
}

TEST_F(ModuleFileTest, InstanceIsTheSameObjectEachTime)
{
    IBusinessModule* first = Load();
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(loader.instance(), module.data());
    QPluginLoader second(ModuleFile());
    EXPECT_EQ(second.instance(), module.data());
    EXPECT_STREQ(module->metaObject()->className(), "PlatformAutoRunModule");
    second.unload();
    EXPECT_TRUE(loader.unload());
}

TEST_F(ModuleFileTest, InstanceIsMadeAnewWhenTheFirstOneWasDestroyed)
{
    ASSERT_NE(Load(), nullptr);
    delete module;
    ASSERT_NE(Load(), nullptr);
    EXPECT_TRUE(loader.unload());
}

TEST_F(ModuleFileTest, LifeCycleIsNullBeforeInit)
{
    IBusinessModule* business = Load();
    ASSERT_NE(business, nullptr);
    EXPECT_EQ(business->GetLifeCycle(), nullptr);
    EXPECT_TRUE(loader.unload());
}

TEST_F(ModuleFileTest, InitGivesHooksAndUninitTwiceTakesThemOnce)
{
    IBusinessModule* business = Load();
    ASSERT_NE(business, nullptr);
    business->InitModule();
    EXPECT_NE(business->GetLifeCycle(), nullptr);
    EXPECT_NE(business->GetRouteInterceptor(), nullptr);
    business->UninitModule();
    EXPECT_EQ(business->GetLifeCycle(), nullptr);
    EXPECT_EQ(business->GetRouteInterceptor(), nullptr);
    business->UninitModule();
    EXPECT_EQ(business->GetLifeCycle(), nullptr);
    EXPECT_EQ(business->GetRouteInterceptor(), nullptr);
    EXPECT_TRUE(loader.unload());
    EXPECT_TRUE(module.isNull()) << "the loader destroys the root object";
}

TEST_F(ModuleFileTest, UnloadTakesTheFileOutOfTheProcess)
{
    ASSERT_NE(Load(), nullptr);
    EXPECT_TRUE(IsMapped(ModuleFile()));
    EXPECT_TRUE(loader.unload());
    EXPECT_FALSE(IsMapped(ModuleFile()));
}

TEST_F(ModuleFileTest, UserLifeInTheLoadedModuleOpensTheList)
{
    IBusinessModule* business = Load();
    ASSERT_NE(business, nullptr);
    business->InitModule();
    ILifeCycle* hooks = business->GetLifeCycle();
    ASSERT_NE(hooks, nullptr);
    {
        FakeBrowser browser;
        FakeGeneralData generalData;
        FakeHttpManager http;
        RecordingEventDispatch events; // ends before the module's code, to which the events' texts belong
        const Provided<IBrowserMain> providedBrowser(&browser);
        const Provided<ITabOpener> providedOpener(&browser);
        const Provided<IGeneralData> providedGeneralData(&generalData);
        const Provided<IHttpManager> providedHttp(&http);
        const Provided<IModuleEventDispatch> providedEvents(&events);

        hooks->MainFrameCreate();
        hooks->MainFrameShow();
        ASSERT_EQ(http.GetCallCount(), 1);
        http.Answer(0, R"({"customItems":[{"url":"https://a/","checked":true,"activeItem":true}]})");
        RunQueuedEvents();
        const QStringList expected{QStringLiteral("url https://a/"), QStringLiteral("select 1")};
        EXPECT_EQ(browser.GetCalls(), expected);
        ASSERT_EQ(events.GetEvents().size(), 1u);
        EXPECT_EQ(events.GetEvents().front().event.GetName(), QStringLiteral("GetAutoRun"));
        hooks->MainFrameQuit();
    }
    business->UninitModule();
    EXPECT_TRUE(loader.unload());
    EXPECT_FALSE(IsMapped(ModuleFile()));
}

TEST_F(ModuleFileTest, LoadedAgainAfterAnUnloadItStartsAfresh)
{
    FakeBrowser browser;
    FakeHttpManager http;
    const Provided<IBrowserMain> providedBrowser(&browser);
    const Provided<ITabOpener> providedOpener(&browser);
    const Provided<IHttpManager> providedHttp(&http);

    for (int round = 0; round < 2; ++round) {
        IBusinessModule* business = Load();
        ASSERT_NE(business, nullptr);
        business->InitModule();
        business->GetLifeCycle()->MainFrameCreate();
        business->GetLifeCycle()->MainFrameShow();
        RunQueuedEvents();
        EXPECT_EQ(browser.GetCalls(), QStringList()) << "nothing is known before this life's own read";
        http.Answer(http.GetCallCount() - 1, R"({"customItems":[{"url":"https://a/"}]})");
        RunQueuedEvents();
        business->GetLifeCycle()->MainFrameQuit();
        business->UninitModule();
        ASSERT_TRUE(loader.unload());
    }
    EXPECT_EQ(http.GetCallCount(), 2);
}

TEST_F(ModuleFileTest, RouteInterceptorOfTheLoadedModuleAnswersInSlotOrder)
{
    IBusinessModule* business = Load();
    ASSERT_NE(business, nullptr);
    business->InitModule();
    ASSERT_NE(business->GetRouteInterceptor(), nullptr);
    {
        // Without a browser there is nothing to save, but the URL is the module's all the same.
        const VXRouterProtocol update(QStringLiteral("tl://autorun/update"));
        const VXRouterProtocol foreign(QStringLiteral("tl://plugins/object"));
        const VTableSlots<IRouteInterceptor> interceptor(business->GetRouteInterceptor());
        EXPECT_TRUE((interceptor.Call<bool, const VXRouterProtocol&>(1, update)));
        EXPECT_FALSE((interceptor.Call<bool, const VXRouterProtocol&>(1, foreign)));
        EXPECT_FALSE((interceptor.Call<bool, const VXRouterProtocol&>(2, update)));
        const QStringList expected{QStringLiteral("tl://autorun/update"),
                                   QStringLiteral("tl://autorun/clean"),
                                   QStringLiteral("tl://autorun/restart/update")};
        EXPECT_EQ(business->GetRouteInterceptor()->GetRouteUrls(), expected);
        EXPECT_FALSE(business->GetRouteInterceptor()->GetRouteValue(update).isValid());
    }
    business->UninitModule();
    EXPECT_TRUE(loader.unload());
}

TEST_F(ModuleFileTest, MetadataBlockInTheFileIsAReleaseWithoutArchitectureRequirements)
{
    QFile file(ModuleFile());
    ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << qUtf8Printable(file.errorString());
    const QByteArray bytes = file.readAll();
    const QByteArray marker("QTMETADATA !");
    const int begin = bytes.indexOf(marker);
    ASSERT_GE(begin, 0);
    EXPECT_EQ(bytes.indexOf(marker, begin + 1), -1) << "there is one block";

    const QByteArray head = bytes.mid(begin + marker.size(), 4);
    ASSERT_EQ(head.size(), 4);
    EXPECT_EQ(int(head.at(0)), 0) << "the block's own version";
    EXPECT_EQ(int(head.at(1)), 5);
    EXPECT_EQ(int(head.at(2)), 15);
    const auto flags = static_cast<unsigned char>(head.at(3));
    constexpr unsigned char debugFlag = 1;
    EXPECT_EQ(flags & ~debugFlag, 0) << "no architecture requirements";
    EXPECT_EQ(flags & debugFlag, TL_DEBUG_BUILD ? debugFlag : 0);

    QCborParserError error;
    const QCborMap block = QCborValue::fromCbor(bytes.mid(begin + marker.size() + 4), &error).toMap();
    // Bytes follow the block: all that may be wrong is that they are there.
    EXPECT_TRUE(error.error == QCborError::NoError || error.error == QCborError::GarbageAtEnd)
        << qUtf8Printable(error.errorString());
    constexpr int iid = 2;
    constexpr int className = 3;
    constexpr int metaData = 4;
    EXPECT_EQ(block.value(iid),
              QCborValue(QStringLiteral("com.kelvorant.localhost.IBusinessModule/8.7.0.0")));
    EXPECT_EQ(block.value(className), QCborValue(QStringLiteral("PlatformAutoRunModule")));
    const QJsonObject expected{{QStringLiteral("Keys"), QJsonArray{QStringLiteral("PlatformAutoRun")}}};
    EXPECT_EQ(block.value(metaData).toMap().toJsonObject(), expected);
    EXPECT_EQ(block.size(), 3);
}

TEST_F(ModuleFileTest, MetadataBlockIsTheSameByteForByteOnEverySystem)
{
    QFile file(ModuleFile());
    ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << qUtf8Printable(file.errorString());
    QFile stored(QStringLiteral(TL_AUTORUN_TEST_DATA "/metadata-block"));
    ASSERT_TRUE(stored.open(QIODevice::ReadOnly)) << qUtf8Printable(stored.errorString());
    QByteArray expected = stored.readAll();
    constexpr int flags = 15;
    expected[flags] = TL_DEBUG_BUILD ? 1 : 0;
    EXPECT_EQ(file.readAll().count(expected), 1);
}

TEST_F(ModuleFileTest, QtsOwnPluginToolReadsTheMetadata)
{
    QProcess tool;
    tool.start(QStringLiteral(TL_QTPLUGININFO), {QStringLiteral("--full-json"), ModuleFile()});
    ASSERT_TRUE(tool.waitForFinished()) << qUtf8Printable(tool.errorString());
    const QByteArray errors = tool.readAllStandardError();
    ASSERT_EQ(tool.exitStatus(), QProcess::NormalExit);
    ASSERT_EQ(tool.exitCode(), 0) << errors.constData();

    const QJsonObject info = QJsonDocument::fromJson(tool.readAllStandardOutput()).object();
    EXPECT_EQ(info.value(QStringLiteral("IID")),
              QJsonValue(QStringLiteral("com.kelvorant.localhost.IBusinessModule/8.7.0.0")));
    EXPECT_EQ(info.value(QStringLiteral("className")), QJsonValue(QStringLiteral("PlatformAutoRunModule")));
    const QJsonObject expected{{QStringLiteral("Keys"), QJsonArray{QStringLiteral("PlatformAutoRun")}}};
    EXPECT_EQ(info.value(QStringLiteral("MetaData")).toObject(), expected);
    EXPECT_EQ(info.value(QStringLiteral("debug")), QJsonValue(bool(TL_DEBUG_BUILD)));
}
