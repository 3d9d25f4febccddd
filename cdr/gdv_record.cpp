#include "cdr/gdv_record.h"

#include "server/control_characters.h"

namespace vintrel::cdr {
namespace {

constexpr std::u16string_view kStart(&server::kStx, 1);
constexpr std::u16string_view kEnd(&server::kEtx, 1);
constexpr std::u16string_view kRejectMarker(&server::kDle, 1);

InlineText<2> TwoDigits(int value) {
    const std::array<char16_t, 2> digits{static_cast<char16_t>(u'0' + value / 10 % 10),
                                         static_cast<char16_t>(u'0' + value % 10)};
    return InlineText<2>(std::u16string_view(digits.data(), digits.size()));
}

}  // namespace

GdvText GdvSlots::Assemble() {
    const bool full = line.Full() && user.Full() && number.Full() && user_code.Full() && spare.Full() && info.Full() &&
                      type.Full() && unity.Full() && duration.Full() && day.Full() && month.Full() && year.Full() &&
                      hour.Full() && minute.Full() && pty_number.Full() && mac_address.Full();
    if (!full)
        return GdvText(kStart, line, user, number, user_code, spare, info, type, unity, duration, day, month, year,
                       hour, minute, pty_number, mac_address, kEnd);
    record_.front() = server::kStx;
    record_.back() = server::kEtx;
    return GdvText(std::u16string_view(record_.data(), record_.size()));
}

GdvText Assemble(Outcome outcome, GdvSlots& slots) {
    return outcome == Outcome::Rejected ? GdvText(kRejectMarker) : slots.Assemble();
}

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

double HoursMinutesSecondsToSeconds(std::u16string_view hours, std::u16string_view minutes,
                                    std::u16string_view seconds) {
    return HoursMinutesSecondsToSeconds(InlineText<6>(hours, minutes, seconds));
}

}  // namespace vintrel::cdr
