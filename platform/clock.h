// The time.
#pragma once

#include <cstdint>

#include "text/dates.h"

namespace vintrel::platform {

class Clock {
 public:
    virtual ~Clock() = default;
    virtual text::DateTime LocalNow() const = 0;
    /// The seconds that local time is ahead of UTC, with the time-zone bias in force now.
    virtual std::int32_t AheadOfUtc() const = 0;
    /// Milliseconds of a clock that is never set back.
    virtual std::uint64_t Milliseconds() const = 0;
};

}  // namespace vintrel::platform
