#pragma once

#include "monitoring/MonitorEvent.h"

#include <QtCore/QStringList>
#include <QtCore/QVector>

/// Reads recorded events: one JSON object per line with time, id, page and parameters.
namespace MonitorEventFile {

/// Returns the events of the files in order, at most the last `limit`. A missing file counts as empty; lines
/// that are not events are skipped (the last line may be cut off).
QVector<MonitorEvent> Load(const QStringList& files, int limit = 5000);

} // namespace MonitorEventFile
