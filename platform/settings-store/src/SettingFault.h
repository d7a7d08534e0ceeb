#pragma once

/// What can be wrong with the store's file.
enum class SettingFault
{
    None,
    Damaged,
    LaterVersion, ///< made by a later version of the program
    InUse,        ///< another process has it open as its store
    Busy,         ///< another program has it locked
    DiskFull,
    Unwritable,
    Other,
};
