#pragma once

/// Why the client ends. Every kind is orderly: the modules are told and the settings are on disk.
enum class EndKind
{
    Quit,     ///< the user closed the main window or the log-in dialog
    LogOut,   ///< the user, or the gateway, ended the session: a fresh process shows the log-in dialog
    SystemEnd ///< the system ends the session: shutdown, SIGTERM, SIGHUP, WM_ENDSESSION
};
