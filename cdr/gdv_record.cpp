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

GdvText Assemble(Outcome outcome, const GdvSlots& slots) {
    if (outcome == Outcome::Rejected) return GdvText(kRejectMarker);
    return GdvText(kStart, slots.line, slots.user, slots.number, slots.user_code, slots.spare, slots.info, slots.type,
                   slots.unity, slots.duration, slots.day, slots.month, slots.year, slots.hour, slots.minute,
                   slots.pty_number, slots.mac_address, kEnd);
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

}  // namespace vintrel::cdr
