#include "cdr/mitel.h"

namespace vintrel::cdr {
namespace {

using server::BlankPad;
using server::Mid;
using server::Trim;
using server::ZeroPad;

/// The first digit of the call-type code is the kind of charging (0 transferred, 1 dialled, 2 incoming, 6 to 9 with
/// cost centre or private), the second how the call came about.
std::u16string_view TypeOf(std::u16string_view code) {
    if (code.size() != 2) return kTypeOutgoing;
    const char16_t kind = code[0];
    const char16_t way = code[1];
    if (kind == u'2') {
        if (way == u'0') return kTypeIncomingContinued;
        if (way == u'2' || way == u'4') return kTypeNotAnswered;
        return server::IsDigit(way) ? kTypeIncoming : kTypeOutgoing;
    }
    const bool transferred = kind == u'0' || kind == u'6' || kind == u'8';
    return transferred && (way == u'0' || (way >= u'4' && way <= u'8')) ? kTypeOutgoingContinued : kTypeOutgoing;
}

}  // namespace

Outcome ConvertMitel(std::u16string_view record, GdvSlots& slots) {
    Assign(slots.line, Mid(record, 43, 5));
    Assign(slots.user, Mid(record, 2, 5));
    Assign(slots.number, Mid(record, 67, 16));
    AssignUserCode(slots, Mid(record, 8, 4));
    Assign(slots.type, TypeOf(Trim(Mid(record, 18, 2))));
    Assign(slots.unity, ZeroPad(Trim(Mid(record, 62, 4)), 4));
    AssignNumber(slots.duration,
                 HoursMinutesSecondsToSeconds(Mid(record, 34, 2), Mid(record, 37, 2), Mid(record, 40, 2)));
    Assign(slots.day, Mid(record, 25, 2));
    Assign(slots.month, Mid(record, 23, 2));
    Assign(slots.year, Mid(record, 21, 2));
    Assign(slots.hour, Mid(record, 28, 2));
    Assign(slots.minute, Mid(record, 31, 2));
    Assign(slots.pty_number, BlankPad(Trim(Mid(record, 49, 11)), 16));
    AssignUnreported(slots);
    return Outcome::Call;
}

}  // namespace vintrel::cdr
