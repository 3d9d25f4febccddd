// Wildix: call records as lines of a CSV file.
#include <cstdint>
#include <optional>

#include "exchanges/exchange.h"
#include "records/network_record.h"
#include "text/control_characters.h"
#include "text/numbers.h"
#include "text/quoted_fields.h"
#include "text/word.h"

namespace vintrel::exchanges::wildix {
namespace {

using namespace records;
using namespace text;

class Wildix final : public Exchange {
 public:
    using Exchange::Exchange;

    Outcome ConvertCallRecord(InOutText& record, GdvRecord& gdv) override;
};

constexpr Model kModels[] = {{
    .code = u"TYPE10013",
    .name = u"Wildix - WG90R (CDR-CSV)",
    .make = Make<Wildix>,
    .services = {.central = 1, .call_list = 1},
    .link = {.end_read = 1, .connection = 1},
    .framing = {.length = 200, .end = kLfText, .columns = 25, .comma = 1},
    .pacing = {.interval_with_wait = 10, .interval = 0},
    .transfer = {.milliseconds = 5000, .minutes = 1, .duration = 2},
}};

/// Columns of the published record, without its row number. The converter needs none of those behind them.
enum Column : std::uint8_t {
    kAccountCode = 1,
    kSrc = 2,
    kDst = 3,
    kDContext = 4,
    kChannel = 6,
    kDstChannel = 7,
    kLastApp = 8,
    kLastData = 9,
    kStart = 10,
    kDuration = 13,
    kBillSec = 14,
    kDisposition = 15,
    kFewest = 15,
};
using Row = QuotedFields<QuoteStyle{.quote = u'"', .doubled = true}, kFewest>;

constexpr std::u16string_view kNoUser = u"0";
constexpr std::u16string_view kFirstLine = u"1";

/// One side of a call: "SIP/BRI-00000001" has the technology "SIP" and the name "BRI".
struct Side {
    enum class Kind : std::uint8_t { Neither, Extension, Trunk };

    std::u16string_view technology;
    std::u16string_view name;
    Kind kind = Kind::Neither;

