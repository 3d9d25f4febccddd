// Alcatel OmniPCX Office: a serial printer line of call records.
#include "exchanges/exchange.h"
#include "records/steps.h"

namespace vintrel::exchanges::alcatel {
namespace {

using namespace records;
using namespace text;

class Alcatel final : public Exchange {
 public:
    using Exchange::Exchange;

    Outcome ConvertCallRecord(InOutText& record, GdvRecord& gdv) override;
};

constexpr Model kModels[] = {{
    .code = u"TYPE10009",
    .name = u"Alcatel - OmniPCX (Oxo) V3",
    .make = Make<Alcatel>,
    .services = {.central = 1, .call_list = 1},
    .framing = {.length = 146},
    .pacing = {.interval_with_wait = 10, .interval = 100},
    .transfer = {.milliseconds = 5000, .minutes = 1, .duration = 2},
}};

/// One fixed-column line; every line is a call.
Outcome Alcatel::ConvertCallRecord(InOutText& text, GdvRecord& gdv) {
    const std::u16string_view record = text.View();
    const bool incoming = Trim(Mid(record, 14, 3)) == u"<--";

    AssignUnreported(gdv);
    AssignZeroPadded<kLine>(gdv, Mid(record, 19, 3));
    AssignZeroPadded<kUser>(gdv, Mid(record, 9, 5));
    AssignReplaced<kNumber>(gdv, Mid(record, 61, 16), u'.', u' ');
    const std::u16string_view user_code = Trim(Mid(record, 107, 16), u'.');
    AssignZeroPadded<kUserCode>(gdv, user_code);
    if (!user_code.empty()) gdv.Replace<kUserCode>(kUserCode.Width(), u'.', u' ');
    AssignNumberValue<kUnity>(gdv, Mid(record, 46, 5));
    AssignDuration(gdv, Mid(record, 37, 2), Mid(record, 40, 2), Mid(record, 43, 2));
    Assign<kType>(gdv, !incoming                               ? kTypeOutgoing
                       : gdv.Slot<kDurationS>() == kNoDuration ? kTypeNotAnswered
                                                               : kTypeIncoming);
    AssignDateTime(gdv, record, {.day = 22, .month = 25, .year = 28, .hour = 31, .minute = 34});
    Assign<kPTYNumber>(gdv, kNoPtyNumber);
    return Outcome::Call;
}

}  // namespace

std::span<const Model> Models() { return kModels; }

}  // namespace vintrel::exchanges::alcatel
