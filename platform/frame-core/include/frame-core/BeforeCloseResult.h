#pragma once

/// A module's answer when the main window is about to close.
enum class BeforeCloseResult
{
    Close,  ///< the module has no objection
    Refuse, ///< the user wants to stay; the window stays open
};
