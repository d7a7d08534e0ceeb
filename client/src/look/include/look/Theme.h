#pragma once

#include <QtCore/QMetaType>

/// The theme that the user chose. The numbers are stored.
enum class Theme
{
    FollowSystem = 0,
    Light = 1,
    Dark = 2
};

Q_DECLARE_METATYPE(Theme)
