#include "support/PostgresProxy.h"

#include <boost/asio/buffer.hpp>
#include <boost/asio/io_context.hpp>
#include <boost/asio/local/stream_protocol.hpp>
#include <boost/asio/write.hpp>

#include <array>
#include <atomic>
#include <mutex>
#include <string_view>
#include <thread>
#include <vector>

namespace TLGateway {

namespace net = boost::asio;
using Protocol = net::local::stream_protocol;

namespace {

constexpr const char* SocketName = "/.s.PGSQL.5432";
constexpr std::string_view Commit = "; COMMIT";

} // namespace

struct PostgresProxy::State
{
    struct Link
    {
        explicit Link(net::io_context& context) : client(context), server(context) {}

        void End()
        {
            boost::system::error_code ignored;
            client.shutdown(Protocol::socket::shutdown_both, ignored);
            server.shutdown(Protocol::socket::shutdown_both, ignored);
        }

        Protocol::socket client;
        Protocol::socket server;
        std::atomic<bool> isMute{false}; // the server's answers go nowhere
    };

    State(const std::string& own, const std::string& server)
        : acceptor(context, Protocol::endpoint(own)), serverPath(server), accepting([this] { Accept(); })
    {}

    ~State()
    {
        isEnding = true;
        boost::system::error_code ignored;
        // Wakes the thread that accepts.
        Protocol::socket knock(context);
        knock.connect(acceptor.local_endpoint(), ignored);
        accepting.join();
        EndLinks();
        for (std::thread& pump : pumps) {
            pump.join();
        }
    }

    void EndLinks()
    {
        const std::lock_guard lock(mutex);
        for (const auto& link : links) {
            link->End();
        }
    }

    void Accept()
    {
        for (;;) {
            auto link = std::make_shared<Link>(context);
            boost::system::error_code error;
            acceptor.accept(link->client, error);
            if (isEnding) {
                return;
            }
            if (!error && !isUnreachable) {
                link->server.connect(Protocol::endpoint(serverPath), error);
                if (!error) {
                    const std::lock_guard lock(mutex);
                    links.push_back(link);
                    pumps.emplace_back([this, link] { PumpToServer(*link); });
                    pumps.emplace_back([link] { PumpToClient(*link); });
                }
            }
        }
    }

    void PumpToServer(Link& link)
    {
        std::array<char, 65536> bytes = {};
        boost::system::error_code error;
        for (;;) {
            const std::size_t size = link.client.read_some(net::buffer(bytes), error);
            if (error) {
                break;
            }
            if (std::string_view(bytes.data(), size).find(Commit) != std::string_view::npos) {
                if (atCommit != AtCommit::Pass && --commitsLeft == 0) {
                    BreakLink(link, atCommit.exchange(AtCommit::Pass), std::string(bytes.data(), size));
                    return;
                }
            }
            net::write(link.server, net::buffer(bytes.data(), size), error);
        }
        link.End();
    }

    void BreakLink(Link& link, AtCommit how, const std::string& commit)
    {
        boost::system::error_code ignored;
        isUnreachable = makesUnreachable.load();
        link.isMute = true;
        if (how == AtCommit::CutAfter) {
            // The server closes when it has done what came before the end.
            net::write(link.server, net::buffer(commit), ignored);
            link.server.shutdown(Protocol::socket::shutdown_send, ignored);
        } else if (how == AtCommit::CutBefore) {
            link.server.shutdown(Protocol::socket::shutdown_both, ignored);
        }
        link.client.shutdown(Protocol::socket::shutdown_both, ignored);
        isBroken = true;
    }

    static void PumpToClient(Link& link)
    {
        std::array<char, 65536> bytes = {};
        boost::system::error_code error;
        for (;;) {
            const std::size_t size = link.server.read_some(net::buffer(bytes), error);
            if (error) {
                break;
            }
            if (!link.isMute) {
                net::write(link.client, net::buffer(bytes.data(), size), error);
            }
        }
        link.client.shutdown(Protocol::socket::shutdown_both, error);
    }

    net::io_context context;
    Protocol::acceptor acceptor;
    const std::string serverPath;
    std::atomic<AtCommit> atCommit{AtCommit::Pass};
    std::atomic<int> commitsLeft{0};
    std::atomic<bool> makesUnreachable{false};
    std::atomic<bool> isUnreachable{false};
    std::atomic<bool> isBroken{false};
    std::atomic<bool> isEnding{false};
    std::mutex mutex;
    std::vector<std::shared_ptr<Link>> links;
    std::vector<std::thread> pumps; // grown by the thread that accepts, joined after it
    std::thread accepting;
};

PostgresProxy::PostgresProxy(const std::string& serverUrl)
{
    const std::size_t host = serverUrl.find("?host=") + 6;
    const std::string folder = m_folder.File("proxy");
    std::filesystem::create_directory(std::filesystem::u8path(folder));
    m_url = serverUrl.substr(0, host) + folder;
    m_state = std::make_unique<State>(folder + SocketName, serverUrl.substr(host) + SocketName);
}

PostgresProxy::~PostgresProxy() = default;

void PostgresProxy::Break(AtCommit how, bool unreachable, int nth)
{
    m_state->commitsLeft = nth;
    m_state->isBroken = false;
    m_state->makesUnreachable = unreachable;
    m_state->atCommit = how;
}

bool PostgresProxy::IsBroken() const
{
    return m_state->isBroken;
}

void PostgresProxy::Release()
{
    m_state->isUnreachable = false;
    m_state->EndLinks();
}

} // namespace TLGateway
