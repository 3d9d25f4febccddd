// Text of one byte a character.
#pragma once

#include <string>
#include <string_view>

namespace vintrel::platform {

/// The system's single-byte code page.
class AnsiText {
 public:
    virtual ~AnsiText() = default;
    virtual std::string FromText(std::u16string_view text) const = 0;
    virtual std::u16string ToText(std::string_view bytes) const = 0;
};

}  // namespace vintrel::platform
