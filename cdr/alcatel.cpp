#include "cdr/alcatel.h"

namespace vintrel::cdr {

using server::Mid;
using server::Trim;
using server::ZeroPad;

Outcome ConvertAlcatel(std::u16string_view record, GdvSlots& slots) {
    const double duration = HoursMinutesSecondsToSeconds(Mid(record, 37, 2), Mid(record, 40, 2), Mid(record, 43, 2));
    const bool incoming = Trim(Mid(record, 14, 3)) == u"<--";

    AssignUnreported(slots);
    Assign(slots.line, ZeroPad(Trim(Mid(record, 19, 3)), 5));
    Assign(slots.user, ZeroPad(Trim(Mid(record, 9, 5)), 5));
    Assign(slots.number, ReplaceCharacter<16>(Mid(record, 61, 16), u'.', u' '));
    AssignUserCode(slots, ReplaceCharacter<16>(Trim(Mid(record, 107, 16)), u'.', u' '));
    Assign(slots.type, !incoming ? kTypeOutgoing : duration == 0 ? kTypeNotAnswered : kTypeIncoming);
    AssignNumberValue(slots.unity, Mid(record, 46, 5));
    AssignNumber(slots.duration, duration);
    Assign(slots.day, Mid(record, 22, 2));
    Assign(slots.month, Mid(record, 25, 2));
    Assign(slots.year, Mid(record, 28, 2));
    Assign(slots.hour, Mid(record, 31, 2));
    Assign(slots.minute, Mid(record, 34, 2));
    Assign(slots.pty_number, kNoPtyNumber);
    return Outcome::Call;
}

}  // namespace vintrel::cdr
