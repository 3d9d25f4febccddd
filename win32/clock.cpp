#include "win32/clock.h"

#include <windows.h>

namespace vintrel::win32 {
namespace {

text::DateTime FromSystem(const SYSTEMTIME& time) {
    return {.year = time.wYear,
            .month = time.wMonth,
            .day = time.wDay,
            .hour = time.wHour,
            .minute = time.wMinute,
            .second = time.wSecond};
}

/// In steps of 100 ns, as the system counts.
std::int64_t Count(const FILETIME& time) {
    return static_cast<std::int64_t>(
        ULARGE_INTEGER{.LowPart = time.dwLowDateTime, .HighPart = time.dwHighDateTime}.QuadPart);
}

}  // namespace

text::DateTime Clock::LocalNow() const {
    SYSTEMTIME now{};
    GetLocalTime(&now);
    return FromSystem(now);
}

std::int32_t Clock::AheadOfUtc() const {
    constexpr std::uint64_t kMilliseconds = 1000;
    constexpr std::int64_t kStepsPerSecond = 10'000'000;
    const std::uint64_t now = Milliseconds();
    if (asked_ != 0 && now - asked_ < kMilliseconds) return ahead_of_utc_;
    FILETIME utc{};
    FILETIME local{};
    GetSystemTimeAsFileTime(&utc);
    if (FileTimeToLocalFileTime(&utc, &local) == FALSE) return ahead_of_utc_;
    asked_ = now;
    ahead_of_utc_ = static_cast<std::int32_t>((Count(local) - Count(utc)) / kStepsPerSecond);
    return ahead_of_utc_;
}

std::uint64_t Clock::Milliseconds() const { return GetTickCount64(); }

}  // namespace vintrel::win32
