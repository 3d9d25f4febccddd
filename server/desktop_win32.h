// What the operator sees of the server beside the list window: the critical message and the help viewer.
#pragma once

#include "server/platform.h"

namespace vintrel::server {

/// Whether anybody can see a window of this process. A service has no desktop.
bool HasDesktop();

/// Without a desktop the same title and text go to the debugger output.
class Win32CriticalMessage : public CriticalMessage {
 public:
    void Show(std::u16string_view text, std::u16string_view title) override;
};

class Win32HelpViewer : public HelpViewer {
 public:
    void Start(std::u16string_view program, std::u16string_view arguments) override;
};

}  // namespace vintrel::server
