// The Gdv record, the one form of a call record that the host knows: its fields, the slots that a converter fills, and
// the steps that converters are written in. Nothing here allocates.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <initializer_list>
#include <optional>
#include <string_view>
#include <type_traits>

#include "server/control_characters.h"
#include "server/platform.h"
#include "server/text.h"

namespace vintrel::cdr {

/// A field of the record's body: its first column, counted from 1, and its width.
struct GdvField {
    std::int16_t start;
    std::int16_t length;

    constexpr std::size_t Width() const { return static_cast<std::size_t>(length); }
    bool operator==(const GdvField&) const = default;
};

// The body, left to right without separators.
inline constexpr GdvField kLine{.start = 1, .length = 5};
inline constexpr GdvField kUser{.start = 6, .length = 5};
inline constexpr GdvField kNumber{.start = 11, .length = 16};
inline constexpr GdvField kUserCode{.start = 27, .length = 4};
inline constexpr GdvField kSpare{.start = 31, .length = 1};  // the host has no name for it
inline constexpr GdvField kInfo{.start = 32, .length = 1};
inline constexpr GdvField kType{.start = 33, .length = 1};
inline constexpr GdvField kUnity{.start = 34, .length = 4};
inline constexpr GdvField kDurationS{.start = 38, .length = 5};
inline constexpr GdvField kDateD{.start = 43, .length = 2};
inline constexpr GdvField kDateM{.start = 45, .length = 2};
inline constexpr GdvField kDateY{.start = 47, .length = 2};
inline constexpr GdvField kTimeH{.start = 49, .length = 2};
inline constexpr GdvField kTimeM{.start = 51, .length = 2};
inline constexpr GdvField kPTYNumber{.start = 53, .length = 16};
inline constexpr GdvField kMacAddress{.start = 69, .length = 17};

/// All of them, in order.
inline constexpr std::array kGdvFields{kLine,      kUser,  kNumber, kUserCode, kSpare, kInfo,  kType,      kUnity,
                                       kDurationS, kDateD, kDateM,  kDateY,    kTimeH, kTimeM, kPTYNumber, kMacAddress};

/// The framed record: STX, the body, ETX.
inline constexpr GdvField kGdvBody{.start = 2, .length = 85};
inline constexpr std::int16_t kGdvRecordLength = 87;

consteval bool FillTheBody(const decltype(kGdvFields)& fields) {
    int next = 1;
    for (const GdvField& field : fields) {
        if (field.start != next) return false;
        next += field.length;
    }
    return next == kGdvBody.length + 1;
}
static_assert(FillTheBody(kGdvFields));

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

/// A short text that lives where it stands.
template <std::size_t Capacity>
class InlineText {
    static_assert(Capacity <= UINT8_MAX);

 public:
    InlineText() {}  // NOLINT(modernize-use-equals-default): = default would clear the characters first
    template <typename... Parts>
    requires(sizeof...(Parts) > 0 &&
             (std::is_convertible_v<Parts, std::u16string_view> && ...)) explicit InlineText(const Parts&... parts) {
        (Append(parts), ...);
    }

    std::u16string_view View() const { return {characters_.data(), size_}; }
    operator std::u16string_view() const { return View(); }  // NOLINT(google-explicit-constructor): it is a text
    std::size_t size() const { return size_; }
    bool empty() const { return size_ == 0; }

    /// Does nothing when the part does not fit.
    void Append(std::u16string_view part) {
        if (part.size() > Capacity - size_) return;
        for (const char16_t character : part) characters_[size_++] = character;
    }

 private:
    std::array<char16_t, Capacity> characters_;  // written before they are read: `size_` of them count
    std::uint8_t size_ = 0;
};

/// What a converter fills, each field at its place: its slot. A slot that stays empty makes the record shorter, and the
/// host rejects it by its length. The result of a conversion: a call, the reject marker, or empty.
class GdvRecord {
 public:
    GdvRecord() {}  // NOLINT(modernize-use-equals-default): = default would clear the characters first

    /// The whole record, once it is assembled.
    std::u16string_view View() const { return {characters_.data(), size_}; }
    operator std::u16string_view() const { return View(); }  // NOLINT(google-explicit-constructor): it is a text
    std::size_t size() const { return size_; }

    template <GdvField Field>
    std::u16string_view Slot() const {
        return {At(Field), sizes_[kIndex<Field>]};
    }
    template <GdvField Field>
    void Clear() {
        sizes_[kIndex<Field>] = 0;
    }
    /// The text must fit.
    template <GdvField Field>
    void Become(std::u16string_view text) {
        if (text.size() == Field.Width()) [[likely]] {  // one copy of known size
            CopyFixed<Field.Width()>(At(Field), text.data());
        } else {
            CopyShort(At(Field), text);
        }
        sizes_[kIndex<Field>] = static_cast<std::uint8_t>(text.size());
    }
    template <GdvField Field>
    void Become(const server::Padded& text) {
        CopyFixed<Field.Width()>(At(Field), text.character == u'0' ? kZeros.data() : kBlanks.data());
        CopyShort(At(Field) + (text.in_front ? text.count : 0), text.text);
        sizes_[kIndex<Field>] = static_cast<std::uint8_t>(text.size());
    }
    /// In the slot's first positions.
    template <GdvField Field>
    void Replace(std::size_t positions, char16_t character, char16_t replacement) {
        char16_t* const slot = At(Field);
        const std::size_t count = std::min<std::size_t>(positions, sizes_[kIndex<Field>]);
        const auto replaced = [=](char16_t c) { return c == character ? replacement : c; };  // no branch
        if (Field.Width() % 8 == 0 && count == Field.Width())  // in the machine's own pieces
            for (std::size_t i = 0; i < Field.Width(); ++i) slot[i] = replaced(slot[i]);
        else
            for (std::size_t i = 0; i < count; ++i) slot[i] = replaced(slot[i]);
    }
    /// With leading zeros. The number must fit.
    template <GdvField Field>
    void BecomeDigits(unsigned number) {
        char16_t* const slot = At(Field);
        std::size_t left = Field.Width();
        for (; left > 2; number /= 100) CopyFixed<2>(slot + (left -= 2), &kDigitPairs[std::size_t{number % 100} * 2]);
        if (left == 2)
            CopyFixed<2>(slot, &kDigitPairs[std::size_t{number} * 2]);
        else
            *slot = static_cast<char16_t>(u'0' + number);
        sizes_[kIndex<Field>] = static_cast<std::uint8_t>(Field.Width());
    }

