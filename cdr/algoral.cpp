#include "cdr/algoral.h"

#include <algorithm>
#include <cstddef>
#include <iterator>

#include "server/control_characters.h"
#include "server/scan.h"

namespace vintrel::cdr {
namespace {

using server::Mid;
using server::Trim;

/// What the letter of a call's kind means.
struct Kind {
    char16_t letter;
    std::u16string_view type;
    std::ptrdiff_t number;  ///< where the other party's number stands; 0: the record comes out shorter
};

constexpr std::ptrdiff_t kDialled = 175;
constexpr std::ptrdiff_t kCaller = 244;
constexpr Kind kKinds[] = {
    {u'U', kTypeOutgoing, kDialled},         {u'E', kTypeIncoming, kCaller},
    {u'I', kTypeNotAnswered, kCaller},       {u'T', kTypeOutgoingContinued, kDialled},
    {u'O', kTypeIncomingContinued, kCaller}, {u'R', kTypeOutgoing, kDialled},
};
constexpr Kind kOtherKind{u' ', kTypeOutgoing, 0};

const Kind& KindOf(std::u16string_view letter) {
    const char16_t upper = letter.empty() ? kOtherKind.letter : server::Upper(letter.front());
    for (const Kind& kind : kKinds)
        if (kind.letter == upper) return kind;
    return kOtherKind;
}

/// Hours are printed with one digit or two, or left blank. Negative for any other text.
int HoursOf(std::u16string_view hours) {
    if (hours.size() == 2 && hours[0] == server::kBlank && server::IsDigit(hours[1])) return hours[1] - u'0';
    hours = Trim(hours);
    if (hours.empty()) return 0;
    return hours.size() == 1 && server::IsDigit(hours[0]) ? hours[0] - u'0' : TwoDigitValue(hours);
}

void AssignDurationOf(std::u16string_view hours, std::u16string_view minutes, std::u16string_view seconds,
                      GdvRecord& gdv) {
    const int h = HoursOf(hours);
    const int m = TwoDigitValue(minutes);
    const int s = TwoDigitValue(seconds);
    if ((h | m | s) >= 0) [[likely]] {
        AssignDuration(gdv, h, m, s);
        return;
    }
    hours = Trim(hours);
    AssignJoinedDuration(gdv, InlineText<2>(kZeros.substr(0, 2 - hours.size()), hours), minutes, Trim(seconds));
}

}  // namespace

Outcome ConvertAlgoral(server::InOutText& record, GdvRecord& gdv) {
    constexpr std::u16string_view kTag = u"*Term.";
    constexpr std::ptrdiff_t kUsefulEnd = 301;
    const char16_t* const begin = record.View().data();
    const char16_t* const end = begin + record.View().size();
    const char16_t* const colon = server::FindFirst(begin, end, server::scan::Is{u':'});
    if (colon == end) return Outcome::Rejected;
    // A colon behind the useful part leaves nothing to cut, and the text is read as it stands.
    const bool cut = colon - begin <= kUsefulEnd;
    if (cut) {  // and without the blanks behind it, often a hundred
        const char16_t* const useful_end = std::min(end, begin + kUsefulEnd);
        record.Narrow({colon, server::FindEndOf(colon, useful_end, server::scan::IsNot{server::kBlank})}, kTag);
    }
    // Columns count from the tag, in which nothing is read.
    constexpr std::ptrdiff_t kTagLength = std::ssize(kTag);
    const std::u16string_view behind_tag = cut ? record.View() : Mid(record.View(), kTagLength + 1);
    const auto columns = [=](std::ptrdiff_t start, std::ptrdiff_t count) {
        return Mid(behind_tag, start - kTagLength, count);
    };
    const Kind& kind = KindOf(columns(139, 1));

    AssignUnreported(gdv);
    AssignZeroPadded<kLine>(gdv, columns(16, 3));
    AssignZeroPadded<kUser>(gdv, columns(8, 5));
    if (kind.type == kTypeNotAnswered && server::HasValue(gdv.Slot<kUser>(), 0)) Assign<kUser>(gdv, u"09999");
    if (kind.number != 0) AssignBlankPadded<kNumber>(gdv, columns(kind.number, 16));
    AssignZeroPadded<kUserCode>(gdv, columns(291, 4));
    Assign<kType>(gdv, kind.type);
    AssignZeroPadded<kUnity>(gdv, columns(70, 4));
    AssignDurationOf(columns(87, 2), columns(90, 2), columns(94, 2), gdv);
    Assign<kDateD>(gdv, columns(25, 2));
    Assign<kDateM>(gdv, columns(28, 2));
    Assign<kDateY>(gdv, columns(33, 2));
    Assign<kTimeH>(gdv, columns(36, 2));
    Assign<kTimeM>(gdv, columns(39, 2));
    Assign<kPTYNumber>(gdv, kNoPtyNumber);
    return Outcome::Call;
}

}  // namespace vintrel::cdr
