#include "server/AppKeyWatcher.h"

#include "store/StoreError.h"

#include <spdlog/logger.h>

#include <utility>

namespace TLGateway {

AppKeyWatcher::AppKeyWatcher(IStore& store, AppKeyRing& ring, std::shared_ptr<spdlog::logger> logger)
    : m_store(store), m_ring(ring), m_logger(std::move(logger))
{
    m_ring.Replace(m_store.ListAppKeys());
    m_thread = std::thread(&AppKeyWatcher::Work, this);
}

AppKeyWatcher::~AppKeyWatcher()
{
    {
        const std::lock_guard lock(m_mutex);
        m_isEnding = true;
    }
    m_wake.notify_one();
    m_thread.join();
}

void AppKeyWatcher::LetOthersNotice()
{
    std::this_thread::sleep_for(3 * Interval);
}

void AppKeyWatcher::Work()
{
    bool hasFailed = false;
    std::unique_lock lock(m_mutex);
    while (!m_wake.wait_for(lock, Interval, [this] { return m_isEnding; })) {
        lock.unlock();
        try {
            m_ring.Replace(m_store.ListAppKeys());
            hasFailed = false;
        } catch (const StoreError& error) {
            if (!std::exchange(hasFailed, true)) {
                m_logger->error("keeping the previous app keys: {}", error.what());
            }
        }
        lock.lock();
    }
}

} // namespace TLGateway
