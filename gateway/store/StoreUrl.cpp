#include "store/StoreUrl.h"

#include "base/Text.h"

#include <stdexcept>

namespace TLGateway {

namespace {

constexpr std::string_view SqliteScheme = "sqlite:";
constexpr std::string_view Hidden = "***";

bool StartsWith(std::string_view text, std::string_view start)
{
    return text.substr(0, start.size()) == start;
}

} // namespace

StoreKind KindOfUrl(std::string_view url)
{
    if (StartsWith(url, SqliteScheme)) {
        return StoreKind::Sqlite;
    }
    if (StartsWith(url, "postgresql://") || StartsWith(url, "postgres://")) {
        return StoreKind::Postgres;
    }
    throw std::invalid_argument(
        "database " + Quoted(WithoutPassword(url)) +
        ": expected sqlite:FILE, for example sqlite:/var/lib/tl-gateway/gateway.db, " +
        "or postgresql://USER@HOST:PORT/NAME");
}

std::string SqliteFileOfUrl(std::string_view url)
{
    if (!StartsWith(url, SqliteScheme)) {
        throw std::invalid_argument("database " + Quoted(WithoutPassword(url)) + ": expected sqlite:FILE");
    }
    const std::string_view file = url.substr(SqliteScheme.size());
    if (file.empty()) {
        throw std::invalid_argument("database " + Quoted(url) + ": no file is named after sqlite:");
    }
    if (file.substr(0, 2) == "//" || file.front() == ':' || file.find('\0') != std::string_view::npos) {
        throw std::invalid_argument("database " + Quoted(url) +
                                    ": write the file right after sqlite:, for example sqlite:gateway.db");
    }
    return std::string(file);
}

// Hides too much rather than too little: a password may hold any character, even by mistake.
std::string WithoutPassword(std::string_view url)
{
    std::string shown(url);
    const std::size_t scheme = shown.find("//");
    const std::size_t at = shown.rfind('@');
    if (scheme != std::string::npos && at != std::string::npos && at > scheme) {
        const std::size_t colon = shown.find(':', scheme);
        if (colon < at) {
            shown.replace(colon + 1, at - colon - 1, Hidden);
        }
    }
    for (std::size_t from = shown.find("password="); from != std::string::npos;
         from = shown.find("password=", from)) {
        from = shown.find('=', from) + 1;
        const std::size_t end = shown.find('&', from);
        shown.replace(from, end == std::string::npos ? end : end - from, Hidden);
    }
    return shown;
}

} // namespace TLGateway
