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

#include "server/platform.h"
#include "server/text.h"

namespace vintrel::cdr {

/// A field of the record's body: its first column, counted from 1, and its width.
struct GdvField {
    std::int16_t start;
    std::int16_t length;
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

/// The framed record: STX, the body, ETX.
inline constexpr GdvField kGdvBody{.start = 2, .length = 85};
inline constexpr std::int16_t kGdvRecordLength = 87;

consteval bool FillsTheBody(std::initializer_list<GdvField> fields) {
    int next = 1;
    for (const GdvField& field : fields) {
        if (field.start != next) return false;
        next += field.length;
    }
    return next == kGdvBody.length + 1;
}
static_assert(FillsTheBody({kLine, kUser, kNumber, kUserCode, kSpare, kInfo, kType, kUnity, kDurationS, kDateD, kDateM,
                            kDateY, kTimeH, kTimeM, kPTYNumber, kMacAddress}));

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
        CopyShort(characters_.data() + size_, part);
        size_ = static_cast<std::uint8_t>(size_ + part.size());
    }
    void Append(const server::Padded& part) {
        if (part.size() > Capacity - size_) return;
        part.CopyTo(characters_.data() + size_);
        size_ = static_cast<std::uint8_t>(size_ + part.size());
    }
    void Replace(std::size_t positions, char16_t character, char16_t replacement) {
        for (std::size_t i = 0, end = std::min<std::size_t>(positions, size_); i < end; ++i)
            characters_[i] = characters_[i] == character ? replacement : characters_[i];  // no branch
    }

 private:
    std::array<char16_t, Capacity> characters_;  // written before they are read: `size_` of them count
    std::uint8_t size_ = 0;
};

/// The place of one field in a record that is being filled.
template <std::size_t Width>
class Slot {
 public:
    explicit Slot(char16_t* place) : place_(place) {}
    Slot(const Slot&) = delete;
    Slot& operator=(const Slot&) = delete;

    std::u16string_view View() const { return {place_, size_}; }
    operator std::u16string_view() const { return View(); }  // NOLINT(google-explicit-constructor): it is a text
    std::size_t size() const { return size_; }
    bool Full() const { return size_ == Width; }

    void Clear() { size_ = 0; }
    /// The text must fit.
    void Become(std::u16string_view text) {
        if (text.size() == Width) {  // as almost always: one copy of known size
            CopyFixed<Width>(place_, text.data());
        } else {
            CopyShort(place_, text);
        }
        size_ = text.size();
    }
    void Become(const server::Padded& text) {
        std::fill_n(place_, Width, text.character);
        CopyShort(place_ + (text.in_front ? text.count : 0), text.text);
        size_ = text.size();
    }
    /// The last digits of the number, as many as fit.
    void BecomeDigits(unsigned number) {
        static_assert(Width == 4 || Width == 5);
        if constexpr (Width == 5) place_[0] = static_cast<char16_t>(u'0' + number / 10000 % 10);
        // Each digit by itself: none waits for the one behind it.
        char16_t* const four = place_ + Width - 4;
        four[0] = static_cast<char16_t>(u'0' + number / 1000 % 10);
        four[1] = static_cast<char16_t>(u'0' + number / 100 % 10);
        four[2] = static_cast<char16_t>(u'0' + number / 10 % 10);
        four[3] = static_cast<char16_t>(u'0' + number % 10);
        size_ = Width;
    }

 private:
    char16_t* place_;
    std::size_t size_ = 0;
};

template <GdvField Field>
using GdvSlot = Slot<static_cast<std::size_t>(Field.length)>;

/// A converted call, the reject marker, or empty.
class GdvText {
 public:
    GdvText() {}  // NOLINT(modernize-use-equals-default): = default would clear the characters first

    std::u16string_view View() const { return {characters_.data(), size_}; }
    operator std::u16string_view() const { return View(); }  // NOLINT(google-explicit-constructor): it is a text
    std::size_t size() const { return size_; }

 private:
    friend class GdvSlots;
    std::array<char16_t, kGdvRecordLength> characters_;  // written before they are read: `size_` of them count
    std::size_t size_ = 0;
};

/// What a converter fills, each slot at its place in the record. A slot that stays empty makes the record shorter, and
/// the host rejects it by its length.
class GdvSlots {
    GdvText& record_;
    char16_t* At(const GdvField& field) { return record_.characters_.data() + kGdvBody.start - 1 + field.start - 1; }

 public:
    explicit GdvSlots(GdvText& record) : record_(record) {}

