#include "modules/LifeCycleDriver.h"

#include "GuardedCall.h"

#include "frame-core/IBusinessModule.h"
#include "frame-core/ILifeCycle.h"

#include <utility>

void LifeCycleDriver::SetModules(const std::vector<LoadedModule>& modules)
{
    m_modules = modules;
}

void LifeCycleDriver::StartApp()
{
    if (Advance(Moment::Nothing, Moment::Started)) {
        CallUp("StartApp", &ILifeCycle::StartApp);
    }
}

void LifeCycleDriver::BeforeLoginConstruct()
{
    if (m_moment == Moment::Started) {
        CallUp("BeforeLoginConstruct", &ILifeCycle::BeforeLoginConstruct);
    }
}

void LifeCycleDriver::LoginSuccess()
{
    if (Advance(Moment::Started, Moment::LoggedIn)) {
        CallUp("LoginSuccess", &ILifeCycle::LoginSuccess);
    }
}

void LifeCycleDriver::GetUserInfoSuccess()
{
    if (Advance(Moment::LoggedIn, Moment::UserKnown)) {
        CallUp("GetUserInfoSuccess", &ILifeCycle::GetUserInfoSuccess);
    }
}

void LifeCycleDriver::MainFrameCreate()
{
    if (Advance(Moment::UserKnown, Moment::FrameCreated)) {
        CallUp("MainFrameCreate", &ILifeCycle::MainFrameCreate);
    }
}

void LifeCycleDriver::MainFrameShow()
{
    if (Advance(Moment::FrameCreated, Moment::FrameShown)) {
        CallUp("MainFrameShow", &ILifeCycle::MainFrameShow);
    }
}

bool LifeCycleDriver::MayClose()
{
    for (const LoadedModule& loaded : m_modules) {
        auto answer = BeforeCloseResult::Close;
        GuardedCall(loaded.key, "BeforeClose", [&loaded, &answer] {
            if (ILifeCycle* const lifeCycle = loaded.module->GetLifeCycle()) {
                answer = lifeCycle->BeforeClose();
            }
        });
        if (answer == BeforeCloseResult::Refuse) {
            return false;
        }
    }
    return true;
}

void LifeCycleDriver::LogOut()
{
    const bool loggedIn = m_moment >= Moment::LoggedIn && m_moment < Moment::FrameQuit;
    if (loggedIn && !m_loggedOut) {
        m_loggedOut = true;
        CallDown("LogOut", &ILifeCycle::LogOut);
    }
}

void LifeCycleDriver::MainFrameQuit()
{
    if (Advance(Moment::FrameShown, Moment::FrameQuit) || Advance(Moment::FrameCreated, Moment::FrameQuit)) {
        CallDown("MainFrameQuit", &ILifeCycle::MainFrameQuit);
    }
}

void LifeCycleDriver::PassOverMainFrameQuit()
{
    if (!Advance(Moment::FrameShown, Moment::FrameQuit)) {
        Advance(Moment::FrameCreated, Moment::FrameQuit);
    }
}

void LifeCycleDriver::BeforeMainFrameDestruct()
{
    if (Advance(Moment::FrameQuit, Moment::FrameGone)) {
        CallDown("BeforeMainFrameDestruct", &ILifeCycle::BeforeMainFrameDestruct);
    }
}

void LifeCycleDriver::ExitApp()
{
    if (m_moment != Moment::Nothing && m_moment != Moment::Exited) {
        m_moment = Moment::Exited;
        CallDown("ExitApp", &ILifeCycle::ExitApp);
        m_modules.clear();
    }
}

bool LifeCycleDriver::Advance(Moment from, Moment to)
{
    if (m_moment != from) {
        return false;
    }
    m_moment = to;
    return true;
}

void LifeCycleDriver::Call(const LoadedModule& loaded, const char* name, void (ILifeCycle::*hook)())
{
    const QString outer = std::exchange(m_running, loaded.key);
    GuardedCall(loaded.key, name, [&loaded, hook] {
        if (ILifeCycle* const lifeCycle = loaded.module->GetLifeCycle()) {
            (lifeCycle->*hook)();
        }
    });
    m_running = outer;
}

void LifeCycleDriver::CallUp(const char* name, void (ILifeCycle::*hook)())
{
    for (const LoadedModule& loaded : m_modules) {
        Call(loaded, name, hook);
    }
}

void LifeCycleDriver::CallDown(const char* name, void (ILifeCycle::*hook)())
{
    for (auto loaded = m_modules.rbegin(); loaded != m_modules.rend(); ++loaded) {
        Call(*loaded, name, hook);
    }
}
