#pragma once

#include "frame-core/BeforeCloseResult.h"
#include "frame-core/FrameCoreExport.h"

#include <QtCore/qglobal.h>

/// A module's share in the user's life cycle; docs/lifecycle.md has every moment. Each operation does nothing
/// by default. The client calls all of them on the GUI thread, and asks `IBusinessModule::GetLifeCycle`
/// before each call. It logs what an operation throws and goes on.
///
/// The client waits for each call, so an operation never waits for disk or network. It may ask the user
/// something in a dialog with an event loop of its own, as modules do in `MainFrameShow`: until the dialog
/// closes, the modules after this one have not heard of the moment. When the client ends meanwhile, it first
/// closes the dialog as if the user had pressed Escape.
///
/// The order of the operations is part of the contract: modules are built against it.
class TL_FRAME_CORE_EXPORT ILifeCycle
{
public:
    virtual ~ILifeCycle();

    /// The gateway accepted the log-in or a kept session; pin and belong type are set.
    virtual void LoginSuccess();
    /// App list and function switches were read, came from a kept reply, or failed; after 3 s at the latest.
    /// A later answer still updates both.
    virtual void GetUserInfoSuccess();
    /// The session ends for good: the user logged out, or the gateway refused the access token. Not called
    /// for a quit, a restart, or an end by the system. `MainFrameQuit` follows a log-out, but not a refusal.
    virtual void LogOut();
    /// The session was renewed without a restart of the process. This client never does that.
    virtual void ReLoginSuccess();
    /// The user's state was switched, such as to "away". This client has no such states.
    virtual void SwitchUserStateSuccess();
    /// All modules are loaded and their router URLs known. The event loop is about to start; there is no user
    /// yet.
    virtual void StartApp();
    /// The log-in dialog is about to be made. Called again when the dialog has to come back, and never when a
    /// kept session or the command line makes the dialog unnecessary.
    virtual void BeforeLoginConstruct();
    /// The main window and its browser exist, with the home tab, and are not shown yet.
    virtual void MainFrameCreate();
    /// The main window is on the screen, the browser has its home tab, a user is signed in. Tabs can be
    /// opened.
    virtual void MainFrameShow();
    /// An orderly end has begun: a quit, a log-out, or a restart. All tabs still stand, the pin is set, and
    /// the settings store takes values. Not called when the gateway refused the session or the system ends
    /// it, because what a module clears here is what the next log-in needs; nor when no main window was made.
    virtual void MainFrameQuit();
    /// The tabs are gone; the main window is about to be destroyed. Called at every end if a main window was
    /// made, except when the system stops the process first.
    virtual void BeforeMainFrameDestruct();
    /// The last call before `IBusinessModule::UninitModule`, at every end, also when there never was a user.
    /// The browser is gone, the pin is still set.
    virtual void ExitApp();
    /// The user closed the main window, quit, logged out, or asked for a restart. `Refuse` keeps everything
    /// as it is, and the modules after this one are not asked. Not called when the gateway or the system ends
    /// the session, when the command line set the end, or when the user quits from the log-in dialog.
    virtual BeforeCloseResult BeforeClose();

protected:
    ILifeCycle() = default;
    Q_DISABLE_COPY(ILifeCycle)
};
