// Searching a text many characters at a time: records of the network exchanges are long, and most of it is passed over.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <optional>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace vintrel::text {

/// What is searched for: characters up to kLast. Sixteen at a time, they are marked (all bits set) in their places.
namespace scan {

inline constexpr char16_t kLast = 0x7E;

#if defined(__SSE2__)
using Sixteen = __m128i;
inline constexpr std::ptrdiff_t kSixteen = 16;

/// Sixteen characters as a byte each; those beyond kLast stay beyond it.
inline Sixteen Load(const char16_t* at) {
    __m128i low;
    __m128i high;
    std::memcpy(&low, at, sizeof low);
    std::memcpy(&high, at + 8, sizeof high);
    return _mm_packs_epi16(low, high);
}
inline Sixteen All(char16_t character) { return _mm_set1_epi8(static_cast<char>(character)); }
/// One bit for each of the sixteen, the first the lowest.
inline std::uint32_t Bits(Sixteen marks) { return static_cast<std::uint32_t>(_mm_movemask_epi8(marks)); }
#endif

struct Is {
    char16_t character;
    bool operator()(char16_t c) const { return c == character; }
#if defined(__SSE2__)
    Sixteen operator()(Sixteen sixteen) const { return _mm_cmpeq_epi8(sixteen, All(character)); }
#endif
};

struct IsNot {
    char16_t character;
    bool operator()(char16_t c) const { return c != character; }
#if defined(__SSE2__)
    Sixteen operator()(Sixteen sixteen) const { return _mm_cmpeq_epi8(Is{character}(sixteen), _mm_setzero_si128()); }
#endif
};

struct IsEither {
    char16_t one;
    char16_t other;
    bool operator()(char16_t c) const { return c == one || c == other; }
#if defined(__SSE2__)
    Sixteen operator()(Sixteen sixteen) const { return _mm_or_si128(Is{one}(sixteen), Is{other}(sixteen)); }
#endif
};

struct IsNeither {
    char16_t one;
    char16_t other;
    bool operator()(char16_t c) const { return c != one && c != other; }
#if defined(__SSE2__)
    Sixteen operator()(Sixteen sixteen) const {
        return _mm_cmpeq_epi8(IsEither{one, other}(sixteen), _mm_setzero_si128());
    }
#endif
};

/// At most `limit`, or `other`.
struct IsAtMostOr {
    char16_t limit;
    char16_t other;
    bool operator()(char16_t c) const { return c <= limit || c == other; }
#if defined(__SSE2__)
    Sixteen operator()(Sixteen sixteen) const {
        return _mm_or_si128(_mm_cmpeq_epi8(_mm_subs_epu8(sixteen, All(limit)), _mm_setzero_si128()),
                            Is{other}(sixteen));
    }
#endif
};

/// One bit for each of 32 characters, the first the lowest: whether `what` it is.
inline constexpr std::ptrdiff_t kPiece = 32;
template <typename What>
[[gnu::always_inline]] inline std::uint32_t PieceBits(const char16_t* at, What what) {
#if defined(__SSE2__)
    return Bits(what(Load(at))) | Bits(what(Load(at + kSixteen))) << kSixteen;
#else
    std::uint32_t bits = 0;
    for (std::ptrdiff_t i = 0; i < kPiece; ++i) bits |= std::uint32_t{what(at[i])} << i;
    return bits;
#endif
}

/// The same for fewer characters, the last `left` of a text. Not inline: the loop around it has no register to spare.
template <typename What>
[[gnu::noinline]] std::uint32_t LastBits(const char16_t* begin, const char16_t* end, std::ptrdiff_t left, What what) {
    if (end - begin >= kPiece) return PieceBits(end - kPiece, what) >> (kPiece - left);
    std::uint32_t bits = 0;
    for (std::ptrdiff_t i = 0; i < left; ++i) bits |= std::uint32_t{what(begin[i])} << i;
    return bits;
}

/// The number that eight characters form; nothing when one of them is no digit.
inline std::optional<std::uint32_t> EightDigits(const char16_t* at) {
#if defined(__SSE2__)
    __m128i digits;
    std::memcpy(&digits, at, sizeof digits);
    digits = _mm_xor_si128(digits, _mm_set1_epi16('0'));  // a digit leaves its value, all else more than 9
    const __m128i beyond = _mm_subs_epu16(digits, _mm_set1_epi16(9));
    if (_mm_movemask_epi8(_mm_cmpeq_epi8(beyond, _mm_setzero_si128())) != 0xFFFF) return std::nullopt;
    const __m128i twos = _mm_madd_epi16(digits, _mm_set1_epi32(10 | 1 << 16));
    const __m128i fours = _mm_madd_epi16(_mm_packs_epi32(twos, twos), _mm_set1_epi32(100 | 1 << 16));
    const int front = _mm_cvtsi128_si32(fours);
    const int back = _mm_cvtsi128_si32(_mm_srli_epi64(fours, 32));
    return static_cast<std::uint32_t>(front * 10'000 + back);
#else
    std::uint32_t number = 0;
    for (std::size_t i = 0; i < 8; ++i) {
        if (at[i] < u'0' || at[i] > u'9') return std::nullopt;
        number = number * 10 + (at[i] - u'0');
    }
    return number;
#endif
}

}  // namespace scan

/// The first character in [at, end) that `what` is, else `end`.
template <typename What>
const char16_t* FindFirst(const char16_t* at, const char16_t* end, What what) {
#if defined(__SSE2__)
    if (end - at >= scan::kSixteen) {
        for (; end - at > scan::kSixteen; at += scan::kSixteen) {
            const std::uint32_t bits = scan::Bits(what(scan::Load(at)));
            if (bits != 0) return at + std::countr_zero(bits);
        }
        at = end - scan::kSixteen;  // once more over some of what has been passed
        const std::uint32_t bits = scan::Bits(what(scan::Load(at)));
        return bits != 0 ? at + std::countr_zero(bits) : end;
    }
#endif
    while (at != end && !what(*at)) ++at;
    return at;
}

/// Behind the last character in [begin, end) that `what` is, else `begin`.
template <typename What>
const char16_t* FindEndOf(const char16_t* begin, const char16_t* end, What what) {
#if defined(__SSE2__)
    for (; end - begin >= scan::kSixteen; end -= scan::kSixteen) {
        const std::uint32_t bits = scan::Bits(what(scan::Load(end - scan::kSixteen)));
        if (bits != 0) return end - scan::kSixteen + std::bit_width(bits);
    }
#endif
    while (end != begin && !what(end[-1])) --end;
    return end;
}

/// Calls `found` with the place of each character in [begin, end) that `what` is, until it answers false.
template <typename What, typename Found>
[[gnu::always_inline]] inline void FindEach(const char16_t* begin, const char16_t* end, What what, Found found) {
    for (std::ptrdiff_t left = end - begin; left > 0; left -= scan::kPiece) {
        const char16_t* const at = end - left;
        std::uint32_t bits = left >= scan::kPiece ? scan::PieceBits(at, what) : scan::LastBits(begin, end, left, what);
        for (; bits != 0; bits &= bits - 1)
            if (!found(at + std::countr_zero(bits))) return;
    }
}

}  // namespace vintrel::text
