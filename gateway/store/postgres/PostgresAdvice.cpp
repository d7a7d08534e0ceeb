#include "PostgresAdvice.h"

#include <algorithm>
#include <iterator>
#include <string_view>

namespace TLGateway {

namespace {

struct StateAdvice
{
    std::string_view state; // or the class that it begins with
    const char* advice;
};

constexpr StateAdvice Advices[] = {
    {"28", "The server refuses the log-in: check user and password (a password file, PGPASSWORD, or the URL) "
           "and pg_hba.conf on the server."},
    {"3D000", "There is no such database: create it with createdb, or correct its name in --database."},
    {"42501", "The user lacks a right: make it the owner of the database and of the schema tl_gateway."},
    {"42", "The schema tl_gateway is not as the gateway made it: restore it from the last backup."},
    {"3F", "The schema tl_gateway is not as the gateway made it: restore it from the last backup."},
    {"25006", "The server takes no writes: name the primary, or all hosts of it, in --database; the gateway "
              "recovers by itself."},
    {"53100", "The server's disk is full: free space there; the gateway recovers by itself."},
    {"53300", "The server has no connection left: raise max_connections there, or end programs that keep "
              "connections; the gateway recovers by itself."},
    {"53", "The server is short of memory or another resource: see its log; the gateway recovers by itself."},
    {"55P03",
     "Another session holds a lock: find it in pg_stat_activity and end its transaction; the gateway "
     "recovers by itself."},
    {"57014", "The server is too slow, or somebody cancelled the statement: see its load and its log; the "
              "gateway recovers by itself."},
    {"57P", "The server is stopping or starting: the gateway recovers by itself when it is back."},
    {"58",
     "The server cannot read or write its files: check its disk and its log; the gateway tries again with "
     "the next request."},
    {"XX001",
     "The database is damaged: stop the gateways, keep the server's data for analysis, and restore the "
     "last backup."},
    {"XX002", "An index of the database is damaged: see the server's log, and REINDEX or restore the last "
              "backup."},
};

const char* Advice(const PostgresError& error)
{
    const std::string_view state = error.State();
    const auto* const found =
        std::find_if(std::begin(Advices), std::end(Advices), [state](const StateAdvice& each) {
            return state.substr(0, each.state.size()) == each.state;
        });
    if (found != std::end(Advices)) {
        return found->advice;
    }
    if (error.IsConnectionLost()) {
        return "The server cannot be reached, or refuses the gateway: check that it runs, host and port, and "
               "the network; the gateway recovers by itself when it is back.";
    }
    return "Keep this line and the server's log for analysis.";
}

} // namespace

std::string DescribeForOperator(const std::string& action, const std::string& database,
                                const PostgresError& error)
{
    return "database " + database + ": " + action + " failed: " + error.what() +
           (error.State().empty() ? "" : " (SQLSTATE " + error.State() + ")") + ". " + Advice(error);
}

} // namespace TLGateway
