#include "server/external_transfer.h"

#include <gtest/gtest.h>

#include <set>

#include <utility>

#include "exchanges/catalogue.h"
#include "fakes.h"
#include "printing.h"

namespace vintrel::server {
namespace {

using platform::Timer;
using testing::Shown;

struct Record {
    std::int32_t user = 101;
    std::u16string_view date = u"31.01.2026", time = u"10:00";
    std::int32_t duration = 60;
    std::u16string_view direction = u"0";
};

struct ExternalTransfer : ::testing::Test {
    int Check(const Record& record, std::u16string_view condition = u"0000", std::u16string_view type = u"TYPE10001") {
        return CheckExternalTransfert(record.user, record.date, record.time, record.duration, record.direction,
                                      condition, type, leg, clock, loop);
    }

    testing::FakeClock clock;
    testing::FakeLoop loop{clock};
    PendingLeg leg;
};

TEST_F(ExternalTransfer, PairsTwoRecordsOfOppositeDirections) {
    EXPECT_EQ(Check({.direction = u"1"}), 0) << "the first becomes pending";
    EXPECT_EQ(Check({.user = 7, .direction = u"0"}), 1);
    EXPECT_FALSE(loop.TimerRunning(Timer::CheckExtTranfertTimer));
    EXPECT_EQ(Check({.direction = u"1"}), 0) << "nothing is pending after a match";
    EXPECT_EQ(Check({.direction = u"1"}), 0) << "one of the same direction takes its place";
    EXPECT_EQ(Check({.direction = u"0"}), 1);
    EXPECT_EQ(Check({.direction = u"  "}), 0);
    EXPECT_EQ(Check({.direction = u"1"}), 0) << "a blank direction is no pending leg";
}

TEST_F(ExternalTransfer, ComparesWhatTheConditionSwitchesOn) {
    const struct {
        std::u16string_view type, condition;
        Record second;
        int result;
    } rows[] = {
        // clang-format off
        {u"TYPE10001", u"1000", {}, 1},                     {u"TYPE10001", u"1000", {.user = 102}, 0},
        {u"TYPE10001", u"x0", {.user = 7, .date = u""}, 1}, {u"TYPE10001", u"0100", {.date = u"31.01.26"}, 0},
        {u"TYPE10001", u"0010", {.time = u"25:00"}, 0},     {u"TYPE10001", u"0010", {.time = u"10:00:00"}, 0},
        {u"TYPE10001", u"0001", {.duration = -2147483647 - 1}, 0},
        // The direction always counts; a code is compared as given.
        {u"TYPE10001", u"1111", {.direction = u"1"}, 0},    {u"type10001", u"0000", {}, 0},
        // clang-format on
    };
    for (const auto& row : rows) {
        leg.Clear();
        Check({.direction = u"1"}, u"0000", row.type);
        EXPECT_EQ(Check(row.second, row.condition, row.type), row.result) << &row - rows << " of the table";
    }
    leg.Clear();
    Check({.time = u"23:59", .direction = u"1"});
    EXPECT_EQ(Check({.time = u"00:00"}, u"0010"), 0) << "midnight";
}

TEST_F(ExternalTransfer, AnUnknownCodeReplacesThePendingLeg) {
    Check({.user = 101, .direction = u"1"});
    EXPECT_EQ(Check({.user = 102}, u"0000", u"type10001"), 0);
    EXPECT_EQ(loop.Interval(Timer::CheckExtTranfertTimer), 5000);
    EXPECT_EQ(Check({.user = 102, .direction = u"1"}, u"1000"), 1) << "the leg of user 102 is pending";
}

TEST_F(ExternalTransfer, EachModelWaitsAndTolerates) {
    const std::set<std::u16string_view> four_seconds{u"TYPE10011", u"TYPE10012", u"TYPE10014", u"TYPE10015",
                                                     u"TYPE10016", u"TYPE10017", u"TYPE10019", u"TYPE10020"};
    const std::set<std::u16string_view> two_minutes{u"TYPE10004", u"TYPE10005", u"TYPE10006", u"TYPE10008",
                                                    u"TYPE10011", u"TYPE10014", u"TYPE10015", u"TYPE10016",
                                                    u"TYPE10017", u"TYPE10018", u"TYPE10019", u"TYPE10020"};
    for (const exchanges::Model* model : exchanges::Models()) {
        const std::u16string_view type = model->code;
        Check({}, u"0000", type);
        loop.WaitAndProcess(four_seconds.contains(type) ? 3999 : 4999);
        EXPECT_EQ(leg.ExtTransferUser, 101) << Shown(type);
        loop.WaitAndProcess(1);
        EXPECT_TRUE(leg.ExtTransferDirection.empty() && leg.ExtTransferDate.empty() && leg.ExtTransferTime.empty());
        EXPECT_EQ(leg.ExtTransferUser + leg.ExtTransferDuration, 0) << Shown(type);

        const int more = two_minutes.contains(type) ? 1 : 0;
        const std::u16string_view times[] = {u"10:01", u"10:02", u"10:03"};
        const auto paired = [&](int minutes, int seconds) {
            leg.Clear();
            Check({.direction = u"1"}, u"0000", type);
            return Check({.time = times[minutes - 1], .duration = 60 + seconds}, u"0011", type);
        };
        EXPECT_EQ(paired(1 + more, 2 + more), 1) << Shown(type);
        EXPECT_EQ(paired(2 + more, 2 + more) + paired(1 + more, 3 + more), 0) << Shown(type);
        leg.Clear();
    }
}

TEST_F(ExternalTransfer, EveryCallStartsTheIntervalAnewAndItEndsByTheClockWhenNoMessageWasProcessed) {
    Check({});
    loop.WaitAndProcess(4000);
    Check({});
    loop.WaitAndProcess(4000);
    clock.milliseconds += 999;
    EXPECT_EQ(Check({.direction = u"1"}), 1);
    Check({});
    clock.milliseconds += 5000;
    EXPECT_EQ(Check({.direction = u"1"}), 0) << "five seconds are the end";
    EXPECT_EQ(Check({}), 1) << "the late record is the pending one";
}

}  // namespace
}  // namespace vintrel::server
