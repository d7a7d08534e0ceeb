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
        qint64 elapsed = -1;
    };
    std::list<Run> runs;
    for (int i = 0; i < 12; ++i) {
        Run& run = runs.emplace_back();
        run.clock.start();
        run.delay.Start(500, [&run] { run.elapsed = run.clock.elapsed(); });
        // Timers may be rounded to full parts of a second: these begin all over half of one.
        ASSERT_TRUE(WaitUntil([&run] { return run.clock.elapsed() >= 40; }));
    }
    for (const Run& run : runs) {
        ASSERT_TRUE(WaitUntil([&run] { return run.elapsed >= 0; }));
        EXPECT_GE(run.elapsed, 500);
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

TEST(TimerDelayTest, NewStartTakesThePlaceOfTheOneThatWaits)
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
