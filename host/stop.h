// Ctrl-C, Ctrl-Break, a closed console or the end of the session ask the program to end its work cleanly.
#pragma once

#include <windows.h>

namespace vintrel::host {

class StopSignal {
 public:
    StopSignal();
    ~StopSignal();
    StopSignal(const StopSignal&) = delete;
    StopSignal& operator=(const StopSignal&) = delete;

    HANDLE Event() const;
    bool Raised() const;
};

}  // namespace vintrel::host
