#include "server/external_transfer.h"

#include <gtest/gtest.h>

#include <utility>

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
        // Time: within one minute, or two.
        {u"TYPE10001", u"0010", {.time = u"10:01"}, 1},     {u"TYPE10001", u"0010", {.time = u"10:02"}, 0},
        {u"TYPE10004", u"0010", {.time = u"10:02"}, 1},     {u"TYPE10004", u"0010", {.time = u"10:03"}, 0},
        {u"TYPE10012", u"0010", {.time = u"10:01"}, 1},     {u"TYPE10012", u"0010", {.time = u"10:02"}, 0},
        {u"TYPE10001", u"0010", {.time = u"25:00"}, 0},     {u"TYPE10001", u"0010", {.time = u"10:00:00"}, 0},
        // Duration: within two, or three.
        {u"TYPE10001", u"0001", {.duration = 62}, 1},       {u"TYPE10001", u"0001", {.duration = 63}, 0},
        {u"TYPE10004", u"0001", {.duration = 63}, 1},       {u"TYPE10004", u"0001", {.duration = 64}, 0},
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

TEST_F(ExternalTransfer, TheTimerClearsALoneLeg) {
    const std::pair<const char16_t*, int> intervals[] = {
        {u"TYPE10001", 5000}, {u"TYPE10002", 5000}, {u"TYPE10003", 5000}, {u"TYPE10004", 5000}, {u"TYPE10005", 5000},
        {u"TYPE10006", 5000}, {u"TYPE10007", 5000}, {u"TYPE10008", 5000}, {u"TYPE10009", 5000}, {u"TYPE10010", 5000},
        {u"TYPE10011", 4000}, {u"TYPE10012", 4000}, {u"TYPE10013", 5000}, {u"TYPE10014", 4000}, {u"TYPE10015", 4000},
        {u"TYPE10016", 4000}, {u"TYPE10017", 4000}, {u"TYPE10018", 5000}, {u"TYPE10019", 4000}, {u"TYPE10020", 4000},
        {u"TYPE12000", 5000}};
    for (const auto& [type, milliseconds] : intervals) {
        Check({}, u"0000", type);
        loop.WaitAndProcess(milliseconds - 1);
        EXPECT_EQ(leg.ExtTransferUser, 101) << Shown(type);
        loop.WaitAndProcess(1);
        EXPECT_TRUE(leg.ExtTransferDirection.empty() && leg.ExtTransferDate.empty() && leg.ExtTransferTime.empty());
        EXPECT_EQ(leg.ExtTransferUser + leg.ExtTransferDuration, 0) << Shown(type);
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
