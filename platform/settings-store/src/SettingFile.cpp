#include "SettingFile.h"

#include "DamagedRows.h"
#include "SettingConnection.h"
#include "SettingExaminer.h"
#include "SettingFileNames.h"
#include "SettingSalvage.h"
#include "SettingTransaction.h"

#include <QtCore/QDateTime>
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QVariant>
#include <QtSql/QSqlDatabase>
#include <QtSql/QSqlError>
#include <QtSql/QSqlQuery>

#include <limits>

namespace {

constexpr int SmallestDatabase = 512; // [bytes]

// Whether something at the path can never be opened. A sound file may also fail to open, when the system is
// short of something; we do not touch it.
bool IsInTheWay(const QString& path)
{
    const QFileInfo info(path);
    return info.exists() && (!info.isFile() || !info.isReadable());
}

// Whether the file is shorter than any database, even an empty one: a fresh file gets its name only when it
// is complete. SQLite would take a shorter one for new and discard its log.
bool IsTooShort(const QString& path)
{
    const QFileInfo info(path);
    return info.isFile() && info.size() < SmallestDatabase;
}

// Whether the header says that a newer SQLite wrote the file. None of ours did, and this SQLite would read
// the file but never write to it.
bool HasStrangeHead(const QString& path)
{
    constexpr int writeVersion = 18;
    constexpr int readVersion = 19;
    QFile file(path);
    if (!file.open(QFile::ReadOnly)) {
        return false;
    }
    const QByteArray head = file.read(readVersion + 1);
    const auto isKnown = [](char version) { return version == 1 || version == 2; };
    return head.size() > readVersion && !(isKnown(head.at(writeVersion)) && isKnown(head.at(readVersion)));
}

// Whether there is a log of changes but no file.
bool HasOnlyLog(const QString& path)
{
    return !QFileInfo::exists(path) && (QFileInfo(path + SettingFileNames::Log).size() > 0 ||
                                        QFileInfo(path + SettingFileNames::Journal).size() > 0);
}

// The keys of damaged rows that have no sound row.
QVector<SettingKey> KeysOf(const SettingContent& content)
{
    QVector<SettingKey> keys;
    for (const SettingRow& row : content.damaged) {
        const SettingKey key = row.GetKey();
        if (!content.values.contains(key)) {
            keys.append(key);
        }
    }
    return keys;
}

SettingProblem ReadValues(const QSqlDatabase& database, SettingContent* content)
{
    const QSqlError error =
        SettingTable::ReadAll(database, SettingTable::Direction::Forward, std::numeric_limits<qint64>::max(),
                              SettingTable::Checksums::Needed, content)
            .error;
    return error.isValid() ? SettingConnection::ProblemOf(error) : SettingProblem{};
}

} // namespace

SettingFile::SettingFile(const QString& path)
    : m_path(QFileInfo(path).absoluteFilePath()), m_lock(m_path + SettingFileNames::Lock)
{}

SettingFile::~SettingFile()
{
    CloseConnection();
}

SettingFileReport SettingFile::Open()
{
    SettingFileReport report;
    const QString folder = QFileInfo(m_path).absolutePath();
    if (!QDir().mkpath(folder)) {
        report.failure = tr("The folder %1 could not be created: settings cannot be saved.")
                             .arg(QDir::toNativeSeparators(folder));
        return report;
    }
    if (!m_lock.Take()) {
        report.failure = Sentence({SettingFault::InUse, QString()});
        return report;
    }

    SettingContent content;
    SettingProblem problem = OpenConnection(&content);
    if (problem.IsFatal()) {
        content = SettingSalvage::Read(m_path);
        m_values = content.values;
        // A later version may calculate its checksums differently: that is no damage.
        if (problem.fault == SettingFault::Damaged) {
            report.damagedValues = KeysOf(content);
        }
        problem = Replace(problem, m_values, &report);
        if (problem.None()) {
            report.setAsideReason += QLatin1Char(' ') + KeptSentence(m_values.size());
        }
    } else if (problem.None() || m_isRead || ReadAlone(problem, &content)) {
        m_values = content.values;
        report.damagedValues = KeysOf(content);
        problem = {}; // a read-only file is good enough: the first write reports why
    }
    report.failure = Sentence(problem);
    return report;
}

SettingFileReport SettingFile::Write(const SettingValues& values)
{
    SettingFileReport report;
    SettingProblem problem;
    if (m_connection.isEmpty()) {
        problem = OpenConnection(nullptr);
    }
    if (problem.None()) {
        problem = SettingTransaction::WriteRows(m_connection, values);
    }
    const bool isWritten = problem.None();
    if (isWritten || problem.IsFatal()) {
        SettingValues all = m_values;
        for (auto it = values.cbegin(); it != values.cend(); ++it) {
            all.insert(it.key(), it.value());
        }
        if (!isWritten) {
            problem = Replace(problem, all, &report);
        }
        if (problem.None()) {
            m_values = all;
        }
    }
    report.failure = Sentence(problem);
    return report;
}