    bool IsExtension() const { return kind == Kind::Extension; }
    bool IsTrunk() const { return kind == Kind::Trunk; }
    /// A forwarded or transferred leg, which the exchange dials to itself.
    bool IsLocal() const { return UpperEquals<u"LOCAL">(technology); }
};

/// Where the first of the words ends that stands in the text; nothing for a text without one.
template <Word... Words>
std::optional<std::size_t> EndOf(std::u16string_view text) {
    std::size_t found = 0;
    const auto ends_at = [&](std::size_t place, std::size_t length) {
        found = place + length;
        return place != std::u16string_view::npos;
    };
    return (... || ends_at(UpperFind<Words>(text), Words.kLength)) ? std::optional(found) : std::nullopt;
}

/// Of the kind of port that the gateways of the exchange name a trunk by.
std::optional<std::size_t> EndOfTrunkKind(std::u16string_view name) {
    return EndOf<u"BRI", u"PRI", u"GSM", u"BRW", u"FXO">(name);
}

Side::Kind KindOf(const Side& side) {
    using enum Side::Kind;
    if (side.IsLocal() || side.name.empty()) return Neither;
    if (IsExtension(side.name)) return Extension;
    const bool named = UpperEquals<u"SIP">(side.technology) && !IsDigits(side.name);
    if (named || UpperBegins<u"IAX">(side.technology) || EndOfTrunkKind(side.name)) return Trunk;
    if (UpperEquals<u"DEVICE", u"COM">(side.technology)) return Extension;
    return Neither;
}

/// Up to "@", else up to the last "-", behind which the number of the channel stands.
std::u16string_view NameOf(std::u16string_view channel) {
    const std::size_t at = channel.find(u'@');
    return channel.substr(0, at != std::u16string_view::npos ? at : channel.rfind(u'-'));
}

Side SideOf(std::u16string_view channel) {
    const std::size_t slash = channel.find(u'/');
    if (slash == std::u16string_view::npos) return {};
    Side side{.technology = channel.substr(0, slash), .name = NameOf(channel.substr(slash + 1))};
    side.kind = KindOf(side);
    return side;
}

struct Call {
    const Row& row;
    Side from;
    Side to;
};

enum class Direction : std::uint8_t { Incoming, Outgoing };

bool IsCallRecord(const Row& row) { return row.Count() >= kFewest && IsNumeric(row[kDuration]); }

/// A leg to the exchange itself: fax, voice mail, announcements, digits, look-ups in its data base.
bool IsServiceLeg(const Call& call) {
    const std::u16string_view application = call.row[kLastApp];
    const bool service =
        UpperEquals<u"RXFAX", u"TXFAX", u"MACROEXIT", u"READ", u"PLAYBACK", u"VOICEMAIL">(application) ||
        UpperContains<u"SQL">(application) || UpperContains<u"BACKTICKS">(application) ||
        call.row[kLastData] == u"Fax received";
    const bool between_extension_and_trunk =
        (call.from.IsExtension() && call.to.IsTrunk()) || (call.from.IsTrunk() && call.to.IsExtension());
    return service && !between_extension_and_trunk;
}

/// Longer than any extension: the number of an outside caller.
bool IsOutsideNumber(std::u16string_view party) {
    if (party.starts_with(u'+')) party.remove_prefix(1);
    return IsDigits(party) && !IsExtension(party);
}

/// The dial plan leaves the name of its last block in the record when it ran on after the call.
std::optional<Direction> DirectionOf(const Call& call) {
    const std::u16string_view last_data = call.row[kLastData];
    if (call.from.IsExtension() && call.to.IsExtension()) return std::nullopt;
    if ((call.from.IsExtension() && call.to.IsTrunk()) || call.row[kDContext] == u"macro-outgoing-call" ||
        last_data == u"Finish while-outgoing-call" || last_data == u"Finish if-if-dial-using-gateway-trunk") {
        return Direction::Outgoing;
    }
    if (call.from.IsTrunk() || last_data == u"Finish if-lookup-cidname-in-phonebook" ||
        (last_data == u"Finish if-simple-call" && IsOutsideNumber(call.row[kSrc]))) {
        return Direction::Incoming;
    }
    return std::nullopt;
}

void FillOutgoing(const Call& call, GdvRecord& gdv) {
    const std::u16string_view user = FirstExtension({call.row[kSrc], call.from.name}, kNoUser);
    AssignZeroPadded<kUser>(gdv, user);
    AssignParty<kNumber>(gdv, call.row[kDst]);
    Assign<kType>(gdv, call.from.IsLocal() ? kTypeOutgoingContinued : kTypeOutgoing);
    AssignParty<kPTYNumber>(gdv, u"");
}

void FillIncoming(const Call& call, bool answered, GdvRecord& gdv) {
    const std::u16string_view caller = call.row[kSrc];
    const std::u16string_view dialled = call.row[kDst];
    const std::u16string_view reached = call.to.IsExtension() ? call.to.name : std::u16string_view{};
    const std::u16string_view user = FirstExtension({reached, dialled}, kNoUser);
    AssignZeroPadded<kUser>(gdv, user);
    AssignParty<kNumber>(gdv, UpperEquals<u"ANONYMOUS">(caller) ? u"" : caller);
    Assign<kType>(gdv, !answered ? kTypeNotAnswered : call.to.IsLocal() ? kTypeIncomingContinued : kTypeIncoming);
    AssignParty<kPTYNumber>(gdv, dialled == user ? u"" : dialled);
}

/// The port number behind the kind of the trunk: its last five digits.
void AssignLine(GdvRecord& gdv, const Side& trunk) {
    constexpr std::size_t kLongestName = 64;
    const std::optional<std::size_t> kind_end = trunk.IsTrunk() ? EndOfTrunkKind(trunk.name) : std::nullopt;
    const std::u16string_view port = kind_end ? trunk.name.substr(*kind_end) : std::u16string_view{};
    const auto digits = DigitsOnly<kLongestName>(Right(port, kLongestName));
    const std::u16string_view line = Right(digits, kLine.length);
    AssignZeroPadded<kLine>(gdv, line.empty() ? kFirstLine : line);
}

Outcome Wildix::ConvertCallRecord(InOutText& record, GdvRecord& gdv) {
    const Row row(record.View());
    if (!IsCallRecord(row)) return Outcome::Rejected;
    const std::u16string_view disposition = row[kDisposition];
    const bool accepted = UpperEquals<u"ANSWERED">(disposition);
    if (!accepted && !UpperEquals<u"NO ANSWER", u"BUSY">(disposition)) return Outcome::Rejected;

    const Call call{.row = row, .from = SideOf(row[kChannel]), .to = SideOf(row[kDstChannel])};
    const std::optional<Direction> direction = DirectionOf(call);
    if (!direction || IsServiceLeg(call)) return Outcome::Rejected;

    const std::int64_t seconds = WholeNumber(row[kBillSec]);
    const bool answered = accepted && seconds > 0;
    if (direction == Direction::Outgoing) {
        if (!answered) return Outcome::Rejected;
        FillOutgoing(call, gdv);
        AssignLine(gdv, call.to.IsTrunk() ? call.to : call.from);
    } else {
        FillIncoming(call, answered, gdv);
        AssignLine(gdv, call.from.IsTrunk() ? call.from : call.to);
    }
    AssignAccount(gdv, row[kAccountCode]);
    AssignUnreported(gdv);
    Assign<kUnity>(gdv, kNoUnity);
    AssignSeconds(gdv, seconds);
    AssignStart(gdv, row[kStart]);
    return Outcome::Call;
}

}  // namespace

std::span<const Model> Models() { return kModels; }

}  // namespace vintrel::exchanges::wildix
