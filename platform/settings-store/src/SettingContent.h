#pragma once

#include "SettingKey.h"
#include "SettingRow.h"

#include <QtCore/QMap>

/// What was read from a file.
struct SettingContent
{
    SettingValues values;
    QMap<qint64, SettingRow> damaged; ///< by the row's id
};
