#include "PostgresPool.h"

#include "PostgresError.h"

#include <string>
#include <utility>

namespace TLGateway {

PostgresPool::Loan::Loan(PostgresPool& pool, std::unique_ptr<PostgresConnection> connection, bool isNew)
    : m_pool(pool), m_connection(std::move(connection)), m_isNew(isNew)
{}

PostgresPool::Loan::~Loan()
{
    if (m_connection) {
        m_pool.Return(std::move(m_connection));
    }
}

PostgresPool::PostgresPool(Connect connect, std::size_t limit, std::chrono::milliseconds patience)
    : m_connect(std::move(connect)), m_limit(limit), m_patience(patience)
{
    m_idle.reserve(limit);
}

PostgresPool::Loan PostgresPool::Borrow()
{
    {
        std::unique_lock lock(m_mutex);
        if (!m_returned.wait_for(lock, m_patience, [this] { return m_borrowed < m_limit; })) {
            throw PostgresError({},
                                "all " + std::to_string(m_limit) +
                                    " connections to read with are in use, so the server is slow",
                                PostgresError::Connection::Usable);
        }
        ++m_borrowed;
        if (!m_idle.empty()) {
            auto connection = std::move(m_idle.back());
            m_idle.pop_back();
            return {*this, std::move(connection), false};
        }
    }
    try {
        return {*this, m_connect(), true};
    } catch (...) {
        Return(nullptr);
        throw;
    }
}

void PostgresPool::CloseIdle()
{
    std::vector<std::unique_ptr<PostgresConnection>> closed;
    closed.reserve(m_limit);
    const std::lock_guard lock(m_mutex);
    closed.swap(m_idle);
}

void PostgresPool::Return(std::unique_ptr<PostgresConnection> connection) noexcept
{
    {
        const std::lock_guard lock(m_mutex);
        --m_borrowed;
        if (connection && connection->IsUsable()) {
            m_idle.push_back(std::move(connection));
        }
    }
    m_returned.notify_one();
}

} // namespace TLGateway
