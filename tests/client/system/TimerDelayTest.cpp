#include "WaitUntil.h"

#include "system/TimerDelay.h"

#include <QtCore/QElapsedTimer>

#include <gtest/gtest.h>

#include <list>

TEST(TimerDelayTest, ShotIsNeverEarly)
{
    struct Run
    {
        TimerDelay delay;
        QElapsedTimer clock;
        int milliseconds = 0;
        qint64 elapsed = -1;
    };
    std::list<Run> runs;
    // Timers may round their end to part of a second: these end all over half a second.
    for (int milliseconds = 500; milliseconds < 1000; milliseconds += 41) {
        Run& run = runs.emplace_back();
        run.milliseconds = milliseconds;
        run.clock.start();
        run.delay.Start(milliseconds, [&run] { run.elapsed = run.clock.elapsed(); });
    }
    for (const Run& run : runs) {
        ASSERT_TRUE(WaitUntil([&run] { return run.elapsed >= 0; }));
        EXPECT_GE(run.elapsed, run.milliseconds);
    }
}

TEST(TimerDelayTest, StoppedDelayDoesNothing)
{
    TimerDelay stopped;
    TimerDelay other;
    bool early = false;
    bool late = false;
    stopped.Start(1, [&early] { early = true; });
    stopped.Stop();
    other.Start(20, [&late] { late = true; });
    ASSERT_TRUE(WaitUntil([&late] { return late; }));
    EXPECT_FALSE(early);
}

TEST(TimerDelayTest, NewStartReplacesTheWaitingOne)
{
    TimerDelay delay;
    int first = 0;
    int second = 0;
    delay.Start(1, [&first] { ++first; });
    delay.Start(20, [&second] { ++second; });
    ASSERT_TRUE(WaitUntil([&second] { return second > 0; }));
    EXPECT_EQ(first, 0);
    EXPECT_EQ(second, 1);
}

TEST(TimerDelayTest, ShotMayStartTheNextOne)
{
    TimerDelay delay;
    int shots = 0;
    std::function<void()> again = [&] {
        if (++shots < 3) {
            delay.Start(0, again);
        }
    };
    delay.Start(0, again);
    ASSERT_TRUE(WaitUntil([&shots] { return shots == 3; }));
}
