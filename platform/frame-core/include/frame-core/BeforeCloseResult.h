#pragma once

/// A module's answer to the question whether the main window may close.
enum class BeforeCloseResult
{
    Close,  ///< nothing stands against it
    Refuse, ///< the user wants to stay; the window stays open
};
