#include "server/clock_win32.h"

#include <windows.h>

namespace vintrel::server {
namespace {

DateTime FromSystem(const SYSTEMTIME& time) {
    return {.year = time.wYear,
            .month = time.wMonth,
            .day = time.wDay,
            .hour = time.wHour,
            .minute = time.wMinute,
            .second = time.wSecond};
}

/// A number that is no 16-bit one becomes one that no date has.
WORD Part(int value) {
    constexpr WORD kNoPart = 0xFFFF;
    return value < 0 || value > kNoPart ? kNoPart : static_cast<WORD>(value);
}

}  // namespace

DateTime Win32Clock::LocalNow() const {
    SYSTEMTIME now{};
    GetLocalTime(&now);
    return FromSystem(now);
}

std::optional<DateTime> Win32Clock::UtcToLocal(const DateTime& utc) const {
    SYSTEMTIME time{};
    time.wYear = Part(utc.year);
    time.wMonth = Part(utc.month);
    time.wDay = Part(utc.day);
    time.wHour = Part(utc.hour);
    time.wMinute = Part(utc.minute);
    time.wSecond = Part(utc.second);
    FILETIME utc_file{};
    if (SystemTimeToFileTime(&time, &utc_file) == FALSE) return std::nullopt;
    // Not every system refuses 30 February: what comes back tells.
    if (FileTimeToSystemTime(&utc_file, &time) == FALSE || FromSystem(time) != utc) return std::nullopt;
    FILETIME local_file{};
    if (FileTimeToLocalFileTime(&utc_file, &local_file) == FALSE || FileTimeToSystemTime(&local_file, &time) == FALSE)
        return std::nullopt;
    return FromSystem(time);
}

std::uint64_t Win32Clock::Milliseconds() const { return GetTickCount64(); }

}  // namespace vintrel::server
