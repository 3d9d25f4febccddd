#include "records/steps.h"
#include "text/numbers.h"

namespace vintrel::records {

void AssignDateTime(GdvRecord& gdv, const text::DateTime& date_time) {
    gdv.BecomeDigits<kDateD>(static_cast<unsigned>(date_time.day));
    gdv.BecomeDigits<kDateM>(static_cast<unsigned>(date_time.month));
    gdv.BecomeDigits<kDateY>(static_cast<unsigned>(date_time.year % 100));
    gdv.BecomeDigits<kTimeH>(static_cast<unsigned>(date_time.hour));
    gdv.BecomeDigits<kTimeM>(static_cast<unsigned>(date_time.minute));
}

double HoursMinutesSecondsToSeconds(std::u16string_view hhmmss) {
    return text::NumberValue(text::Left(hhmmss, 2)) * 3600 + text::NumberValue(text::Mid(hhmmss, 3, 2)) * 60 +
           text::NumberValue(text::Right(hhmmss, 2));
}

void AssignJoinedDuration(GdvRecord& gdv, std::u16string_view hours, std::u16string_view minutes,
                          std::u16string_view seconds) {
    AssignNumber<kDurationS>(gdv, HoursMinutesSecondsToSeconds(text::InlineText<6>(hours, minutes, seconds)));
}

}  // namespace vintrel::records
