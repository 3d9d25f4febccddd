// The words of an exchange's vocabulary, known when the server is compiled: comparing with one takes a step for two of
// its characters.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <utility>

#include "text/scan.h"

namespace vintrel::text {

/// An upper-case ASCII word, as it is written between the angle brackets of the functions below.
template <std::size_t Size>
struct Word {
    static constexpr std::size_t kLength = Size - 1;  // without the NUL
    static_assert(kLength > 0);

    consteval Word(const char16_t (&word)[Size]) {  // NOLINT(google-explicit-constructor): it stands for the word
        for (std::size_t i = 0; i < kLength; ++i) {
            if (word[i] >= 0x80 || (word[i] >= u'a' && word[i] <= u'z')) throw "no upper-case ASCII word";
            small.at(i) = CaseBit(word[i]) | word[i];
            case_bits.at(i) = CaseBit(word[i]);
        }
    }
    static constexpr char16_t CaseBit(char16_t upper) { return upper >= u'A' && upper <= u'Z' ? 0x20 : 0; }

    std::array<char16_t, kLength> small;      ///< the word in small letters
    std::array<char16_t, kLength> case_bits;  ///< by which the two forms of each letter differ
};

namespace word {

inline std::uint32_t ReadTwo(const char16_t* at) {
    std::uint32_t two = 0;
    std::memcpy(&two, at, sizeof two);
    return two;
}

/// Whether the characters from `at`, as many as the word has, are the word.
template <Word W>
bool StandsAt(const char16_t* at) {
    constexpr std::size_t kTwo = 2;
    if constexpr (W.kLength == 1) {
        return (*at | W.case_bits[0]) == W.small[0];
    } else {  // two at a time; an odd one at the end is compared with its neighbour once more
        const auto differences = [at]<std::size_t... I>(std::index_sequence<I...>) {
            const auto difference = [at](std::size_t place) {
                return (ReadTwo(at + place) | ReadTwo(&W.case_bits[place])) ^ ReadTwo(&W.small[place]);
            };
            return (difference(I * kTwo) | ... | difference(W.kLength - kTwo));
        };
        return differences(std::make_index_sequence<(W.kLength - 1) / kTwo>()) == 0;
    }
}

}  // namespace word

/// Whether the text begins with one of the words, in capital or small letters.
template <Word... Words>
bool UpperBegins(std::u16string_view text) {
    return (... || (text.size() >= Words.kLength && word::StandsAt<Words>(text.data())));
}
/// Whether the text is one of the words, in capital or small letters.
template <Word... Words>
bool UpperEquals(std::u16string_view text) {
    return (... || (text.size() == Words.kLength && word::StandsAt<Words>(text.data())));
}
/// Where the first of the words, which begin with the same letter, stands in the text, in capital or small letters,
/// counted from 0; npos when none does.
template <Word First, Word... Others>
std::size_t UpperFind(std::u16string_view text) {
    static_assert((... && (First.small[0] == Others.small[0])));
    constexpr auto kBeginning =
        scan::IsEither(First.small[0], static_cast<char16_t>(First.small[0] ^ First.case_bits[0]));
    const char16_t* at = text.data();
    const char16_t* const end = at + text.size();
    for (; (at = FindFirst(at, end, kBeginning)) != end; ++at)
        if (UpperBegins<First, Others...>({at, end})) return static_cast<std::size_t>(at - text.data());
    return std::u16string_view::npos;
}
/// Whether one of the words, which begin with the same letter, stands in the text, in capital or small letters.
template <Word... Words>
bool UpperContains(std::u16string_view text) {
    constexpr std::size_t kShortest = std::min({Words.kLength...});
    return text.size() >= kShortest && UpperFind<Words...>(text) != std::u16string_view::npos;
}

}  // namespace vintrel::text
