#include "message_box_watcher.h"

#include <utility>

namespace vintrel::testing {
namespace {

constexpr DWORD kPollMilliseconds = 5;

std::wstring ClassOf(HWND window) {
    wchar_t name[64] = {};
    GetClassNameW(window, name, 64);
    return name;
}

std::wstring TextOf(HWND window) {
    wchar_t text[1024] = {};
    SendMessageW(window, WM_GETTEXT, 1024, reinterpret_cast<LPARAM>(text));
    return text;
}

struct Parts {
    SeenMessage message;
    HWND button = nullptr;
};

BOOL CALLBACK VisitPart(HWND child, LPARAM parameter) noexcept {
    auto& parts = *reinterpret_cast<Parts*>(parameter);
    const std::wstring kind = ClassOf(child);
    const auto style = static_cast<DWORD>(GetWindowLongW(child, GWL_STYLE));
    if (kind == L"Button" && (style & WS_VISIBLE)) {
        ++parts.message.buttons;
        parts.button = child;
    } else if (kind == L"Static" && (style & SS_TYPEMASK) == SS_ICON) {
        const auto icon = reinterpret_cast<HICON>(SendMessageW(child, STM_GETICON, 0, 0));
        parts.message.critical_icon = icon && icon == LoadIconW(nullptr, IDI_HAND);
    } else if (kind == L"Static" || kind == L"Edit") {
        parts.message.text += TextOf(child);
    }
    return TRUE;
}

}  // namespace

MessageBoxWatcher::MessageBoxWatcher() : thread_([this] { Watch(); }) {}

MessageBoxWatcher::~MessageBoxWatcher() {
    stop_ = true;
    thread_.join();
}

std::vector<SeenMessage> MessageBoxWatcher::Take() {
    const std::lock_guard lock(mutex_);
    return std::exchange(seen_, {});
}

void MessageBoxWatcher::Watch() {
    while (!stop_) {
        EnumWindows(Visit, reinterpret_cast<LPARAM>(this));
        Sleep(kPollMilliseconds);
    }
}

BOOL CALLBACK MessageBoxWatcher::Visit(HWND window, LPARAM parameter) noexcept {
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    if (process == GetCurrentProcessId() && IsWindowVisible(window) && ClassOf(window) == L"#32770")
        reinterpret_cast<MessageBoxWatcher*>(parameter)->Read(window);
    return TRUE;
}

void MessageBoxWatcher::Read(HWND box) {
    if (box == last_) return;  // it is on its way out
    Parts parts;
    parts.message.title = TextOf(box);
    EnumChildWindows(box, VisitPart, reinterpret_cast<LPARAM>(&parts));
    if (!parts.button) return;  // still being built
    last_ = box;
    {
        const std::lock_guard lock(mutex_);
        seen_.push_back(parts.message);
    }
    PostMessageW(box, WM_COMMAND, static_cast<WPARAM>(GetDlgCtrlID(parts.button)),
                 reinterpret_cast<LPARAM>(parts.button));
}

}  // namespace vintrel::testing
