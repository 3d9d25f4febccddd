// Searching a text eight characters at a time: records of the network exchanges are long, and most of it is passed
// over.
#pragma once

#include <bit>
#include <cstddef>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace vintrel::server {

#if defined(__SSE2__)
namespace scan {

inline constexpr std::ptrdiff_t kBlock = 8;

inline __m128i Load(const char16_t* at) {
    return _mm_loadu_si128(static_cast<const __m128i_u*>(static_cast<const void*>(at)));
}
inline __m128i Eight(char16_t character) { return _mm_set1_epi16(static_cast<short>(character)); }

/// The first of eight characters that is marked; `kBlock` when none is.
inline std::ptrdiff_t FirstMarked(__m128i marks) {
    const auto bytes = static_cast<unsigned>(_mm_movemask_epi8(marks));
    return bytes == 0 ? kBlock : std::countr_zero(bytes) / 2;
}

}  // namespace scan
#endif

/// The first `character` in [at, end), else `end`.
inline const char16_t* FindCharacter(const char16_t* at, const char16_t* end, char16_t character) {
#if defined(__SSE2__)
    for (const __m128i wanted = scan::Eight(character); end - at >= scan::kBlock; at += scan::kBlock) {
        const std::ptrdiff_t found = scan::FirstMarked(_mm_cmpeq_epi16(scan::Load(at), wanted));
        if (found != scan::kBlock) return at + found;
    }
#endif
    while (at != end && *at != character) ++at;
    return at;
}

/// Calls `found` with the place of each `character` in [at, end), until it answers false.
template <typename Found>
void EachCharacter(const char16_t* at, const char16_t* end, char16_t character, Found found) {
#if defined(__SSE2__)
    for (const __m128i wanted = scan::Eight(character); end - at >= scan::kBlock; at += scan::kBlock) {
        constexpr unsigned kOneBitEach = 0x5555;
        const auto bytes = static_cast<unsigned>(_mm_movemask_epi8(_mm_cmpeq_epi16(scan::Load(at), wanted)));
        for (unsigned marks = bytes & kOneBitEach; marks != 0; marks &= marks - 1)
            if (!found(at + std::countr_zero(marks) / 2)) return;
    }
#endif
    for (; at != end; ++at)
        if (*at == character && !found(at)) return;
}

/// The first of the two characters in [at, end), else `end`.
inline const char16_t* FindEither(const char16_t* at, const char16_t* end, char16_t one, char16_t other) {
#if defined(__SSE2__)
    const __m128i ones = scan::Eight(one);
    const __m128i others = scan::Eight(other);
    for (; end - at >= scan::kBlock; at += scan::kBlock) {
        const __m128i eight = scan::Load(at);
        const std::ptrdiff_t found =
            scan::FirstMarked(_mm_or_si128(_mm_cmpeq_epi16(eight, ones), _mm_cmpeq_epi16(eight, others)));
        if (found != scan::kBlock) return at + found;
    }
#endif
    while (at != end && *at != one && *at != other) ++at;
    return at;
}

/// The first character in [at, end) that is neither of the two, else `end`.
inline const char16_t* FindNeither(const char16_t* at, const char16_t* end, char16_t one, char16_t other) {
#if defined(__SSE2__)
    const __m128i ones = scan::Eight(one);
    const __m128i others = scan::Eight(other);
    for (; end - at >= scan::kBlock; at += scan::kBlock) {
        const __m128i eight = scan::Load(at);
        const __m128i either = _mm_or_si128(_mm_cmpeq_epi16(eight, ones), _mm_cmpeq_epi16(eight, others));
        const std::ptrdiff_t found = scan::FirstMarked(_mm_cmpeq_epi16(either, _mm_setzero_si128()));
        if (found != scan::kBlock) return at + found;
    }
#endif
    while (at != end && (*at == one || *at == other)) ++at;
    return at;
}

/// The first character in [at, end) that is not above `limit`, else `end`.
inline const char16_t* FindAtMost(const char16_t* at, const char16_t* end, char16_t limit) {
#if defined(__SSE2__)
    for (const __m128i most = scan::Eight(limit); end - at >= scan::kBlock; at += scan::kBlock) {
        const __m128i above = _mm_subs_epu16(scan::Load(at), most);
        const std::ptrdiff_t found = scan::FirstMarked(_mm_cmpeq_epi16(above, _mm_setzero_si128()));
        if (found != scan::kBlock) return at + found;
    }
#endif
    while (at != end && *at > limit) ++at;
    return at;
}

}  // namespace vintrel::server
