// Civil dates and times of day.
#pragma once

#include <chrono>
#include <compare>
#include <cstdint>
#include <optional>
#include <string_view>

namespace vintrel::text {

struct DateTime {
    int year = 0;
    int month = 0;
    int day = 0;
    int hour = 0;
    int minute = 0;
    int second = 0;

    auto operator<=>(const DateTime&) const = default;
};

/// The date as a day that can be counted with; nothing for a date that does not exist, or outside the years 1 to 9999.
std::optional<std::chrono::sys_days> DayOf(int year, int month, int day);
/// Of a date that exists.
inline std::chrono::sys_days DayOf(const DateTime& date) {
    return DayOf(date.year, date.month, date.day).value_or(std::chrono::sys_days());
}

/// Seconds since 1970-01-01 00:00:00 of the same time zone; nothing for a date or time that does not exist.
std::optional<std::int64_t> SecondsOf(const DateTime& date_time);

/// The date and time that many seconds after 1970-01-01 00:00:00; nothing outside the years 1 to 9999.
std::optional<DateTime> DateTimeOf(std::int64_t seconds);

/// Minutes since midnight of "hh" and "mm", one or two digits each, blanks around them allowed. Nothing for a time that
/// does not exist.
std::optional<int> MinuteOfDay(std::u16string_view hours, std::u16string_view minutes);

}  // namespace vintrel::text
