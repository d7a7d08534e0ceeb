#pragma once

#include "modules/LoadedModule.h"

#include "frame-core/IBusinessModule.h"
#include "frame-core/ILifeCycle.h"
#include "frame-core/IRouteInterceptor.h"

#include <QtCore/QStringList>

#include <functional>

/// A module in the test's own process that records each hook as "<key> <hook>" and misbehaves as the test
/// wants.
class FakeModule final : public IBusinessModule, public ILifeCycle, public IRouteInterceptor
{
public:
    FakeModule(const QString& key, QStringList* calls);

    LoadedModule AsLoaded() { return {m_key, QString(), this}; }

    /// The hook with this name throws; empty: none does.
    QString throwsIn;
    /// Runs inside each hook. Empty: nothing.
    std::function<void()> during;
    BeforeCloseResult beforeClose = BeforeCloseResult::Close;
    bool hasHooks = true;
    QStringList urls;
    bool intercepts = false;
    QObject* object = nullptr;

    void InitModule() override {}
    void UninitModule() override {}
    ILifeCycle* GetLifeCycle() override { return hasHooks ? this : nullptr; }
    IRouteInterceptor* GetRouteInterceptor() override { return hasHooks ? this : nullptr; }
    ISysSettingFactory* GetSysSettingFactory() override { return nullptr; }

    void LoginSuccess() override { Note("LoginSuccess"); }
    void GetUserInfoSuccess() override { Note("GetUserInfoSuccess"); }
    void LogOut() override { Note("LogOut"); }
    void StartApp() override { Note("StartApp"); }
    void BeforeLoginConstruct() override { Note("BeforeLoginConstruct"); }
    void MainFrameCreate() override { Note("MainFrameCreate"); }
    void MainFrameShow() override { Note("MainFrameShow"); }
    void MainFrameQuit() override { Note("MainFrameQuit"); }
    void BeforeMainFrameDestruct() override { Note("BeforeMainFrameDestruct"); }
    void ExitApp() override { Note("ExitApp"); }
    BeforeCloseResult BeforeClose() override;

    bool InterceptRoute(const VXRouterProtocol& route) override;
    bool HasRouteValue(const VXRouterProtocol& route) override;
    QVariant GetRouteValue(const VXRouterProtocol& route) override;
    QStringList GetRouteUrls() override;

private:
    void Note(const char* hook);

    QString m_key;
    QStringList* m_calls;
};
