#include "text/text.h"

#include <algorithm>
#include <limits>

#include "text/control_characters.h"
#include "text/scan.h"

namespace vintrel::text {

char16_t* Padded::CopyTo(char16_t* out) const {
    if (in_front) out = std::fill_n(out, count, character);
    out = std::copy(text.begin(), text.end(), out);
    if (!in_front) out = std::fill_n(out, count, character);
    return out;
}

std::u16string Padded::str() const {
    std::u16string result(size(), character);
    CopyTo(result.data());
    return result;
}

std::u16string_view Mid(std::u16string_view text, std::ptrdiff_t start) {
    return Mid(text, start, std::numeric_limits<std::ptrdiff_t>::max());
}

std::u16string_view Right(std::u16string_view text, std::ptrdiff_t count) {
    if (count < 1) return {};
    const auto kept = std::min(static_cast<std::size_t>(count), text.size());
    return text.substr(text.size() - kept);
}

std::u16string_view Trim(std::u16string_view text, char16_t blank) {
    const char16_t* end = text.data() + text.size();
    const char16_t* const first =
        FindFirst(text.data(), end, [blank](auto c) { return !((c == kBlank) | (c == blank)); });
    while (end != first && (end[-1] == kBlank || end[-1] == blank)) --end;
    return {first, end};
}

std::u16string Upper(std::u16string_view text) {
    std::u16string result(text);
    std::transform(result.begin(), result.end(), result.begin(), [](char16_t c) { return Upper(c); });
    return result;
}

char16_t Lower(char16_t character) {
    const bool letter =
        (character >= u'A' && character <= u'Z') || (character >= 0x00C0 && character <= 0x00DE && character != 0x00D7);
    return letter ? static_cast<char16_t>(character + 32) : character;
}

std::u16string Lower(std::u16string_view text) {
    std::u16string result(text);
    std::transform(result.begin(), result.end(), result.begin(), [](char16_t c) { return Lower(c); });
    return result;
}

bool UpperBegins(std::u16string_view text, std::u16string_view word) {
    return text.size() >= word.size() && std::equal(word.begin(), word.end(), text.begin(),
                                                    [](char16_t a, char16_t b) { return a == b || a == Upper(b); });
}

std::size_t Find(std::u16string_view text, std::u16string_view part, std::size_t from) {
    if (part.empty() || from > text.size() || part.front() > scan::kLast) return text.find(part, from);
    const char16_t* at = text.data() + from;
    const char16_t* const end = text.data() + text.size();
    for (; (at = FindFirst(at, end, scan::Is(part.front()))) != end; ++at)
        if (std::u16string_view(at, end).starts_with(part)) return static_cast<std::size_t>(at - text.data());
    return std::u16string_view::npos;
}

bool Contains(std::u16string_view text, std::u16string_view part) {
    return Find(text, part) != std::u16string_view::npos;
}

}  // namespace vintrel::text
