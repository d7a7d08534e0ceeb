#pragma once

#include "support/TemporaryFolder.h"

#include <memory>
#include <string>

namespace TLGateway {

// Stands between a store and a PostgreSQL server and breaks the connection at a commit.
class PostgresProxy final
{
public:
    enum class AtCommit
    {
        Pass,
        CutBefore,  // the commit does not reach the server, which hears that the connection ends
        CutAfter,   // the commit is done, and its answer goes nowhere
        KeepBefore, // as CutBefore, but the server goes on waiting for the commit until Release
    };

    // The URL is one of PostgresServer's.
    explicit PostgresProxy(const std::string& serverUrl);
    PostgresProxy(const PostgresProxy&) = delete;
    PostgresProxy& operator=(const PostgresProxy&) = delete;
    ~PostgresProxy();

    // What leads to the same database through this.
    [[nodiscard]] const std::string& Url() const noexcept { return m_url; }

    // What to do once, at the nth commit from now. From then on nobody gets through, when `unreachable` is
    // set.
    void Break(AtCommit how, bool unreachable = false, int nth = 1);
    // True once it has been done.
    [[nodiscard]] bool IsBroken() const;
    // Lets through again, and ends the connections to the server that were kept.
    void Release();

private:
    struct State;
    TemporaryFolder m_folder;
    std::string m_url;
    std::unique_ptr<State> m_state;
};

} // namespace TLGateway
