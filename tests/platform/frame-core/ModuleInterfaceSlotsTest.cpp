#include "VTableSlots.h"

#include "frame-core/IBusinessModule.h"
#include "frame-core/ILifeCycle.h"
#include "frame-core/IRouteInterceptor.h"
#include "frame-core/ISysSettingFactory.h"

#include "base/VXJsonParserBase.h"
#include "base/VXRouterProtocol.h"
#include "http/HttpObserverBase.h"
#include "http/IHttpRequest.h"
#include "http/IHttpResponse.h"

#include <QtCore/QEvent>
#include <QtCore/QMetaMethod>
#include <QtCore/QVariant>

#include <gtest/gtest.h>

#include <string>
#include <vector>

// Modules are built against these interfaces by others, so that the place of each operation in the built
// vtable is what counts, not its name. Every operation below writes down its own name when it is reached.

namespace {

using Log = std::vector<std::string>;

class RecordingLifeCycle final : public ILifeCycle
{
public:
    explicit RecordingLifeCycle(Log* log) : m_log(log) {}
    ~RecordingLifeCycle() override { m_log->push_back("destructor"); }

    void LoginSuccess() override { m_log->push_back("LoginSuccess"); }
    void GetUserInfoSuccess() override { m_log->push_back("GetUserInfoSuccess"); }
    void LogOut() override { m_log->push_back("LogOut"); }
    void ReLoginSuccess() override { m_log->push_back("ReLoginSuccess"); }
    void SwitchUserStateSuccess() override { m_log->push_back("SwitchUserStateSuccess"); }
    void StartApp() override { m_log->push_back("StartApp"); }
    void BeforeLoginConstruct() override { m_log->push_back("BeforeLoginConstruct"); }
    void MainFrameCreate() override { m_log->push_back("MainFrameCreate"); }
    void MainFrameShow() override { m_log->push_back("MainFrameShow"); }
    void MainFrameQuit() override { m_log->push_back("MainFrameQuit"); }
    void BeforeMainFrameDestruct() override { m_log->push_back("BeforeMainFrameDestruct"); }
    void ExitApp() override { m_log->push_back("ExitApp"); }
    BeforeCloseResult BeforeClose() override
    {
        m_log->push_back("BeforeClose");
        return BeforeCloseResult::Refuse;
    }

private:
    Log* m_log;
};

class RecordingInterceptor final : public IRouteInterceptor
{
public:
    explicit RecordingInterceptor(Log* log) : m_log(log) {}
    ~RecordingInterceptor() override { m_log->push_back("destructor"); }

    bool InterceptRoute(const VXRouterProtocol& route) override
    {
        m_log->push_back("InterceptRoute " + route.GetUrl().toStdString());
        return true;
    }
    bool HasRouteValue(const VXRouterProtocol& route) override
    {
        m_log->push_back("HasRouteValue " + route.GetUrl().toStdString());
        return true;
    }
    QVariant GetRouteValue(const VXRouterProtocol& route) override
    {
        m_log->push_back("GetRouteValue " + route.GetUrl().toStdString());
        return 17;
    }
    QStringList GetRouteUrls() override
    {
        m_log->push_back("GetRouteUrls");
        return {QStringLiteral("tl://a/b")};
    }

private:
    Log* m_log;
};

class RecordingFactory final : public ISysSettingFactory
{
public:
    explicit RecordingFactory(Log* log) : m_log(log) {}
    ~RecordingFactory() override { m_log->push_back("destructor"); }

    SettingGroup GetSettingGroup() override
    {
        m_log->push_back("GetSettingGroup");
        return {3, 4};
    }
    QList<SettingWidgetId> GetSettingWidgetIds() override
    {
        m_log->push_back("GetSettingWidgetIds");
        return {SettingWidgetId(10, 60)};
    }
    SettingItemBaseWidget* CreateSettingWidget(SettingWidgetId id) override
    {
        m_log->push_back("CreateSettingWidget " + std::to_string(id.GetOrder()));
        return nullptr;
    }
    QStringList GetSearchKeywords(SettingWidgetId id) override
    {
        m_log->push_back("GetSearchKeywords " + std::to_string(id.GetGroup()));
        return {QStringLiteral("word")};
    }

private:
    Log* m_log;
};

class RecordingModule final : public IBusinessModule
{
public:
    explicit RecordingModule(Log* log) : m_log(log) {}
    ~RecordingModule() override { m_log->push_back("destructor"); }

