#pragma once

#include "SettingContent.h"
#include "SettingFault.h"
#include "SettingFileReport.h"
#include "SettingLock.h"
#include "SettingTable.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QString>

#include <functional>

class QSqlDatabase;
class QSqlError;
class QSqlQuery;

/// The SQLite file of the store. Made, used and destroyed on one thread, the writer's.
class SettingFile final
{
    Q_DECLARE_TR_FUNCTIONS(SettingFile)

public:
    explicit SettingFile(const QString& path);
    ~SettingFile();

    SettingFile(const SettingFile&) = delete;
    SettingFile& operator=(const SettingFile&) = delete;

    /// Opens the file or makes it. One that cannot be used is set aside, and a fresh one takes its place
    /// with what can be read from it. Single values that are damaged are set aside within the file.
    [[nodiscard]] SettingFileReport Open();

    /// Writes all values in one transaction, none if it fails. A file that turns out to be damaged is
    /// replaced by a fresh one with all values known so far.
    [[nodiscard]] SettingFileReport Write(const SettingValues& values);

    /// Everything that the file holds, or ought to hold.
    SettingValues GetValues() const;

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
    static QString KeptSentence(int count);

    /// `loaded` is null when the values are known already.
    Problem OpenConnection(SettingContent* loaded);
    Problem Prepare(SettingContent* loaded);
    bool ReadAlone(const Problem& problem, SettingContent* loaded);
    Problem SetUp();
    Problem MakeFile();
    bool IsWholeDraft() const;
    Problem MakeDraft(const SettingValues& values);
    Problem TakeDraft();
    Problem Replace(const Problem& damage, const SettingValues& values, SettingFileReport* report);
    static Problem Examine(const QString& connection, SettingTable::Kind* kind);
    static Problem ExamineCopy(const QString& file);
    static Problem ReadValues(const QSqlDatabase& database, SettingContent* content);
    static Problem CheckIntegrity(const QString& connection);
    static Problem CreateTables(const QString& connection, const SettingValues& values);
    static Problem WriteRows(const QString& connection, const SettingValues& values);
    static Problem InTransaction(const QString& connection, const std::function<bool(QSqlQuery*)>& work);
    void CloseConnection();
    Problem SetAside(const Problem& damage, SettingFileReport* report);

    const QString m_path;
    SettingLock m_lock;
    QString m_connection; // the name of the connection; empty while there is none
    bool m_isRead = false;
    SettingValues m_values;
};
