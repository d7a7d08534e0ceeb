#include "SettingFile.h"

#include "SettingSalvage.h"
#include "SettingTable.h"

#include <QtCore/QAtomicInt>
#include <QtCore/QDateTime>
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QVariant>
#include <QtSql/QSqlDatabase>
#include <QtSql/QSqlError>
#include <QtSql/QSqlQuery>

namespace {

constexpr int busyTimeout = 5000;     // [ms]
constexpr int smallestDatabase = 512; // [bytes]

QString NewConnectionName()
{
    static QAtomicInt count;
    return QStringLiteral("TLSettings-%1").arg(count.fetchAndAddRelaxed(1));
}

// Whether something stands at the path that never will be opened. A sound file can fail to open as well,
// when the system is short of something; it is not touched.
bool IsInTheWay(const QString& path)
{
    const QFileInfo info(path);
    return info.exists() && (!info.isFile() || !info.isReadable());
}

// Whether the file is shorter than any database. SQLite would take it for an empty one and overwrite it.
bool IsTooShort(const QString& path)
{
    const qint64 size = QFileInfo(path).size();
    return size > 0 && size < smallestDatabase;
}

} // namespace

SettingFile::SettingFile(const QString& path) : m_path(QFileInfo(path).absoluteFilePath()) {}

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

    Problem problem = OpenConnection(&m_values);
    if (problem.fault == Fault::Damaged) {
        m_values.clear();
        problem = SetAside(problem, &report);
        if (problem.fault == Fault::None) {
            m_values = SettingSalvage::Read(report.setAsideFile);
            m_owed = m_values;
            report.setAsideReason +=
                QLatin1Char(' ') +
                (m_values.isEmpty()
                     ? tr("Nothing could be read from it.")
                     : tr("%n setting(s) could be read from it and were kept.", nullptr, m_values.size()));
            problem = OpenConnection(nullptr);
        }
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
    if (problem.fault == Fault::None)
        problem = WriteRows(owedAnd(values));
    if (problem.fault == Fault::Damaged) {
        m_owed = m_values;
        problem = SetAside(problem, &report);
        if (problem.fault == Fault::None)
            problem = OpenConnection(nullptr);
        if (problem.fault == Fault::None)
            problem = WriteRows(owedAnd(values));
    }
    report.failure = Sentence(problem);
    if (problem.fault == Fault::None) {
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
    // SQLite's primary result codes; its extended ones have them in the low byte.
    Problem problem{Fault::Other, error.databaseText()};
    switch (error.nativeErrorCode().toInt() & 0xff) {
    case 11: // SQLITE_CORRUPT
    case 26: // SQLITE_NOTADB
        problem.fault = Fault::Damaged;
        break;
    case 5: // SQLITE_BUSY
    case 6: // SQLITE_LOCKED
        problem.fault = Fault::Busy;
        break;
    case 13: // SQLITE_FULL
        problem.fault = Fault::DiskFull;
        break;
    case 3:  // SQLITE_PERM
    case 8:  // SQLITE_READONLY
    case 14: // SQLITE_CANTOPEN
        problem.fault = Fault::Unwritable;
        break;
    default:
        break;
    }
    return problem;
}

QString SettingFile::Sentence(const Problem& problem)
{
    switch (problem.fault) {
    case Fault::None:
        return QString();
    case Fault::Busy:
        return tr("Another program keeps the settings file locked: settings cannot be saved.");
    case Fault::DiskFull:
        return tr("The disk is full: settings cannot be saved.");
    case Fault::Unwritable:
        return tr("The settings file cannot be written: settings cannot be saved.");
    case Fault::Damaged:
    case Fault::Other:
        break;
    }
    return tr("Settings cannot be saved: %1.").arg(problem.detail);
}

SettingFile::Problem SettingFile::OpenConnection(SettingValues* loaded)
{
    if (IsTooShort(m_path))
        return {Fault::Damaged, tr("it is too short")};
    m_connection = NewConnectionName();
    Problem problem;
    bool opened = false;
    {
        QSqlDatabase database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), m_connection);
        database.setDatabaseName(m_path);
        database.setConnectOptions(QStringLiteral("QSQLITE_BUSY_TIMEOUT=%1").arg(busyTimeout));
        opened = database.open();
        if (!opened)
            problem = {IsInTheWay(m_path) ? Fault::Damaged : Fault::Other,
                       database.lastError().databaseText()};
    }
    // The settings tell what a person has open: nobody else's business. The files beside a database get
    // its permissions.
    if (opened && QFileInfo(m_path).size() == 0)
        QFile::setPermissions(m_path, QFile::ReadOwner | QFile::WriteOwner);
    if (opened)
        problem = Prepare(loaded);
    if (problem.fault != Fault::None)
        CloseConnection();
    return problem;
}

