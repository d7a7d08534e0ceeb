#pragma once

#include "SettingProblem.h"
#include "SettingTable.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QString>

/// Tells whether a file is a store, and a sound one. Writes nothing. On the writer's thread.
class SettingExaminer final
{
    Q_DECLARE_TR_FUNCTIONS(SettingExaminer)

public:
    SettingExaminer() = delete;

    /// Examines the open file and tells what kind of store it is.
    static SettingProblem Examine(const QString& connection, SettingTable::Kind* kind);
    /// Examines a copy of the file, so that SQLite does not touch the original. No problem when no copy can
    /// be made: there may be no room for it.
    static SettingProblem ExamineCopy(const QString& file);

private:
    static SettingProblem CheckIntegrity(const QString& connection);
};
