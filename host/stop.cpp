#include "host/stop.h"

#include "host/console.h"

namespace vintrel::host {
namespace {

/// Outlives every StopSignal: the system may call on a thread of its own at any time.
HANDLE SharedEvent() {
    static const Handle event(CreateEventW(nullptr, TRUE, FALSE, nullptr));
    return event.Get();
}

BOOL WINAPI OnControl(DWORD /*reason*/) { return SetEvent(SharedEvent()); }

}  // namespace

StopSignal::StopSignal() : event_(SharedEvent()) { SetConsoleCtrlHandler(OnControl, TRUE); }
StopSignal::~StopSignal() { SetConsoleCtrlHandler(OnControl, FALSE); }

}  // namespace vintrel::host
