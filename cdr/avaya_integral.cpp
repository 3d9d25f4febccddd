#include "cdr/avaya_integral.h"

#include "server/control_characters.h"
#include "server/scan.h"

namespace vintrel::cdr {

using server::Mid;

Outcome ConvertIntegral(std::u16string_view record, GdvRecord& gdv) {
    AssignUnreported(gdv);
    Assign<kLine>(gdv, Mid(record, 2, 5));
    Assign<kUser>(gdv, Mid(record, 7, 5));
    Assign<kNumber>(gdv, Mid(record, 12, 16));
    Assign<kUserCode>(gdv, Mid(record, 28, 4));
    Assign<kSpare>(gdv, Mid(record, 32, 1));
    Assign<kInfo>(gdv, Mid(record, 33, 1));
    Assign<kType>(gdv, Mid(record, 34, 1));
    Assign<kUnity>(gdv, Mid(record, 35, 4));
    AssignZeroPadded<kDurationS>(gdv, Mid(record, 39, 4));
    Assign<kDateD>(gdv, Mid(record, 43, 2));
    Assign<kDateM>(gdv, Mid(record, 45, 2));
    Assign<kDateY>(gdv, Mid(record, 47, 2));
    Assign<kTimeH>(gdv, Mid(record, 49, 2));
    Assign<kTimeM>(gdv, Mid(record, 51, 2));
    Assign<kPTYNumber>(gdv, kNoPtyNumber);
    return Outcome::Call;
}

Outcome ConvertIntegral2(server::InOutText& record, GdvRecord& gdv) {
    constexpr std::ptrdiff_t kLineLength = 82;
    constexpr std::size_t kEarliestEnd = 91;
    const std::u16string_view text = record.View();
    if (text.size() < kEarliestEnd) return Outcome::Rejected;
    const char16_t* const end = text.data() + text.size();
    const char16_t* const line_feed =
        server::FindFirst(text.data() + kEarliestEnd - 1, end, server::scan::Is{server::kLf});
    if (line_feed == end) return Outcome::Rejected;
    const std::u16string_view line(line_feed + 1 - kLineLength, line_feed + 1);
    record.Narrow(line);

    AssignUnreported(gdv);
    AssignZeroPadded<kLine>(gdv, Mid(line, 29, 3));
    AssignZeroPadded<kUser>(gdv, Mid(line, 6, 5));
    Assign<kNumber>(gdv, Mid(line, 11, 16));
    Assign<kUserCode>(gdv, kNoUserCode);
    Assign<kType>(gdv, server::HasValue(Mid(line, 33, 2), 0) ? kTypeIncoming : kTypeOutgoing);
    AssignNumberValue<kUnity>(gdv, Mid(line, 63, 5));
    AssignNumberValue<kDurationS>(gdv, Mid(line, 54, 5));
    Assign<kDateD>(gdv, Mid(line, 40, 2));  // the exchange prints the month first
    Assign<kDateM>(gdv, Mid(line, 37, 2));
    Assign<kDateY>(gdv, Mid(line, 43, 2));
    Assign<kTimeH>(gdv, Mid(line, 46, 2));
    Assign<kTimeM>(gdv, Mid(line, 49, 2));
    Assign<kPTYNumber>(gdv, kNoPtyNumber);
    return Outcome::Call;
}

}  // namespace vintrel::cdr
