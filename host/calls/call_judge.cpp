#include "host/calls/call_judge.h"

#include <optional>

#include "host/checks.h"

namespace vintrel::host {
namespace {

// Every call of a long capture comes by here: loops look at all of a text, without a way out on the way.

constexpr bool IsDigit16(char16_t character) { return static_cast<unsigned>(character - u'0') < 10; }
constexpr bool IsLetter(char16_t character) { return static_cast<unsigned>((character | 0x20) - u'a') < 26; }

bool IsNumber(std::u16string_view text) {
    bool good = !text.empty();
    for (const char16_t character : text) good &= IsDigit16(character);
    return good;
}

/// Two digits.
std::optional<unsigned> Pair(std::u16string_view text) {
    if (text.size() != 2 || !IsDigit16(text[0]) || !IsDigit16(text[1])) return std::nullopt;
    return (text[0] - u'0') * 10U + (text[1] - u'0');
}

/// An extension or a line: a word of digits and letters, filled up with blanks or zeros.
bool IsWord(std::u16string_view text) {
    while (!text.empty() && text.front() == u' ') text.remove_prefix(1);
    while (!text.empty() && text.back() == u' ') text.remove_suffix(1);
    bool good = true;
    for (const char16_t character : text) good &= IsDigit16(character) || IsLetter(character);
    return good;
}

/// The highest bit of a difference says that a blank is the larger one; in this form the compiler looks at eight
/// characters at once.
bool HasControls(std::u16string_view text) {
    constexpr unsigned kHighest = 0x8000;
    char16_t found = 0;
    for (const char16_t character : text)
        found = static_cast<char16_t>(found | (static_cast<char16_t>(character - u' ') & ~character));
    return (found & kHighest) != 0;
}

}  // namespace

std::string_view CallKind(std::u16string_view type) {
    if (type.size() != 1) return {};
    switch (type[0]) {
        case u'1': return "out";
        case u'0': return "in";
        case u'7': return "missed";
        case u'3': return "out+";
        case u'2': return "in+";
        default: return {};
    }
}

std::string_view WhyNoCall(const CallLayout& layout, std::u16string_view record) {
    if (record.size() != layout.RecordLength()) return "a value does not fit its field";
    if (HasControls(record.substr(1, layout.body_length))) return "a control character stands in it";
    const auto cut = [&](CallField field) { return layout.Cut(record, field); };
    const std::optional<unsigned> day = Pair(cut(CallField::Day));
    const std::optional<unsigned> month = Pair(cut(CallField::Month));
    const std::optional<unsigned> year = Pair(cut(CallField::Year));
    constexpr unsigned kCentury = 2000;  // whose leap years are every fourth, as in the last one
    if (!day || !month || !year || !IsDay(*day, *month, kCentury + *year)) return "the date is none";
    const std::optional<unsigned> hour = Pair(cut(CallField::Hour));
    const std::optional<unsigned> minute = Pair(cut(CallField::Minute));
    if (!hour || !minute || *hour > 23 || *minute > 59) return "the time is none";
    if (!IsNumber(cut(CallField::Duration))) return "the duration is no number";
    if (CallKind(cut(CallField::Type)).empty()) return "the type of call is none";
    if (!IsNumber(cut(CallField::Unity))) return "the charge units are no number";
    if (!IsWord(cut(CallField::User))) return "the extension is none";
    if (!IsWord(cut(CallField::Line))) return "the line is none";
    return {};
}

}  // namespace vintrel::host
