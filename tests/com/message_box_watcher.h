// Sees the message boxes of this process as an operator does, and closes them.
#pragma once

#include <windows.h>

#include <atomic>
#include <mutex>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace vintrel::testing {

struct SeenMessage {
    std::wstring title;
    std::wstring text;
    bool critical_icon = false;
    int buttons = 0;
};

/// While it lives every message box of the process is read and its button pressed.
class MessageBoxWatcher {
 public:
    MessageBoxWatcher() = default;
    ~MessageBoxWatcher() {
        stop_ = true;
        thread_.join();
    }
    MessageBoxWatcher(const MessageBoxWatcher&) = delete;
    MessageBoxWatcher& operator=(const MessageBoxWatcher&) = delete;

    /// The boxes since the last call, oldest first.
    std::vector<SeenMessage> Take() {
        const std::lock_guard lock(mutex_);
        return std::exchange(seen_, {});
    }

 private:
    static bool IsA(HWND window, const wchar_t* kind) {
        wchar_t name[64] = {};
        GetClassNameW(window, name, 64);
        return std::wstring(name) == kind;
    }
    static std::wstring TextOf(HWND window) {
        wchar_t text[1024] = {};
        SendMessageW(window, WM_GETTEXT, 1024, reinterpret_cast<LPARAM>(text));
        return text;
    }

    void Watch() {
        for (HWND box = nullptr; !stop_; box = FindWindowExW(nullptr, box, L"#32770", nullptr)) {
            DWORD process = 0;
            if (box == nullptr) {
                Sleep(5);
            } else if (GetWindowThreadProcessId(box, &process);
                       process == GetCurrentProcessId() && IsWindowVisible(box)) {
                Read(box);
            }
        }
    }

    void Read(HWND box) {
        if (box == last_) return;  // it is on its way out
        SeenMessage message{TextOf(box), L""};
        HWND button = nullptr;
        for (HWND part = GetWindow(box, GW_CHILD); part; part = GetWindow(part, GW_HWNDNEXT)) {
            const auto style = static_cast<DWORD>(GetWindowLongW(part, GWL_STYLE));
            if (IsA(part, L"Button") && (style & WS_VISIBLE)) {
                ++message.buttons;
                button = part;
            } else if (IsA(part, L"Static") && (style & SS_TYPEMASK) == SS_ICON) {
                const auto icon = reinterpret_cast<HICON>(SendMessageW(part, STM_GETICON, 0, 0));
                message.critical_icon = icon != nullptr && icon == LoadIconW(nullptr, IDI_HAND);
            } else if (IsA(part, L"Static") || IsA(part, L"Edit")) {
                message.text += TextOf(part);
            }
        }
        if (!button) return;  // still being built
        last_ = box;
        {
            const std::lock_guard lock(mutex_);
            seen_.push_back(message);
        }
        PostMessageW(box, WM_COMMAND, static_cast<WPARAM>(GetDlgCtrlID(button)), reinterpret_cast<LPARAM>(button));
    }

    std::atomic<bool> stop_ = false;
    std::mutex mutex_;
    std::vector<SeenMessage> seen_;
    HWND last_ = nullptr;
    std::thread thread_{[this] { Watch(); }};
};

}  // namespace vintrel::testing
