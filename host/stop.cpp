#include "host/stop.h"

#include "host/console.h"

namespace vintrel::host {
namespace {

/// The system ends the program when it has been told: it is told nothing until the program has ended by itself, or has
/// taken too long for the system.
constexpr DWORD kLongerThanTheSystemWaits = 30'000;

/// Outlives every StopSignal: the system may call on a thread of its own at any time.
HANDLE SharedEvent() {
    static const Handle event(CreateEventW(nullptr, TRUE, FALSE, nullptr));
    return event.Get();
}

BOOL WINAPI OnControl(DWORD reason) {
    SetEvent(SharedEvent());
    if (reason != CTRL_C_EVENT && reason != CTRL_BREAK_EVENT) Sleep(kLongerThanTheSystemWaits);
    return TRUE;
}

/// Programs that use windows are told of the end of the session by their windows only, whatever their console.
LRESULT CALLBACK OnMessage(HWND window, UINT message, WPARAM first, LPARAM second) {
    if (message == WM_QUERYENDSESSION) return TRUE;
    if (message == WM_CLOSE) return SetEvent(SharedEvent()), 0;
    if (message == WM_ENDSESSION && first != FALSE) {
        SetEvent(SharedEvent());
        Sleep(kLongerThanTheSystemWaits);
    }
    return DefWindowProcW(window, message, first, second);
}

DWORD WINAPI WatchSession(void* /*nothing*/) {
    WNDCLASSW window_class{};
    window_class.lpfnWndProc = OnMessage;
    window_class.hInstance = GetModuleHandleW(nullptr);
    window_class.lpszClassName = L"VintrelHostSession";
    RegisterClassW(&window_class);
    // Never shown; without a desktop there is no session that could end.
    if (!CreateWindowW(window_class.lpszClassName, L"vintrel-host", WS_OVERLAPPED, 0, 0, 0, 0, nullptr, nullptr,
                       window_class.hInstance, nullptr))
        return 0;
    MSG message{};
    while (GetMessageW(&message, nullptr, 0, 0) > 0) DispatchMessageW(&message);
    return 0;
}

}  // namespace

StopSignal::StopSignal() : event_(SharedEvent()) {
    SetConsoleCtrlHandler(OnControl, TRUE);
    watcher_ = Handle(CreateThread(nullptr, 0, WatchSession, nullptr, 0, &watcher_id_));
}

StopSignal::~StopSignal() {
    // The control handler stays: it cannot be taken away while it holds up the end. A watcher that holds up the end of
    // the session waits for the end of the program.
    constexpr DWORD kPatience = 500;
    PostThreadMessageW(watcher_id_, WM_QUIT, 0, 0);
    WaitForSingleObject(watcher_.Get(), kPatience);
}

}  // namespace vintrel::host
