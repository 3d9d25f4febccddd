#include "cdr/gdv_record.h"

#include <utility>

#include "server/control_characters.h"

namespace vintrel::cdr {
void GdvRecord::Assemble() {
    const auto full = [&]<std::size_t... I>(std::index_sequence<I...>) {
        return (... && (sizes_[I] == kGdvFields[I].Width()));
    };
    char16_t* end = At(kMacAddress) + kMacAddress.length;
    if (!full(std::make_index_sequence<kCount>())) {
        end = At(kLine);
        for (std::size_t i = 0; i < kCount;
             ++i) {  // each moves to the left or stays: none is overwritten before its turn
            const char16_t* const slot = At(kGdvFields[i]);
            end = std::copy(slot, slot + sizes_[i], end);
        }
    }
    characters_.front() = server::kStx;
    *end++ = server::kEtx;
    size_ = static_cast<std::size_t>(end - characters_.data());
}

void GdvRecord::Reject() {
    characters_.front() = server::kDle;
    size_ = 1;
}

void AssignDateTime(GdvRecord& gdv, const server::DateTime& date_time) {
    gdv.BecomeDigits<kDateD>(static_cast<unsigned>(date_time.day));
    gdv.BecomeDigits<kDateM>(static_cast<unsigned>(date_time.month));
    gdv.BecomeDigits<kDateY>(static_cast<unsigned>(date_time.year % 100));
    gdv.BecomeDigits<kTimeH>(static_cast<unsigned>(date_time.hour));
    gdv.BecomeDigits<kTimeM>(static_cast<unsigned>(date_time.minute));
}

double HoursMinutesSecondsToSeconds(std::u16string_view hhmmss) {
    return server::NumberValue(server::Left(hhmmss, 2)) * 3600 + server::NumberValue(server::Mid(hhmmss, 3, 2)) * 60 +
           server::NumberValue(server::Right(hhmmss, 2));
}

void AssignJoinedDuration(GdvRecord& gdv, std::u16string_view hours, std::u16string_view minutes,
                          std::u16string_view seconds) {
    AssignNumber<kDurationS>(gdv, HoursMinutesSecondsToSeconds(InlineText<6>(hours, minutes, seconds)));
}

}  // namespace vintrel::cdr
