// Text on its way between the link (bytes), the server (UTF-16) and people (UTF-8).
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vintrel::host {

// A byte of the link is the character of the same code (Latin-1). Nothing is lost on the way in, and what the server
// gives as a code, such as the Telnet characters 255, 253, 1, goes out as that byte.
std::u16string FromBytes(std::string_view bytes);
/// A character beyond 255, which no exchange understands, becomes "?".
std::string ToBytes(std::u16string_view text);

std::string ToUtf8(std::u16string_view text);
std::u16string FromUtf8(std::string_view utf8);
void AppendUtf8(std::string& out, char16_t character);

/// Bytes for a person to read: <STX> for a control character, <x85> for other bytes without a shape, UTF-8 for the
/// rest. FromReadable gives the same bytes back: where the data itself looks like such a name, its "<" is written as
/// <LT>.
std::string Readable(std::string_view bytes);
/// Accepts <cr>, <CR> and <x0D> alike; anything else stands for itself.
std::string FromReadable(std::string_view utf8);

constexpr bool IsDigit(char character) { return character >= '0' && character <= '9'; }
std::string Upper(std::string_view ascii);
/// Without blanks at both ends.
std::string_view Trimmed(std::string_view text);
/// The lines of a text, whatever ends them, without their ends.
std::vector<std::string_view> Lines(std::string_view text);
/// A number with zeros in front, at least `width` digits.
std::string Digits(unsigned long value, std::size_t width);
/// A whole decimal number without sign.
std::optional<unsigned> ParseNumber(std::string_view text);

}  // namespace vintrel::host
