#include <cstdint>
#include <optional>

#include "exchanges/grandstream/grandstream.h"
#include "records/network_record.h"
#include "text/quoted_fields.h"
#include "text/word.h"

namespace vintrel::exchanges::grandstream {

using namespace records;
using namespace text;

namespace {

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
using Row = QuotedFields<QuoteStyle{.quote = u'\'', .doubled = false}, kActionType>;

constexpr std::u16string_view kTrunkLine = u"00001";
constexpr std::u16string_view kNoUser = u"0";

enum class Direction : std::uint8_t { Incoming, Outgoing, TrunkToTrunk };

bool IsCallRecord(const Row& row) {
    return row.Count() >= kFewest && !UpperEquals<u"ACCTID">(row[kAcctId]) &&
           UpperEquals<u"DOCUMENTATION">(row[kAmaFlags]);
}

/// The row that forks a call to a ring group.
bool IsHelperRow(const Row& row) {
    return UpperEquals<u"FORKCDR">(row[kLastApp]) && UpperEquals<u"AE", u"ARE">(row[kLastData]);
}

/// Maid codes, wake-up calls, and rows that stand in the start or pause step of the dial plan.
bool IsFeatureRow(const Row& row) {
    const bool dialling = UpperEquals<u"DIAL", u"QUEUE">(row[kLastApp]);
    const bool step = UpperEquals<u"S", u"P">(row[kDst]);
    return UpperContains<u"PMS-STATUS">(row[kDContext]) || UpperContains<u"WAKE UP CALL">(row[kClid]) ||
           (step && !dialling);
}

/// Nothing for an internal call.
std::optional<Direction> DirectionOf(const Row& row) {
    const std::u16string_view user_field = row[kUserField];
    if (UpperEquals<u"INTERNAL">(user_field)) return std::nullopt;
    if (UpperEquals<u"INBOUND">(user_field)) return Direction::Incoming;
    if (UpperEquals<u"OUTBOUND">(user_field)) return Direction::Outgoing;
    if (UpperContains<u"EXTERNAL">(user_field)) return Direction::TrunkToTrunk;

    const bool from_trunk = UpperContains<u"TRUNK">(row[kChannelExt]);
    const bool to_trunk = UpperContains<u"TRUNK">(row[kDstChannelExt]) || UpperContains<u"OUTBOUND">(row[kDContext]);
    if (from_trunk && to_trunk) return Direction::TrunkToTrunk;
    if (from_trunk) return Direction::Incoming;
    if (to_trunk) return Direction::Outgoing;
    return std::nullopt;
}

bool IsTransferred(const Row& row) {
    const std::u16string_view context = row[kDContext];
    const std::u16string_view action = row[kActionType];
    return UpperContains<u"FROM-INTERNAL-XFER">(context) || UpperEquals<u"TRANSFER", u"CALLFORWARD">(context) ||
           UpperBegins<u"XFER-">(row[kDst]) || UpperBegins<u"TRANSFER", u"CALLFORWARD">(action) ||
           UpperContains<u"CALL-FORWARD">(action);
}

/// One of several legs that ring for the same call: a ring group, a queue.
bool IsGroupLeg(const Row& row) {
    const std::u16string_view action = row[kActionType];
    const bool group_application = UpperEquals<u"QUEUE", u"GOSUBIF">(row[kLastApp]);
    return UpperBegins<u"RINGGROUP[", u"QUEUE[", u"EXT-GROUP">(action) || UpperEquals<u"EXT-GROUP">(row[kDContext]) ||
           (group_application && !IsDigits(row[kDstChannelExt]));
}

template <GdvField Field>
void AssignUpperParty(GdvRecord& gdv, std::u16string_view party) {
    AssignParty<Field>(gdv, party, [](char16_t c) { return Upper(c); });
}

void FillOutgoing(const Row& row, bool continued, GdvRecord& gdv) {
    const std::u16string_view src = row[kSrc];
    const std::u16string_view user = FirstExtension({src, row[kChannelExt], row[kActionOwner]}, kNoUser);
    AssignZeroPadded<kUser>(gdv, user);
    AssignUpperParty<kNumber>(gdv, row[kDst]);
    Assign<kType>(gdv, continued ? kTypeOutgoingContinued : kTypeOutgoing);
    AssignUpperParty<kPTYNumber>(gdv, IsExtension(src) ? u"" : src);
}

void FillIncoming(const Row& row, bool answered, bool continued, GdvRecord& gdv) {
    const std::u16string_view dst = row[kDst];
    const std::u16string_view user = FirstExtension({row[kDstAnswer], row[kDstChannelExt], dst}, kNoUser);
    AssignZeroPadded<kUser>(gdv, user);
    AssignUpperParty<kNumber>(gdv, row[kSrc]);
    Assign<kType>(gdv, !answered ? kTypeNotAnswered : continued ? kTypeIncomingContinued : kTypeIncoming);
    AssignUpperParty<kPTYNumber>(gdv, dst == user ? u"" : dst);
}

}  // namespace

Outcome Grandstream::ConvertCallRecord(InOutText& record, GdvRecord& gdv) {
    const Row row(record.View());
    if (!IsCallRecord(row) || IsHelperRow(row) || IsFeatureRow(row)) return Outcome::Rejected;
    const std::optional<Direction> direction = DirectionOf(row);
    const bool accepted = UpperEquals<u"ANSWERED">(row[kDisposition]);
    const bool unanswered = UpperEquals<u"NO ANSWER">(row[kDisposition]);
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

}  // namespace vintrel::exchanges::grandstream
