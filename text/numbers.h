// Numbers in texts, as a classic Automation host reads and writes them.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "text/text.h"

namespace vintrel::text {

/// Blanks, tabs and line feeds are ignored in numbers, wherever they stand.
constexpr bool IsIgnoredInNumbers(char16_t character) {
    return character == u' ' || character == u'\t' || character == u'\n';
}

/// The number value of what nearly every number of a record is: digits and nothing else that counts. Nothing for any
/// other text, and for a number too large for the quick way.
inline std::optional<std::int32_t> PlainNumber(std::u16string_view text) {
    constexpr std::int32_t kRoomForADigit = 100'000'000;
    std::int32_t value = 0;
    for (const char16_t character : text) {
        if (IsDigit(character) && value < kRoomForADigit) {
            value = value * 10 + (character - u'0');
        } else if (!IsIgnoredInNumbers(character)) {
            return std::nullopt;
        }
    }
    return value;
}

/// The number at the start of a text. Blanks, tabs and line feeds are ignored wherever they stand; then an optional
/// sign, digits with at most one ".", an optional exponent (E or D), or "&H" and "&O" numbers. Reading stops at the
/// first other character; nothing readable is 0.
double NumberValue(std::u16string_view text);
/// Whether the number at the start of a text is this one.
inline bool HasValue(std::u16string_view text, std::int32_t number) {
    const auto plain = PlainNumber(text);
    return plain ? *plain == number : NumberValue(text) == number;
}
/// Whether the whole text is a number: optional blanks around it, sign, digits with at most one "." or ",", exponent,
/// or "&H" digits.
bool IsNumeric(std::u16string_view text);
/// Half to even; nothing when the value does not fit.
std::optional<std::int32_t> RoundToInt32(double value);
/// Shortest decimal form, "." as the decimal mark whatever the system's locale.
std::u16string DecimalText(double value);
std::u16string DecimalText(std::int32_t value);
/// The last two digits of a number, with a leading zero.
std::u16string TwoDigits(int value);

}  // namespace vintrel::text
