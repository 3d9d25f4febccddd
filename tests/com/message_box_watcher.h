// Sees the message boxes of this process as an operator does, and closes them.
#pragma once

#include <windows.h>

#include <atomic>
#include <mutex>
#include <string>
#include <thread>
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
    MessageBoxWatcher();
    ~MessageBoxWatcher();
    MessageBoxWatcher(const MessageBoxWatcher&) = delete;
    MessageBoxWatcher& operator=(const MessageBoxWatcher&) = delete;

    /// The boxes since the last call, oldest first.
    std::vector<SeenMessage> Take();

 private:
    void Watch();
    void Read(HWND box);
    static BOOL CALLBACK Visit(HWND window, LPARAM watcher) noexcept;

    std::atomic<bool> stop_ = false;
    std::mutex mutex_;
    std::vector<SeenMessage> seen_;
    HWND last_ = nullptr;
    std::thread thread_;
};

}  // namespace vintrel::testing
