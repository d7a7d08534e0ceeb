#include "server/AppKeyWatcher.h"

#include "store/sqlite/SqliteStore.h"
#include "support/Await.h"
#include "support/LogCapture.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <thread>

namespace TLGateway {

TEST(AppKeyWatcherTest, KnowsTheKeysOfTheStoreAndThoseThatComeLater)
{
    TemporaryFolder folder;
    const LogCapture log;
    SqliteStore store({folder.File("a.db")}, log.Logger());
    ASSERT_FALSE(Await([&](auto done) { store.SetAppKey("a", "1", done); }));
    AppKeyRing ring;
    const AppKeyWatcher watcher(store, ring, log.Logger());
    EXPECT_EQ(ring.FindSecret("a"), "1");
    EXPECT_FALSE(ring.FindSecret("b"));

    ASSERT_FALSE(Await([&](auto done) { store.SetAppKey("b", "2", done); }));
    ASSERT_FALSE(Await([&](auto done) { store.SetAppKey("a", "3", done); }));
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(30);
    while ((ring.FindSecret("b") != "2" || ring.FindSecret("a") != "3") &&
           std::chrono::steady_clock::now() < deadline) {
        std::this_thread::yield();
    }
    EXPECT_EQ(ring.FindSecret("b"), "2");
    EXPECT_EQ(ring.FindSecret("a"), "3");
}

} // namespace TLGateway
