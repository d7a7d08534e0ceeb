#pragma once

/// Where the client stands between its start and its end.
enum class ClientStage
{
    Starting,  ///< nobody was asked for a session yet
    LoggingIn, ///< the dialog, the saved session or the command line is to give one
    Entering,  ///< there is a session; what the main window needs is being read
    Working,   ///< the main window is there
    Ending,    ///< an end was decided on; the client closes what stands in the way
    Ended      ///< it is being taken down, or has been
};
