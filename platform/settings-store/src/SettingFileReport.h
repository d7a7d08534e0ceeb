#pragma once

#include "SettingKey.h"

#include <QtCore/QString>
#include <QtCore/QVector>

/// What came of opening or writing the file.
struct SettingFileReport
{
    QString failure;        ///< a sentence for the user; empty: it went well
    QString setAsideFile;   ///< the new name of a file that cannot be used; empty: there was none
    QString setAsideReason; ///< a sentence for the user
    QVector<SettingKey> damagedValues;
};
