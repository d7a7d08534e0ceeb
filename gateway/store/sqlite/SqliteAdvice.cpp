#include "SqliteAdvice.h"

#include <sqlite3.h>

namespace TLGateway {

namespace {

const char* Advice(int primaryCode) noexcept
{
    switch (primaryCode) {
    case SQLITE_FULL:
        return "The disk is full: free space on the volume of this file; the gateway recovers by itself.";
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        return "The database is locked: find and end the other program that holds this file (a backup must "
               "use "
               "sqlite3's .backup); the gateway recovers by itself.";
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB:
        return "The database is damaged: stop the gateway, keep the file for analysis, and restore the last "
               "backup.";
    case SQLITE_READONLY:
    case SQLITE_PERM:
    case SQLITE_AUTH:
        return "The file is read-only for the gateway: give its user the right to write the file and its "
               "folder.";
    case SQLITE_CANTOPEN:
        return "The file cannot be opened: check that its folder exists and that the gateway's user may "
               "write there.";
    case SQLITE_IOERR:
        return "Reading or writing failed: check the disk and the system's log; the gateway tries again with "
               "the "
               "next request.";
    default:
        return "Keep this line and the file for analysis.";
    }
}

} // namespace

std::string DescribeForOperator(const std::string& action, const std::string& file, const SqliteError& error)
{
    return "database " + file + ": " + action + " failed: " + error.what() + " (SQLite code " +
           std::to_string(error.Code()) + "). " + Advice(error.PrimaryCode());
}

} // namespace TLGateway
