#include "base/WorkerPool.h"

#include <gtest/gtest.h>

#include <atomic>
#include <future>

namespace TLGateway {

TEST(WorkerPoolTest, RefusesWhenItsQueueIsFullAndTakesAgainLater)
{
    std::promise<void> started;
    std::promise<void> release;
    std::promise<void> second;
    WorkerPool pool(1, 1);
    ASSERT_TRUE(pool.TryPost([&] {
        started.set_value();
        release.get_future().wait();
    }));
    started.get_future().wait();
    EXPECT_TRUE(pool.TryPost([&] { second.set_value(); })) << "one may wait";
    EXPECT_FALSE(pool.TryPost([] { FAIL() << "was refused but ran"; }));
    release.set_value();
    second.get_future().wait();
    EXPECT_TRUE(pool.TryPost([] {}));
}

TEST(WorkerPoolTest, CloseFinishesWhatWaitsAndRefusesWhatComesLater)
{
    std::atomic<int> done{0};
    WorkerPool pool(2, 100);
    for (int i = 0; i < 50; ++i) {
        ASSERT_TRUE(pool.TryPost([&] { ++done; }));
    }
    pool.Close();
    EXPECT_EQ(done, 50);
    EXPECT_FALSE(pool.TryPost([] {}));
    pool.Close();
}

} // namespace TLGateway
