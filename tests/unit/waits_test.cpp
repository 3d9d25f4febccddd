#include "server/waits.h"

#include <gtest/gtest.h>

#include <limits>

#include "fakes.h"

namespace vintrel::server {
namespace {

struct Waits : ::testing::Test {
    std::uint64_t Elapsed() const { return clock.milliseconds - 1000; }

    testing::FakeClock clock;
    testing::FakeLoop loop{clock};
};

TEST_F(Waits, LastAsLongAsTheIntervalAndKeepTheHostAlive) {
    int host_events = 0;
    for (const int at : {100, 299, 301}) loop.Schedule(at, [&] { ++host_events; });
    WaitMilliseconds(loop, 300);
    EXPECT_EQ(Elapsed(), 300U);
    EXPECT_EQ(host_events, 2);
    for (const std::int32_t interval : {0, -1, std::numeric_limits<std::int32_t>::min()}) {
        loop.processed = 0;
        WaitMilliseconds(loop, interval);
        EXPECT_EQ(loop.processed, 1) << interval;
        EXPECT_FALSE(loop.TimerRunning(Timer::SleepTimer)) << interval;
    }
    EXPECT_EQ(Elapsed(), 300U);
}

TEST_F(Waits, ThatNestEndTogetherAndAllEndWhenTheTimerIsTakenAway) {
    loop.Schedule(50, [&] { WaitMilliseconds(loop, 100); });
    WaitMilliseconds(loop, 60);
    EXPECT_EQ(Elapsed(), 150U);
    loop.Schedule(10, [&] { loop.StopTimer(Timer::SleepTimer); });
    WaitMilliseconds(loop, 1000);
    EXPECT_EQ(Elapsed(), 160U);
}

TEST_F(Waits, UntilAnAnswerEndWithItOrAtTheLimit) {
    bool answered = false;
    const auto done = [&] { return answered; };
    loop.Schedule(400, [&] { answered = true; });
    EXPECT_FALSE(WaitUntil(loop, clock, 300, done));
    EXPECT_EQ(Elapsed(), 300U);
    EXPECT_TRUE(WaitUntil(loop, clock, 300, done));
    EXPECT_EQ(Elapsed(), 400U);
    answered = false;
    EXPECT_FALSE(WaitUntil(loop, clock, -5, done));
    EXPECT_EQ(Elapsed(), 400U);
}

}  // namespace
}  // namespace vintrel::server
