#include "win32/message_loop.h"

#include <algorithm>

#include "win32/module.h"

namespace vintrel::win32 {
namespace {

constexpr wchar_t kClassName[] = L"InvisibleFrm";
constexpr std::uint64_t kLongestTurn = 50;
/// The system's tick count advances in steps: a timer message may come that much before its time.
constexpr std::uint64_t kTickStep = 16;

UINT_PTR TimerId(std::size_t index) { return index + 1; }

}  // namespace

MessageLoop::~MessageLoop() { DestroyHiddenWindow(); }

void MessageLoop::ProcessPending() {
    const platform::WaitScope scope(*this);
    const std::uint64_t end = GetTickCount64() + kLongestTurn;
    MSG message{};
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) {
        Dispatch(message);
        if (GetTickCount64() >= end) break;
    }
    TickWhatIsDue();
}

void MessageLoop::WaitAndProcess(std::int32_t milliseconds) {
    const platform::WaitScope scope(*this);
    const auto wait = static_cast<DWORD>(UntilNextTick(std::max(milliseconds, 0)));
    if (MsgWaitForMultipleObjectsEx(0, nullptr, wait, QS_ALLINPUT, MWMO_INPUTAVAILABLE) == WAIT_FAILED)
        Sleep(std::min<DWORD>(wait, kTickStep));
    ProcessPending();
}

void MessageLoop::StartTimer(platform::Timer timer, std::int32_t milliseconds, std::function<void()> on_tick) {
    CreateHiddenWindow();
    const auto interval = static_cast<UINT>(std::max(milliseconds, 1));
    State(timer) = {true, GetTickCount64() + interval, std::move(on_tick)};
    if (window_ != nullptr) SetTimer(window_, TimerId(static_cast<std::size_t>(timer)), interval, nullptr);
}

void MessageLoop::StopTimer(platform::Timer timer) {
    State(timer) = {};
    if (window_ != nullptr) KillTimer(window_, TimerId(static_cast<std::size_t>(timer)));
}

bool MessageLoop::TimerRunning(platform::Timer timer) const { return timers_[static_cast<std::size_t>(timer)].running; }

void MessageLoop::DestroyHiddenWindow() {
    timers_ = {};
    if (window_ == nullptr) return;
    DestroyWindow(window_);
    window_ = nullptr;
    UnregisterClassW(kClassName, ThisModule());
}

void MessageLoop::EndWait() {
    if (--waits_ > 0 || !quit_code_) return;
    PostQuitMessage(*quit_code_);
    quit_code_.reset();
}

void MessageLoop::CreateHiddenWindow() {
    if (HasWindow()) return;
    WNDCLASSEXW window_class{};
    window_class.cbSize = sizeof window_class;
    window_class.lpfnWndProc = WindowProcedure;
    window_class.hInstance = ThisModule();
    window_class.lpszClassName = kClassName;
    RegisterClassExW(&window_class);
    window_ = CreateWindowExW(0, kClassName, kClassName, 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, ThisModule(), nullptr);
    if (window_ != nullptr) SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
}

void MessageLoop::Dispatch(const MSG& message) {
    if (message.message == WM_QUIT) {
        quit_code_ = static_cast<int>(message.wParam);
        return;
    }
    TranslateMessage(&message);
    DispatchMessageW(&message);
}

void MessageLoop::Tick(TimerState& timer) {
    const std::function<void()> on_tick = std::move(timer.on_tick);
    StopTimer(static_cast<platform::Timer>(&timer - timers_.data()));
    if (on_tick) Fenced(on_tick);
}

void MessageLoop::TickWhatIsDue() {
    const std::uint64_t now = GetTickCount64();
    for (TimerState& timer : timers_)
        if (timer.running && timer.due <= now) Tick(timer);
}

std::int32_t MessageLoop::UntilNextTick(std::int32_t at_most) const {
    const std::uint64_t now = GetTickCount64();
    auto wait = static_cast<std::uint64_t>(at_most);
    for (const TimerState& timer : timers_)
        if (timer.running) wait = std::min(wait, timer.due > now ? timer.due - now : 0);
    return static_cast<std::int32_t>(wait);
}

LRESULT CALLBACK MessageLoop::WindowProcedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) noexcept {
    if (message != WM_TIMER) return DefWindowProcW(window, message, wparam, lparam);
    auto* const loop = reinterpret_cast<MessageLoop*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (loop == nullptr || wparam < 1 || wparam > platform::kTimerCount) return 0;
    TimerState& timer = loop->timers_[wparam - 1];
    // A message of the timer's former run may still come after it was started anew.
    if (timer.running && timer.due <= GetTickCount64() + kTickStep) loop->Tick(timer);
    return 0;
}

}  // namespace vintrel::win32
