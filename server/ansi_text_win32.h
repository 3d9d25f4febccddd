// Text in the system's code page.
#pragma once

#include "server/platform.h"

namespace vintrel::server {

class Win32AnsiText : public AnsiText {
 public:
    std::string FromText(std::u16string_view text) const override;
    std::u16string ToText(std::string_view bytes) const override;
};

}  // namespace vintrel::server
