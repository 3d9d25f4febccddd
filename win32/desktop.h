// What the operator sees of the server beside the list window: the critical message and the help viewer.
#pragma once

#include "platform/desktop.h"

namespace vintrel::win32 {

/// Whether anybody can see a window of this process. A service has no desktop.
bool HasDesktop();

/// Without a desktop the same title and text go to the debugger output.
class CriticalMessage : public platform::CriticalMessage {
 public:
    void Show(std::u16string_view text, std::u16string_view title) override;
};

class HelpViewer : public platform::HelpViewer {
 public:
    void Start(std::u16string_view program, std::u16string_view arguments) override;
};

}  // namespace vintrel::win32
