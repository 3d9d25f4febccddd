// What a person sees of the server.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace vintrel::platform {

/// A modal message box with the critical icon and one OK button; returns when the operator has closed it.
class CriticalMessage {
 public:
    virtual ~CriticalMessage() = default;
    virtual void Show(std::u16string_view text, std::u16string_view title) = 0;
};

/// What the list window shows.
struct SupportListContent {
    std::u16string caption;
    std::u16string heading;
    std::u16string tool_tip;
    std::vector<std::u16string> lines;
    bool clickable = false;  ///< the pointer over the list says so
    std::function<void()> on_double_click;
};

class SupportListWindow {
 public:
    virtual ~SupportListWindow() = default;
    /// Shows the one window, modeless, built anew when it is already open. Does nothing without a desktop.
    virtual void Show(SupportListContent content) = 0;
};

class HelpViewer {
 public:
    virtual ~HelpViewer() = default;
    /// Starts a program in a normal, focused window; failures are ignored.
    virtual void Start(std::u16string_view program, std::u16string_view arguments) = 0;
};

}  // namespace vintrel::platform
