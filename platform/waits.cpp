#include "platform/waits.h"

namespace vintrel::platform {

void WaitMilliseconds(MessageLoop& loop, std::int32_t milliseconds) {
    const WaitScope scope(loop);
    loop.ProcessPending();
    if (milliseconds <= 0) return;
    loop.StartTimer(Timer::SleepTimer, milliseconds, {});
    while (loop.TimerRunning(Timer::SleepTimer)) loop.WaitAndProcess(milliseconds);
}

}  // namespace vintrel::platform
