// The clock of this machine, in local time.
#pragma once

#include <cstdint>
#include <string>

namespace vintrel::host {

struct CivilTime {
    unsigned year = 2026;
    unsigned month = 1;
    unsigned day = 1;
    unsigned hour = 0;
    unsigned minute = 0;
    unsigned second = 0;
};
CivilTime LocalTime();

/// A point in time: as it is written, and for measuring.
struct Moment {
    std::string stamp;  ///< "2026-11-15 06:00:00.123"
    std::uint64_t milliseconds = 0;
};
Moment Now();

}  // namespace vintrel::host
