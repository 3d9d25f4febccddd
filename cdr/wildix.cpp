#include "cdr/wildix.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>

#include "cdr/network_record.h"
#include "cdr/quoted_fields.h"
#include "server/scan.h"
#include "server/text.h"

namespace vintrel::cdr {
namespace {

using server::UpperBegins;
using server::UpperContains;
using server::UpperEquals;

constexpr QuoteStyle kQuotes{.quote = u'"', .doubled = true};

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

constexpr std::u16string_view kNoUser = u"0";
constexpr std::u16string_view kFirstLine = u"1";

/// The kinds of ports that the gateways of the exchange name their trunks by.
constexpr std::array<std::u16string_view, 5> kTrunkKinds{u"BRI", u"PRI", u"GSM", u"BRW", u"FXO"};

constexpr std::array<std::u16string_view, 6> kServiceApplications{u"RXFAX", u"TXFAX",    u"MACROEXIT",
                                                                  u"READ",  u"PLAYBACK", u"VOICEMAIL"};

/// One side of a call: "SIP/BRI-00000001" has the technology "SIP" and the name "BRI".
struct Side {
    enum class Kind : std::uint8_t { Neither, Extension, Trunk };

    std::u16string_view technology;
    std::u16string_view name;
    Kind kind = Kind::Neither;

    bool IsExtension() const { return kind == Kind::Extension; }
    bool IsTrunk() const { return kind == Kind::Trunk; }
    /// A forwarded or transferred leg, which the exchange dials to itself.
    bool IsLocal() const { return UpperEquals(technology, u"LOCAL"); }
};

/// Where a trunk's kind ends in its name; nothing for a name without one.
std::optional<std::size_t> EndOfTrunkKind(std::u16string_view name) {
    for (const std::u16string_view kind : kTrunkKinds)
        for (std::size_t at = 0; at + kind.size() <= name.size(); ++at)
            if (UpperBegins(name.substr(at), kind)) return at + kind.size();
    return std::nullopt;
}

Side::Kind KindOf(const Side& side) {
    using enum Side::Kind;
    if (side.IsLocal() || side.name.empty()) return Neither;
    if (IsExtension(side.name)) return Extension;
    const bool named = UpperEquals(side.technology, u"SIP") && !server::IsDigits(side.name);
    if (named || UpperBegins(side.technology, u"IAX") || EndOfTrunkKind(side.name)) return Trunk;
    if (UpperEquals(side.technology, u"DEVICE") || UpperEquals(side.technology, u"COM")) return Extension;
    return Neither;
}

/// Up to "@", else up to the last "-", behind which the number of the channel stands.
std::u16string_view NameOf(std::u16string_view channel) {
    const char16_t* const begin = channel.data();
    const char16_t* end = begin + channel.size();
    server::FindEach(begin, end, server::scan::IsEither{u'@', u'-'}, [&](const char16_t* at) {
        end = at;
        return *at != u'@';
    });
    return {begin, end};
}

Side SideOf(std::u16string_view channel) {
    const std::size_t slash = channel.find(u'/');
    if (slash == std::u16string_view::npos) return {};
    Side side{.technology = channel.substr(0, slash), .name = NameOf(channel.substr(slash + 1))};
    side.kind = KindOf(side);
    return side;
}

struct Call {
    const QuotedFields& row;
    Side from;
    Side to;
};

enum class Direction : std::uint8_t { Incoming, Outgoing };

bool IsCallRecord(const QuotedFields& row) { return row.Count() >= kFewest && server::IsNumeric(row[kDuration]); }

/// A leg to the exchange itself: fax, voice mail, announcements, digits, look-ups in its data base.
bool IsServiceLeg(const Call& call) {
    const std::u16string_view application = call.row[kLastApp];
    const bool service = std::any_of(kServiceApplications.begin(), kServiceApplications.end(),
                                     [&](std::u16string_view name) { return UpperEquals(application, name); }) ||
                         UpperContains(application, u"SQL") || UpperContains(application, u"BACKTICKS") ||
                         call.row[kLastData] == u"Fax received";
    const bool between_extension_and_trunk =
        (call.from.IsExtension() && call.to.IsTrunk()) || (call.from.IsTrunk() && call.to.IsExtension());
    return service && !between_extension_and_trunk;
}

/// Longer than any extension: the number of an outside caller.
bool IsOutsideNumber(std::u16string_view party) {
    if (party.starts_with(u'+')) party.remove_prefix(1);
    return server::IsDigits(party) && !IsExtension(party);
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
    Assign<kUser>(gdv, server::ZeroPad(user, 5));
    AssignParty<kNumber>(gdv, call.row[kDst]);
    Assign<kType>(gdv, call.from.IsLocal() ? kTypeOutgoingContinued : kTypeOutgoing);
    AssignParty<kPTYNumber>(gdv, u"");
}

void FillIncoming(const Call& call, bool answered, GdvRecord& gdv) {
    const std::u16string_view caller = call.row[kSrc];
    const std::u16string_view dialled = call.row[kDst];
    const std::u16string_view reached = call.to.IsExtension() ? call.to.name : std::u16string_view{};
    const std::u16string_view user = FirstExtension({reached, dialled}, kNoUser);
    Assign<kUser>(gdv, server::ZeroPad(user, 5));
    AssignParty<kNumber>(gdv, UpperEquals(caller, u"ANONYMOUS") ? u"" : caller);
    Assign<kType>(gdv, !answered ? kTypeNotAnswered : call.to.IsLocal() ? kTypeIncomingContinued : kTypeIncoming);
    AssignParty<kPTYNumber>(gdv, dialled == user ? u"" : dialled);
}

/// The port number behind the kind of the trunk: its last five digits.
void AssignLine(GdvRecord& gdv, const Side& trunk) {
    constexpr std::size_t kLongestName = 64;
    const std::optional<std::size_t> kind_end = trunk.IsTrunk() ? EndOfTrunkKind(trunk.name) : std::nullopt;
    const std::u16string_view port = kind_end ? trunk.name.substr(*kind_end) : std::u16string_view{};
    const auto digits = DigitsOnly<kLongestName>(server::Right(port, kLongestName));
    const std::u16string_view line = server::Right(digits, kLine.length);
    Assign<kLine>(gdv, server::ZeroPad(line.empty() ? kFirstLine : line, kLine.length));
}

}  // namespace

Outcome ConvertWildix(std::u16string_view record, GdvRecord& gdv) {
    const QuotedFields row(record, kQuotes, kFewest);
    if (!IsCallRecord(row)) return Outcome::Rejected;
    const std::u16string_view disposition = row[kDisposition];
    const bool accepted = UpperEquals(disposition, u"ANSWERED");
    if (!accepted && !UpperEquals(disposition, u"NO ANSWER") && !UpperEquals(disposition, u"BUSY"))
        return Outcome::Rejected;

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

}  // namespace vintrel::cdr