// Checks the file, makes the table in an empty one, and reads the values.
SettingFile::Problem SettingFile::Prepare(SettingValues* loaded)
{
    const QSqlDatabase database = QSqlDatabase::database(m_connection);
    QSqlQuery query(database);
    query.setForwardOnly(true);
    if (!query.exec(QStringLiteral("PRAGMA integrity_check(1)")) || !query.next())
        return ProblemOf(query.lastError());
    const QString verdict = query.value(0).toString();
    if (verdict != QLatin1String("ok"))
        return {Fault::Damaged,
                verdict.section(QLatin1Char('\n'), -1)}; // below a line that names the database
    query.finish();

    // A file that cannot be written can still be read; the first write will say so.
    if (!query.exec(QStringLiteral("PRAGMA journal_mode=WAL"))) {
        Problem problem = ProblemOf(query.lastError());
        if (problem.fault != Fault::Unwritable)
            return problem;
    }
    query.finish();
    for (const QString& pragma :
         {QStringLiteral("PRAGMA synchronous=FULL"), QStringLiteral("PRAGMA journal_size_limit=1048576")}) {
        if (!query.exec(pragma))
            return ProblemOf(query.lastError());
        query.finish();
    }

    SettingTable::Kind kind = SettingTable::Kind::Foreign;
    QSqlError error = SettingTable::Recognise(database, &kind);
    if (error.isValid())
        return ProblemOf(error);
    if (kind == SettingTable::Kind::Foreign)
        return {Fault::Damaged, tr("it was made by another program or version")};
    if (kind == SettingTable::Kind::Empty) {
        Problem problem = CreateTable();
        if (problem.fault != Fault::None)
            return problem;
    }
    if (!loaded)
        return {};
    error = SettingTable::ReadAll(database, SettingTable::Direction::Forward, loaded).error;
    return error.isValid() ? ProblemOf(error) : Problem{};
}

SettingFile::Problem SettingFile::CreateTable()
{
    QSqlQuery query(QSqlDatabase::database(m_connection));
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
    if (m_connection.isEmpty())
        return;
    QSqlDatabase::removeDatabase(m_connection);
    m_connection.clear();
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
        SettingTable::BindRow(&query, it.key(), it.value());
        if (!query.exec())
            return failed();
    }
    query.finish();
    return query.exec(QStringLiteral("COMMIT")) ? Problem{} : failed();
}

// The log and index files go with their database, so that it can still be read under its new name. They
// go first: a database without its log can be set aside again, a log without its database is thrown away.
SettingFile::Problem SettingFile::SetAside(const Problem& damage, SettingFileReport* report)
{
    CloseConnection();
    const QString stamp = QDateTime::currentDateTimeUtc().toString(QStringLiteral("yyyyMMddTHHmmsszzzZ"));
    QString aside = m_path + QStringLiteral(".damaged-") + stamp;
    for (int i = 2; QFileInfo::exists(aside); ++i)
        aside = QStringLiteral("%1.damaged-%2-%3").arg(m_path, stamp).arg(i);

    for (const QLatin1String suffix :
         {QLatin1String("-wal"), QLatin1String("-shm"), QLatin1String("-journal"), QLatin1String("")}) {
        if (QFileInfo::exists(m_path + suffix) && !QDir().rename(m_path + suffix, aside + suffix))
            return {Fault::Other,
                    tr("the damaged file %1 cannot be renamed").arg(QDir::toNativeSeparators(m_path))};
    }
    report->setAsideFile = aside;
    report->setAsideReason = tr("The settings file is damaged (%1).").arg(damage.detail);
    return {};
}
