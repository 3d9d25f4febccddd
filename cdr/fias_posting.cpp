#include "cdr/fias_posting.h"

namespace vintrel::cdr {

using server::BlankPad;
using server::Contains;
using server::GetPipeValue;
using server::Left;
using server::Mid;
using server::NumberValue;
using server::Right;

Outcome ConvertFiasPosting(std::u16string_view record, GdvSlots& slots) {
    if (Contains(record, u"LD|") || Contains(record, u"LR|")) return Outcome::Rejected;

    AssignUnreported(slots);
    Assign(slots.line, u"00001");
    // A field that no "|" follows fails, and its slots stay empty.
    if (const auto room = GetPipeValue(record, u"|RN")) AssignNumber(slots.user, NumberValue(*room));
    if (const auto dialled = GetPipeValue(record, u"|DD")) Assign(slots.number, BlankPad(*dialled, 16));
    Assign(slots.user_code, kNoUserCode);
    Assign(slots.type, kTypeOutgoing);
    if (const auto pulses = GetPipeValue(record, u"|MP")) AssignNumber(slots.unity, NumberValue(*pulses));
    if (const auto duration = GetPipeValue(record, u"|DU")) AssignNumber(slots.duration, NumberValue(*duration));
    if (const auto date = GetPipeValue(record, u"|DA")) {  // year, month, day
        Assign(slots.day, Right(*date, 2));
        Assign(slots.month, Mid(*date, 3, 2));
        Assign(slots.year, Left(*date, 2));
    }
    if (const auto time = GetPipeValue(record, u"|TI")) {
        Assign(slots.hour, Left(*time, 2));
        Assign(slots.minute, Mid(*time, 3, 2));
    }
    Assign(slots.pty_number, kNoPtyNumber);
    return Outcome::Call;
}

}  // namespace vintrel::cdr
