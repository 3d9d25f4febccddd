#include "cdr/date_time.h"

#include <chrono>
#include <utility>

namespace vintrel::cdr {

using std::chrono::days;
using std::chrono::sys_days;
using std::chrono::year_month_day;

namespace {

/// The days since 1970-01-01 and the seconds since midnight.
std::pair<int, int> DayAndTime(std::int64_t seconds) {
    constexpr int kDay = 86'400;
    if (seconds >= 0 && seconds <= UINT32_MAX) {  // as almost always: a 32-bit processor divides it in one step
        const auto small = static_cast<std::uint32_t>(seconds);
        return {small / kDay, small % kDay};
    }
    const std::int64_t time = (seconds % kDay + kDay) % kDay;
    return {static_cast<int>((seconds - time) / kDay), static_cast<int>(time)};
}

}  // namespace

std::optional<std::int64_t> SecondsOf(const server::DateTime& date_time) {
    const bool time_exists = date_time.hour >= 0 && date_time.hour < 24 && date_time.minute >= 0 &&
                             date_time.minute < 60 && date_time.second >= 0 && date_time.second < 60;
    const bool date_exists = date_time.year >= 1 && date_time.year <= 9999 && date_time.month >= 1 &&
                             date_time.month <= 12 && date_time.day >= 1 && date_time.day <= 31;
    if (!time_exists || !date_exists) return std::nullopt;
    const year_month_day date(std::chrono::year(date_time.year),
                              std::chrono::month(static_cast<unsigned>(date_time.month)),
                              std::chrono::day(static_cast<unsigned>(date_time.day)));
    if (!date.ok()) return std::nullopt;
    const std::int64_t day = sys_days(date).time_since_epoch().count();
    return ((day * 24 + date_time.hour) * 60 + date_time.minute) * 60 + date_time.second;
}

std::optional<server::DateTime> DateTimeOf(std::int64_t seconds) {
    constexpr std::int64_t kFirst = -62135596800;  // 0001-01-01 00:00:00
    constexpr std::int64_t kLast = 253402300799;   // 9999-12-31 23:59:59
    if (seconds < kFirst || seconds > kLast) return std::nullopt;
    const auto [day, time] = DayAndTime(seconds);
    const year_month_day date{sys_days(days(day))};
    return server::DateTime{.year = static_cast<int>(date.year()),
                            .month = static_cast<int>(static_cast<unsigned>(date.month())),
                            .day = static_cast<int>(static_cast<unsigned>(date.day())),
                            .hour = time / 3600,
                            .minute = time / 60 % 60,
                            .second = time % 60};
}

}  // namespace vintrel::cdr
