// The message loop of the host's thread, and the hidden window with the server's timers.
#pragma once

#include <windows.h>

#include <array>
#include <optional>

#include "server/platform.h"

namespace vintrel::server {

/// The hidden window belongs to the thread that first starts a timer; when that thread has ended, to the next one.
class Win32MessageLoop : public MessageLoop {
 public:
    Win32MessageLoop() = default;
    ~Win32MessageLoop() override;
    Win32MessageLoop(const Win32MessageLoop&) = delete;
    Win32MessageLoop& operator=(const Win32MessageLoop&) = delete;

    /// Turns at most 50 ms, so that a thread that keeps sending itself messages cannot hold it for ever.
    void ProcessPending() override;
    void WaitAndProcess(std::int32_t milliseconds) override;

    void StartTimer(Timer timer, std::int32_t milliseconds, std::function<void()> on_tick) override;
    void StopTimer(Timer timer) override;
    bool TimerRunning(Timer timer) const override;

    bool HasWindow() const { return IsWindow(window_) != FALSE; }
    /// Stops the timers without a tick and takes the window away. The next timer brings it back.
    void DestroyHiddenWindow();

 private:
    struct TimerState {
        bool running = false;
        std::uint64_t due = 0;
        std::function<void()> on_tick;
    };

    static LRESULT CALLBACK WindowProcedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) noexcept;

    void BeginWait() override { ++waits_; }
    void EndWait() override;
    void CreateHiddenWindow();
    void Dispatch(const MSG& message);
    void Tick(TimerState& timer);
    /// By the clock, whether or not the system got round to its timer message.
    void TickWhatIsDue();
    std::int32_t UntilNextTick(std::int32_t at_most) const;
    TimerState& State(Timer timer) { return timers_[static_cast<std::size_t>(timer)]; }

    HWND window_ = nullptr;
    std::array<TimerState, kTimerCount> timers_;
    int waits_ = 0;
    std::optional<int> quit_code_;  ///< the order to end the thread, kept until no wait is left
};

}  // namespace vintrel::server
