// Waits that keep the host's message loop running. Every wait has a limit.
#pragma once

#include <algorithm>
#include <cstdint>

#include "platform/clock.h"
#include "platform/message_loop.h"

namespace vintrel::platform {

/// Keeps processing messages for the interval. 0 or less processes what waits now, once.
/// A wait that begins during another one restarts the one timer of both: they end together.
void WaitMilliseconds(MessageLoop& loop, std::int32_t milliseconds);

/// Keeps processing messages until `done()` is true, at most for the interval; the answer is whether it came true.
template <typename Done>
bool WaitUntil(MessageLoop& loop, const Clock& clock, std::int32_t milliseconds, Done done) {
    const WaitScope scope(loop);
    const std::uint64_t end = clock.Milliseconds() + static_cast<std::uint64_t>(std::max(milliseconds, 0));
    loop.ProcessPending();
    for (;;) {
        if (done()) return true;
        const std::uint64_t now = clock.Milliseconds();
        if (now >= end) return false;
        loop.WaitAndProcess(static_cast<std::int32_t>(end - now));
    }
}

}  // namespace vintrel::platform
