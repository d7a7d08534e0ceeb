#include "PostgresTarget.h"

#include "base/Text.h"
#include "store/StoreUrl.h"

#include <libpq-fe.h>

#include <algorithm>
#include <memory>
#include <stdexcept>

namespace TLGateway {

namespace {

struct Freed
{
    void operator()(PQconninfoOption* options) const noexcept { PQconninfoFree(options); }
    void operator()(char* text) const noexcept { PQfreemem(text); }
};
using Options = std::unique_ptr<PQconninfoOption, Freed>;

// Null and a text when the URL cannot be read. The text may hold any part of the URL.
Options Parse(const std::string& url, std::string& problem)
{
    char* message = nullptr;
    Options options(PQconninfoParse(url.c_str(), &message));
    const std::unique_ptr<char, Freed> owned(message);
    problem = message == nullptr ? "out of memory" : message;
    while (!problem.empty() && problem.back() == '\n') {
        problem.pop_back();
    }
    return options;
}

[[noreturn]] void Refuse(std::string_view url, const std::string& problem)
{
    throw std::invalid_argument("database " + Quoted(WithoutPassword(url)) + ": " + problem +
                                "; expected postgresql://USER@HOST:PORT/NAME");
}

[[noreturn]] void RefusePassword(std::string_view url)
{
    Refuse(url, "in a user name or password, write / as %2F, @ as %40, : as %3A and % as %25");
}

// With a password that holds an unescaped @ or / the rest of it would be taken for a host or a port.
void CheckUserPart(std::string_view url)
{
    const std::string_view rest = url.substr(url.find("//") + 2);
    const std::string_view place = rest.substr(0, rest.find('?'));
    const std::size_t at = place.rfind('@');
    if (at != std::string_view::npos && place.substr(0, at).find_first_of("/@") != std::string_view::npos) {
        RefusePassword(url);
    }
}

} // namespace

PostgresTarget::PostgresTarget(std::string_view url)
{
    CheckUserPart(url);
    std::string problem;
    const Options options = Parse(std::string(url), problem);
    if (!options) {
        if (Parse(WithoutPassword(url), problem)) {
            RefusePassword(url);
        }
        Refuse(url, problem);
    }
    for (const PQconninfoOption* option = options.get(); option->keyword != nullptr; ++option) {
        if (option->val != nullptr) {
            m_parameters.emplace_back(option->keyword, option->val);
        }
    }
    const std::string host = Value("host");
    const std::string port = Value("port");
    if (host.find('@') != std::string::npos) {
        RefusePassword(url);
    }
    if (port.find_first_not_of("0123456789,") != std::string::npos) {
        Refuse(url, "the port is not a number");
    }

    const std::string user = Value("user");
    const bool isSocket = !host.empty() && host.front() == '/';
    m_description = "postgresql://" + (user.empty() ? "" : user + '@') + (isSocket ? "" : host) +
                    (port.empty() ? "" : ':' + port) + '/' + Value("dbname") +
                    (isSocket ? "?host=" + host : "");

    // Notices a dead server within seconds, whatever the system's own timeouts are.
    SetDefault("connect_timeout", "5");
    SetDefault("keepalives_idle", "10");
    SetDefault("keepalives_interval", "5");
    SetDefault("keepalives_count", "3");
    SetDefault("tcp_user_timeout", "10000");
    SetDefault("fallback_application_name", "tl-gateway");
    // Picks the host that takes writes.
    SetDefault("target_session_attrs", "read-write");
    m_parameters.erase(std::remove_if(m_parameters.begin(), m_parameters.end(),
                                      [](const auto& each) { return each.first == "client_encoding"; }),
                       m_parameters.end());
    m_parameters.emplace_back("client_encoding", "UTF8");
}

std::string PostgresTarget::Value(std::string_view name) const
{
    const auto found = std::find_if(m_parameters.begin(), m_parameters.end(),
                                    [name](const auto& each) { return each.first == name; });
    return found == m_parameters.end() ? std::string() : found->second;
}

void PostgresTarget::SetDefault(const char* name, const char* value)
{
    if (Value(name).empty()) {
        m_parameters.emplace_back(name, value);
    }
}

} // namespace TLGateway
