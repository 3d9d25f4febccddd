// The steps that converters are written in: a slot becomes a value, or stays as it was where the value does not fit.
// Nothing here allocates on the way that nearly every record takes.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <type_traits>

#include "records/gdv_record.h"
#include "text/control_characters.h"
#include "text/dates.h"
#include "text/inline_text.h"
#include "text/numbers.h"
#include "text/text.h"

namespace vintrel::records {

// Texts of slots that an exchange does not report.
inline constexpr std::u16string_view kNoUserCode = u"0000";
inline constexpr std::u16string_view kNoUnity = u"0000";
inline constexpr std::u16string_view kNoDuration = u"00000";
inline constexpr std::u16string_view kNoPtyNumber = kBlanks.substr(0, kPTYNumber.Width());
inline constexpr std::u16string_view kNoMacAddress = kBlanks.substr(0, kMacAddress.Width());

/// The Type codes that converters of this server set.
inline constexpr std::u16string_view kTypeOutgoing = u"1";
inline constexpr std::u16string_view kTypeOutgoingContinued = u"3";
inline constexpr std::u16string_view kTypeIncoming = u"0";
inline constexpr std::u16string_view kTypeIncomingContinued = u"2";
inline constexpr std::u16string_view kTypeNotAnswered = u"7";

/// The field's slot becomes the value. A value that does not fit leaves the slot as it was.
template <GdvField Field>
void Assign(GdvRecord& gdv, std::u16string_view value) {
    if (value.size() <= Field.Width()) gdv.Become<Field>(value);
}

/// The same with a padded value; nothing, a failed step, leaves the slot as it was.
template <GdvField Field>
[[gnu::always_inline]] inline void Assign(GdvRecord& gdv, const std::optional<text::Padded>& value) {
    if (value && value->size() <= Field.Width()) [[likely]]
        gdv.Become<Field>(*value);
}

/// Zeros and the trimmed text, all zeros when it is empty; a longer one leaves the slot as it was.
template <GdvField Field>
void AssignZeroPadded(GdvRecord& gdv, std::u16string_view text) {
    const std::u16string_view trimmed = text::Trim(text);
    if (trimmed.size() <= Field.Width()) [[likely]]
        gdv.Become<Field>(text::Padded{
            .text = trimmed, .count = Field.Width() - trimmed.size(), .character = u'0', .in_front = true});
}

/// The trimmed text with blanks behind it; a longer one leaves the slot as it was.
template <GdvField Field>
void AssignBlankPadded(GdvRecord& gdv, std::u16string_view text) {
    if (text.size() == Field.Width() && text.front() != text::kBlank)
        gdv.Become<Field>(text);  // what stands behind it are blanks already
    else
        Assign<Field>(gdv, text::BlankPad(text, Field.Width()));
}

/// The smallest whole number that a field has no room for.
template <GdvField Field>
inline constexpr int kBeyond = Field.length == 2   ? 100
                               : Field.length == 4 ? 10'000
                                                   : 100'000;

/// The number as a decimal string, zero-padded to the field's width.
template <GdvField Field>
void AssignNumber(GdvRecord& gdv, double value) {
    const bool plain = value >= 0 && value < kBeyond<Field>;
    if (const int whole = plain ? static_cast<int>(value) : 0; plain && whole == value)
        gdv.BecomeDigits<Field>(static_cast<unsigned>(whole));
    else  // the long way, for fractions, signs and exponents
        Assign<Field>(gdv, text::ZeroPad(text::DecimalText(value), Field.length));
}

/// The same for the number value of a text.
template <GdvField Field>
void AssignNumberValue(GdvRecord& gdv, std::u16string_view text) {
    if (const auto plain = text::PlainNumber(text); plain && *plain < kBeyond<Field>) [[likely]]
        gdv.BecomeDigits<Field>(static_cast<unsigned>(*plain));
    else
        AssignNumber<Field>(gdv, text::NumberValue(text));
}

/// Spare flag and Info "0", MAC address blank: what almost every exchange leaves open.
inline void AssignUnreported(GdvRecord& gdv) {
    Assign<kSpare>(gdv, u"0");
    Assign<kInfo>(gdv, u"0");
    Assign<kMacAddress>(gdv, kNoMacAddress);
}

/// Day, month, year within the century, hour and minute.
void AssignDateTime(GdvRecord& gdv, const text::DateTime& date_time);

/// Where a record prints its date and time: the first positions of the two characters of each, counted from 1.
struct DateTimeColumns {
    std::ptrdiff_t day, month, year, hour, minute;

    /// The same in a text that begins behind so many characters.
    constexpr DateTimeColumns Behind(std::ptrdiff_t count) const {
        return {day - count, month - count, year - count, hour - count, minute - count};
    }
};

/// The same, as the record prints them.
[[gnu::always_inline]] inline void AssignDateTime(GdvRecord& gdv, std::u16string_view record,
                                                  const DateTimeColumns& at) {
    Assign<kDateD>(gdv, text::Mid(record, at.day, 2));
    Assign<kDateM>(gdv, text::Mid(record, at.month, 2));
    Assign<kDateY>(gdv, text::Mid(record, at.year, 2));
    Assign<kTimeH>(gdv, text::Mid(record, at.hour, 2));
    Assign<kTimeM>(gdv, text::Mid(record, at.minute, 2));
}

/// The seconds of a text "hhmmss": its first two, third and fourth, and last two characters, each by its number value.
double HoursMinutesSecondsToSeconds(std::u16string_view hhmmss);

/// The seconds of three texts of at most two characters, joined first; zero-padded.
void AssignJoinedDuration(GdvRecord& gdv, std::u16string_view hours, std::u16string_view minutes,
                          std::u16string_view seconds);

/// The seconds of hours, minutes and seconds, none of which may be negative, zero-padded.
inline void AssignDuration(GdvRecord& gdv, int hours, int minutes, int seconds) {
    const int duration = (hours * 60 + minutes) * 60 + seconds;
    if (duration < kBeyond<kDurationS>) gdv.BecomeDigits<kDurationS>(static_cast<unsigned>(duration));
}

/// The same of three texts, which almost always have two digits each.
inline void AssignDuration(GdvRecord& gdv, std::u16string_view hours, std::u16string_view minutes,
                           std::u16string_view seconds) {
    const int h = TwoDigitValue(hours);
    const int m = TwoDigitValue(minutes);
    const int s = TwoDigitValue(seconds);
    if ((h | m | s) >= 0) [[likely]]
        AssignDuration(gdv, h, m, s);
    else
        AssignJoinedDuration(gdv, hours, minutes, seconds);
}

/// The text with a character replaced in its first positions, as many as the trimmed text has: the end of a text with
/// blanks in front is not visited.
template <GdvField Field>
void AssignReplaced(GdvRecord& gdv, std::u16string_view text, char16_t character, char16_t replacement) {
    Assign<Field>(gdv, text);
    gdv.Replace<Field>(text::Trim(text).size(), character, replacement);
}

/// The digits of the text, in order, at most `Capacity`.
template <std::size_t Capacity>
text::InlineText<Capacity> DigitsOnly(std::u16string_view text) {
    text::InlineText<Capacity> result;
    for (const char16_t& character : text)
        if (text::IsDigit(character)) result.Append(std::u16string_view(&character, 1));
    return result;
}

}  // namespace vintrel::records
