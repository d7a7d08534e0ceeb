#pragma once

#include "support/TemporaryFolder.h"

#include <memory>
#include <string>
#include <vector>

namespace TLGateway {

// A PostgreSQL server of the tests' own: a fresh cluster in a temporary folder, reached over a socket in that
// folder and by no other way. It ends with this object, and with the test program if that is killed. Where
// the tests run as root, which the server refuses to, it runs as the user "postgres".
//
// Used on one thread, the one that lives until the end of the program: the server ends with it.
class PostgresServer final
{
public:
    // Makes the cluster and starts the server; the role "gateway" may log in with any password. Throws
    // std::runtime_error.
    PostgresServer();
    PostgresServer(const PostgresServer&) = delete;
    PostgresServer& operator=(const PostgresServer&) = delete;
    ~PostgresServer();

    // The server that the tests of a program share, running. Started when it is first asked for.
    static PostgresServer& Shared();

    // Makes an empty database that belongs to "gateway" and gives its URL.
    [[nodiscard]] std::string NewDatabase(const std::string& more = {});
    // The URL of a database for any role.
    [[nodiscard]] std::string Url(const std::string& database, const std::string& role = "gateway") const;
    // Runs statements as the server's owner.
    void Execute(const std::string& sql, const std::string& database = "postgres");

    // From now on roles other than the owner need their password.
    void RequirePasswords();

    [[nodiscard]] bool IsRunning() const;
    // Starts it, and returns when it answers.
    void Start();
    // Kills the server with all of its sessions, as a crash does.
    void Kill();
    // Ends all sessions, rolls back what is under way, and stops.
    void Stop();
    // Stops and continues all processes of the server, as if its machine had frozen.
    void Freeze();
    void Thaw();

private:
    struct Process;

    [[nodiscard]] std::vector<std::string> AsOwner(const std::string& program,
                                                   const std::vector<std::string>& arguments) const;
    void RunToTheEnd(const std::vector<std::string>& command);
    void SignalAll(int signal) const;
    [[nodiscard]] std::vector<int> Processes() const;
    [[nodiscard]] std::string Log() const;

    TemporaryFolder m_folder;
    std::unique_ptr<Process> m_process;
    int m_databases = 0;
};

} // namespace TLGateway
