// The text primitives that the rules of every exchange are written in. Text is UTF-16 and is compared by code unit;
// positions and field numbers count from 1. No function here allocates unless it returns a std::u16string.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace vintrel::text {

/// A string argument of the host that an operation may replace in the caller's variable.
class InOutText {
 public:
    explicit InOutText(std::u16string_view text) : text_(text) {}

    std::u16string_view View() const { return text_; }
    /// What comes before the view when the caller's variable is written.
    std::u16string_view Front() const { return front_; }
    bool Replaced() const { return replaced_; }

    /// The caller's variable becomes a part of its own text, behind a constant `front`: no copy is made.
    void Narrow(std::u16string_view part, std::u16string_view front = {}) {
        replaced_ = replaced_ || part.size() != text_.size() || !front.empty();
        text_ = part;
        front_ = front;
    }
    void Replace(std::u16string text) {
        text_ = storage_.emplace(std::move(text));
        front_ = {};
        replaced_ = true;
    }
    InOutText(const InOutText&) = delete;
    InOutText& operator=(const InOutText&) = delete;

 private:
    std::u16string_view text_;
    std::u16string_view front_;
    std::optional<std::u16string> storage_;
    bool replaced_ = false;
};

/// A text with padding before or behind it, not written out yet. It views the padded text: use it in the expression
/// that makes it.
struct Padded {
    std::u16string_view text;
    std::size_t count;  ///< of padding characters
    char16_t character;
    bool in_front;

    std::size_t size() const { return text.size() + count; }
    char16_t* CopyTo(char16_t* out) const;
    std::u16string str() const;
};

/// At most `count` characters from position `start`; shorter where the text ends. A position before the text or a
/// negative count, which a classic Automation host reports as a fault, gives "".
inline std::u16string_view Mid(std::u16string_view text, std::ptrdiff_t start, std::ptrdiff_t count) {
    if (start < 1 || count < 1 || static_cast<std::size_t>(start) > text.size()) [[unlikely]]
        return {};
    return text.substr(static_cast<std::size_t>(start) - 1, static_cast<std::size_t>(count));
}
/// Everything from position `start`.
std::u16string_view Mid(std::u16string_view text, std::ptrdiff_t start);
inline std::u16string_view Left(std::u16string_view text, std::ptrdiff_t count) { return Mid(text, 1, count); }
std::u16string_view Right(std::u16string_view text, std::ptrdiff_t count);
/// Without the blanks (U+0020 only) at both ends.
inline std::u16string_view Trim(std::u16string_view text) {
    while (!text.empty() && text.front() == u' ') text.remove_prefix(1);
    while (!text.empty() && text.back() == u' ') text.remove_suffix(1);
    return text;
}

/// Without the blanks at both ends and what an exchange prints for a blank.
std::u16string_view Trim(std::u16string_view text, char16_t blank);

/// Two characters as one number, for a switch.
constexpr std::uint32_t Pair(char16_t first, char16_t second) { return first | std::uint32_t{second} << 16; }

/// Upper case of ASCII and Latin-1 letters; every other character stays.
constexpr char16_t Upper(char16_t character) {
    constexpr char16_t kMultiplication = 0x00D7;
    constexpr char16_t kSmallYDiaeresis = 0x00FF;
    constexpr char16_t kCapitalYDiaeresis = 0x0178;  // the one that does not stand 32 places before its small letter
    if (character < u'a' || (character > u'z' && character < 0x00E0) || character > kSmallYDiaeresis) return character;
    if (character == kSmallYDiaeresis) return kCapitalYDiaeresis;
    return character - 32 == kMultiplication ? character : static_cast<char16_t>(character - 32);
}
std::u16string Upper(std::u16string_view text);
char16_t Lower(char16_t character);
std::u16string Lower(std::u16string_view text);
/// Whether the upper-cased text begins with the (already upper-case) word. For constant words see server/word.h.
bool UpperBegins(std::u16string_view text, std::u16string_view word);
/// Whether the upper-cased text equals the (already upper-case) word.
inline bool UpperEquals(std::u16string_view text, std::u16string_view word) {
    return text.size() == word.size() && UpperBegins(text, word);
}
/// Where the part stands at or after `from`, counted from 0 as std::u16string_view does; npos when it does not.
std::size_t Find(std::u16string_view text, std::u16string_view part, std::size_t from = 0);
bool Contains(std::u16string_view text, std::u16string_view part);
constexpr bool IsDigit(char16_t character) { return character >= u'0' && character <= u'9'; }
/// One or more digits and nothing else.
constexpr bool IsDigits(std::u16string_view text) {
    for (const char16_t character : text)
        if (!IsDigit(character)) return false;
    return !text.empty();
}

/// Zeros in front of the text, as it is given, to `width` (at most 10) measured on the trimmed text: " 12" to 4 is
/// "00 12". Nothing when the trimmed text is longer than the width.
inline std::optional<Padded> ZeroPad(std::u16string_view text, std::size_t width) {
    constexpr std::size_t kWidest = 10;
    const std::size_t length = Trim(text).size();
    if (length > width || width > kWidest) return std::nullopt;
    return Padded{.text = text, .count = width - length, .character = u'0', .in_front = true};
}
/// The trimmed text with blanks behind it to `width`. Nothing when it is longer than the width.
inline std::optional<Padded> BlankPad(std::u16string_view text, std::size_t width) {
    const std::u16string_view trimmed = Trim(text);
    if (trimmed.size() > width) return std::nullopt;
    return Padded{.text = trimmed, .count = width - trimmed.size(), .character = u' ', .in_front = false};
}

}  // namespace vintrel::text