    void InitModule() override { m_log->push_back("InitModule"); }
    void UninitModule() override { m_log->push_back("UninitModule"); }
    ILifeCycle* GetLifeCycle() override { return Reached<ILifeCycle>("GetLifeCycle"); }
    IRouteInterceptor* GetRouteInterceptor() override
    {
        return Reached<IRouteInterceptor>("GetRouteInterceptor");
    }
    void* GetReserved5() override { return Reached<void>("GetReserved5"); }
    void* GetReserved6() override { return Reached<void>("GetReserved6"); }
    void* GetReserved7() override { return Reached<void>("GetReserved7"); }
    ISysSettingFactory* GetSysSettingFactory() override
    {
        return Reached<ISysSettingFactory>("GetSysSettingFactory");
    }
    void* GetReserved9() override { return Reached<void>("GetReserved9"); }

private:
    template <class Facility>
    Facility* Reached(const char* name)
    {
        m_log->push_back(name);
        return nullptr;
    }

    Log* m_log;
};

class RecordingHttpObserver final : public HttpObserverBase
{
public:
    explicit RecordingHttpObserver(Log* log) : m_log(log) {}
    ~RecordingHttpObserver() override { m_log->push_back("destructor"); }

    void OnHttpNotify(int id, QSharedPointer<IHttpRequest> request,
                      QSharedPointer<IHttpResponse> response) override
    {
        m_log->push_back("OnHttpNotify " + std::to_string(id) + (request || response ? " full" : " empty"));
    }

private:
    Log* m_log;
};

class RecordingRecord final : public VXJsonParserBase
{
public:
    explicit RecordingRecord(Log* log) : m_log(log) {}
    ~RecordingRecord() override { m_log->push_back("destructor"); }

