#include "ProcessWide.h"

#include <gtest/gtest.h>

#include <atomic>
#include <memory>
#include <set>
#include <thread>
#include <vector>

namespace {

class Counted final
{
public:
    Counted()
    {
        ++made;
        ++alive;
    }
    ~Counted() { --alive; }
    Counted(const Counted&) = delete;
    Counted& operator=(const Counted&) = delete;

    static inline std::atomic<int> made{0};
    static inline std::atomic<int> alive{0};
};

class ProcessWideTest : public ::testing::Test
{
protected:
    ProcessWideTest()
    {
        Counted::made = 0;
        Counted::alive = 0;
    }
};

} // namespace

TEST_F(ProcessWideTest, NothingIsMadeBeforeTheFirstUse)
{
    ProcessWide<Counted> holder;
    EXPECT_EQ(Counted::made, 0);
    holder.Release();
    EXPECT_EQ(Counted::made, 0);
}

TEST_F(ProcessWideTest, EveryUseGivesTheSameObjectUntilTheRelease)
{
    ProcessWide<Counted> holder;
    EXPECT_EQ(holder.Instance(), holder.Instance());
    EXPECT_EQ(Counted::made, 1);
    holder.Release();
    EXPECT_EQ(Counted::alive, 0);
    holder.Release();
    EXPECT_EQ(Counted::alive, 0);
    EXPECT_NE(holder.Instance(), nullptr);
    EXPECT_EQ(Counted::made, 2);
}

TEST_F(ProcessWideTest, EndOfTheHolderDeletesTheObject)
{
    {
        ProcessWide<Counted> holder;
        holder.Instance();
        EXPECT_EQ(Counted::alive, 1);
    }
    EXPECT_EQ(Counted::alive, 0);
}

TEST_F(ProcessWideTest, ThreadsThatComeFirstTogetherGetOneObject)
{
    for (int round = 0; round < 50; ++round) {
        const int madeBefore = Counted::made;
        ProcessWide<Counted> holder;
        std::atomic<int> waiting{4};
        std::vector<Counted*> seen(4, nullptr);
        std::vector<std::thread> threads;
        for (Counted*& slot : seen) {
            threads.emplace_back([&holder, &waiting, &slot] {
                --waiting;
                while (waiting > 0) {
                    std::this_thread::yield();
                }
                slot = holder.Instance();
            });
        }
        for (std::thread& thread : threads) {
            thread.join();
        }
        EXPECT_EQ(std::set<Counted*>(seen.begin(), seen.end()).size(), 1u);
        EXPECT_EQ(Counted::made, madeBefore + 1);
    }
    EXPECT_EQ(Counted::alive, 0);
}
