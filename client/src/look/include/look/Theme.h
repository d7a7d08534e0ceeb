#pragma once

#include <QtCore/QMetaType>

/// What the user chose to see the client in. The numbers are stored.
enum class Theme
{
    FollowSystem = 0,
    Light = 1,
    Dark = 2
};

Q_DECLARE_METATYPE(Theme)
