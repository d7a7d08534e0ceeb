#pragma once

#include "modules/LoadedModule.h"

#include <vector>

class ILifeCycle;

/// Calls the modules' hooks in the order of docs/lifecycle.md. Calls each hook once and skips one that comes
/// out of order (such as `MainFrameQuit` without `MainFrameCreate`), so that every way to end can run the
/// whole sequence. Modules are called in the order of loading on the way up, and in reverse on the way down.
/// GUI thread.
class LifeCycleDriver final
{
public:
    /// The modules stay loaded until `ExitApp` has returned.
    void SetModules(const std::vector<LoadedModule>& modules);

    void StartApp();
    /// May be called again: a log-in that fails halfway brings the dialog back.
    void BeforeLoginConstruct();
    void LoginSuccess();
    void GetUserInfoSuccess();
    void MainFrameCreate();
    void MainFrameShow();

    /// Asks the modules until one refuses; true when the main window may close.
    bool MayClose();

    /// The key of the module whose hook is running; of the innermost one, should a hook's event loop let
    /// another one run. Empty between hooks.
    QString GetRunningModule() const { return m_running; }

    void LogOut();
    void MainFrameQuit();
    /// Call in place of `MainFrameQuit` when the system ends the session: the hook would clear what the next
    /// log-in needs.
    void PassOverMainFrameQuit();
    void BeforeMainFrameDestruct();
    void ExitApp();

private:
    /// How far the life cycle has come; from `FrameQuit` on it is on the way down.
    enum class Moment
    {
        Nothing,
        Started,
        LoggedIn,
        UserKnown,
        FrameCreated,
        FrameShown,
        FrameQuit,
        FrameGone,
        Exited
    };

    bool Advance(Moment from, Moment to);
    void Call(const LoadedModule& loaded, const char* name, void (ILifeCycle::*hook)());
    void CallUp(const char* name, void (ILifeCycle::*hook)());
    void CallDown(const char* name, void (ILifeCycle::*hook)());

    std::vector<LoadedModule> m_modules;
    QString m_running;
    Moment m_moment = Moment::Nothing;
    bool m_loggedOut = false;
};
