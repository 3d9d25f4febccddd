// Trucco Algoral 658: a serial printer line of call records.
#include <algorithm>
#include <cstddef>
#include <iterator>

#include "exchanges/exchange.h"
#include "records/steps.h"
#include "text/control_characters.h"
#include "text/numbers.h"
#include "text/scan.h"

namespace vintrel::exchanges::algoral {
namespace {

using namespace records;
using namespace text;

class Algoral final : public Exchange {
 public:
    using Exchange::Exchange;

    Outcome ConvertCallRecord(InOutText& record, GdvRecord& gdv) override;
};

constexpr Model kModels[] = {{
    .code = u"TYPE10010",
    .name = u"Trucco - Algoral 658",
    .make = Make<Algoral>,
    .services = {.central = 1, .call_list = 1},
    .framing = {.length = 292},
    .pacing = {.interval_with_wait = 1, .interval = 1},
    .transfer = {.milliseconds = 5000, .minutes = 1, .duration = 2},
}};

/// What the letter of a call's kind means.
struct Kind {
    char16_t letter;
    std::u16string_view type;
    std::ptrdiff_t number;  ///< where the other party's number stands; 0: the record comes out shorter
};

constexpr std::ptrdiff_t kDialled = 175;
constexpr std::ptrdiff_t kCaller = 244;
constexpr Kind kKinds[] = {
    {u'U', kTypeOutgoing, kDialled},         {u'E', kTypeIncoming, kCaller},
    {u'I', kTypeNotAnswered, kCaller},       {u'T', kTypeOutgoingContinued, kDialled},
    {u'O', kTypeIncomingContinued, kCaller}, {u'R', kTypeOutgoing, kDialled},
};
constexpr Kind kOtherKind{u' ', kTypeOutgoing, 0};

const Kind& KindOf(std::u16string_view letter) {
    const char16_t upper = letter.empty() ? kOtherKind.letter : Upper(letter.front());
    for (const Kind& kind : kKinds)
        if (kind.letter == upper) return kind;
    return kOtherKind;
}

/// Hours are printed with one digit or two, or left blank. Negative for any other text.
int HoursOf(std::u16string_view hours) {
    if (hours.size() == 2 && hours[0] == kBlank && IsDigit(hours[1])) return hours[1] - u'0';
    hours = Trim(hours);
    if (hours.empty()) return 0;
    return hours.size() == 1 && IsDigit(hours[0]) ? hours[0] - u'0' : TwoDigitValue(hours);
}

void AssignDurationOf(std::u16string_view hours, std::u16string_view minutes, std::u16string_view seconds,
                      GdvRecord& gdv) {
    const int h = HoursOf(hours);
    const int m = TwoDigitValue(minutes);
    const int s = TwoDigitValue(seconds);
    if ((h | m | s) >= 0) [[likely]] {
        AssignDuration(gdv, h, m, s);
        return;
    }
    hours = Trim(hours);
    AssignJoinedDuration(gdv, InlineText<2>(kZeros.substr(0, 2 - hours.size()), hours), minutes, Trim(seconds));
}

/// The text from the first ":" to position 301, behind the tag "*Term.", becomes the caller's text and is converted;
/// every record is a call. Without ":" the record is rejected and stays.
Outcome Algoral::ConvertCallRecord(InOutText& record, GdvRecord& gdv) {
    constexpr std::u16string_view kTag = u"*Term.";
    constexpr std::ptrdiff_t kUsefulEnd = 301;
    const char16_t* const begin = record.View().data();
    const char16_t* const end = begin + record.View().size();
    const char16_t* const colon = FindFirst(begin, end, scan::Is(u':'));
    if (colon == end) return Outcome::Rejected;
    // A colon behind the useful part leaves nothing to cut, and the text is read as it stands.
    const bool cut = colon - begin <= kUsefulEnd;
    if (cut) {  // and without the blanks behind it, often a hundred
        const char16_t* const useful_end = std::min(end, begin + kUsefulEnd);
        record.Narrow({colon, FindEndOf(colon, useful_end, [](auto c) { return !(c == kBlank); })}, kTag);
    }
    // Columns count from the tag, in which nothing is read.
    constexpr std::ptrdiff_t kTagLength = std::ssize(kTag);
    const std::u16string_view behind_tag = cut ? record.View() : Mid(record.View(), kTagLength + 1);
    const auto columns = [=](std::ptrdiff_t start, std::ptrdiff_t count) {
        return Mid(behind_tag, start - kTagLength, count);
    };
    const Kind& kind = KindOf(columns(139, 1));

    AssignUnreported(gdv);
    AssignZeroPadded<kLine>(gdv, columns(16, 3));
    AssignZeroPadded<kUser>(gdv, columns(8, 5));
    if (kind.type == kTypeNotAnswered && HasValue(gdv.Slot<kUser>(), 0)) Assign<kUser>(gdv, u"09999");
    if (kind.number != 0) AssignBlankPadded<kNumber>(gdv, columns(kind.number, 16));
    AssignZeroPadded<kUserCode>(gdv, columns(291, 4));
    Assign<kType>(gdv, kind.type);
    AssignZeroPadded<kUnity>(gdv, columns(70, 4));
    AssignDurationOf(columns(87, 2), columns(90, 2), columns(94, 2), gdv);
    constexpr DateTimeColumns kDateTime{.day = 25, .month = 28, .year = 33, .hour = 36, .minute = 39};
    AssignDateTime(gdv, behind_tag, kDateTime.Behind(kTagLength));
    Assign<kPTYNumber>(gdv, kNoPtyNumber);
    return Outcome::Call;
}

}  // namespace

std::span<const Model> Models() { return kModels; }

}  // namespace vintrel::exchanges::algoral
