// What the converters of the network exchanges share: their records carry values of any length, and parties that may
// be extensions or outside numbers.
#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <initializer_list>
#include <string_view>

#include "records/steps.h"
#include "text/text.h"

namespace vintrel::records {

/// 1 to 5 digits: what a hotel dials inside, and what fits the User field.
constexpr bool IsExtension(std::u16string_view party) {
    constexpr std::size_t kLongest = 5;
    return party.size() <= kLongest && text::IsDigits(party);
}

/// The first of the parties that is an extension, else `otherwise`.
std::u16string_view FirstExtension(std::initializer_list<std::u16string_view> parties, std::u16string_view otherwise);

/// The number value of a text; 0 when that is not whole, or larger than any clock or counter reaches.
std::int64_t WholeNumber(std::u16string_view text);

/// The party's first 16 characters, blank-padded.
template <GdvField Field>
void AssignParty(GdvRecord& gdv, std::u16string_view party) {
    AssignBlankPadded<Field>(gdv, text::Left(party, Field.length));
}

/// The same with every character changed as `change` says.
template <GdvField Field, typename Change>
void AssignParty(GdvRecord& gdv, std::u16string_view party, Change change) {
    std::array<char16_t, Field.Width()> changed;
    const std::u16string_view cut = text::Left(party, Field.length);
    std::transform(cut.begin(), cut.end(), changed.begin(), change);
    AssignParty<Field>(gdv, {changed.data(), cut.size()});
}

/// Whole seconds, zero-padded; longer calls than the field can tell are 99999.
void AssignSeconds(GdvRecord& gdv, std::int64_t seconds);

/// The account code when it is 1 to 4 digits, else "0000".
void AssignAccount(GdvRecord& gdv, std::u16string_view account);

/// Date and time of "YYYY-MM-DD hh:mm:ss", the digits as they stand. A text of another form changes nothing.
void AssignStart(GdvRecord& gdv, std::u16string_view start);

}  // namespace vintrel::records
