// Orders as people give them to the reference host: what is checked before anything is sent.
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "host/checks.h"
#include "host/failure.h"
#include "host/link/order_lines.h"

namespace vintrel::host {
namespace {

constexpr CivilTime kNow{.year = 2026, .month = 12, .day = 31, .hour = 7, .minute = 52, .second = 30};

std::string Refusal(const std::function<void()>& check) {
    try {
        check();
        return "";
    } catch (const Failure& failure) {
        EXPECT_EQ(failure.Code(), ExitCode::Usage);
        return failure.what();
    }
}

TEST(Checks, RefuseTimesDaysAndRoomsThatAreNone) {
    for (const char* const time : {"", "7:30", "730", "2400", "2561", "07300", "073a", "-730"})
        EXPECT_NE(Refusal([&] { CheckedTime(time); }), "") << time;
    for (const char* const date : {"", "3113", "0001", "3104", "24122026", "24.12", "2902", "-----"})
        EXPECT_NE(Refusal([&] { CheckedDate(date, kNow); }), "") << date;
    for (const char* const room : {"", "0", "100000", "99999999999", "-1", "2o4", "204 "})
        EXPECT_NE(Refusal([&] { CheckedRoom(room); }), "") << room;
    EXPECT_NE(Refusal([&] { CheckedName("Ros\3si"); }), "");
    EXPECT_EQ(CheckedTime("0000") + CheckedTime("2359"), "00002359");
    EXPECT_EQ(CheckedDate("3112", kNow) + CheckedDate("----", kNow), "3112----");
    EXPECT_EQ(CheckedRoom("1") + CheckedRoom("99999"), 100'000);
    // The 29th of February that comes next, whichever year it is in.
    EXPECT_EQ(CheckedDate("2902", {.year = 2027, .month = 3, .day = 1}), "2902");
    EXPECT_EQ(CheckedDate("2902", {.year = 2028, .month = 2, .day = 29}), "2902");
    EXPECT_NE(Refusal([&] { CheckedDate("2902", {.year = 2028, .month = 3, .day = 1}); }), "");
}

TEST(NextDayAt, IsTodayOnlyForATimeThatIsStillToCome) {
    EXPECT_EQ(NextDayAt("0753", kNow), "3112");
    EXPECT_EQ(NextDayAt("0752", kNow), "0101") << "the clock shows it already";
    EXPECT_EQ(NextDayAt("0730", kNow), "0101");
    EXPECT_EQ(NextDayAt("0000", {.year = 2028, .month = 2, .day = 28}), "2902");
    EXPECT_EQ(NextDayAt("0000", {.year = 2026, .month = 2, .day = 28}), "0103");
}

TEST(OrderLines, KeepTheBlanksOfNamesAndDropComments) {
    std::string orders;
    for (const OrderLine& order : ParseOrders("# a day\r\n  checkin 203 Anna  Rossi\t# arrives\rname 203 C#\n\n"
                                              "\twakeup\t203 0730 2412\ncancel 203 0730\ncheckout 203\ncheckin 7\n",
                                              "day.txt", kNow))
        orders += std::to_string(order.room) + " " + Described(order) + "; ";
    EXPECT_EQ(orders,
              "203 checkin Anna  Rossi; 203 name C#; 203 wakeup 0730 2412; 203 cancel 0730; 203 checkout; "
              "7 checkin; ");
}

TEST(OrderLines, NameTheFileAndTheLineOfWhatIsNoOrder) {
    for (const auto& [line, message] : std::vector<std::pair<std::string, std::string>>{
             {"sing 203", "there is no order \"sing\""},
             {"wakeup 203", "the order is wakeup ROOM HHMM [DDMM]"},
             {"wakeup 203 2561", "a time is HHMM, from 0000 to 2359, not \"2561\""},
             {"cancel 203 0730 3113", "a date is DDMM, such as 2412, or ---- for none, not \"3113\""},
             {"checkout", "the order is checkout ROOM"},
             {"checkout 203 Rossi", "too much: \"Rossi\""},
             {"checkin Rossi", "a room is a number from 1 to 99999, not \"Rossi\""},
             {"name 203", "the order is name ROOM NAME"},
             {"wait soon", "a number is expected, not \"soon\""}})
        EXPECT_EQ(Refusal([&line = line] { ParseOrders("\n" + line, "day.txt", kNow); }), "day.txt:2: " + message);
}

}  // namespace
}  // namespace vintrel::host
