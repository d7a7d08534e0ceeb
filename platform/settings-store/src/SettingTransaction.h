#pragma once

#include "SettingContent.h"
#include "SettingProblem.h"

#include <QtCore/QString>

/// The store's writes, each in one transaction: all of it happens, or nothing. On the writer's thread.
namespace SettingTransaction {

/// Makes the tables and fills them: a file that has the tables also has the values.
SettingProblem CreateTables(const QString& connection, const SettingValues& values);
SettingProblem WriteRows(const QString& connection, const SettingValues& values);

} // namespace SettingTransaction
