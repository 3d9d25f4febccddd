#include "cdr/algoral.h"

#include <string>
#include <utility>

namespace vintrel::cdr {
namespace {

using server::BlankPad;
using server::Mid;
using server::NumberValue;
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
double DurationOf(std::u16string_view text) {
    InlineText<6> hhmmss;
    if (const auto hours = ZeroPad(Trim(Mid(text, 87, 2)), 2)) hhmmss.Append(*hours);
    hhmmss.Append(Mid(text, 90, 2));
    hhmmss.Append(Trim(Mid(text, 94, 2)));
    return HoursMinutesSecondsToSeconds(hhmmss);
}

}  // namespace

Outcome ConvertAlgoral(server::InOutText& record, GdvRecord& gdv) {
    constexpr std::size_t kUsefulEnd = 301;
    const std::size_t colon = record.View().find(u':');
    if (colon == std::u16string_view::npos) return Outcome::Rejected;
    // A colon behind the useful part leaves nothing to cut, and the text is read as it stands.
    if (colon <= kUsefulEnd) {
        std::u16string term = u"*Term.";
        term += Trim(record.View().substr(colon, kUsefulEnd - colon));
        record.Replace(std::move(term));
    }
    const std::u16string_view text = record.View();
    const Kind kind = KindOf(Mid(text, 139, 1));

    AssignUnreported(gdv);
    Assign<kLine>(gdv, ZeroPad(Trim(Mid(text, 16, 3)), 5));
    Assign<kUser>(gdv, ZeroPad(Trim(Mid(text, 8, 5)), 5));
    if (kind.type == kTypeNotAnswered && NumberValue(gdv.Slot<kUser>()) == 0) Assign<kUser>(gdv, u"09999");
    if (kind.number != 0) Assign<kNumber>(gdv, BlankPad(Mid(text, kind.number, 16), 16));
    AssignUserCode(gdv, Mid(text, 291, 4));
    Assign<kType>(gdv, kind.type);
    Assign<kUnity>(gdv, ZeroPad(Trim(Mid(text, 70, 4)), 4));
    AssignNumber<kDurationS>(gdv, DurationOf(text));
    Assign<kDateD>(gdv, Mid(text, 25, 2));
    Assign<kDateM>(gdv, Mid(text, 28, 2));
    Assign<kDateY>(gdv, Mid(text, 33, 2));
    Assign<kTimeH>(gdv, Mid(text, 36, 2));
    Assign<kTimeM>(gdv, Mid(text, 39, 2));
    Assign<kPTYNumber>(gdv, kNoPtyNumber);
    return Outcome::Call;
}

}  // namespace vintrel::cdr
