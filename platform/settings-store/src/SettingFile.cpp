#include "SettingFile.h"

#include "DamagedRows.h"
#include "SettingConnection.h"
#include "SettingCopy.h"
#include "SettingFileNames.h"
#include "SettingSalvage.h"

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

// How long another program's lock is waited for. Twice as long is still less than what a flush may take. [ms]
constexpr int busyTimeout = 2000;
constexpr int smallestDatabase = 512; // [bytes]

// Whether something stands at the path that never will be opened. A sound file can fail to open as well,
// when the system is short of something; it is not touched.
bool IsInTheWay(const QString& path)
{
    const QFileInfo info(path);
    return info.exists() && (!info.isFile() || !info.isReadable());
}

// Whether the file is shorter than any database, an empty one included: a fresh file gets its name only
// when it is whole. SQLite would take it for a new one, and throw its log away.
bool IsTooShort(const QString& path)
{
    const QFileInfo info(path);
    return info.isFile() && info.size() < smallestDatabase;
}

// Whether the head says that a newer SQLite wrote the file, which none of ours did: this one would read it
// and never write to it.
bool HasStrangeHead(const QString& path)
{
    constexpr int writeVersion = 18;
    constexpr int readVersion = 19;
    QFile file(path);
    if (!file.open(QFile::ReadOnly))
        return false;
    const QByteArray head = file.read(readVersion + 1);
    const auto isKnown = [](char version) { return version == 1 || version == 2; };
    return head.size() > readVersion && !(isKnown(head.at(writeVersion)) && isKnown(head.at(readVersion)));
}

// Whether there are changes to a file that itself is not there.
bool HasOnlyLog(const QString& path)
{
    return !QFileInfo::exists(path) && (QFileInfo(path + SettingFileNames::log).size() > 0 ||
                                        QFileInfo(path + SettingFileNames::journal).size() > 0);
}

QVector<SettingKey> KeysOf(const QMap<qint64, SettingRow>& rows)
{
    QVector<SettingKey> keys;
    for (const SettingRow& row : rows)
        keys.append(row.GetKey());
    return keys;
}

} // namespace

SettingFile::SettingFile(const QString& path)
    : m_path(QFileInfo(path).absoluteFilePath()), m_lock(m_path + SettingFileNames::lock)
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
        report.failure = tr("The folder %1 cannot be made: settings cannot be saved.")
                             .arg(QDir::toNativeSeparators(folder));
        return report;
    }
    if (!m_lock.Take()) {
        report.failure = Sentence({SettingFault::InUse, QString()});
        return report;
    }

    SettingContent content;
    Problem problem = OpenConnection(&content);
    if (problem.IsFatal()) {
        const Problem damage = problem;
        problem = SetAside(damage, &report);
        if (problem.None()) {
            Salvage(damage, &report);
            problem = OpenConnection(nullptr);
        }
    } else if (problem.None() || m_isRead || ReadAlone(problem, &content)) {
        m_values = content.values;
        report.damagedValues = KeysOf(content.damaged);
        problem = {}; // a file that can only be read is good enough: the first write tells why
    }
    report.failure = Sentence(problem);
    return report;
}

SettingFileReport SettingFile::Write(const SettingValues& values)
{
    SettingFileReport report;
    const auto owedAnd = [this](const SettingValues& more) {
        SettingValues all = m_owed;
        for (auto it = more.cbegin(); it != more.cend(); ++it)
            all.insert(it.key(), it.value());
        return all;
    };

    Problem problem;
    if (m_connection.isEmpty())
        problem = OpenConnection(nullptr);
    if (problem.None())
        problem = WriteRows(owedAnd(values));
    if (problem.IsFatal()) {
        m_owed = m_values;
        problem = SetAside(problem, &report);
        if (problem.None())
            problem = OpenConnection(nullptr);
        if (problem.None())
            problem = WriteRows(owedAnd(values));
    }
    report.failure = Sentence(problem);
    if (problem.None()) {
        m_owed.clear();
        for (auto it = values.cbegin(); it != values.cend(); ++it)
            m_values.insert(it.key(), it.value());
    }
    return report;
}

