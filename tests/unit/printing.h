// Texts in failure messages as a person reads them: control characters by name.
#pragma once

#include <array>
#include <ostream>
#include <string>
#include <string_view>

namespace vintrel::testing {

/// "<STX>0700123<ETX>"; characters outside ASCII as <U+00A3>.
inline std::string Shown(std::u16string_view text) {
    constexpr std::array<const char*, 32> kNames{
        "NUL", "SOH", "STX", "ETX", "EOT", "ENQ", "ACK", "BEL", "BS",  "TAB", "LF",  "VT",  "FF", "CR", "SO", "SI",
        "DLE", "DC1", "DC2", "DC3", "DC4", "NAK", "SYN", "ETB", "CAN", "EM",  "SUB", "ESC", "FS", "GS", "RS", "US"};
    constexpr std::string_view kHex = "0123456789ABCDEF";
    std::string shown;
    for (const char16_t c : text) {
        if (c < kNames.size()) {
            shown += std::string("<") + kNames[c] + ">";
        } else if (c < 127) {
            shown += static_cast<char>(c);
        } else {
            shown += "<U+";
            for (int shift = 12; shift >= 0; shift -= 4) shown += kHex[static_cast<std::size_t>(c >> shift) & 15U];
            shown += ">";
        }
    }
    return shown;
}

}  // namespace vintrel::testing
