// Searching a text many characters at a time: records of the network exchanges are long, and most of it is passed over.
// Every processor that the server is built for has SSE2.
#pragma once

#include <emmintrin.h>

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <optional>

namespace vintrel::text {

// What is searched for is a question, written once for one character and for sixteen: [](auto c) { return c == u','; }.
// It may name characters up to kLast. With `|` both sides are asked.
namespace scan {

inline constexpr char16_t kLast = 0x7E;

/// Sixteen characters; the answer to a question, sixteen marks.
class Sixteen {
 public:
    static constexpr std::ptrdiff_t kCount = 16;

    /// A byte each; characters beyond kLast stay beyond it.
    explicit Sixteen(const char16_t* at) {
        __m128i low;
        __m128i high;
        std::memcpy(&low, at, sizeof low);
        std::memcpy(&high, at + kCount / 2, sizeof high);
        bytes_ = _mm_packs_epi16(low, high);
    }

    friend Sixteen operator==(Sixteen a, char16_t b) { return Sixteen(_mm_cmpeq_epi8(a.bytes_, All(b))); }
    friend Sixteen operator<=(Sixteen a, char16_t b) { return !Sixteen(_mm_subs_epu8(a.bytes_, All(b))); }
    friend Sixteen operator|(Sixteen a, Sixteen b) { return Sixteen(_mm_or_si128(a.bytes_, b.bytes_)); }
    friend Sixteen operator!(Sixteen a) { return Sixteen(_mm_cmpeq_epi8(a.bytes_, _mm_setzero_si128())); }

    /// One bit for each mark, the first the lowest.
    std::uint32_t Bits() const { return static_cast<std::uint32_t>(_mm_movemask_epi8(bytes_)); }

 private:
    explicit Sixteen(__m128i bytes) : bytes_(bytes) {}
    static __m128i All(char16_t character) { return _mm_set1_epi8(static_cast<char>(character)); }

    __m128i bytes_;
};

constexpr auto Is(char16_t character) {
    return [character](auto c) { return c == character; };
}
constexpr auto IsEither(char16_t one, char16_t other) {
    return [one, other](auto c) { return (c == one) | (c == other); };
}

/// One bit for each of 32 characters, the first the lowest: whether `what` it is.
inline constexpr std::ptrdiff_t kPiece = 32;
template <typename What>
[[gnu::always_inline]] inline std::uint32_t PieceBits(const char16_t* at, What what) {
    return what(Sixteen(at)).Bits() | what(Sixteen(at + Sixteen::kCount)).Bits() << Sixteen::kCount;
}

/// The same for fewer characters, the last `left` of a text. Not inline: the loop around it has no register to spare.
template <typename What>
[[gnu::noinline]] std::uint32_t LastBits(const char16_t* begin, const char16_t* end, std::ptrdiff_t left, What what) {
    if (end - begin >= kPiece) return PieceBits(end - kPiece, what) >> (kPiece - left);
    std::uint32_t bits = 0;
    for (std::ptrdiff_t i = 0; i < left; ++i) bits |= (what(begin[i]) ? 1U : 0U) << i;
    return bits;
}

/// The number that eight characters form; nothing when one of them is no digit.
inline std::optional<std::uint32_t> EightDigits(const char16_t* at) {
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
}

}  // namespace scan

/// The first character in [at, end) that `what` is, else `end`.
template <typename What>
const char16_t* FindFirst(const char16_t* at, const char16_t* end, What what) {
    constexpr std::ptrdiff_t kCount = scan::Sixteen::kCount;
    if (end - at >= kCount) {
        for (; end - at > kCount; at += kCount) {
            const std::uint32_t bits = what(scan::Sixteen(at)).Bits();
            if (bits != 0) return at + std::countr_zero(bits);
        }
        at = end - kCount;  // once more over some of what has been passed
        const std::uint32_t bits = what(scan::Sixteen(at)).Bits();
        return bits != 0 ? at + std::countr_zero(bits) : end;
    }
    while (at != end && !what(*at)) ++at;
    return at;
}

/// Behind the last character in [begin, end) that `what` is, else `begin`.
template <typename What>
const char16_t* FindEndOf(const char16_t* begin, const char16_t* end, What what) {
    constexpr std::ptrdiff_t kCount = scan::Sixteen::kCount;
    for (; end - begin >= kCount; end -= kCount) {
        const std::uint32_t bits = what(scan::Sixteen(end - kCount)).Bits();
        if (bits != 0) return end - kCount + std::bit_width(bits);
    }
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
