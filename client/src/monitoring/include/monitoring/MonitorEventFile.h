#pragma once

#include "monitoring/MonitorEvent.h"

#include <QtCore/QStringList>
#include <QtCore/QVector>

/// Reads recorded events: one JSON object per line with time, id, page and parameters.
namespace MonitorEventFile {

/// The events of the files one after the other. A file that is not there is empty; lines that are no event
/// (the last one may be cut off) are passed over. At most the last `limit` events.
QVector<MonitorEvent> Load(const QStringList& files, int limit = 5000);

} // namespace MonitorEventFile
