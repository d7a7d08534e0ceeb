#pragma once

/// What can be wrong with a file of the store.
enum class SettingFault
{
    None,
    Damaged,
    LaterVersion, ///< made by a version of the program that is not known yet
    InUse,        ///< another process has it open as its store
    Busy,         ///< another program has it locked
    DiskFull,
    Unwritable,
    Other,
};
