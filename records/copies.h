// Fast copies of short texts, and digits two at a time: what slots are filled with.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

#include "records/layout.h"
#include "text/text.h"

namespace vintrel::records {

/// Copies `Count` characters in the machine's own moves.
template <std::size_t Count>
void CopyFixed(char16_t* out, const char16_t* from) {
    std::memcpy(out, from, Count * sizeof(char16_t));
}

/// Copies a short text. A call of the library's copy costs more than the copy.
inline void CopyShort(char16_t* out, std::u16string_view text) {
    constexpr std::size_t kPiece = 8;
    const char16_t* from = text.data();
    std::size_t count = text.size();
    for (; count > kPiece; count -= kPiece, from += kPiece, out += kPiece) CopyFixed<kPiece>(out, from);
    if (count >= 4) {  // two pieces that may overlap
        CopyFixed<4>(out, from);
        CopyFixed<4>(out + count - 4, from + count - 4);
    } else if (count >= 2) {
        CopyFixed<2>(out, from);
        CopyFixed<2>(out + count - 2, from + count - 2);
    } else if (count == 1) {
        *out = *from;
    }
}

/// "00" to "99", one behind the other.
inline constexpr auto kDigitPairs = [] {
    std::array<char16_t, 200> pairs{};
    for (unsigned i = 0; i < pairs.size(); ++i)
        pairs[i] = static_cast<char16_t>(u'0' + (i % 2 == 0 ? i / 20 : i / 2 % 10));
    return pairs;
}();

// What slots are padded with, as many as the widest takes.
inline constexpr std::u16string_view kZeros = u"00000000000000000";
inline constexpr std::u16string_view kBlanks = u"                 ";
static_assert(kZeros.size() == kMacAddress.Width() && kBlanks.size() == kZeros.size());

/// The value of two digits; negative for any other text.
inline int TwoDigitValue(std::u16string_view text) {
    if (text.size() != 2) return -1;
    // Both at a time: what is left of a digit is at most 9, so that 6 more do not reach its fifth bit.
    const std::uint32_t digits = text::Pair(text[0], text[1]) ^ text::Pair(u'0', u'0');
    if (((digits | (digits + text::Pair(6, 6))) & text::Pair(0xFFF0, 0xFFF0)) != 0) [[unlikely]]
        return -1;
    return static_cast<int>(digits * text::Pair(1, 10) >> 16);
}

}  // namespace vintrel::records