    /// The record becomes STX, the slots without the gaps that short ones leave, ETX.
    void Assemble();
    /// The record becomes the reject marker (DLE).
    void Reject();

 private:
    static constexpr std::size_t kCount = kGdvFields.size();
    template <GdvField Field>
    static constexpr auto kIndex = static_cast<std::size_t>(std::find(kGdvFields.begin(), kGdvFields.end(), Field) -
                                                            kGdvFields.begin());

    char16_t* At(const GdvField& field) { return characters_.data() + kGdvBody.start - 1 + field.start - 1; }
    const char16_t* At(const GdvField& field) const {
        return characters_.data() + kGdvBody.start - 1 + field.start - 1;
    }

    std::array<char16_t, kGdvRecordLength> characters_;  // written before they are read: `size_` of them count
    std::size_t size_ = 0;
    std::array<std::uint8_t, kCount> sizes_{};  // of the slots
};

/// What a converter made of a record.
enum class Outcome : std::uint8_t {
    Call,
    Rejected,  ///< a header, a status line, a call that is not charged: the host discards it
};

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
[[gnu::always_inline]] inline void Assign(GdvRecord& gdv, const std::optional<server::Padded>& value) {
    if (value && value->size() <= Field.Width()) [[likely]]
        gdv.Become<Field>(*value);
}

/// Zeros and the trimmed text, all zeros when it is empty; a longer one leaves the slot as it was.
template <GdvField Field>
void AssignZeroPadded(GdvRecord& gdv, std::u16string_view text) {
    const std::u16string_view trimmed = server::Trim(text);
    if (trimmed.size() <= Field.Width()) [[likely]]
        gdv.Become<Field>(server::Padded{
            .text = trimmed, .count = Field.Width() - trimmed.size(), .character = u'0', .in_front = true});
}

/// The trimmed text with blanks behind it; a longer one leaves the slot as it was.
template <GdvField Field>
void AssignBlankPadded(GdvRecord& gdv, std::u16string_view text) {
    if (text.size() == Field.Width() && text.front() != server::kBlank)
        gdv.Become<Field>(text);  // what stands behind it are blanks already
    else
        Assign<Field>(gdv, server::BlankPad(text, Field.Width()));
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
        Assign<Field>(gdv, server::ZeroPad(server::DecimalText(value), Field.length));
}

/// The same for the number value of a text.
template <GdvField Field>
void AssignNumberValue(GdvRecord& gdv, std::u16string_view text) {
    if (const auto plain = server::PlainNumber(text); plain && *plain < kBeyond<Field>) [[likely]]
        gdv.BecomeDigits<Field>(static_cast<unsigned>(*plain));
    else
        AssignNumber<Field>(gdv, server::NumberValue(text));
}

/// Spare flag and Info "0", MAC address blank: what almost every exchange leaves open.
inline void AssignUnreported(GdvRecord& gdv) {
    Assign<kSpare>(gdv, u"0");
    Assign<kInfo>(gdv, u"0");
    Assign<kMacAddress>(gdv, kNoMacAddress);
}

/// Day, month, year within the century, hour and minute.
void AssignDateTime(GdvRecord& gdv, const server::DateTime& date_time);

/// The seconds of a text "hhmmss": its first two, third and fourth, and last two characters, each by its number value.
double HoursMinutesSecondsToSeconds(std::u16string_view hhmmss);

/// The seconds of three texts of at most two characters, joined first; zero-padded.
void AssignJoinedDuration(GdvRecord& gdv, std::u16string_view hours, std::u16string_view minutes,
                          std::u16string_view seconds);

/// The value of two digits; negative for any other text.
inline int TwoDigitValue(std::u16string_view text) {
    if (text.size() != 2) return -1;
    // Both at a time: what is left of a digit is at most 9, so that 6 more do not reach its fifth bit.
    const std::uint32_t digits = server::Pair(text[0], text[1]) ^ server::Pair(u'0', u'0');
    if (((digits | (digits + server::Pair(6, 6))) & server::Pair(0xFFF0, 0xFFF0)) != 0) [[unlikely]]
        return -1;
    return static_cast<int>(digits * server::Pair(1, 10) >> 16);
}

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
    gdv.Replace<Field>(server::Trim(text).size(), character, replacement);
}

/// The digits of the text, in order, at most `Capacity`.
template <std::size_t Capacity>
InlineText<Capacity> DigitsOnly(std::u16string_view text) {
    InlineText<Capacity> result;
    for (const char16_t& character : text)
        if (server::IsDigit(character)) result.Append(std::u16string_view(&character, 1));
    return result;
}

}  // namespace vintrel::cdr