SettingValues SettingFile::GetValues() const
{
    return m_values;
}

QString SettingFile::Sentence(const SettingProblem& problem)
{
    switch (problem.fault) {
    case SettingFault::None:
        return QString();
    case SettingFault::InUse:
        return tr("Another running program has these settings open: they were not read and cannot be saved.");
    case SettingFault::Busy:
        return tr("Another program has locked the settings file: settings cannot be saved.");
    case SettingFault::DiskFull:
        return tr("The disk is full: settings cannot be saved.");
    case SettingFault::Unwritable:
        return tr("The settings file cannot be written: settings cannot be saved.");
    case SettingFault::Damaged:
    case SettingFault::LaterVersion:
    case SettingFault::Other:
        break;
    }
    return tr("Settings cannot be saved: %1.").arg(problem.detail);
}

QString SettingFile::KeptSentence(int count)
{
    return count == 0 ? tr("Nothing could be read from it.")
                      : tr("Settings that could be read and were kept: %1.").arg(count);
}

SettingProblem SettingFile::OpenConnection(SettingContent* loaded)
{
    if (IsTooShort(m_path)) {
        return {SettingFault::Damaged, tr("it is too short")};
    }
    if (HasOnlyLog(m_path)) {
        return {SettingFault::Damaged, tr("only its log exists")};
    }
    if (!QFileInfo::exists(m_path)) {
        SettingProblem problem = MakeFile();
        if (!problem.None()) {
            return problem;
        }
    }

    if (HasStrangeHead(m_path)) {
        return {SettingFault::Damaged, tr("its header is not a database header")};
    }
    if (QFileInfo(m_path + SettingFileNames::Log).size() > 0) {
        SettingProblem problem = SettingExaminer::ExamineCopy(m_path);
        if (problem.IsFatal()) {
            return problem;
        }
    }

    QSqlError error;
    m_connection = SettingConnection::Open(m_path, SettingConnection::BusyTimeout, &error);
    if (m_connection.isEmpty()) {
        return {IsInTheWay(m_path) ? SettingFault::Damaged : SettingFault::Other, error.databaseText()};
    }
    SettingProblem problem = Prepare(loaded);
    if (!problem.None()) {
        CloseConnection();
    } else {
        QFile::remove(m_path + SettingFileNames::Draft);
    }
    return problem;
}

// Reads a file that cannot be opened for writing, because the disk is full or read-only. Does without the
// log's index, which would have to be made, and which a sole reader does not need.
bool SettingFile::ReadAlone(const SettingProblem& problem, SettingContent* loaded)
{
    if (problem.fault == SettingFault::Busy || !QFileInfo(m_path).isFile()) {
        return false;
    }
    QSqlError error;
    QString connection = SettingConnection::Open(m_path, SettingConnection::BusyTimeout, &error);
    if (!connection.isEmpty()) {
        const QSqlDatabase database = QSqlDatabase::database(connection);
        QSqlQuery query(database);
        query.exec(QStringLiteral("PRAGMA locking_mode=EXCLUSIVE"));
        query.finish();
        SettingTable::Kind kind = SettingTable::Kind::Foreign;
        m_isRead = SettingExaminer::Examine(connection, &kind).None() && ReadValues(database, loaded).None();
    }
    SettingConnection::Close(&connection);
    return m_isRead;
}

// Checks the file, reads the values, and upgrades a file of an earlier version.
SettingProblem SettingFile::Prepare(SettingContent* loaded)
{
    SettingTable::Kind kind = SettingTable::Kind::Foreign;
    SettingProblem problem = SettingExaminer::Examine(m_connection, &kind);
    if (problem.None()) {
        problem = SetUp();
    }
    if (problem.None() && kind == SettingTable::Kind::Empty) {
        problem = SettingTransaction::CreateTables(m_connection, {});
    }
    if (!problem.None()) {
        return problem;
    }

    const QSqlDatabase database = QSqlDatabase::database(m_connection);
    if (loaded) {
        problem = ReadValues(database, loaded);
        if (!problem.None()) {
            return problem;
        }
        m_isRead = true;
    }
    if (kind == SettingTable::Kind::Version1) {
        const QSqlError error = SettingTable::BringUpToDate(database);
        if (error.isValid()) {
            return SettingConnection::ProblemOf(error);
        }
    }
    // Rows that cannot be moved now stay, and the next opening finds them again.
    if (loaded && !loaded->damaged.isEmpty()) {
        DamagedRows::Keep(database, loaded->damaged.keys());
    }
    return {};
}

