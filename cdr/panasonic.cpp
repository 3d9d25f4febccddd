#include "cdr/panasonic.h"

namespace vintrel::cdr {
namespace {

using server::BlankPad;
using server::Contains;
using server::Left;
using server::Mid;
using server::NumberValue;
using server::Trim;
using server::UpperContains;
using server::ZeroPad;

constexpr std::u16string_view kIncomingMark = u"<I>";
constexpr std::u16string_view kDivertedMark = u"<D>";
constexpr std::u16string_view kCurrency = u"EUR";

bool IsCall(std::u16string_view line) {
    return !Contains(line, u"CD  \r\n") && !Contains(line, u"----\r\n") && !UpperContains(line, u"TIMED REMINDER") &&
           !UpperContains(line, u"CHECK IN") && !UpperContains(line, u"CHECK OUT") &&
           !UpperContains(line, u"CLEANED UP");
}

/// Hours, minutes and seconds around the first ":" behind the dialled number, printed hh:mm'ss. Without one they are
/// read from the beginning of the line, which has no hours before it.
double DurationOf(std::u16string_view line) {
    constexpr std::size_t kBehindTheNumber = 30;
    const std::size_t found = line.find(u':', kBehindTheNumber - 1);
    const auto colon = found == std::u16string_view::npos ? 0 : static_cast<std::ptrdiff_t>(found) + 1;
    const InlineText<6> hhmmss(Mid(line, colon - 2, 2), Mid(line, colon + 1, 2), Mid(line, colon + 4, 2));
    return HoursMinutesSecondsToSeconds(hhmmss);
}

/// The whole amount behind the currency; without one, the five characters at position 3.
double UnitsOf(std::u16string_view line) {
    const std::size_t found = line.find(kCurrency);
    const auto currency = found == std::u16string_view::npos ? 0 : static_cast<std::ptrdiff_t>(found) + 1;
    return NumberValue(Mid(line, currency + 3, 5));
}

void AssignOutgoing(std::u16string_view line, bool transferred, GdvSlots& slots) {
    InlineText<16> number;
    for (const char16_t& character : Mid(line, 29, 16))
        number.Append(character == u'-' ? u" " : std::u16string_view(&character, 1));
    Assign(slots.type, transferred ? kTypeOutgoingContinued : kTypeOutgoing);
    Assign(slots.number, BlankPad(number, 16));
    Assign(slots.pty_number, kNoPtyNumber);
}

void AssignIncoming(std::u16string_view line, std::size_t mark, bool transferred, GdvSlots& slots) {
    const bool not_answered = Contains(line, u"NA  \r\n");
    Assign(slots.type, not_answered ? kTypeNotAnswered : transferred ? kTypeIncomingContinued : kTypeIncoming);
    Assign(slots.number, line.substr(mark + kIncomingMark.size()).substr(0, 16));
    const std::size_t diverted = line.find(kDivertedMark);
    if (diverted == std::u16string_view::npos) {
        Assign(slots.pty_number, kNoPtyNumber);
    } else if (const std::size_t from = diverted + kDivertedMark.size(); from <= mark) {
        Assign(slots.pty_number, BlankPad(Left(line.substr(from, mark - from), 16), 16));
    }
}

}  // namespace

Outcome ConvertPanasonic(std::u16string_view line, GdvSlots& slots) {
    if (!IsCall(line)) return Outcome::Rejected;

    AssignUnreported(slots);
    Assign(slots.line, ZeroPad(Trim(Mid(line, 24, 4)), 5));
    Assign(slots.user, ZeroPad(Trim(Mid(line, 18, 5)), 5));
    Assign(slots.user_code, kNoUserCode);
    AssignNumber(slots.unity, UnitsOf(line));
    AssignNumber(slots.duration, DurationOf(line));
    Assign(slots.day, Mid(line, 1, 2));
    Assign(slots.month, Mid(line, 4, 2));
    Assign(slots.year, Mid(line, 7, 2));
    Assign(slots.hour, Mid(line, 10, 2));
    Assign(slots.minute, Mid(line, 13, 2));

    const bool transferred = Contains(line, u"TR  \r\n");
    const std::size_t incoming = line.find(kIncomingMark);
    if (incoming == std::u16string_view::npos)
        AssignOutgoing(line, transferred, slots);
    else
        AssignIncoming(line, incoming, transferred, slots);
    return Outcome::Call;
}

}  // namespace vintrel::cdr
