#pragma once

#include "frame-core/BeforeCloseResult.h"
#include "frame-core/FrameCoreExport.h"

#include <QtCore/qglobal.h>

/// The moments of the user's life cycle, in the order of docs/lifecycle.md. Every operation has a default
/// that does nothing. All are called on the GUI thread; none may block. The order of the operations is
/// part of the contract: modules are built against it.
class TL_FRAME_CORE_EXPORT ILifeCycle
{
public:
    virtual ~ILifeCycle();

    /// The gateway accepted the log-in; pin and belong type are set.
    virtual void LoginSuccess();
    /// What the client knows of the user is complete: app list and function switches were read or failed.
    virtual void GetUserInfoSuccess();
    /// The user asked to log out; `MainFrameQuit` follows.
    virtual void LogOut();
    /// The session was renewed without a restart of the process.
    virtual void ReLoginSuccess();
    /// The user's state was switched (such as to "away").
    virtual void SwitchUserStateSuccess();
    /// The client's event loop is about to start; no user yet.
    virtual void StartApp();
    /// The log-in dialog is about to be made; not called when a kept session makes it unnecessary.
    virtual void BeforeLoginConstruct();
    /// The main window and its browser were made and are not shown yet.
    virtual void MainFrameCreate();
    /// The main window is on the screen, the browser has its home tab, a user is signed in.
    virtual void MainFrameShow();
    /// The main window goes away for good; its tabs still stand and the pin is still set.
    virtual void MainFrameQuit();
    /// The tabs are gone; the main window is about to be destroyed.
    virtual void BeforeMainFrameDestruct();
    /// The last call before `IBusinessModule::UninitModule`.
    virtual void ExitApp();
    /// The user asked to close the main window. `Refuse` keeps it open.
    virtual BeforeCloseResult BeforeClose();

protected:
    ILifeCycle() = default;
    Q_DISABLE_COPY(ILifeCycle)
};
