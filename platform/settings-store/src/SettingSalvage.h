#pragma once

#include "SettingContent.h"

/// Reads what is still readable in a damaged file.
class SettingSalvage final
{
public:
    SettingSalvage() = delete;

    /// Empty when nothing can be read. Leaves the file as it is; its log may be all that is left. On the
    /// writer's thread.
    static SettingContent Read(const QString& damagedFile);
};
