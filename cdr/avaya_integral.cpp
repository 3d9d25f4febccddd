#include "cdr/avaya_integral.h"

#include "server/control_characters.h"

namespace vintrel::cdr {

using server::Mid;
using server::NumberValue;
using server::Trim;
using server::ZeroPad;

Outcome ConvertIntegral(std::u16string_view record, GdvSlots& slots) {
    AssignUnreported(slots);
    Assign(slots.line, Mid(record, 2, 5));
    Assign(slots.user, Mid(record, 7, 5));
    Assign(slots.number, Mid(record, 12, 16));
    Assign(slots.user_code, Mid(record, 28, 4));
    Assign(slots.spare, Mid(record, 32, 1));
    Assign(slots.info, Mid(record, 33, 1));
    Assign(slots.type, Mid(record, 34, 1));
    Assign(slots.unity, Mid(record, 35, 4));
    Assign(slots.duration, ZeroPad(Trim(Mid(record, 39, 4)), 5));
    Assign(slots.day, Mid(record, 43, 2));
    Assign(slots.month, Mid(record, 45, 2));
    Assign(slots.year, Mid(record, 47, 2));
    Assign(slots.hour, Mid(record, 49, 2));
    Assign(slots.minute, Mid(record, 51, 2));
    Assign(slots.pty_number, kNoPtyNumber);
    return Outcome::Call;
}

Outcome ConvertIntegral2(server::InOutText& record, GdvSlots& slots) {
    constexpr std::size_t kLineLength = 82;
    constexpr std::size_t kEarliestEnd = 91;
    const std::size_t line_feed = record.View().find(server::kLf, kEarliestEnd - 1);
    if (line_feed == std::u16string_view::npos) return Outcome::Rejected;
    const std::u16string_view line = record.View().substr(line_feed + 1 - kLineLength, kLineLength);
    record.Narrow(line);

    AssignUnreported(slots);
    Assign(slots.line, ZeroPad(Trim(Mid(line, 29, 3)), 5));
    Assign(slots.user, ZeroPad(Trim(Mid(line, 6, 5)), 5));
    Assign(slots.number, Mid(line, 11, 16));
    Assign(slots.user_code, kNoUserCode);
    Assign(slots.type, NumberValue(Mid(line, 33, 2)) == 0 ? kTypeIncoming : kTypeOutgoing);
    AssignNumberValue(slots.unity, Mid(line, 63, 5));
    AssignNumberValue(slots.duration, Mid(line, 54, 5));
    Assign(slots.day, Mid(line, 40, 2));  // the exchange prints the month first
    Assign(slots.month, Mid(line, 37, 2));
    Assign(slots.year, Mid(line, 43, 2));
    Assign(slots.hour, Mid(line, 46, 2));
    Assign(slots.minute, Mid(line, 49, 2));
    Assign(slots.pty_number, kNoPtyNumber);
    return Outcome::Call;
}

}  // namespace vintrel::cdr
