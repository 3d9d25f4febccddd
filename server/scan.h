// Searching a text sixteen characters at a time: records of the network exchanges are long, and most of it is passed
// over.
#pragma once

#include <bit>
#include <cstddef>
#include <cstring>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace vintrel::server {

/// What is searched for: a character, or, eight at a time, marks (all bits set) in the places of those that it is.
namespace scan {

#if defined(__SSE2__)
using Eight = __m128i;
inline constexpr std::ptrdiff_t kEight = 8;
inline constexpr std::ptrdiff_t kSixteen = 16;

inline Eight Load(const char16_t* at) {
    Eight eight;
    std::memcpy(&eight, at, sizeof eight);
    return eight;
}
inline Eight All(char16_t character) { return _mm_set1_epi16(static_cast<short>(character)); }
/// One bit for each of sixteen characters.
inline unsigned Bits(Eight first, Eight second) {
    return static_cast<unsigned>(_mm_movemask_epi8(_mm_packs_epi16(first, second)));
}
#endif

struct Is {
    char16_t character;
    bool operator()(char16_t c) const { return c == character; }
#if defined(__SSE2__)
    Eight operator()(Eight eight) const { return _mm_cmpeq_epi16(eight, All(character)); }
#endif
};

struct IsEither {
    char16_t one;
    char16_t other;
    bool operator()(char16_t c) const { return c == one || c == other; }
#if defined(__SSE2__)
    Eight operator()(Eight eight) const { return _mm_or_si128(Is{one}(eight), Is{other}(eight)); }
#endif
};

struct IsNeither {
    char16_t one;
    char16_t other;
    bool operator()(char16_t c) const { return c != one && c != other; }
#if defined(__SSE2__)
    Eight operator()(Eight eight) const { return _mm_cmpeq_epi16(IsEither{one, other}(eight), _mm_setzero_si128()); }
#endif
};

struct IsAtMost {
    char16_t limit;
    bool operator()(char16_t c) const { return c <= limit; }
#if defined(__SSE2__)
    Eight operator()(Eight eight) const {
        return _mm_cmpeq_epi16(_mm_subs_epu16(eight, All(limit)), _mm_setzero_si128());
    }
#endif
};

}  // namespace scan

/// The first character in [at, end) that `what` is, else `end`.
template <typename What>
const char16_t* FindFirst(const char16_t* at, const char16_t* end, What what) {
#if defined(__SSE2__)
    for (; end - at >= scan::kSixteen; at += scan::kSixteen) {
        const unsigned bits = scan::Bits(what(scan::Load(at)), what(scan::Load(at + scan::kEight)));
        if (bits != 0) return at + std::countr_zero(bits);
    }
    if (end - at >= scan::kEight) {
        const unsigned bits = scan::Bits(what(scan::Load(at)), _mm_setzero_si128());
        if (bits != 0) return at + std::countr_zero(bits);
        at += scan::kEight;
    }
#endif
    while (at != end && !what(*at)) ++at;
    return at;
}

/// Calls `found` with the place of each character in [at, end) that `what` is, until it answers false.
template <typename What, typename Found>
void FindEach(const char16_t* at, const char16_t* end, What what, Found found) {
#if defined(__SSE2__)
    const auto each = [&](unsigned bits) {
        for (; bits != 0; bits &= bits - 1)
            if (!found(at + std::countr_zero(bits))) return false;
        return true;
    };
    for (; end - at >= scan::kSixteen; at += scan::kSixteen)
        if (!each(scan::Bits(what(scan::Load(at)), what(scan::Load(at + scan::kEight))))) return;
    if (end - at >= scan::kEight) {
        if (!each(scan::Bits(what(scan::Load(at)), _mm_setzero_si128()))) return;
        at += scan::kEight;
    }
#endif
    for (; at != end; ++at)
        if (what(*at) && !found(at)) return;
}

/// The same for each `one` that the `other` follows.
template <typename Found>
void FindEachPair(const char16_t* at, const char16_t* end, char16_t one, char16_t other, Found found) {
#if defined(__SSE2__)
    const scan::Eight ones = scan::All(one);
    const scan::Eight others = scan::All(other);
    for (; end - at > scan::kSixteen; at += scan::kSixteen) {
        scan::Eight low = _mm_cmpeq_epi16(scan::Load(at), ones);
        scan::Eight high = _mm_cmpeq_epi16(scan::Load(at + scan::kEight), ones);
        low = _mm_and_si128(low, _mm_cmpeq_epi16(scan::Load(at + 1), others));
        high = _mm_and_si128(high, _mm_cmpeq_epi16(scan::Load(at + scan::kEight + 1), others));
        unsigned bits = scan::Bits(low, high);
        for (; bits != 0; bits &= bits - 1)
            if (!found(at + std::countr_zero(bits))) return;
    }
#endif
    for (; end - at > 1; ++at)
        if (*at == one && at[1] == other && !found(at)) return;
}

}  // namespace vintrel::server
