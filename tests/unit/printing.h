// Texts in failure messages as a person reads them: control characters by name.
#pragma once

#include <algorithm>
#include <array>
#include <ostream>
#include <string>
#include <string_view>

namespace vintrel::testing {

inline constexpr std::array<std::string_view, 32> kControlNames{
    "NUL", "SOH", "STX", "ETX", "EOT", "ENQ", "ACK", "BEL", "BS",  "TAB", "LF",  "VT",  "FF", "CR", "SO", "SI",
    "DLE", "DC1", "DC2", "DC3", "DC4", "NAK", "SYN", "ETB", "CAN", "EM",  "SUB", "ESC", "FS", "GS", "RS", "US"};

/// "<STX>0700123<ETX>"; characters outside ASCII as <U+00A3>.
inline std::string Shown(std::u16string_view text) {
    constexpr std::string_view kHex = "0123456789ABCDEF";
    std::string shown;
    for (const char16_t c : text) {
        if (c < kControlNames.size()) {
            shown.append("<").append(kControlNames[c]).append(">");
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

/// The other way: "<STX>0700123<ETX>" is the frame with the two characters. Only for texts written in a test.
inline std::u16string Raw(std::string_view shown) {
    std::u16string text;
    while (!shown.empty()) {
        const std::size_t end = shown.front() == '<' ? shown.find('>') : std::string_view::npos;
        const auto* name = end == std::string_view::npos
                               ? kControlNames.end()
                               : std::find(kControlNames.begin(), kControlNames.end(), shown.substr(1, end - 1));
        const bool control = name != kControlNames.end();
        text += control ? static_cast<char16_t>(name - kControlNames.begin())
                        : static_cast<char16_t>(static_cast<unsigned char>(shown.front()));
        shown.remove_prefix(control ? end + 1 : 1);
    }
    return text;
}

}  // namespace vintrel::testing
