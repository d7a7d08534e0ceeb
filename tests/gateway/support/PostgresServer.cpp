#include "support/PostgresServer.h"

#include "PostgresConnection.h"
#include "PostgresError.h"

#include <boost/process.hpp>

#include <chrono>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <pwd.h>
#include <sstream>
#include <stdexcept>
#include <thread>
#include <unistd.h>

namespace TLGateway {

namespace bp = boost::process;

namespace {

constexpr const char* OwnerWhenRoot = "postgres";
constexpr std::chrono::seconds StartLimit{120};

bool IsRoot()
{
    return geteuid() == 0;
}

// Whoever runs the server owns it.
std::string Superuser()
{
    const passwd* user = IsRoot() ? getpwnam(OwnerWhenRoot) : getpwuid(geteuid());
    if (user == nullptr) {
        throw std::runtime_error("there is no user to run PostgreSQL as");
    }
    return user->pw_name;
}

struct ProcessState
{
    char state = 'X'; // gone
    int parent = 0;
};

ProcessState ReadProcess(int process)
{
    ProcessState read;
    const std::string line = ReadBytes("/proc/" + std::to_string(process) + "/stat");
    const std::size_t end = line.rfind(')'); // of the name, which may hold anything
    if (end != std::string::npos) {
        std::istringstream(line.substr(end + 1)) >> read.state >> read.parent;
    }
    return read;
}

bool IsAlive(int process)
{
    const char state = ReadProcess(process).state;
    return state != 'X' && state != 'Z';
}

} // namespace

struct PostgresServer::Process
{
    bp::child child;
};

PostgresServer::PostgresServer() : m_process(std::make_unique<Process>())
{
    const std::filesystem::path home = std::filesystem::u8path(m_folder.File("server"));
    std::filesystem::create_directory(home);
    if (IsRoot()) {
        const passwd* owner = getpwnam(OwnerWhenRoot);
        if (owner == nullptr || chown(home.c_str(), owner->pw_uid, owner->pw_gid) != 0) {
            throw std::runtime_error("cannot give a folder to the user postgres");
        }
    }
    RunToTheEnd(AsOwner("initdb", {"-D", (home / "data").u8string(), "-A", "trust", "-E", "UTF8",
                                   "--locale=C", "--no-sync"}));
    std::ofstream settings(home / "data" / "postgresql.conf", std::ios::app);
    settings << "listen_addresses = ''\n"
             << "unix_socket_directories = '" << home.u8string() << "'\n"
             << "max_connections = 60\n"
             << "shared_buffers = 16MB\n"
             << "max_wal_size = 64MB\n"
             << "lc_messages = 'C'\n";
    if (!settings.flush()) {
        throw std::runtime_error("cannot write postgresql.conf");
    }
    Start();
    Execute("CREATE ROLE gateway LOGIN");
}

PostgresServer::~PostgresServer()
{
    try {
        Kill();
    } catch (const std::exception&) {
        // Ends with this program at the latest.
    }
}

PostgresServer& PostgresServer::Shared()
{
    static PostgresServer server;
    if (!server.IsRunning()) {
        server.Start();
    }
    return server;
}

std::string PostgresServer::NewDatabase(const std::string& more)
{
    const std::string name = "test" + std::to_string(++m_databases);
    Execute("CREATE DATABASE " + name + " OWNER gateway TEMPLATE template0 " + more);
    return Url(name);
}

std::string PostgresServer::Url(const std::string& database, const std::string& role) const
{
    return "postgresql://" + role + "@/" + database + "?host=" + m_folder.File("server");
}

void PostgresServer::Execute(const std::string& sql, const std::string& database)
{
    PostgresLimits limits;
    limits.statement = limits.answer = StartLimit;
    PostgresConnection connection(PostgresTarget(Url(database, Superuser())), limits);
    connection.Execute(sql.c_str());
}

void PostgresServer::RequirePasswords()
{
    std::ofstream rules(std::filesystem::u8path(m_folder.File("server/data/pg_hba.conf")));
    rules << "local all " << Superuser() << " trust\nlocal all all scram-sha-256\n";
    if (!rules.flush()) {
        throw std::runtime_error("cannot write pg_hba.conf");
    }
    rules.close();
    Stop();
    Start();
}

bool PostgresServer::IsRunning() const
{
    std::error_code ignored;
    return m_process->child.running(ignored);
}

void PostgresServer::Start()
{
    // SIGQUIT makes the server end at once, with all of its processes.
    const std::vector<std::string> command = AsOwner("postgres", {"-D", m_folder.File("server/data")});
    m_process->child = bp::child(bp::args(command), bp::std_in<bp::null, bp::std_out> m_folder.File("log"),
                                 bp::std_err > m_folder.File("log"));
    const auto deadline = std::chrono::steady_clock::now() + StartLimit;
    for (;;) {
        try {
            Execute("SELECT");
            return;
        } catch (const PostgresError& error) {
            if (!IsRunning() || std::chrono::steady_clock::now() > deadline) {
                throw std::runtime_error(std::string("PostgreSQL did not start: ") + error.what() + Log());
            }
            std::this_thread::yield();
        }
    }
}

void PostgresServer::Kill()
{
    const std::vector<int> processes = Processes();
    SignalAll(SIGKILL);
    std::error_code ignored;
    m_process->child.wait(ignored);
    // The next one does not start before the last of them is gone.
    const auto deadline = std::chrono::steady_clock::now() + StartLimit;
    for (const int process : processes) {
        while (IsAlive(process)) {
            if (std::chrono::steady_clock::now() > deadline) {
                throw std::runtime_error("a process of PostgreSQL does not end");
            }
            std::this_thread::yield();
        }
    }
}

void PostgresServer::Stop()
{
    ::kill(m_process->child.id(), SIGINT);
    m_process->child.wait();
}

void PostgresServer::Freeze()
{
    SignalAll(SIGSTOP);
}

void PostgresServer::Thaw()
{
    SignalAll(SIGCONT);
}

std::vector<std::string> PostgresServer::AsOwner(const std::string& program,
                                                 const std::vector<std::string>& arguments) const
{
    std::vector<std::string> command = {TL_SETPRIV_PROGRAM, "--pdeathsig", "QUIT"};
    if (IsRoot()) {
        const std::string owner = OwnerWhenRoot;
        command.insert(command.end(), {"--reuid=" + owner, "--regid=" + owner, "--clear-groups"});
    }
    command.push_back(TL_POSTGRES_PROGRAMS "/" + program);
    command.insert(command.end(), arguments.begin(), arguments.end());
    return command;
}

void PostgresServer::RunToTheEnd(const std::vector<std::string>& command)
{
    const int code = bp::system(bp::args(command), bp::std_in<bp::null, bp::std_out> m_folder.File("log"),
                                bp::std_err > m_folder.File("log"));
    if (code != 0) {
        throw std::runtime_error("cannot make a PostgreSQL cluster: " + Log());
    }
}

void PostgresServer::SignalAll(int signal) const
{
    for (const int process : Processes()) {
        ::kill(process, signal);
    }
}

// The server, then those that it has started. None when it does not run.
std::vector<int> PostgresServer::Processes() const
{
    if (!IsRunning()) {
        return {};
    }
    const int server = m_process->child.id();
    std::vector<int> processes = {server};
    for (const auto& entry : std::filesystem::directory_iterator("/proc")) {
        const std::string name = entry.path().filename().u8string();
        if (name.find_first_not_of("0123456789") == std::string::npos &&
            ReadProcess(std::stoi(name)).parent == server) {
            processes.push_back(std::stoi(name));
        }
    }
    return processes;
}

std::string PostgresServer::Log() const
{
    return ReadBytes(m_folder.File("log"));
}

} // namespace TLGateway