// A file that cannot be written can still be read; the first write will report it.
SettingProblem SettingFile::SetUp()
{
    QSqlQuery query(QSqlDatabase::database(m_connection));
    query.setForwardOnly(true);
    for (const QString& pragma :
         {QStringLiteral("PRAGMA journal_mode=WAL"), QStringLiteral("PRAGMA synchronous=FULL"),
          QStringLiteral("PRAGMA journal_size_limit=1048576")}) {
        if (!query.exec(pragma)) {
            SettingProblem problem = SettingConnection::ProblemOf(query.lastError());
            if (problem.fault != SettingFault::Unwritable) {
                return problem;
            }
        }
        query.finish();
    }
    return {};
}

// A fresh file gets its own name only when it is complete. However the process ends, no half-made file is
// ever taken for a damaged one, and a complete one is not made again.
SettingProblem SettingFile::MakeFile()
{
    if (!IsWholeDraft()) {
        SettingProblem problem = MakeDraft({});
        if (!problem.None()) {
            return problem;
        }
    }
    return TakeDraft();
}

bool SettingFile::IsWholeDraft() const
{
    const QString draft = m_path + SettingFileNames::Draft;
    if (IsTooShort(draft) || !QFileInfo(draft).isFile()) {
        return false;
    }
    QSqlError error;
    QString connection = SettingConnection::Open(draft, SettingConnection::BusyTimeout, &error);
    SettingTable::Kind kind = SettingTable::Kind::Foreign;
    const bool isWhole = !connection.isEmpty() && SettingExaminer::Examine(connection, &kind).None() &&
                         kind == SettingTable::Kind::Ours;
    SettingConnection::Close(&connection);
    return isWhole;
}

SettingProblem SettingFile::MakeDraft(const SettingValues& values)
{
    const QString draft = m_path + SettingFileNames::Draft;
    QFile::remove(draft + SettingFileNames::Journal);
    QFile::remove(draft);
    QSqlError error;
    QString connection = SettingConnection::Open(draft, SettingConnection::BusyTimeout, &error);
    if (connection.isEmpty()) {
        return SettingConnection::ProblemOf(error);
    }
    // The settings reveal what the user has open, which is nobody else's business. The files beside a
    // database get its permissions.
    QFile::setPermissions(draft, QFile::ReadOwner | QFile::WriteOwner);
    SettingProblem problem = SettingTransaction::CreateTables(connection, values);
    SettingConnection::Close(&connection);
    return problem;
}

SettingProblem SettingFile::TakeDraft()
{
    // Empty leftovers, which SQLite must not take for this file's own.
    for (const QString& suffix :
         {SettingFileNames::Log, SettingFileNames::LogIndex, SettingFileNames::Journal}) {
        QFile::remove(m_path + suffix);
    }
    QFile file(m_path + SettingFileNames::Draft);
    return file.rename(m_path) ? SettingProblem{} : SettingProblem{SettingFault::Other, file.errorString()};
}

void SettingFile::CloseConnection()
{
    SettingConnection::Close(&m_connection);
}

// Replaces a file that cannot be used with a fresh one of these values. The old file keeps its place until
// the fresh one is complete.
SettingProblem SettingFile::Replace(const SettingProblem& damage, const SettingValues& values,
                                    SettingFileReport* report)
{
    CloseConnection();
    SettingProblem problem = MakeDraft(values);
    if (problem.None()) {
        problem = SetAside(damage, report);
    }
    if (problem.None()) {
        problem = TakeDraft();
    }
    return problem.None() ? OpenConnection(nullptr) : problem;
}

// The log and index files go with their database, so that it stays readable under its new name. They go
// first: a database without its log can be set aside again, but a log without its database is useless.
SettingProblem SettingFile::SetAside(const SettingProblem& damage, SettingFileReport* report)
{
    const QString kind = damage.fault == SettingFault::LaterVersion ? QStringLiteral(".later-version-")
                                                                    : QStringLiteral(".damaged-");
    const QString name =
        m_path + kind + QDateTime::currentDateTimeUtc().toString(QStringLiteral("yyyyMMddTHHmmsszzzZ"));
    QString aside = name;
    for (int i = 2; QFileInfo::exists(aside) || QFileInfo::exists(aside + SettingFileNames::Log); ++i) {
        aside = QStringLiteral("%1-%2").arg(name).arg(i);
    }

    for (const QString& suffix :
         {SettingFileNames::Log, SettingFileNames::LogIndex, SettingFileNames::Journal, QString()}) {
        if (!QFileInfo::exists(m_path + suffix)) {
            continue;
        }
        if (!QDir().rename(m_path + suffix, aside + suffix)) {
            return {SettingFault::Other,
                    tr("the damaged file %1 cannot be renamed").arg(QDir::toNativeSeparators(m_path))};
        }
        if (suffix != SettingFileNames::LogIndex) {
            report->setAsideFile = aside + suffix; // the database comes last, if there is one
        }
    }
    report->setAsideReason = damage.fault == SettingFault::LaterVersion
                                 ? tr("A later version of this program created the settings file.")
                                 : tr("The settings file is damaged (%1).").arg(damage.detail);
    return {};
}
