// Owner of a kernel handle.
#pragma once

#include <windows.h>

namespace vintrel::win32 {

class Handle {
 public:
    explicit Handle(HANDLE handle) : handle_(handle) {}
    ~Handle() {
        if (IsOpen()) CloseHandle(handle_);
    }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;

    bool IsOpen() const { return handle_ != nullptr && handle_ != INVALID_HANDLE_VALUE; }
    HANDLE Get() const { return handle_; }

 private:
    HANDLE handle_;
};

}  // namespace vintrel::win32
