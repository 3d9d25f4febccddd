// Example PBX 100: a serial printer line of call records.
#include "exchanges/exchange.h"
#include "records/network_record.h"
#include "records/steps.h"
#include "text/fields.h"

namespace vintrel::exchanges::example {
namespace {

using namespace records;
using namespace text;

class Example final : public Exchange {
 public:
    using Exchange::Exchange;

    Outcome ConvertCallRecord(InOutText& record, GdvRecord& gdv) override;
};

constexpr Model kModels[] = {{
    .code = u"TYPE10021",
    .name = u"Example - PBX 100",
    .make = Make<Example>,
    .services = {.central = 1, .call_list = 1},
    .framing = {.length = 80},
}};

/// One line "start;direction;extension;number;seconds;units"; an internal call ("L") is rejected.
Outcome Example::ConvertCallRecord(InOutText& record, GdvRecord& gdv) {
    const auto field = [&](std::int16_t index) { return GetSeparatedField(record.View(), u';', index); };
    const std::u16string_view direction = field(2);
    const std::int64_t seconds = WholeNumber(field(5));
    if (direction != u"I" && direction != u"O") return Outcome::Rejected;

    AssignUnreported(gdv);
    Assign<kLine>(gdv, u"00001");
    AssignZeroPadded<kUser>(gdv, field(3));
    AssignBlankPadded<kNumber>(gdv, field(4));
    Assign<kUserCode>(gdv, kNoUserCode);
    Assign<kType>(gdv, direction == u"O" ? kTypeOutgoing : seconds == 0 ? kTypeNotAnswered : kTypeIncoming);
    AssignZeroPadded<kUnity>(gdv, DigitsOnly<4>(field(6)));  // the line end is with them
    AssignSeconds(gdv, seconds);
    AssignStart(gdv, field(1));
    Assign<kPTYNumber>(gdv, kNoPtyNumber);
    return Outcome::Call;
}

}  // namespace

std::span<const Model> Models() { return kModels; }

}  // namespace vintrel::exchanges::example
