#include "cdr/gdv_record.h"

#include "server/control_characters.h"

namespace vintrel::cdr {
namespace {

InlineText<2> TwoDigits(int value) {
    const std::array<char16_t, 2> digits{static_cast<char16_t>(u'0' + value / 10 % 10),
                                         static_cast<char16_t>(u'0' + value % 10)};
    return InlineText<2>(std::u16string_view(digits.data(), digits.size()));
}

}  // namespace

void GdvSlots::Assemble() {
    const bool full = line.Full() && user.Full() && number.Full() && user_code.Full() && spare.Full() && info.Full() &&
                      type.Full() && unity.Full() && duration.Full() && day.Full() && month.Full() && year.Full() &&
                      hour.Full() && minute.Full() && pty_number.Full() && mac_address.Full();
    char16_t* end = At(kMacAddress) + kMacAddress.length;
    if (!full) {
        end = At(kLine);
        // Every slot moves to the left or stays: none is overwritten before its turn.
        for (const std::u16string_view slot :
             {line.View(), user.View(), number.View(), user_code.View(), spare.View(), info.View(), type.View(),
              unity.View(), duration.View(), day.View(), month.View(), year.View(), hour.View(), minute.View(),
              pty_number.View(), mac_address.View()})
            end = std::copy(slot.begin(), slot.end(), end);
    }
    record_.characters_.front() = server::kStx;
    *end++ = server::kEtx;
    record_.size_ = static_cast<std::size_t>(end - record_.characters_.data());
}

void GdvSlots::Reject() {
    record_.characters_.front() = server::kDle;
    record_.size_ = 1;
}

void AssignDecimal(Slot<4>& slot, double value) { Assign(slot, server::ZeroPad(server::DecimalText(value), 4)); }

void AssignDecimal(Slot<5>& slot, double value) { Assign(slot, server::ZeroPad(server::DecimalText(value), 5)); }

void AssignUnreported(GdvSlots& slots) {
    Assign(slots.spare, u"0");
    Assign(slots.info, u"0");
    Assign(slots.mac_address, kNoMacAddress);
}

void AssignUserCode(GdvSlots& slots, std::u16string_view user_code) {
    Assign(slots.user_code, server::ZeroPad(server::Trim(user_code), 4));
}

void AssignDateTime(GdvSlots& slots, const server::DateTime& date_time) {
    Assign(slots.day, TwoDigits(date_time.day));
    Assign(slots.month, TwoDigits(date_time.month));
    Assign(slots.year, TwoDigits(date_time.year));
    Assign(slots.hour, TwoDigits(date_time.hour));
    Assign(slots.minute, TwoDigits(date_time.minute));
}

double HoursMinutesSecondsToSeconds(std::u16string_view hhmmss) {
    return server::NumberValue(server::Left(hhmmss, 2)) * 3600 + server::NumberValue(server::Mid(hhmmss, 3, 2)) * 60 +
           server::NumberValue(server::Right(hhmmss, 2));
}

}  // namespace vintrel::cdr
