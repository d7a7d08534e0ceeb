#include "SqliteFile.h"

#include "SqliteAdvice.h"
#include "SqliteError.h"
#include "SqliteSchema.h"
#include "store/StoreError.h"

#include <filesystem>
#include <fstream>
#include <string>
#include <system_error>

namespace TLGateway {

namespace {

void CheckIntegrity(const std::string& file, std::chrono::milliseconds busyTimeout)
{
    SqliteConnection connection(file, SqliteConnection::Mode::ReadOnly, busyTimeout);
    const std::string finding = connection.SingleValue("PRAGMA quick_check(1)");
    if (finding != "ok") {
        throw StoreError(
            "database " + file + ": the check of the file found damage: " + finding +
            ". The gateway does not start and has not changed the file: keep it for analysis and "
            "restore the last backup.");
    }
}

// The file holds secrets and password hashes, so only its owner may read a new one. SQLite gives the files
// beside it the same rights.
void MakeOwnersFile(const std::filesystem::path& path)
{
    if (std::ofstream(path, std::ios::app)) {
        std::error_code ignored;
        std::filesystem::permissions(
            path, std::filesystem::perms::owner_read | std::filesystem::perms::owner_write, ignored);
    }
}

} // namespace

std::unique_ptr<SqliteConnection> OpenForWriting(const SqliteStore::Options& options)
{
    const std::filesystem::path path = std::filesystem::u8path(options.file);
    std::error_code error;
    const bool exists = std::filesystem::exists(path, error);
    if (!exists && options.mustExist) {
        throw StoreError("database " + options.file + ": there is no such file");
    }
    if (exists && !std::filesystem::is_regular_file(path, error)) {
        throw StoreError("database " + options.file + ": this is not a file");
    }
    const std::filesystem::path folder = path.parent_path();
    if (!folder.empty() && !std::filesystem::is_directory(folder, error)) {
        throw StoreError("database " + options.file + ": the folder " + folder.u8string() +
                         " does not exist");
    }
    try {
        if (!exists) {
            MakeOwnersFile(path);
        } else if (options.checkIntegrity) {
            CheckIntegrity(options.file, options.busyTimeout);
        }
        auto connection = std::make_unique<SqliteConnection>(options.file, SqliteConnection::Mode::ReadWrite,
                                                             options.busyTimeout);
        MigrateSchema(*connection, SchemaScripts());
        const std::string mode = connection->SingleValue("PRAGMA journal_mode = WAL");
        if (mode != "wal") {
            throw StoreError("database " + options.file +
                             ": the file system offers no write-ahead log (journal mode " + mode +
                             "); keep the file on a local disk");
        }
        connection->Execute("PRAGMA synchronous = FULL; PRAGMA foreign_keys = ON");
        if (options.maxPages > 0) {
            connection->Execute(("PRAGMA max_page_count = " + std::to_string(options.maxPages)).c_str());
        }
        return connection;
    } catch (const SqliteError& sqliteError) {
        throw StoreError(DescribeForOperator("opening", options.file, sqliteError));
    } catch (const StoreError&) {
        throw;
    } catch (const std::runtime_error& problem) {
        throw StoreError("database " + options.file + ": " + problem.what());
    }
}

} // namespace TLGateway