SettingValues SettingFile::GetValues() const
{
    return m_values;
}

bool SettingFile::OwesValues() const
{
    return !m_owed.isEmpty();
}

SettingFile::Problem SettingFile::ProblemOf(const QSqlError& error)
{
    return {SettingConnection::FaultOf(error), error.databaseText()};
}

QString SettingFile::Sentence(const Problem& problem)
{
    switch (problem.fault) {
    case SettingFault::None:
        return QString();
    case SettingFault::InUse:
        return tr("Another running program has these settings open: settings are not read and cannot be "
                  "saved.");
    case SettingFault::Busy:
        return tr("Another program keeps the settings file locked: settings cannot be saved.");
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

SettingFile::Problem SettingFile::OpenConnection(SettingContent* loaded)
{
    if (IsTooShort(m_path))
        return {SettingFault::Damaged, tr("it is too short")};
    if (HasOnlyLog(m_path))
        return {SettingFault::Damaged, tr("only its log is there")};
    if (!QFileInfo::exists(m_path)) {
        Problem problem = MakeFile();
        if (!problem.None())
            return problem;
    }

    if (HasStrangeHead(m_path))
        return {SettingFault::Damaged, tr("its head is not that of a database")};
    if (QFileInfo(m_path + SettingFileNames::log).size() > 0) {
        Problem problem = ExamineCopy(m_path);
        if (problem.IsFatal())
            return problem;
    }

    QSqlError error;
    m_connection = SettingConnection::Open(m_path, busyTimeout, &error);
    if (m_connection.isEmpty())
        return {IsInTheWay(m_path) ? SettingFault::Damaged : SettingFault::Other, error.databaseText()};
    Problem problem = Prepare(loaded);
    if (!problem.None())
        CloseConnection();
    return problem;
}

// Reads a file that cannot be opened for writing, because the disk is full or takes nothing: without the
// index of the log, which would have to be made, and which nobody needs who has the file alone.
bool SettingFile::ReadAlone(const Problem& problem, SettingContent* loaded)
{
    if (problem.fault == SettingFault::Busy || !QFileInfo(m_path).isFile())
        return false;
    QSqlError error;
    QString connection = SettingConnection::Open(m_path, busyTimeout, &error);
    if (!connection.isEmpty()) {
        const QSqlDatabase database = QSqlDatabase::database(connection);
        QSqlQuery(QStringLiteral("PRAGMA locking_mode=EXCLUSIVE"), database);
        SettingTable::Kind kind = SettingTable::Kind::Foreign;
        m_isRead = Examine(connection, &kind).None() && ReadValues(database, loaded).None();
    }
    SettingConnection::Close(&connection);
    return m_isRead;
}

// Checks the file, reads the values, and brings a file of an earlier version up to date.
SettingFile::Problem SettingFile::Prepare(SettingContent* loaded)
{
    SettingTable::Kind kind = SettingTable::Kind::Foreign;
    Problem problem = Examine(m_connection, &kind);
    if (problem.None())
        problem = SetUp();
    if (problem.None() && kind == SettingTable::Kind::Empty)
        problem = CreateTables(m_connection);
    if (!problem.None())
        return problem;

    const QSqlDatabase database = QSqlDatabase::database(m_connection);
    if (loaded) {
        problem = ReadValues(database, loaded);
        if (!problem.None())
            return problem;
        m_isRead = true;
    }
    if (kind == SettingTable::Kind::Version1) {
        const QSqlError error = SettingTable::BringUpToDate(database);
        if (error.isValid())
            return ProblemOf(error);
    }
    // Rows that cannot be moved now stay, and are found again when the file is opened again.
    if (loaded && !loaded->damaged.isEmpty())
        DamagedRows::Keep(database, loaded->damaged.keys());
    return {};
}

SettingFile::Problem SettingFile::ReadValues(const QSqlDatabase& database, SettingContent* content)
{
    const QSqlError error =
        SettingTable::ReadAll(database, SettingTable::Direction::Forward, std::numeric_limits<qint64>::max(),
                              SettingTable::Checksums::Needed, content)
            .error;
    return error.isValid() ? ProblemOf(error) : Problem{};
}

// Tells whether it is a store and sound. Nothing is written.
SettingFile::Problem SettingFile::Examine(const QString& connection, SettingTable::Kind* kind)
{
    Problem problem = CheckIntegrity(connection);
    if (!problem.None())
        return problem;
    const QSqlError error = SettingTable::Recognise(QSqlDatabase::database(connection), kind);
    if (error.isValid())
        return ProblemOf(error);
    if (*kind == SettingTable::Kind::Foreign)
        return {SettingFault::Damaged, tr("it was made by another program")};
    if (*kind == SettingTable::Kind::Later)
        return {SettingFault::LaterVersion, QString()};
    return {};
}

SettingFile::Problem SettingFile::ExamineCopy(const QString& file)
{
    const SettingCopy copy(file);
    QSqlError error;
    QString connection = SettingConnection::Open(copy.GetFile(), busyTimeout, &error);
    if (copy.GetFile().isEmpty() || connection.isEmpty())
        return {}; // there may be no room for it
    SettingTable::Kind kind = SettingTable::Kind::Foreign;
    Problem problem = Examine(connection, &kind);
    SettingConnection::Close(&connection);
    return problem;
}

SettingFile::Problem SettingFile::CheckIntegrity(const QString& connection)
{
    QSqlQuery query(QSqlDatabase::database(connection));
    query.setForwardOnly(true);
    if (!query.exec(QStringLiteral("PRAGMA integrity_check(1)")) || !query.next()) {
        Problem problem = ProblemOf(query.lastError());
        // There is nothing wrong with the statement: SQLite says so of a head with a format that it does not
        // know, too.
        constexpr int sqliteError = 1;
        if (query.lastError().nativeErrorCode().toInt() == sqliteError)
            problem.fault = SettingFault::Damaged;
        return problem;
    }
    const QString verdict = query.value(0).toString();
    if (verdict == QLatin1String("ok"))
        return {};
    return {SettingFault::Damaged,
            verdict.section(QLatin1Char('\n'), -1)}; // below a line that names the database
}

// A file that cannot be written can still be read; the first write will say so.
SettingFile::Problem SettingFile::SetUp()
{
    QSqlQuery query(QSqlDatabase::database(m_connection));
    query.setForwardOnly(true);
    for (const QString& pragma :
         {QStringLiteral("PRAGMA journal_mode=WAL"), QStringLiteral("PRAGMA synchronous=FULL"),
          QStringLiteral("PRAGMA journal_size_limit=1048576")}) {
        if (!query.exec(pragma)) {
            Problem problem = ProblemOf(query.lastError());
            if (problem.fault != SettingFault::Unwritable)
                return problem;
        }
        query.finish();
    }
    return {};
}

// A fresh file is made under another name and gets its own when it is whole: whatever ends the process
// meanwhile, no half-made file is ever taken for a damaged one.
SettingFile::Problem SettingFile::MakeFile()
{
    const QString draft = m_path + SettingFileNames::draft;
    QFile::remove(draft + SettingFileNames::journal);
    QFile::remove(draft);
    QSqlError error;
    QString connection = SettingConnection::Open(draft, busyTimeout, &error);
    if (connection.isEmpty())
        return ProblemOf(error);
    // The settings tell what a person has open: nobody else's business. The files beside a database get
    // its permissions.
    QFile::setPermissions(draft, QFile::ReadOwner | QFile::WriteOwner);
    Problem problem = CreateTables(connection);
    SettingConnection::Close(&connection);
    if (!problem.None())
        return problem;
    for (const QString& suffix :
         {SettingFileNames::log, SettingFileNames::logIndex, SettingFileNames::journal})
        QFile::remove(m_path + suffix); // empty leftovers, which must not be taken for its own
    QFile file(draft);
    return file.rename(m_path) ? Problem{} : Problem{SettingFault::Other, file.errorString()};
}

SettingFile::Problem SettingFile::CreateTables(const QString& connection)
{
    QSqlQuery query(QSqlDatabase::database(connection));
    for (const QString& statement : SettingTable::CreateStatements()) {
        if (!query.exec(statement)) {
            Problem problem = ProblemOf(query.lastError());
            query.exec(QStringLiteral("ROLLBACK"));
            return problem;
        }
    }
    return {};
}

void SettingFile::CloseConnection()
{
    SettingConnection::Close(&m_connection);
}

SettingFile::Problem SettingFile::WriteRows(const SettingValues& values)
{
    QSqlQuery query(QSqlDatabase::database(m_connection));
    const auto failed = [&query] {
        Problem problem = ProblemOf(query.lastError());
        query.finish();
        query.exec(QStringLiteral("ROLLBACK"));
        query.finish();
        return problem;
    };
    if (!query.exec(QStringLiteral("BEGIN IMMEDIATE")))
        return failed();
    if (!query.prepare(SettingTable::WriteStatement()))
        return failed();
    for (auto it = values.cbegin(); it != values.cend(); ++it) {
        SettingTable::BindRow(&query, SettingRow::Of(it.key(), it.value()));
        if (!query.exec())
            return failed();
    }
    query.finish();
    return query.exec(QStringLiteral("COMMIT")) ? Problem{} : failed();
}

// The log and index files go with their database, so that it can still be read under its new name. They
// go first: a database without its log can be set aside again, a log without its database is of no use.
SettingFile::Problem SettingFile::SetAside(const Problem& damage, SettingFileReport* report)
{
    CloseConnection();
    const QString kind = damage.fault == SettingFault::LaterVersion ? QStringLiteral(".later-version-")
                                                                    : QStringLiteral(".damaged-");
    const QString name =
        m_path + kind + QDateTime::currentDateTimeUtc().toString(QStringLiteral("yyyyMMddTHHmmsszzzZ"));
    QString aside = name;
    for (int i = 2; QFileInfo::exists(aside) || QFileInfo::exists(aside + SettingFileNames::log); ++i)
        aside = QStringLiteral("%1-%2").arg(name).arg(i);

    for (const QString& suffix :
         {SettingFileNames::log, SettingFileNames::logIndex, SettingFileNames::journal, QString()}) {
        if (!QFileInfo::exists(m_path + suffix))
            continue;
        if (!QDir().rename(m_path + suffix, aside + suffix))
            return {SettingFault::Other,
                    tr("the damaged file %1 cannot be renamed").arg(QDir::toNativeSeparators(m_path))};
        if (suffix != SettingFileNames::logIndex)
            report->setAsideFile = aside + suffix; // the last one is the database, if it is there at all
    }
    report->setAsideReason = damage.fault == SettingFault::LaterVersion
                                 ? tr("The settings file was made by a later version of this program.")
                                 : tr("The settings file is damaged (%1).").arg(damage.detail);
    return {};
}

// Takes over what can be read from the file that was set aside.
void SettingFile::Salvage(const Problem& damage, SettingFileReport* report)
{
    const SettingContent content = SettingSalvage::Read(report->setAsideFile);
    m_values = content.values;
    m_owed = m_values;
    // A later version may count its checksums in another way: that is no damage.
    if (damage.fault == SettingFault::Damaged) {
        for (const SettingKey& key : KeysOf(content.damaged)) {
            if (!m_values.contains(key))
                report->damagedValues.append(key);
        }
    }
    report->setAsideReason +=
        QLatin1Char(' ') + (m_values.isEmpty() ? tr("Nothing could be read from it.")
                                               : tr("%n setting(s) could be read from it and were kept.",
                                                    nullptr, m_values.size()));
}
