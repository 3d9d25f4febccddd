#include "exchanges/avaya_integral/avaya_integral.h"
#include "records/steps.h"

namespace vintrel::exchanges::avaya_integral {

using namespace records;
using namespace text;

/// The columns of the Gdv record with a shorter duration; every record is a call.
Outcome AvayaIntegral::ConvertCallRecord(InOutText& text, GdvRecord& gdv) {
    const std::u16string_view record = text.View();
    AssignUnreported(gdv);
    Assign<kLine>(gdv, Mid(record, 2, 5));
    Assign<kUser>(gdv, Mid(record, 7, 5));
    Assign<kNumber>(gdv, Mid(record, 12, 16));
    Assign<kUserCode>(gdv, Mid(record, 28, 4));
    Assign<kSpare>(gdv, Mid(record, 32, 1));
    Assign<kInfo>(gdv, Mid(record, 33, 1));
    Assign<kType>(gdv, Mid(record, 34, 1));
    Assign<kUnity>(gdv, Mid(record, 35, 4));
    AssignZeroPadded<kDurationS>(gdv, Mid(record, 39, 4));
    AssignDateTime(gdv, record, {.day = 43, .month = 45, .year = 47, .hour = 49, .minute = 51});
    Assign<kPTYNumber>(gdv, kNoPtyNumber);
    return Outcome::Call;
}

}  // namespace vintrel::exchanges::avaya_integral
