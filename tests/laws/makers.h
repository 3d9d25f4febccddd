// Makers of fields that several families have.
#pragma once

#include <algorithm>
#include <iterator>
#include <string>
#include <string_view>

#include "tests/laws/grammar.h"

namespace vintrel::laws {

using namespace records;  // NOLINT(google-build-using-namespace): the fields that grammars claim

/// As wide as the field, which shows it as it stands.
template <GdvField Field>
void AsItStands(Making& making) {
    const std::size_t begin = making.text.size();
    for (std::size_t i = 0; i < Field.Width(); ++i) making.text += AnyPrinted(making.random);
    making.claims.Say(Field, std::u16string_view(making.text).substr(begin));
}

/// A number of at least `Shortest` digits, somewhere in so many columns, or alone.
template <GdvField Field, std::size_t Columns = 0, std::size_t Shortest = 1>
void ZeroPadded(Making& making) {
    const std::size_t begin = making.text.size();
    making.claims.Zeros(Field, making.Number(Shortest, std::min(Field.Width(), Columns == 0 ? 99 : Columns)));
    if (Columns == 0) return;
    const std::size_t blanks = Columns - (making.text.size() - begin);
    const std::size_t in_front = making.random.Below(blanks + 1);
    making.text.insert(begin, in_front, u' ').append(blanks - in_front, u' ');
}
template <GdvField Field, std::size_t Columns = 0, std::size_t Shortest = 1>
void BlankPadded(Making& making) {
    const std::size_t begin = making.text.size();
    making.claims.Blanks(Field, making.Number(Shortest, std::min(Field.Width(), Columns == 0 ? 99 : Columns)));
    if (Columns != 0) making.text.append(Columns - (making.text.size() - begin), u' ');
}
/// Of a field that the exchange does not report: zeros, or blanks where it shows a text.
template <GdvField... Fields>
void Unreported(Making& making) {
    const auto say = [&](const GdvField& field) {
        field.length > kDurationS.length ? making.claims.Blanks(field, u"") : making.claims.Zeros(field, u"");
    };
    (..., say(Fields));
}
/// The same line in every record.
template <char16_t Tens, char16_t Ones>
void Line(Making& making) {
    const char16_t line[] = {Tens, Ones};
    making.claims.Zeros(kLine, {line, 2});
}

inline void TwoDigits(Making& making, std::int64_t number) {
    making.text += static_cast<char16_t>(u'0' + number / 10 % 10);
    making.text += static_cast<char16_t>(u'0' + number % 10);
}
inline std::u16string Digits(std::int64_t number) {
    std::u16string digits;
    do digits.insert(digits.begin(), static_cast<char16_t>(u'0' + number % 10));
    while ((number /= 10) != 0);
    return digits;
}
/// A call of one second to as many as the field can tell.
template <char16_t BehindHours = u':', char16_t BehindMinutes = u':', char16_t More = 0>
void HoursMinutesSeconds(Making& making) {
    const std::int64_t seconds = making.random.From(1, 99'999);
    TwoDigits(making, seconds / 3600);
    making.text += BehindHours;
    TwoDigits(making, seconds / 60 % 60);
    making.text += BehindMinutes;
    if (More != 0) making.text += More;
    TwoDigits(making, seconds % 60);
    making.claims.Zeros(kDurationS, Digits(seconds));
    if (!making.call.last) making.call.spent += seconds;
}

/// Of a vocabulary: a word, and the type of call that it makes.
struct Word {
    std::u16string_view text;
    char16_t type = 0;
};
template <const auto& Words>
void OneOf(Making& making) {
    const Word& word = Words[making.random.Below(std::size(Words))];
    making.text += word.text;
    if (word.type != 0) making.claims.Say(kType, {&word.type, 1});
}
template <char16_t First, char16_t Later>
void SayType(Making& making) {
    const char16_t type = making.call.leg == 0 ? First : Later;
    making.claims.Say(kType, {&type, 1});
}

/// What a field of an incoming call holds, and of an outgoing one.
template <void (*Incoming)(Making&), void (*Outgoing)(Making&)>
void Either(Making& making) {
    making.call.incoming ? Incoming(making) : Outgoing(making);
}
template <const auto& Text>
void Say(Making& making) {
    making.text += Text;
}

inline void Anything(Making& making) {
    for (std::uint32_t left = making.random.Below(12U); left > 0; --left) making.text += AnyPrinted(making.random);
}
/// The argument of an exchange's own command: commas and quotes stand in it as in any text.
inline void Argument(Making& making) {
    constexpr std::u16string_view kCharacters = u"abc,/;&(";
    for (std::uint32_t left = making.random.Below(20U); left > 0; --left)
        making.text += kCharacters[making.random.Below(kCharacters.size())];
}

}  // namespace vintrel::laws
