#pragma once

/// Why the client ends. Every kind leaves the settings on disk.
enum class EndKind
{
    Quit,     ///< the user closed the main window or the log-in dialog
    LogOut,   ///< the user logged out: a fresh process shows the log-in dialog
    Refused,  ///< the gateway refused the session: as for `LogOut`, but the record of the tabs stays
    Restart,  ///< a fresh process takes over session and tabs
    SystemEnd ///< shutdown, SIGTERM, SIGHUP or WM_ENDSESSION: the record of the tabs stays
};
