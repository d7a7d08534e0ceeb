#pragma once

/// The stages between the start and the end of the client.
enum class ClientStage
{
    Starting,  ///< the client has not asked for a session yet
    LoggingIn, ///< the dialog, the saved session or the command line is about to give one
    Entering,  ///< there is a session; the client reads what the main window needs
    Working,   ///< the main window is there
    Ending,    ///< the end is decided; the client closes whatever is still open
    Ended      ///< the client is being taken down, or has been
};
