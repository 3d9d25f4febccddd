// Avaya Integral 2/2R/22: a serial printer line of call records.
#include "exchanges/exchange.h"
#include "records/steps.h"
#include "text/control_characters.h"
#include "text/numbers.h"
#include "text/scan.h"

namespace vintrel::exchanges::avaya_integral2 {
namespace {

using namespace records;
using namespace text;

class AvayaIntegral2 final : public Exchange {
 public:
    using Exchange::Exchange;

    Outcome ConvertCallRecord(InOutText& record, GdvRecord& gdv) override;
};

constexpr Model kModels[] = {{
    .code = u"TYPE10003",
    .name = u"Avaya - Integral 2/2R/22",
    .make = Make<AvayaIntegral2>,
    .services = {.central = 1},  // call records come, but the host is not to offer them
    .framing = {.length = 100},
    .pacing = {.interval_with_wait = 1, .interval = 0},
    .transfer = {.milliseconds = 5000, .minutes = 1, .duration = 2},
}};

/// The line of 82 characters that ends with the first line feed at or after position 91 becomes the caller's text.
/// Without that line feed the record is rejected and stays.
Outcome AvayaIntegral2::ConvertCallRecord(InOutText& record, GdvRecord& gdv) {
    constexpr std::ptrdiff_t kLineLength = 82;
    constexpr std::size_t kEarliestEnd = 91;
    const std::u16string_view text = record.View();
    if (text.size() < kEarliestEnd) return Outcome::Rejected;
    const char16_t* const end = text.data() + text.size();
    const char16_t* const line_feed = FindFirst(text.data() + kEarliestEnd - 1, end, scan::Is(kLf));
    if (line_feed == end) return Outcome::Rejected;
    const std::u16string_view line(line_feed + 1 - kLineLength, line_feed + 1);
    record.Narrow(line);

    AssignUnreported(gdv);
    AssignZeroPadded<kLine>(gdv, Mid(line, 29, 3));
    AssignZeroPadded<kUser>(gdv, Mid(line, 6, 5));
    Assign<kNumber>(gdv, Mid(line, 11, 16));
    Assign<kUserCode>(gdv, kNoUserCode);
    Assign<kType>(gdv, HasValue(Mid(line, 33, 2), 0) ? kTypeIncoming : kTypeOutgoing);
    AssignNumberValue<kUnity>(gdv, Mid(line, 63, 5));
    AssignNumberValue<kDurationS>(gdv, Mid(line, 54, 5));
    AssignDateTime(gdv, line, {.day = 40, .month = 37, .year = 43, .hour = 46, .minute = 49});  // the month comes first
    Assign<kPTYNumber>(gdv, kNoPtyNumber);
    return Outcome::Call;
}

}  // namespace

std::span<const Model> Models() { return kModels; }

}  // namespace vintrel::exchanges::avaya_integral2
