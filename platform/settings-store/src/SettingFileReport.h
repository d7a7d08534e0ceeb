#pragma once

#include "SettingKey.h"

#include <QtCore/QString>
#include <QtCore/QVector>

/// The result of opening or writing the file.
struct SettingFileReport
{
    QString failure;        ///< a sentence for the user; empty after a success
    QString setAsideFile;   ///< the new name of a file that cannot be used; empty: none
    QString setAsideReason; ///< a sentence for the user
    QVector<SettingKey> damagedValues;
};
