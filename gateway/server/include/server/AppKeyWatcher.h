#pragma once

#include "envelope/AppKeyRing.h"
#include "store/IStore.h"

#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <thread>

namespace spdlog {
class logger;
}

namespace TLGateway {

// Keeps the key ring up to date with the store, on a thread of its own, so that checking a sign needs no read
// of the store and a new key needs no restart of the gateway.
class AppKeyWatcher final
{
public:
    // Fills the ring before it returns; throws StoreError when that fails. Later failures are logged and
    // leave the ring as it is. Both references must outlive the watcher.
    AppKeyWatcher(IStore& store, AppKeyRing& ring, std::shared_ptr<spdlog::logger> logger);
    AppKeyWatcher(const AppKeyWatcher&) = delete;
    AppKeyWatcher& operator=(const AppKeyWatcher&) = delete;
    ~AppKeyWatcher();

    // Call after changing a key: returns when a gateway that runs on the same database has had time to
    // notice.
    static void LetOthersNotice();

private:
    void Work();

    static constexpr std::chrono::milliseconds Interval{100};

    IStore& m_store;
    AppKeyRing& m_ring;
    const std::shared_ptr<spdlog::logger> m_logger;
    std::mutex m_mutex;
    std::condition_variable m_wake;
    bool m_isEnding = false;
    std::thread m_thread;
};

} // namespace TLGateway
