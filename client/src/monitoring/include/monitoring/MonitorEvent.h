#pragma once

#include <QtCore/QDateTime>
#include <QtCore/QString>
#include <QtCore/QStringList>

/// One recorded action of the user.
struct MonitorEvent
{
    QDateTime time; ///< UTC
    QString id;
    QString page;
    QStringList parameters;
};
