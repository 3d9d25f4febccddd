#include "exchanges/panasonic/panasonic.h"
#include "records/steps.h"
#include "text/word.h"

namespace vintrel::exchanges::panasonic {

using namespace records;
using namespace text;

namespace {

constexpr std::u16string_view kIncomingMark = u"<I>";
constexpr std::u16string_view kDivertedMark = u"<D>";
constexpr std::u16string_view kCurrency = u"EUR";

/// What the last columns before an end of line say.
struct Endings {
    bool heading = false;  ///< of a page: the column titles or the ruler
    bool transferred = false;
    bool not_answered = false;
};

Endings EndingsOf(std::u16string_view line) {
    Endings endings;
    std::size_t end = 0;
    while ((end = Find(line, u"\r\n", end)) != std::u16string_view::npos) {
        const std::u16string_view code = end < 4 ? u"" : line.substr(end - 4, 4);
        endings.heading = endings.heading || code == u"CD  " || code == u"----";
        endings.transferred = endings.transferred || code == u"TR  ";
        endings.not_answered = endings.not_answered || code == u"NA  ";
        end += 2;
    }
    return endings;
}

bool IsHotelEvent(std::u16string_view line) {
    return UpperContains<u"CHECK IN", u"CHECK OUT", u"CLEANED UP">(line) || UpperContains<u"TIMED REMINDER">(line);
}

/// Hours, minutes and seconds around the first ":" behind the dialled number, printed hh:mm'ss. Without one they are
/// read from the beginning of the line, which has no hours before it.
void AssignDurationOf(std::u16string_view line, GdvRecord& gdv) {
    constexpr std::size_t kBehindTheNumber = 30;
    const std::size_t found = Find(line, u":", kBehindTheNumber - 1);
    const auto colon = found == std::u16string_view::npos ? 0 : static_cast<std::ptrdiff_t>(found) + 1;
    AssignDuration(gdv, Mid(line, colon - 2, 2), Mid(line, colon + 1, 2), Mid(line, colon + 4, 2));
}

/// The whole amount behind the currency; without one, the five characters at position 3.
std::u16string_view UnitsOf(std::u16string_view line) {
    const std::size_t found = Find(line, kCurrency);
    const auto currency = found == std::u16string_view::npos ? 0 : static_cast<std::ptrdiff_t>(found) + 1;
    return Mid(line, currency + 3, 5);
}

void AssignOutgoing(std::u16string_view line, const Endings& endings, GdvRecord& gdv) {
    Assign<kType>(gdv, endings.transferred ? kTypeOutgoingContinued : kTypeOutgoing);
    AssignBlankPadded<kNumber>(gdv, Trim(Mid(line, 29, 16), u'-'));
    gdv.Replace<kNumber>(kNumber.Width(), u'-', u' ');
    Assign<kPTYNumber>(gdv, kNoPtyNumber);
}

void AssignIncoming(std::u16string_view line, std::size_t mark, const Endings& endings, GdvRecord& gdv) {
    Assign<kType>(gdv, endings.not_answered  ? kTypeNotAnswered
                       : endings.transferred ? kTypeIncomingContinued
                                             : kTypeIncoming);
    Assign<kNumber>(gdv, line.substr(mark + kIncomingMark.size()).substr(0, 16));
    const std::size_t diverted = Find(line, kDivertedMark);
    if (diverted == std::u16string_view::npos) {
        Assign<kPTYNumber>(gdv, kNoPtyNumber);
    } else if (const std::size_t from = diverted + kDivertedMark.size(); from <= mark) {
        AssignBlankPadded<kPTYNumber>(gdv, Left(line.substr(from, mark - from), 16));
    }
}

}  // namespace

Outcome Panasonic::ConvertCallRecord(InOutText& record, GdvRecord& gdv) {
    const std::u16string_view line = record.View();
    const Endings endings = EndingsOf(line);
    if (endings.heading || IsHotelEvent(line)) return Outcome::Rejected;

    AssignUnreported(gdv);
    AssignZeroPadded<kLine>(gdv, Mid(line, 24, 4));
    AssignZeroPadded<kUser>(gdv, Mid(line, 18, 5));
    Assign<kUserCode>(gdv, kNoUserCode);
    AssignNumberValue<kUnity>(gdv, UnitsOf(line));
    AssignDurationOf(line, gdv);
    AssignDateTime(gdv, line, {.day = 1, .month = 4, .year = 7, .hour = 10, .minute = 13});

    const std::size_t incoming = Find(line, kIncomingMark);
    if (incoming == std::u16string_view::npos)
        AssignOutgoing(line, endings, gdv);
    else
        AssignIncoming(line, incoming, endings, gdv);
    return Outcome::Call;
}

}  // namespace vintrel::exchanges::panasonic
