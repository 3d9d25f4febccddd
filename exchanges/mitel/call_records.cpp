#include "exchanges/mitel/mitel.h"
#include "records/steps.h"

namespace vintrel::exchanges::mitel {

using namespace records;
using namespace text;

namespace {

/// The first digit of the call-type code is the kind of charging (0 transferred, 1 dialled, 2 incoming, 6 to 9 with
/// cost centre or private), the second how the call came about.
std::u16string_view TypeOf(std::u16string_view code) {
    if (code.size() != 2) return kTypeOutgoing;
    const char16_t kind = code[0];
    const char16_t way = code[1];
    if (kind == u'2') {
        if (way == u'0') return kTypeIncomingContinued;
        if (way == u'2' || way == u'4') return kTypeNotAnswered;
        return IsDigit(way) ? kTypeIncoming : kTypeOutgoing;
    }
    const bool transferred = kind == u'0' || kind == u'6' || kind == u'8';
    return transferred && (way == u'0' || (way >= u'4' && way <= u'8')) ? kTypeOutgoingContinued : kTypeOutgoing;
}

}  // namespace

Outcome Mitel::ConvertCallRecord(InOutText& text, GdvRecord& gdv) {
    const std::u16string_view record = text.View();
    Assign<kLine>(gdv, Mid(record, 43, 5));
    Assign<kUser>(gdv, Mid(record, 2, 5));
    Assign<kNumber>(gdv, Mid(record, 67, 16));
    AssignZeroPadded<kUserCode>(gdv, Mid(record, 8, 4));
    Assign<kType>(gdv, TypeOf(Trim(Mid(record, 18, 2))));
    AssignZeroPadded<kUnity>(gdv, Mid(record, 62, 4));
    AssignDuration(gdv, Mid(record, 34, 2), Mid(record, 37, 2), Mid(record, 40, 2));
    AssignDateTime(gdv, record, {.day = 25, .month = 23, .year = 21, .hour = 28, .minute = 31});
    AssignBlankPadded<kPTYNumber>(gdv, Mid(record, 49, 11));
    AssignUnreported(gdv);
    return Outcome::Call;
}

}  // namespace vintrel::exchanges::mitel
