// Text in the system's code page.
#pragma once

#include "platform/ansi_text.h"

namespace vintrel::win32 {

class AnsiText : public platform::AnsiText {
 public:
    std::string FromText(std::u16string_view text) const override;
    std::u16string ToText(std::string_view bytes) const override;
};

}  // namespace vintrel::win32
