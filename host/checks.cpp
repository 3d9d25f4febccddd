#include "host/checks.h"

#include <algorithm>
#include <optional>

#include "host/failure.h"
#include "host/text.h"

namespace vintrel::host {
namespace {

constexpr unsigned kLargestRoom = 99'999;

[[noreturn]] void Refuse(std::string_view what, std::string_view text) {
    throw Failure(ExitCode::Usage, std::string(what) + ", not \"" + std::string(text) + "\"");
}

struct Pair {
    unsigned first;
    unsigned second;
};
std::optional<Pair> TwoTwos(std::string_view text) {
    if (text.size() != 4 || !std::all_of(text.begin(), text.end(), IsDigit)) return std::nullopt;
    return Pair{*ParseNumber(text.substr(0, 2)), *ParseNumber(text.substr(2))};
}

unsigned DaysIn(unsigned month, unsigned year) {
    constexpr unsigned kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    const bool leap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
    return month == 2 && leap ? 29 : kDays[month - 1];
}

/// As orders name a day.
std::string DayAndMonth(const CivilTime& time) { return Digits(time.day, 2) + Digits(time.month, 2); }

}  // namespace

bool IsDay(unsigned day, unsigned month, unsigned year) {
    return month >= 1 && month <= 12 && day >= 1 && day <= DaysIn(month, year);
}

std::string CheckedTime(std::string_view text) {
    const std::optional<Pair> time = TwoTwos(text);
    if (!time || time->first > 23 || time->second > 59) Refuse("a time is HHMM, from 0000 to 2359", text);
    return std::string(text);
}

std::string CheckedDate(std::string_view text, const CivilTime& now) {
    if (text == "----") return std::string(text);
    const std::optional<Pair> date = TwoTwos(text);
    if (!date || !IsDay(date->first, date->second, 2000))  // a leap year
        Refuse("a date is DDMM, such as 2412, or ---- for none", text);
    // The day of this year that is over is meant for the next.
    const bool over = date->second < now.month || (date->second == now.month && date->first < now.day);
    if (!IsDay(date->first, date->second, now.year + (over ? 1 : 0)))
        Refuse("a date is a day within the next year", text);
    return std::string(text);
}

long CheckedRoom(std::string_view text) {
    const std::optional<unsigned> room = ParseNumber(text);
    if (!room || *room == 0 || *room > kLargestRoom)
        Refuse("a room is a number from 1 to " + std::to_string(kLargestRoom), text);
    return static_cast<long>(*room);
}

std::string CheckedName(std::string_view text) {
    if (std::any_of(text.begin(), text.end(), [](char c) { return (c >= 0 && c < ' ') || c == '\x7F'; }))
        Refuse("a name has no control characters", Readable(text));
    return std::string(text);
}

std::string NextDayAt(std::string_view hhmm, const CivilTime& now) {
    if (hhmm > Digits(now.hour, 2) + Digits(now.minute, 2)) return DayAndMonth(now);
    CivilTime tomorrow = now;
    if (!IsDay(++tomorrow.day, now.month, now.year)) {
        tomorrow.day = 1;
        tomorrow.month = now.month % 12 + 1;
    }
    return DayAndMonth(tomorrow);
}

}  // namespace vintrel::host
