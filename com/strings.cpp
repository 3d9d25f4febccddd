#include "com/strings.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <functional>
#include <new>
#include <optional>

namespace vintrel::com {
namespace {

/// Where the text begins in the string, counted from 0; nothing when it is no part of it.
std::optional<std::size_t> PlaceIn(const OLECHAR* string, std::u16string_view text) {
    const auto* const at = reinterpret_cast<const wchar_t*>(text.data());
    const bool inside = string != nullptr && !std::less<>()(at, string) && std::less<>()(at, string + Length(string));
    return inside ? std::optional(static_cast<std::size_t>(at - string)) : std::nullopt;
}

/// Moves a text towards the front, a piece at a time; the two places may overlap.
void MoveForward(wchar_t* to, std::u16string_view text) {
    std::array<char16_t, 32> piece;
    const char16_t* from = text.data();
    const char16_t* const end = from + text.size();
    for (; end - from >= std::ssize(piece); from += piece.size(), to += piece.size()) {
        std::memcpy(piece.data(), from, sizeof piece);
        std::memcpy(to, piece.data(), sizeof piece);
    }
    for (; from != end; ++from, ++to) *to = *from;
}

/// The length stands in front of the characters, by the documented layout, and a NUL behind them. The block stays as it
/// is, and freeing gives back the whole of it; reallocating would cost as much as the conversion of a call record.
void Shorten(BSTR string, std::size_t length) {
    reinterpret_cast<UINT*>(string)[-1] = static_cast<UINT>(length * sizeof(OLECHAR));
    string[length] = L'\0';
}

}  // namespace

void Rewrite(BSTR* string, std::u16string_view front, std::u16string_view text) {
    const std::size_t length = front.size() + text.size();
    const std::optional<std::size_t> place = PlaceIn(*string, text);
    if (place && front.size() <= *place) {  // it cannot have become longer
        MoveForward(*string + front.size(), text);
        std::copy(front.begin(), front.end(), *string);
        Shorten(*string, length);
        return;
    }
    wchar_t* const fresh = SysAllocStringLen(nullptr, static_cast<UINT>(length));
    if (!fresh) throw std::bad_alloc();
    std::copy(text.begin(), text.end(), std::copy(front.begin(), front.end(), fresh));
    SysFreeString(*string);
    *string = fresh;
}

}  // namespace vintrel::com
