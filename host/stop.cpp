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

StopSignal::StopSignal() {
    SharedEvent();
    SetConsoleCtrlHandler(OnControl, TRUE);
}
StopSignal::~StopSignal() { SetConsoleCtrlHandler(OnControl, FALSE); }

HANDLE StopSignal::Event() const { return SharedEvent(); }
bool StopSignal::Raised() const { return WaitForSingleObject(SharedEvent(), 0) == WAIT_OBJECT_0; }

}  // namespace vintrel::host
