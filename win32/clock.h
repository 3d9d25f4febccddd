// The system's clock.
#pragma once

#include "platform/clock.h"

namespace vintrel::win32 {

class Clock : public platform::Clock {
 public:
    text::DateTime LocalNow() const override;
    /// Asked of the system once a second: asking costs more than converting a call record.
    std::int32_t AheadOfUtc() const override;
    std::uint64_t Milliseconds() const override;

 private:
    mutable std::uint64_t asked_ = 0;  // by Milliseconds()
    mutable std::int32_t ahead_of_utc_ = 0;
};

}  // namespace vintrel::win32
