// The system's clock.
#pragma once

#include "server/platform.h"

namespace vintrel::server {

class Win32Clock : public Clock {
 public:
    DateTime LocalNow() const override;
    /// Asked of the system once a second: asking costs more than converting a call record.
    std::int32_t AheadOfUtc() const override;
    std::uint64_t Milliseconds() const override;

 private:
    mutable std::uint64_t asked_ = 0;  // by Milliseconds()
    mutable std::int32_t ahead_of_utc_ = 0;
};

}  // namespace vintrel::server
