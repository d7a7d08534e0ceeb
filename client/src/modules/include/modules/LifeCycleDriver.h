#pragma once

#include "modules/LoadedModule.h"

#include <vector>

class ILifeCycle;

/// Calls the modules' hooks in the order of docs/lifecycle.md. Each moment happens once; one that comes
/// out of order (the main frame quits that was never made) is passed over, so that every way to end can
/// ask for the whole sequence. On the way up the modules hear in the order of loading, on the way down in
/// the opposite one. GUI thread.
class LifeCycleDriver final
{
public:
    /// The modules stay loaded until `ExitApp` returned.
    void SetModules(const std::vector<LoadedModule>& modules);

    void StartApp();
    /// May happen again: a log-in that failed on the way brings the dialog back.
    void BeforeLoginConstruct();
    void LoginSuccess();
    void GetUserInfoSuccess();
    void MainFrameCreate();
    void MainFrameShow();

    /// Asks every module until one refuses. True: the main window may close.
    bool MayClose();

    /// The key of the module whose hook is running; of the innermost one, should a hook's event loop let
    /// another one run. Empty between hooks.
    QString GetRunningModule() const { return m_running; }

    void LogOut();
    void MainFrameQuit();
    /// In place of `MainFrameQuit` when the system ends the session: what the hook would clear is what the
    /// next log-in needs.
    void PassOverMainFrameQuit();
    void BeforeMainFrameDestruct();
    void ExitApp();

private:
    /// How far the life cycle has come. What comes after the main frame holds for the way down.
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
