#include "host/clock.h"

#include <windows.h>

#include "host/text.h"

namespace vintrel::host {
namespace {

SYSTEMTIME SystemTime() {
    SYSTEMTIME time{};
    GetLocalTime(&time);
    return time;
}

}  // namespace

CivilTime LocalTime() {
    const SYSTEMTIME t = SystemTime();
    return {t.wYear, t.wMonth, t.wDay, t.wHour, t.wMinute, t.wSecond};
}

Moment Now() {
    const SYSTEMTIME t = SystemTime();
    std::string stamp = Digits(t.wYear, 4);
    stamp.append("-").append(Digits(t.wMonth, 2)).append("-").append(Digits(t.wDay, 2));
    stamp.append(" ").append(Digits(t.wHour, 2)).append(":").append(Digits(t.wMinute, 2));
    stamp.append(":").append(Digits(t.wSecond, 2)).append(".").append(Digits(t.wMilliseconds, 3));
    return {stamp, GetTickCount64()};
}

}  // namespace vintrel::host
