// The message loop of the host's thread, and the hidden window with the server's timers.
#pragma once

#include <windows.h>

#include <array>
#include <optional>

#include "platform/message_loop.h"

namespace vintrel::win32 {

/// The hidden window belongs to the thread that first starts a timer; when that thread has ended, to the next one.
class MessageLoop : public platform::MessageLoop {
 public:
    MessageLoop() = default;
    ~MessageLoop() override;
    MessageLoop(const MessageLoop&) = delete;
    MessageLoop& operator=(const MessageLoop&) = delete;

    /// Turns at most 50 ms, so that a thread that keeps sending itself messages cannot hold it for ever.
    void ProcessPending() override;
    void WaitAndProcess(std::int32_t milliseconds) override;

    void StartTimer(platform::Timer timer, std::int32_t milliseconds, std::function<void()> on_tick) override;
    void StopTimer(platform::Timer timer) override;
    bool TimerRunning(platform::Timer timer) const override;

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
    TimerState& State(platform::Timer timer) { return timers_[static_cast<std::size_t>(timer)]; }

    HWND window_ = nullptr;
    std::array<TimerState, platform::kTimerCount> timers_;
    int waits_ = 0;
    std::optional<int> quit_code_;  ///< the order to end the thread, kept until no wait is left
};

}  // namespace vintrel::win32
