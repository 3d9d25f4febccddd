// The message loop of the host's thread, and the timers that tick in it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>

namespace vintrel::platform {

/// The one-shot timers of the hidden window.
enum class Timer : std::uint8_t { TspTimer, SleepTimer, CheckExtTranfertTimer };
inline constexpr std::size_t kTimerCount = 3;

/// The message loop of the host's thread. Timers tick, and everything that arrives for the server is delivered, only
/// while messages are processed.
class MessageLoop {
 public:
    virtual ~MessageLoop() = default;
    /// Dispatches the messages that wait now, and returns.
    virtual void ProcessPending() = 0;
    /// Sleeps until a message arrives, at most `milliseconds`, then dispatches what waits.
    virtual void WaitAndProcess(std::int32_t milliseconds) = 0;

    /// Starts the timer, anew when it runs. It ticks once: it stops, then `on_tick` is called (which may be empty).
    virtual void StartTimer(Timer timer, std::int32_t milliseconds, std::function<void()> on_tick) = 0;
    virtual void StopTimer(Timer timer) = 0;
    virtual bool TimerRunning(Timer timer) const = 0;

 private:
    friend class WaitScope;
    virtual void BeginWait() {}
    virtual void EndWait() {}
};

/// Held by whoever waits in a loop. The order to end the host's thread, when it arrives during a wait, is kept back and
/// passed on after the outermost one; without a scope it comes back at every turn of the loop.
class WaitScope {
 public:
    explicit WaitScope(MessageLoop& loop) : loop_(loop) { loop_.BeginWait(); }
    ~WaitScope() { loop_.EndWait(); }
    WaitScope(const WaitScope&) = delete;
    WaitScope& operator=(const WaitScope&) = delete;

 private:
    MessageLoop& loop_;
};

}  // namespace vintrel::platform
