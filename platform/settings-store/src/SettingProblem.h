#pragma once

#include "SettingFault.h"

#include <QtCore/QString>

/// What kept an operation on the store's file from being done, if anything.
struct SettingProblem
{
    SettingFault fault = SettingFault::None;
    QString detail; ///< for the user; may be empty

    bool None() const noexcept { return fault == SettingFault::None; }
    /// Whether a fresh file has to take the place of this one.
    bool IsFatal() const noexcept
    {
        return fault == SettingFault::Damaged || fault == SettingFault::LaterVersion;
    }
};
