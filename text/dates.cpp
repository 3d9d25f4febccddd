#include "text/dates.h"

#include <utility>

#include "text/numbers.h"
#include "text/text.h"

namespace vintrel::text {

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

/// One or two digits below `limit`.
std::optional<int> Piece(std::u16string_view text, int limit) {
    text = Trim(text);
    if (!IsDigits(text) || text.size() > 2) return std::nullopt;
    const std::optional<int> value = PlainNumber(text);
    return value < limit ? value : std::nullopt;
}

}  // namespace

std::optional<sys_days> DayOf(int year, int month, int day) {
    const bool in_range = year >= 1 && year <= 9999 && month >= 1 && month <= 12 && day >= 1 && day <= 31;
    if (!in_range) return std::nullopt;
    const year_month_day date(std::chrono::year(year), std::chrono::month(static_cast<unsigned>(month)),
                              std::chrono::day(static_cast<unsigned>(day)));
    return date.ok() ? std::optional<sys_days>(date) : std::nullopt;
}

std::optional<std::int64_t> SecondsOf(const DateTime& date_time) {
    const bool time_exists = date_time.hour >= 0 && date_time.hour < 24 && date_time.minute >= 0 &&
                             date_time.minute < 60 && date_time.second >= 0 && date_time.second < 60;
    const std::optional<sys_days> date = DayOf(date_time.year, date_time.month, date_time.day);
    if (!time_exists || !date) return std::nullopt;
    const std::int64_t day = date->time_since_epoch().count();
    return ((day * 24 + date_time.hour) * 60 + date_time.minute) * 60 + date_time.second;
}

std::optional<DateTime> DateTimeOf(std::int64_t seconds) {
    constexpr std::int64_t kFirst = -62135596800;  // 0001-01-01 00:00:00
    constexpr std::int64_t kLast = 253402300799;   // 9999-12-31 23:59:59
    if (seconds < kFirst || seconds > kLast) return std::nullopt;
    const auto [day, time] = DayAndTime(seconds);
    const year_month_day date{sys_days(days(day))};
    return DateTime{.year = static_cast<int>(date.year()),
                    .month = static_cast<int>(static_cast<unsigned>(date.month())),
                    .day = static_cast<int>(static_cast<unsigned>(date.day())),
                    .hour = time / 3600,
                    .minute = time / 60 % 60,
                    .second = time % 60};
}

std::optional<int> MinuteOfDay(std::u16string_view hours, std::u16string_view minutes) {
    const std::optional<int> hour = Piece(hours, 24);
    const std::optional<int> minute = Piece(minutes, 60);
    if (!hour || !minute) return std::nullopt;
    return *hour * 60 + *minute;
}

}  // namespace vintrel::text
