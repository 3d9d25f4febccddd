// Ctrl-C, Ctrl-Break, a closed console, log-off and shutdown ask the program to end its work cleanly.
#pragma once

#include <windows.h>

#include "host/console.h"

namespace vintrel::host {

class StopSignal {
 public:
    StopSignal();
    ~StopSignal();
    StopSignal(const StopSignal&) = delete;
    StopSignal& operator=(const StopSignal&) = delete;

    HANDLE Event() const { return event_; }
    bool Raised() const { return WaitForSingleObject(event_, 0) == WAIT_OBJECT_0; }

 private:
    HANDLE event_;
    Handle watcher_;
    DWORD watcher_id_ = 0;
};

}  // namespace vintrel::host