    const QMetaObject* metaObject() const override
    {
        m_log->push_back("metaObject");
        return &VXJsonParserBase::staticMetaObject;
    }
    void* qt_metacast(const char*) override
    {
        m_log->push_back("qt_metacast");
        return nullptr;
    }
    int qt_metacall(QMetaObject::Call, int, void**) override
    {
        m_log->push_back("qt_metacall");
        return -1;
    }
    bool event(QEvent*) override
    {
        m_log->push_back("event");
        return true;
    }
    bool eventFilter(QObject*, QEvent*) override
    {
        m_log->push_back("eventFilter");
        return true;
    }

protected:
    void timerEvent(QTimerEvent*) override { m_log->push_back("timerEvent"); }
    void childEvent(QChildEvent*) override { m_log->push_back("childEvent"); }
    void customEvent(QEvent*) override { m_log->push_back("customEvent"); }
    void connectNotify(const QMetaMethod&) override { m_log->push_back("connectNotify"); }
    void disconnectNotify(const QMetaMethod&) override { m_log->push_back("disconnectNotify"); }
    bool ParseSpecial(const QString& key, const QJsonValue&) override
    {
        m_log->push_back("ParseSpecial " + key.toStdString());
        return true;
    }
    bool ToSpecial(const QString& key, QJsonValue& value) const override
    {
        m_log->push_back("ToSpecial " + key.toStdString());
        value = 5;
        return true;
    }
    bool JoinToJson(const QString& key) const override
    {
        m_log->push_back("JoinToJson " + key.toStdString());
        return true;
    }
    QStringList GetParseErrorSpecial() const override
    {
        m_log->push_back("GetParseErrorSpecial");
        return {QStringLiteral("mine")};
    }

private:
    Log* m_log;
};

TEST(ModuleInterfaceSlotsTest, LifeCycle)
{
    Log log;
    const VTableSlots<ILifeCycle> table(new RecordingLifeCycle(&log));
    for (int slot = 1; slot <= 12; ++slot) {
        table.Call(slot);
    }
    EXPECT_EQ(table.Call<BeforeCloseResult>(13), BeforeCloseResult::Refuse);
    table.CallDeletingDestructor();
    EXPECT_EQ(log,
              Log({"LoginSuccess", "GetUserInfoSuccess", "LogOut", "ReLoginSuccess", "SwitchUserStateSuccess",
                   "StartApp", "BeforeLoginConstruct", "MainFrameCreate", "MainFrameShow", "MainFrameQuit",
                   "BeforeMainFrameDestruct", "ExitApp", "BeforeClose", "destructor"}));
}

TEST(ModuleInterfaceSlotsTest, RouteInterceptor)
{
    Log log;
    const VTableSlots<IRouteInterceptor> table(new RecordingInterceptor(&log));
    const VXRouterProtocol route(QStringLiteral("tl://a/b"));
    EXPECT_TRUE((table.Call<bool, const VXRouterProtocol&>(1, route)));
    EXPECT_TRUE((table.Call<bool, const VXRouterProtocol&>(2, route)));
    EXPECT_EQ((table.Call<QVariant, const VXRouterProtocol&>(3, route)), QVariant(17));
    EXPECT_EQ(table.Call<QStringList>(4), QStringList(QStringLiteral("tl://a/b")));
    table.CallDeletingDestructor();
    EXPECT_EQ(log, Log({"InterceptRoute tl://a/b", "HasRouteValue tl://a/b", "GetRouteValue tl://a/b",
                        "GetRouteUrls", "destructor"}));
}

TEST(ModuleInterfaceSlotsTest, SysSettingFactory)
{
    Log log;
    const VTableSlots<ISysSettingFactory> table(new RecordingFactory(&log));
    const SettingWidgetId id(10, 60);
    EXPECT_EQ(table.Call<SettingGroup>(1).order, 4);
    EXPECT_EQ(table.Call<QList<SettingWidgetId>>(2), QList<SettingWidgetId>{id});
    EXPECT_EQ((table.Call<SettingItemBaseWidget*, SettingWidgetId>(3, id)), nullptr);
    EXPECT_EQ((table.Call<QStringList, SettingWidgetId>(4, id)), QStringList(QStringLiteral("word")));
    table.CallDeletingDestructor();
    EXPECT_EQ(log, Log({"GetSettingGroup", "GetSettingWidgetIds", "CreateSettingWidget 60",
                        "GetSearchKeywords 10", "destructor"}));
}

TEST(ModuleInterfaceSlotsTest, BusinessModule)
{
    Log log;
    const VTableSlots<IBusinessModule> table(new RecordingModule(&log));
    table.Call(1);
    table.Call(2);
    for (int slot = 3; slot <= 9; ++slot) {
        EXPECT_EQ(table.Call<void*>(slot), nullptr);
    }
    table.CallDeletingDestructor();
    EXPECT_EQ(log,
              Log({"InitModule", "UninitModule", "GetLifeCycle", "GetRouteInterceptor", "GetReserved5",
                   "GetReserved6", "GetReserved7", "GetSysSettingFactory", "GetReserved9", "destructor"}));
}

TEST(ModuleInterfaceSlotsTest, HttpObserver)
{
    Log log;
    const VTableSlots<HttpObserverBase> table(new RecordingHttpObserver(&log));
    table.Call<void, int, QSharedPointer<IHttpRequest>, QSharedPointer<IHttpResponse>>(1, 10400, {}, {});
    table.CallDeletingDestructor();
    EXPECT_EQ(log, Log({"OnHttpNotify 10400 empty", "destructor"}));
}

TEST(ModuleInterfaceSlotsTest, JsonRecordHooksFollowThoseOfQObject)
{
    Log log;
    constexpr int destructorSlot = 3;
    const VTableSlots<VXJsonParserBase> table(new RecordingRecord(&log), destructorSlot);
    QEvent event(QEvent::User);
    const QMetaMethod method;
    EXPECT_EQ(table.Call<const QMetaObject*>(0), &VXJsonParserBase::staticMetaObject);
    EXPECT_EQ((table.Call<void*, const char*>(1, "")), nullptr);
    EXPECT_EQ((table.Call<int, QMetaObject::Call, int, void**>(2, QMetaObject::InvokeMetaMethod, 0, nullptr)),
              -1);
    EXPECT_TRUE((table.Call<bool, QEvent*>(4, &event)));
    EXPECT_TRUE((table.Call<bool, QObject*, QEvent*>(5, nullptr, &event)));
    table.Call<void, QTimerEvent*>(6, nullptr);
    table.Call<void, QChildEvent*>(7, nullptr);
    table.Call<void, QEvent*>(8, &event);
    table.Call<void, const QMetaMethod&>(9, method);
    table.Call<void, const QMetaMethod&>(10, method);

    const QString key = QStringLiteral("key");
    QJsonValue value;
    EXPECT_TRUE((table.Call<bool, const QString&, const QJsonValue&>(11, key, value)));
    EXPECT_TRUE((table.Call<bool, const QString&, QJsonValue&>(12, key, value)));
    EXPECT_EQ(value.toInt(), 5);
    EXPECT_TRUE((table.Call<bool, const QString&>(13, key)));
    EXPECT_EQ(table.Call<QStringList>(14), QStringList(QStringLiteral("mine")));
    table.CallDeletingDestructor();
    EXPECT_EQ(log, Log({"metaObject", "qt_metacast", "qt_metacall", "event", "eventFilter", "timerEvent",
                        "childEvent", "customEvent", "connectNotify", "disconnectNotify", "ParseSpecial key",
                        "ToSpecial key", "JoinToJson key", "GetParseErrorSpecial", "destructor"}));
}

} // namespace
