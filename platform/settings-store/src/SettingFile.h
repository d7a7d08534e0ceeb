#pragma once

#include "SettingContent.h"
#include "SettingFault.h"
#include "SettingFileReport.h"
#include "SettingLock.h"
#include "SettingTable.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QString>

class QSqlDatabase;
class QSqlError;

/// The SQLite file of the store. Made, used and destroyed on one thread, the writer's.
class SettingFile final
{
    Q_DECLARE_TR_FUNCTIONS(SettingFile)

public:
    explicit SettingFile(const QString& path);
    ~SettingFile();

    SettingFile(const SettingFile&) = delete;
    SettingFile& operator=(const SettingFile&) = delete;

    /// Opens the file or makes it. One that cannot be used is set aside; what can be read from it is
    /// written into the fresh one by the next `Write`. Single values that are damaged are set aside within
    /// the file.
    [[nodiscard]] SettingFileReport Open();

    /// Writes all values in one transaction, none if it fails. A file that turns out to be damaged is
    /// replaced by a fresh one with all values known so far.
    [[nodiscard]] SettingFileReport Write(const SettingValues& values);

    /// Everything that the file holds, or ought to hold.
    SettingValues GetValues() const;
    /// Whether the file lacks some of them.
    bool OwesValues() const;

private:
    struct Problem
    {
        SettingFault fault = SettingFault::None;
        QString detail;

        bool None() const { return fault == SettingFault::None; }
        /// Whether a fresh file has to take the place of this one.
        bool IsFatal() const { return fault == SettingFault::Damaged || fault == SettingFault::LaterVersion; }
    };

    static Problem ProblemOf(const QSqlError& error);
    static QString Sentence(const Problem& problem);

    /// `loaded` is null when the values are known already.
    Problem OpenConnection(SettingContent* loaded);
    Problem Prepare(SettingContent* loaded);
    bool ReadAlone(const Problem& problem, SettingContent* loaded);
    Problem SetUp();
    Problem MakeFile();
    static Problem Examine(const QString& connection, SettingTable::Kind* kind);
    static Problem ExamineCopy(const QString& file);
    static Problem ReadValues(const QSqlDatabase& database, SettingContent* content);
    static Problem CheckIntegrity(const QString& connection);
    static Problem CreateTables(const QString& connection);
    void CloseConnection();
    Problem WriteRows(const SettingValues& values);
    Problem SetAside(const Problem& damage, SettingFileReport* report);
    void Salvage(const Problem& damage, SettingFileReport* report);

    const QString m_path;
    SettingLock m_lock;
    QString m_connection; // the name of the connection; empty while there is none
    bool m_isRead = false;
    SettingValues m_values;
    SettingValues m_owed; // of these, what a fresh file still lacks
};
