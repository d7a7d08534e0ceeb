#pragma once

#include "SettingContent.h"
#include "SettingFault.h"
#include "SettingFileReport.h"
#include "SettingLock.h"
#include "SettingProblem.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QString>

/// The store's SQLite file. One thread, the writer's, makes, uses and destroys it.
class SettingFile final
{
    Q_DECLARE_TR_FUNCTIONS(SettingFile)

public:
    explicit SettingFile(const QString& path);
    ~SettingFile();

    SettingFile(const SettingFile&) = delete;
    SettingFile& operator=(const SettingFile&) = delete;

    /// Opens the file or makes it. Sets aside a file that cannot be used, and puts a fresh one in its place
    /// with everything that it could read. Sets single damaged values aside within the file.
    [[nodiscard]] SettingFileReport Open();

    /// Writes all values in one transaction, all or none. Replaces a file that turns out to be damaged with a
    /// fresh one of all values known so far.
    [[nodiscard]] SettingFileReport Write(const SettingValues& values);

    /// Everything that the file holds or ought to hold.
    SettingValues GetValues() const;

private:
    static QString Sentence(const SettingProblem& problem);
    static QString KeptSentence(int count);

    /// `loaded` is null when the values are already known.
    SettingProblem OpenConnection(SettingContent* loaded);
    SettingProblem Prepare(SettingContent* loaded);
    bool ReadAlone(const SettingProblem& problem, SettingContent* loaded);
    SettingProblem SetUp();
    SettingProblem MakeFile();
    bool IsWholeDraft() const;
    SettingProblem MakeDraft(const SettingValues& values);
    SettingProblem TakeDraft();
    SettingProblem Replace(const SettingProblem& damage, const SettingValues& values,
                           SettingFileReport* report);
    void CloseConnection();
    SettingProblem SetAside(const SettingProblem& damage, SettingFileReport* report);

    const QString m_path;
    SettingLock m_lock;
    QString m_connection; // the name of the connection; empty while there is none
    bool m_isRead = false;
    SettingValues m_values;
};
