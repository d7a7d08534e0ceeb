#pragma once

#include "SettingContent.h"

/// Saves from a damaged file what can still be read.
class SettingSalvage final
{
public:
    SettingSalvage() = delete;

    /// Empty when nothing can be read. The file is left as it is; only its log may be there. On the writer's
    /// thread.
    static SettingContent Read(const QString& damagedFile);
};
