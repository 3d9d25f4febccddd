#include "cdr/grandstream.h"

#include <cstdint>
#include <optional>

#include "cdr/network_record.h"
#include "cdr/quoted_fields.h"
#include "server/text.h"

namespace vintrel::cdr {
namespace {

using server::UpperBegins;
using server::UpperContains;
using server::UpperEquals;

constexpr QuoteStyle kQuotes{.quote = u'\'', .doubled = false};

/// Columns of the published real-time record. Newer firmware adds columns behind these.
enum Column : std::uint8_t {
    kAcctId = 1,
    kAccountCode = 2,
    kSrc = 3,
    kDst = 4,
    kDContext = 5,
    kClid = 6,
    kLastApp = 9,
    kLastData = 10,
    kStart = 11,
    kBillSec = 15,
    kDisposition = 16,
    kAmaFlags = 17,
    kUserField = 19,
    kChannelExt = 20,
    kDstChannelExt = 21,
    kFewest = 22,
    kDstAnswer = 25,
    kActionOwner = 29,
    kActionType = 30,
};

constexpr std::u16string_view kTrunkLine = u"00001";
constexpr std::u16string_view kNoUser = u"0";

enum class Direction : std::uint8_t { Incoming, Outgoing, TrunkToTrunk };

bool IsCallRecord(const QuotedFields& row) {
    return row.Count() >= kFewest && !UpperEquals(row[kAcctId], u"ACCTID") &&
           UpperEquals(row[kAmaFlags], u"DOCUMENTATION");
}

/// The row that forks a call to a ring group.
bool IsHelperRow(const QuotedFields& row) {
    return UpperEquals(row[kLastApp], u"FORKCDR") &&
           (UpperEquals(row[kLastData], u"AE") || UpperEquals(row[kLastData], u"ARE"));
}

/// Maid codes, wake-up calls, and rows that stand in the start or pause step of the dial plan.
bool IsFeatureRow(const QuotedFields& row) {
    const bool dialling = UpperEquals(row[kLastApp], u"DIAL") || UpperEquals(row[kLastApp], u"QUEUE");
    const bool step = UpperEquals(row[kDst], u"S") || UpperEquals(row[kDst], u"P");
    return UpperContains(row[kDContext], u"PMS-STATUS") || UpperContains(row[kClid], u"WAKE UP CALL") ||
           (step && !dialling);
}

/// Nothing for an internal call.
std::optional<Direction> DirectionOf(const QuotedFields& row) {
    const std::u16string_view user_field = row[kUserField];
    if (UpperEquals(user_field, u"INTERNAL")) return std::nullopt;
    if (UpperEquals(user_field, u"INBOUND")) return Direction::Incoming;
    if (UpperEquals(user_field, u"OUTBOUND")) return Direction::Outgoing;
    if (UpperContains(user_field, u"EXTERNAL")) return Direction::TrunkToTrunk;

    const bool from_trunk = UpperContains(row[kChannelExt], u"TRUNK");
    const bool to_trunk = UpperContains(row[kDstChannelExt], u"TRUNK") || UpperContains(row[kDContext], u"OUTBOUND");
    if (from_trunk && to_trunk) return Direction::TrunkToTrunk;
    if (from_trunk) return Direction::Incoming;
    if (to_trunk) return Direction::Outgoing;
    return std::nullopt;
}

bool IsTransferred(const QuotedFields& row) {
    const std::u16string_view context = row[kDContext];
    const std::u16string_view action = row[kActionType];
    return UpperContains(context, u"FROM-INTERNAL-XFER") || UpperEquals(context, u"TRANSFER") ||
           UpperEquals(context, u"CALLFORWARD") || UpperBegins(row[kDst], u"XFER-") ||
           UpperBegins(action, u"TRANSFER") || UpperBegins(action, u"CALLFORWARD") ||
           UpperContains(action, u"CALL-FORWARD");
}

/// One of several legs that ring for the same call: a ring group, a queue.
bool IsGroupLeg(const QuotedFields& row) {
    const std::u16string_view action = row[kActionType];
    const bool group_application = UpperEquals(row[kLastApp], u"QUEUE") || UpperEquals(row[kLastApp], u"GOSUBIF");
    return UpperBegins(action, u"RINGGROUP[") || UpperBegins(action, u"QUEUE[") || UpperBegins(action, u"EXT-GROUP") ||
           UpperEquals(row[kDContext], u"EXT-GROUP") || (group_application && !server::IsDigits(row[kDstChannelExt]));
}

template <GdvField Field>
void AssignUpperParty(GdvRecord& gdv, std::u16string_view party) {
    AssignParty<Field>(gdv, party, [](char16_t c) { return server::Upper(c); });
}

void FillOutgoing(const QuotedFields& row, bool continued, GdvRecord& gdv) {
    const std::u16string_view src = row[kSrc];
    const std::u16string_view user = FirstExtension({src, row[kChannelExt], row[kActionOwner]}, kNoUser);
    Assign<kUser>(gdv, server::ZeroPad(user, 5));
    AssignUpperParty<kNumber>(gdv, row[kDst]);
    Assign<kType>(gdv, continued ? kTypeOutgoingContinued : kTypeOutgoing);
    AssignUpperParty<kPTYNumber>(gdv, IsExtension(src) ? u"" : src);
}

void FillIncoming(const QuotedFields& row, bool answered, bool continued, GdvRecord& gdv) {
    const std::u16string_view dst = row[kDst];
    const std::u16string_view user = FirstExtension({row[kDstAnswer], row[kDstChannelExt], dst}, kNoUser);
    Assign<kUser>(gdv, server::ZeroPad(user, 5));
    AssignUpperParty<kNumber>(gdv, row[kSrc]);
    Assign<kType>(gdv, !answered ? kTypeNotAnswered : continued ? kTypeIncomingContinued : kTypeIncoming);
    AssignUpperParty<kPTYNumber>(gdv, dst == user ? u"" : dst);
}

}  // namespace

Outcome ConvertGrandstream(std::u16string_view record, GdvRecord& gdv) {
    const QuotedFields row(record, kQuotes, kActionType);
    if (!IsCallRecord(row) || IsHelperRow(row) || IsFeatureRow(row)) return Outcome::Rejected;
    const std::optional<Direction> direction = DirectionOf(row);
    const bool accepted = UpperEquals(row[kDisposition], u"ANSWERED");
    const bool unanswered = UpperEquals(row[kDisposition], u"NO ANSWER");
    if (!direction || (!accepted && !unanswered)) return Outcome::Rejected;

    const std::int64_t seconds = WholeNumber(row[kBillSec]);
    const bool answered = accepted && seconds > 0;
    if (direction == Direction::Incoming) {
        // The leg that takes the call may come later, so the legs that rang in vain say nothing about the call.
        if (!answered && IsGroupLeg(row)) return Outcome::Rejected;
        FillIncoming(row, answered, IsTransferred(row), gdv);
    } else {
        if (unanswered) return Outcome::Rejected;
        FillOutgoing(row, direction == Direction::TrunkToTrunk || IsTransferred(row), gdv);
    }
    Assign<kLine>(gdv, kTrunkLine);
    AssignAccount(gdv, row[kAccountCode]);
    AssignUnreported(gdv);
    Assign<kUnity>(gdv, kNoUnity);
    AssignSeconds(gdv, seconds);
    AssignStart(gdv, row[kStart]);
    return Outcome::Call;
}

}  // namespace vintrel::cdr
