// The system's clock.
#pragma once

#include "server/platform.h"

namespace vintrel::server {

class Win32Clock : public Clock {
 public:
    DateTime LocalNow() const override;
    std::optional<DateTime> UtcToLocal(const DateTime& utc) const override;
    std::uint64_t Milliseconds() const override;
};

}  // namespace vintrel::server
