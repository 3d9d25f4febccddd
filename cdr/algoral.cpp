#include "cdr/algoral.h"

#include <cstddef>
#include <iterator>

namespace vintrel::cdr {
namespace {

using server::BlankPad;
using server::Mid;
using server::Trim;
using server::ZeroPad;

/// What the letter of a call's kind means.
struct Kind {
    std::u16string_view type = kTypeOutgoing;
    std::ptrdiff_t number = 0;  ///< where the other party's number stands; 0: the record comes out shorter
};

Kind KindOf(std::u16string_view letter) {
    constexpr std::ptrdiff_t kDialled = 175;
    constexpr std::ptrdiff_t kCaller = 244;
    switch (letter.empty() ? u' ' : server::Upper(letter.front())) {
        case u'U':
        case u'R': return {kTypeOutgoing, kDialled};
        case u'T': return {kTypeOutgoingContinued, kDialled};
        case u'E': return {kTypeIncoming, kCaller};
        case u'O': return {kTypeIncomingContinued, kCaller};
        case u'I': return {kTypeNotAnswered, kCaller};
        default: return {};
    }
}

/// Hours are printed with one digit or two, or left blank.
void AssignDurationOf(std::u16string_view hours, std::u16string_view minutes, std::u16string_view seconds,
                      GdvRecord& gdv) {
    hours = Trim(hours);
    seconds = Trim(seconds);
    const bool one_digit = hours.size() == 1 && server::IsDigit(hours.front());
    const int h = hours.empty() ? 0 : one_digit ? hours.front() - u'0' : TwoDigitValue(hours);
    const int m = TwoDigitValue(minutes);
    const int s = TwoDigitValue(seconds);
    if ((h | m | s) >= 0)
        AssignDuration(gdv, h, m, s);
    else
        AssignDuration(gdv, InlineText<2>(kZeros.substr(0, 2 - hours.size()), hours), minutes, seconds);
}

}  // namespace

Outcome ConvertAlgoral(server::InOutText& record, GdvRecord& gdv) {
    constexpr std::u16string_view kTag = u"*Term.";
    constexpr std::size_t kUsefulEnd = 301;
    const std::size_t colon = server::Find(record.View(), u":");
    if (colon == std::u16string_view::npos) return Outcome::Rejected;
    // A colon behind the useful part leaves nothing to cut, and the text is read as it stands.
    const bool cut = colon <= kUsefulEnd;
    if (cut) record.Narrow(Trim(record.View().substr(colon, kUsefulEnd - colon)), kTag);
    // Columns count from the tag, in which nothing is read.
    constexpr std::ptrdiff_t kTagLength = std::ssize(kTag);
    const std::u16string_view behind_tag = cut ? record.View() : Mid(record.View(), kTagLength + 1);
    const auto columns = [=](std::ptrdiff_t start, std::ptrdiff_t count) {
        return Mid(behind_tag, start - kTagLength, count);
    };
    const Kind kind = KindOf(columns(139, 1));

    AssignUnreported(gdv);
    Assign<kLine>(gdv, ZeroPad(Trim(columns(16, 3)), 5));
    Assign<kUser>(gdv, ZeroPad(Trim(columns(8, 5)), 5));
    if (kind.type == kTypeNotAnswered && server::HasValue(gdv.Slot<kUser>(), 0)) Assign<kUser>(gdv, u"09999");
    if (kind.number != 0) Assign<kNumber>(gdv, BlankPad(columns(kind.number, 16), 16));
    AssignUserCode(gdv, columns(291, 4));
    Assign<kType>(gdv, kind.type);
    Assign<kUnity>(gdv, ZeroPad(Trim(columns(70, 4)), 4));
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
