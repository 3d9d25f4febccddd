#include <cmath>
#include <optional>

#include "exchanges/ip_office/ip_office.h"
#include "records/steps.h"
#include "text/comma_fields.h"
#include "text/dates.h"
#include "text/numbers.h"

namespace vintrel::exchanges::ip_office {

using namespace records;
using namespace text;

namespace {

struct Leg {
    explicit Leg(std::u16string_view record) : Leg(CommaFields<24>(record)) {}
    explicit Leg(const CommaFields<24>& fields)
        : start(fields.Field<1>()),
          connected(fields.Field<2>()),
          caller(fields.Field<4>()),
          incoming(fields.Field<5>() == u"I"),
          outgoing(fields.Field<5>() == u"O"),
          called(fields.Field<6>()),
          dialled(fields.Field<7>()),
          account(fields.Field<8>()),
          internal(!HasValue(fields.Field<9>(), 0)),
          call(fields.Field<10>()),
          continued(HasValue(fields.Field<11>(), 1)),
          last(HasValue(fields.Field<11>(), 0)),  // neither for any other number
          first_device(fields.Field<12>()),
          second_device(fields.Field<14>()),
          units(fields.Field<24>()) {}

    std::u16string_view start;      ///< yyyy/mm/dd hh:mm:ss, of the whole call
    std::u16string_view connected;  ///< hh:mm:ss
    std::u16string_view caller;
    bool incoming;
    bool outgoing;
    std::u16string_view called;
    std::u16string_view dialled;
    std::u16string_view account;
    bool internal;
    std::u16string_view call;
    bool continued;  ///< further legs of the same call follow
    bool last;
    std::u16string_view first_device;   ///< an extension begins with "E"
    std::u16string_view second_device;  ///< a trunk begins with "T"
    std::u16string_view units;

    bool FirstIsExtension() const { return first_device.starts_with(u'E'); }
    bool SecondIsTrunk() const { return second_device.starts_with(u'T'); }
};

std::optional<std::int32_t> Whole(double value) {
    return std::floor(value) == value ? RoundToInt32(value) : std::nullopt;
}

/// Nothing for an identifier that takes no part in continuation.
std::optional<std::int32_t> CallOf(const Leg& leg) {
    constexpr std::int32_t kIdentifiers = 4'000'000;
    if (!IsNumeric(leg.call)) return std::nullopt;
    const auto plain = PlainNumber(leg.call);
    const auto call = plain ? plain : Whole(NumberValue(leg.call));
    return call && *call >= 0 && *call < kIdentifiers ? call : std::nullopt;
}

std::u16string_view UpToAt(std::u16string_view address) { return address.substr(0, address.find(u'@')); }

/// Nothing for a duration that is no whole number.
std::optional<std::int32_t> SecondsConnected(const Leg& leg) {
    const InlineText<6> hhmmss(Mid(leg.connected, 1, 2), Mid(leg.connected, 4, 2), Mid(leg.connected, 7, 2));
    return Whole(HoursMinutesSecondsToSeconds(hhmmss));
}

std::optional<DateTime> StartOf(const Leg& leg) {
    const std::u16string_view year = Mid(leg.start, 1, 4);
    if (!IsDigits(year)) return std::nullopt;
    const auto number = [&](std::ptrdiff_t position) {
        return static_cast<int>(NumberValue(Mid(leg.start, position, 2)));
    };
    return DateTime{.year = static_cast<int>(NumberValue(year)),
                    .month = number(6),
                    .day = number(9),
                    .hour = number(12),
                    .minute = number(15),
                    .second = number(18)};
}

/// A date that does not exist stays as it is printed.
void MoveForward(const Leg& leg, std::int32_t seconds, GdvRecord& gdv) {
    const auto start = StartOf(leg);
    const auto start_seconds = start ? SecondsOf(*start) : std::nullopt;
    const auto moved = start_seconds ? DateTimeOf(*start_seconds + seconds) : std::nullopt;
    if (moved) AssignDateTime(gdv, *moved);
}

void Continue(const Leg& leg, std::u16string_view type, ContinuationTable& continuation, GdvRecord& gdv) {
    const auto call = CallOf(leg);
    const std::int32_t seconds = call ? continuation.Seconds(*call) : 0;
    if (seconds < 1) return;
    Assign<kType>(gdv, type);
    MoveForward(leg, seconds, gdv);
    if (leg.last) continuation.Reset(*call);
}

}  // namespace

Outcome IpOffice::ConvertCallRecord(InOutText& record, GdvRecord& gdv) {
    const Leg leg(record.View());
    if (leg.internal || (leg.incoming && leg.dialled == leg.called)) return Outcome::Rejected;

    AssignUnreported(gdv);
    AssignDateTime(gdv, leg.start, {.day = 9, .month = 6, .year = 3, .hour = 12, .minute = 15});

    if (leg.outgoing || leg.incoming) {
        const std::u16string_view own = leg.outgoing ? leg.caller : leg.called;
        const std::u16string_view other = leg.outgoing ? leg.called : leg.caller;
        AssignNumberValue<kLine>(gdv, Right(leg.SecondIsTrunk() ? leg.second_device : leg.first_device, 3));
        AssignZeroPadded<kUser>(gdv, leg.FirstIsExtension() ? leg.first_device.substr(1) : own);
        AssignBlankPadded<kNumber>(gdv, UpToAt(other));
        AssignBlankPadded<kPTYNumber>(gdv, leg.outgoing ? u"" : UpToAt(leg.dialled));
        Assign<kType>(gdv, leg.outgoing ? kTypeOutgoing : kTypeIncoming);
        Continue(leg, leg.outgoing ? kTypeOutgoingContinued : kTypeIncomingContinued, continuation_, gdv);
    }

    if (leg.continued) {  // after the shift: a leg is moved by the legs before it only
        const auto call = CallOf(leg);
        const auto seconds = SecondsConnected(leg);
        if (call && seconds && *seconds != 0) continuation_.Add(*call, *seconds);
    }

    AssignZeroPadded<kUserCode>(gdv, leg.account);
    Assign<kUnity>(gdv, ZeroPad(leg.units, 4));
    AssignDuration(gdv, Mid(leg.connected, 1, 2), Mid(leg.connected, 4, 2), Mid(leg.connected, 7, 2));
    if (gdv.Slot<kDurationS>() == kNoDuration && leg.last && leg.incoming) {
        Assign<kType>(gdv, kTypeNotAnswered);
        if (!leg.FirstIsExtension()) AssignNumberValue<kUser>(gdv, leg.called);
    }
    if (gdv.Slot<kLine>() == u"00000") Assign<kLine>(gdv, u"00001");
    return Outcome::Call;
}

}  // namespace vintrel::exchanges::ip_office
