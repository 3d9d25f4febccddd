#include <algorithm>
#include <optional>

#include "exchanges/innovaphone/innovaphone.h"
#include "exchanges/innovaphone/record_keys.h"
#include "records/network_record.h"
#include "text/control_characters.h"
#include "text/dates.h"
#include "text/word.h"

namespace vintrel::exchanges::innovaphone {

using namespace records;
using namespace text;

namespace {

using Key = RecordKey;

constexpr std::u16string_view kGatewayLine = u"00051";
constexpr std::u16string_view kUnknownUser = u"09999";

enum class Direction : std::uint8_t { Incoming, Outgoing };

/// One leg of a call, as an "A:X", "B:X" or "A:Rel" record reports it.
struct Leg {
    const RecordKeys& keys;
    std::int64_t connected;  ///< seconds since 1970, 0 when nobody answered
    bool continued;          ///< an earlier leg of the call has been converted
};

/// Of the log stream: its banner, or a record of the other kind.
bool IsOfTheLog(std::u16string_view record, const RecordKeys& keys) {
    return keys.OfTheLogStream() || UpperBegins<u"LOG STARTED">(record);
}

template <Word... Kinds>
bool BothBegin(std::u16string_view one, std::u16string_view other) {
    return (... || (UpperBegins<Kinds>(one) && UpperBegins<Kinds>(other)));
}

/// Between two interfaces of the exchange's inner side, or to a tone: nothing is charged.
bool StaysInside(std::u16string_view src_if, std::u16string_view dst_if) {
    return dst_if.empty() || UpperBegins<u"TONE">(src_if) || UpperBegins<u"TONE">(dst_if) ||
           BothBegin<u"SIP", u"RB", u"RT">(src_if, dst_if);
}

/// Whether the interfaces begin with what is configured; an end that is not configured does not matter.
bool Matches(std::u16string_view src_setting, std::u16string_view dst_setting, std::u16string_view src_if,
             std::u16string_view dst_if) {
    return (!src_setting.empty() || !dst_setting.empty()) && UpperBegins(src_if, src_setting) &&
           UpperBegins(dst_if, dst_setting);
}

bool IsLineInterface(std::u16string_view interface_name) {
    return UpperBegins<u"BRI", u"PRI", u"TEL", u"PPP", u"SIP">(interface_name);
}

std::optional<Direction> DirectionOf(std::u16string_view src_if, std::u16string_view dst_if, const Numbers& numbers) {
    const std::u16string_view incoming_src = Trim(numbers.CallIncomingSrcIf);
    const std::u16string_view incoming_dst = Trim(numbers.CallIncomingDstIf);
    const std::u16string_view outgoing_src = Trim(numbers.CallOutgoingSrcIf);
    const std::u16string_view outgoing_dst = Trim(numbers.CallOutgoingDstIf);
    if (Matches(incoming_src, incoming_dst, src_if, dst_if)) return Direction::Incoming;
    if (Matches(outgoing_src, outgoing_dst, src_if, dst_if)) return Direction::Outgoing;

    const bool configured =
        !incoming_src.empty() || !incoming_dst.empty() || !outgoing_src.empty() || !outgoing_dst.empty();
    if (configured) return std::nullopt;
    if (IsLineInterface(src_if)) return Direction::Incoming;
    if (IsLineInterface(dst_if)) return Direction::Outgoing;
    return std::nullopt;
}

/// "0" and "00" stand where a party has not been dialled yet.
bool IsRoom(std::u16string_view party) {
    return IsExtension(party) && party.find_first_not_of(u'0') != std::u16string_view::npos;
}

std::u16string_view FirstRoom(std::initializer_list<std::u16string_view> parties) {
    const auto* const found = std::find_if(parties.begin(), parties.end(), IsRoom);
    return found == parties.end() ? kUnknownUser : *found;
}

template <GdvField Field>
void AssignNumberOf(GdvRecord& gdv, std::u16string_view party) {
    AssignParty<Field>(gdv, party, [](char16_t c) { return c == u'+' ? kBlank : c; });
}

void FillIncoming(const Leg& leg, GdvRecord& gdv) {
    const std::u16string_view dialled = leg.keys[Key::SrcCdpn];
    const std::u16string_view reached = leg.keys[Key::DstCdpn];
    const bool diverted = dialled != reached && !reached.empty();

    AssignZeroPadded<kUser>(gdv, FirstRoom({reached, dialled}));
    AssignNumberOf<kNumber>(gdv, leg.keys[Key::SrcCgpn]);
    Assign<kType>(gdv, leg.connected == 0 ? kTypeNotAnswered : leg.continued ? kTypeIncomingContinued : kTypeIncoming);
    AssignNumberOf<kPTYNumber>(gdv, !IsRoom(reached) ? reached : diverted ? dialled : u"");
}

void FillOutgoing(const Leg& leg, GdvRecord& gdv) {
    const std::u16string_view diverting = leg.keys[Key::SrcDgpn];
    const std::u16string_view calling = leg.keys[Key::SrcCgpn];
    const std::u16string_view reached = leg.keys[Key::DstCdpn];
    const std::u16string_view user = FirstRoom({diverting, calling, leg.keys[Key::DstCgpn]});
    const bool transferred = leg.continued || !diverting.empty();

    AssignZeroPadded<kUser>(gdv, user);
    AssignNumberOf<kNumber>(gdv, reached.empty() ? leg.keys[Key::SrcCdpn] : reached);
    Assign<kType>(gdv, transferred ? kTypeOutgoingContinued : kTypeOutgoing);
    AssignNumberOf<kPTYNumber>(gdv, calling == user ? u"" : calling);
}

/// "YYYYMMDD-hhmmss", with any one character between; nothing for a text of another form.
std::optional<DateTime> PrintedInstant(std::u16string_view date) {
    const std::u16string_view day = Left(date, 8);
    const std::u16string_view time = Mid(date, 10);
    if (day.size() != 8 || time.size() != 6 || !IsDigits(day) || !IsDigits(time)) return std::nullopt;
    const auto number = [](std::u16string_view digits) { return static_cast<int>(WholeNumber(digits)); };
    return DateTime{.year = number(Mid(day, 1, 4)),
                    .month = number(Mid(day, 5, 2)),
                    .day = number(Mid(day, 7, 2)),
                    .hour = number(Mid(time, 1, 2)),
                    .minute = number(Mid(time, 3, 2)),
                    .second = number(Mid(time, 5, 2))};
}

/// The instant of the answer, else of the record, as local time. A date that does not exist keeps its digits.
void AssignInstant(const Leg& leg, const platform::Clock& clock, GdvRecord& gdv) {
    const bool answered = leg.connected != 0;
    const auto printed = answered ? std::nullopt : PrintedInstant(leg.keys[Key::Date]);
    if (!answered && !printed) return;
    const auto utc = printed ? SecondsOf(*printed) : std::optional(leg.connected);
    const auto local = utc ? DateTimeOf(*utc + clock.AheadOfUtc()) : std::nullopt;
    if (local)
        AssignDateTime(gdv, *local);
    else if (printed)
        AssignDateTime(gdv, *printed);
}

Outcome ConvertLeg(const Leg& leg, const Numbers& numbers, const platform::Clock& clock, GdvRecord& gdv) {
    const std::u16string_view src_if = leg.keys[Key::SrcIf];
    const std::u16string_view dst_if = leg.keys[Key::DstIf];
    if (StaysInside(src_if, dst_if)) return Outcome::Rejected;
    const std::optional<Direction> direction = DirectionOf(src_if, dst_if, numbers);
    if (!direction) return Outcome::Rejected;
    if (direction == Direction::Outgoing && leg.connected == 0) return Outcome::Rejected;

    const std::int64_t disconnected = WholeNumber(leg.keys[Key::DiscTime]);
    Assign<kLine>(gdv, kGatewayLine);
    direction == Direction::Incoming ? FillIncoming(leg, gdv) : FillOutgoing(leg, gdv);
    Assign<kUserCode>(gdv, kNoUserCode);
    AssignUnreported(gdv);
    Assign<kUnity>(gdv, kNoUnity);
    AssignSeconds(gdv, leg.connected == 0 ? 0 : disconnected - leg.connected);
    AssignInstant(leg, clock, gdv);
    gdv.Clear<kMacAddress>();
    AssignBlankPadded<kMacAddress>(gdv, leg.keys[Key::SrvId]);
    return Outcome::Call;
}

}  // namespace

Outcome Innovaphone::ConvertCallRecord(InOutText& record, GdvRecord& gdv) {
    const RecordKeys keys(record.View());
    if (IsOfTheLog(record.View(), keys)) return Outcome::Rejected;
    const std::u16string_view event = keys[Key::Event];
    const bool released = UpperEquals<u"A:REL">(event);
    const bool transferred = UpperEquals<u"A:X", u"B:X">(event);
    if (!released && !transferred) return Outcome::Rejected;

    const std::u16string_view reference = keys[Key::Ref];
    const Leg leg{
        .keys = keys, .connected = WholeNumber(keys[Key::ConnectTime]), .continued = references_.Find(reference)};
    const bool never_connected = transferred && leg.connected == 0;
    const Outcome outcome = never_connected ? Outcome::Rejected : ConvertLeg(leg, numbers_, Server().clock, gdv);
    if (released) {
        references_.Remove(reference);
    } else if (outcome == Outcome::Call && !leg.continued) {
        references_.Add(reference);
    }
    return outcome;
}

}  // namespace vintrel::exchanges::innovaphone
