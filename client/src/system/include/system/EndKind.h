#pragma once

/// Why the client ends. After every kind the settings are on disk.
enum class EndKind
{
    Quit,     ///< the user closed the main window or the log-in dialog
    LogOut,   ///< the user ended the session: a fresh process shows the log-in dialog
    Refused,  ///< the gateway ended the session: likewise; tabs are kept
    Restart,  ///< a fresh process takes over session and tabs
    SystemEnd ///< the system ends the session: shutdown, SIGTERM, SIGHUP, WM_ENDSESSION; tabs are kept
};
