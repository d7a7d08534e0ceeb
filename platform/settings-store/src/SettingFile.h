#pragma once

#include "SettingFileReport.h"
#include "SettingKey.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QString>

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

    /// Opens the file or makes it. A damaged one is set aside; what can be read from it is written into
    /// the fresh one by the next `Write`.
    [[nodiscard]] SettingFileReport Open();

    /// Writes all values in one transaction, none if it fails. A file that turns out to be damaged is
    /// replaced by a fresh one with all values known so far.
    [[nodiscard]] SettingFileReport Write(const SettingValues& values);

    /// Everything that the file holds, or ought to hold.
    SettingValues GetValues() const;
    /// Whether the file lacks some of them.
    bool OwesValues() const;

private:
    enum class Fault
    {
        None,
        Damaged,
        Busy,
        DiskFull,
        Unwritable,
        Other,
    };
    struct Problem
    {
        Fault fault = Fault::None;
        QString detail;
    };

    static Problem ProblemOf(const QSqlError& error);
    static QString Sentence(const Problem& problem);

    Problem OpenConnection(SettingValues* loaded);
    Problem Prepare(SettingValues* loaded);
    Problem CreateTable();
    void CloseConnection();
    Problem WriteRows(const SettingValues& values);
    Problem SetAside(const Problem& damage, SettingFileReport* report);

    QString m_path;
    QString m_connection; // the name of the connection; empty while there is none
    SettingValues m_values;
    SettingValues m_owed; // of these, what a fresh file still lacks
};