    GdvSlot<kLine> line{At(kLine)};
    GdvSlot<kUser> user{At(kUser)};
    GdvSlot<kNumber> number{At(kNumber)};
    GdvSlot<kUserCode> user_code{At(kUserCode)};
    GdvSlot<kSpare> spare{At(kSpare)};
    GdvSlot<kInfo> info{At(kInfo)};
    GdvSlot<kType> type{At(kType)};
    GdvSlot<kUnity> unity{At(kUnity)};
    GdvSlot<kDurationS> duration{At(kDurationS)};
    GdvSlot<kDateD> day{At(kDateD)};
    GdvSlot<kDateM> month{At(kDateM)};
    GdvSlot<kDateY> year{At(kDateY)};
    GdvSlot<kTimeH> hour{At(kTimeH)};
    GdvSlot<kTimeM> minute{At(kTimeM)};
    GdvSlot<kPTYNumber> pty_number{At(kPTYNumber)};
    GdvSlot<kMacAddress> mac_address{At(kMacAddress)};

    /// The record becomes STX, the slots without the gaps that short ones leave, ETX.
    void Assemble();
    /// The record becomes the reject marker (DLE).
    void Reject();
};

/// What a converter made of a record.
enum class Outcome : std::uint8_t {
    Call,
    Rejected,  ///< a header, a status line, a call that is not charged: the host discards it
};

// Texts of slots that an exchange does not report.
inline constexpr std::u16string_view kNoUserCode = u"0000";
inline constexpr std::u16string_view kNoUnity = u"0000";
inline constexpr std::u16string_view kNoPtyNumber = u"                ";
inline constexpr std::u16string_view kNoMacAddress = u"                 ";

/// The Type codes that converters of this server set.
inline constexpr std::u16string_view kTypeOutgoing = u"1";
inline constexpr std::u16string_view kTypeOutgoingContinued = u"3";
inline constexpr std::u16string_view kTypeIncoming = u"0";
inline constexpr std::u16string_view kTypeIncomingContinued = u"2";
inline constexpr std::u16string_view kTypeNotAnswered = u"7";

/// The slot becomes the value. A value that does not fit leaves the slot as it was.
template <std::size_t Width>
void Assign(Slot<Width>& slot, std::u16string_view value) {
    if (value.size() <= Width) slot.Become(value);
}

/// The same with a padded value; nothing, a failed step, leaves the slot as it was.
template <std::size_t Width>
void Assign(Slot<Width>& slot, const std::optional<server::Padded>& value) {
    if (value && value->size() <= Width) slot.Become(*value);
}

/// The number as a decimal string, zero-padded to the slot's width: the long way, for fractions, signs and exponents.
void AssignDecimal(Slot<4>& slot, double value);
void AssignDecimal(Slot<5>& slot, double value);

/// The number as a decimal string, zero-padded to the slot's width.
template <std::size_t Width>
void AssignNumber(Slot<Width>& slot, double value) {
    constexpr int kBeyond = Width == 4 ? 10'000 : 100'000;
    const bool plain = value >= 0 && value < kBeyond;
    if (const int whole = plain ? static_cast<int>(value) : 0; plain && whole == value)
        slot.BecomeDigits(static_cast<unsigned>(whole));
    else
        AssignDecimal(slot, value);
}

/// The same for the number value of a text.
template <std::size_t Width>
void AssignNumberValue(Slot<Width>& slot, std::u16string_view text) {
    constexpr int kBeyond = Width == 4 ? 10'000 : 100'000;
    if (const auto plain = server::PlainNumber(text); plain && *plain < kBeyond)
        slot.BecomeDigits(static_cast<unsigned>(*plain));
    else
        AssignNumber(slot, server::NumberValue(text));
}

/// Spare flag and Info "0", MAC address blank: what almost every exchange leaves open.
void AssignUnreported(GdvSlots& slots);

/// The trimmed user code, zero-padded; "0000" when it is empty.
void AssignUserCode(GdvSlots& slots, std::u16string_view user_code);

/// Day, month, year within the century, hour and minute.
void AssignDateTime(GdvSlots& slots, const server::DateTime& date_time);

/// The seconds of a text "hhmmss": its first two, third and fourth, and last two characters, each by its number value.
double HoursMinutesSecondsToSeconds(std::u16string_view hhmmss);
/// The same of its three parts, which are joined first.
inline double HoursMinutesSecondsToSeconds(std::u16string_view hours, std::u16string_view minutes,
                                           std::u16string_view seconds) {
    const auto two_digits = [](std::u16string_view text) {
        return text.size() == 2 && server::IsDigit(text[0]) && server::IsDigit(text[1]);
    };
    const auto value = [](std::u16string_view text) { return (text[0] - u'0') * 10 + (text[1] - u'0'); };
    if (two_digits(hours) && two_digits(minutes) && two_digits(seconds))
        return value(hours) * 3600 + value(minutes) * 60 + value(seconds);
    return HoursMinutesSecondsToSeconds(InlineText<6>(hours, minutes, seconds));
}

/// Replaces a character in the first positions of the text, as many as the trimmed text has: the end of a text with
/// blanks in front is not visited.
template <std::size_t Capacity>
InlineText<Capacity> ReplaceCharacter(std::u16string_view text, char16_t character, char16_t replacement) {
    InlineText<Capacity> result(text);
    result.Replace(server::Trim(text).size(), character, replacement);
    return result;
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
