// Resolution of the screen, and the look of current controls, on every Windows from 7 on.
#pragma once

#include <windows.h>

namespace vintrel::win32 {

/// While it lives, new windows are drawn at the resolution of their screen and use the current common controls, even
/// in a host that was built without both.
class ModernWindows {
 public:
    ModernWindows();
    ~ModernWindows();
    ModernWindows(const ModernWindows&) = delete;
    ModernWindows& operator=(const ModernWindows&) = delete;

 private:
    void* former_dpi_context_ = nullptr;
    HANDLE controls_ = INVALID_HANDLE_VALUE;
    ULONG_PTR cookie_ = 0;
};

UINT DpiOf(HWND window);

/// The font of message boxes at that resolution; the caller deletes it.
HFONT CreateMessageFont(UINT dpi);

}  // namespace vintrel::win32
