#pragma once

#include "PostgresConnection.h"

#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <functional>
#include <memory>
#include <mutex>
#include <vector>

namespace TLGateway {

// A bounded number of connections that threads borrow, opened when they are first needed. Any thread.
class PostgresPool final
{
public:
    using Connect = std::function<std::unique_ptr<PostgresConnection>()>;

    // A connection while it is borrowed. It goes back when the loan ends, unless it is lost.
    class Loan final
    {
    public:
        Loan(Loan&& other) noexcept = default;
        Loan(const Loan&) = delete;
        Loan& operator=(const Loan&) = delete;
        Loan& operator=(Loan&&) = delete;
        ~Loan();

        [[nodiscard]] PostgresConnection& Connection() const noexcept { return *m_connection; }
        // False when it was borrowed before, so the server may have closed it since.
        [[nodiscard]] bool IsNew() const noexcept { return m_isNew; }

    private:
        friend class PostgresPool;
        Loan(PostgresPool& pool, std::unique_ptr<PostgresConnection> connection, bool isNew);

        PostgresPool& m_pool;
        std::unique_ptr<PostgresConnection> m_connection;
        const bool m_isNew;
    };

    PostgresPool(Connect connect, std::size_t limit, std::chrono::milliseconds patience);
    PostgresPool(const PostgresPool&) = delete;
    PostgresPool& operator=(const PostgresPool&) = delete;

    // Throws PostgresError, also when all connections stay borrowed for longer than the pool's patience. The
    // pool must outlive the loan.
    [[nodiscard]] Loan Borrow();

    // Closes the connections that nobody has borrowed.
    void CloseIdle();

private:
    void Return(std::unique_ptr<PostgresConnection> connection) noexcept;

    const Connect m_connect;
    const std::size_t m_limit;
    const std::chrono::milliseconds m_patience;
    std::mutex m_mutex;
    std::condition_variable m_returned;
    std::vector<std::unique_ptr<PostgresConnection>> m_idle;
    std::size_t m_borrowed = 0;
};

} // namespace TLGateway
