// What an exchange says of rooms and wake-up calls: whether a received frame, with its framing characters, is such a
// message, and the message in the host's form, which is that of the Avaya Integral family.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "server/type_code.h"

namespace vintrel::server {

// An unknown code answers 1 without a report: hosts ask only with a known one.

/// 1 a room-state message, 0 not.
std::int16_t GetComIsRoomState(TypeCode type, std::u16string_view frame, const exchanges::Exchanges& exchanges);
/// 1 a room-alarm message, 0 not, 2 a Mitel hotel frame of another kind.
std::int16_t GetComIsRoomAlarm(TypeCode type, std::u16string_view frame, const exchanges::Exchanges& exchanges);
/// 1 a wake-up confirmation, 0 not, 2 a wake-up message of the second kind (other Mitel hotel frames; a Panasonic
/// wake-up call that starts).
std::int16_t GetComIsConfirmClock(TypeCode type, std::u16string_view frame, const exchanges::Exchanges& exchanges);
/// 1 a wake-up call set or cleared at the exchange, 0 not.
std::int16_t GetComIsSetClock(TypeCode type, std::u16string_view frame, const exchanges::Exchanges& exchanges);

// An unknown code is reported and gives ""; "" also for a frame that is no such message.

/// 14 characters: STX "08" extension(5) "0011" (clean) or "0022" (not clean) "1" ETX; frames of the Avaya Integral
/// family come back unchanged, here and below.
std::u16string GetComConvertRoomStateRX(TypeCode type, std::u16string_view frame, const exchanges::Exchanges& exchanges,
                                        platform::CriticalMessage& message);
/// The same for a room alarm, with "0033". "" also for what GetComIsRoomAlarm answers 2.
std::u16string GetComConvertRoomAlarmRX(TypeCode type, std::u16string_view frame, const exchanges::Exchanges& exchanges,
                                        platform::CriticalMessage& message);
/// 10 characters: STX "07" extension(5) status ETX. Status "1" answered, "2" not answered (no reply, busy, deleted,
/// failed), "0" started or to be repeated.
std::u16string GetComConvertConfirmClockRX(TypeCode type, std::u16string_view frame,
                                           const exchanges::Exchanges& exchanges, platform::CriticalMessage& message);

/// A set-clock frame as one string, read by position, 32 characters when every field has its full width:
/// STX | command "08" 2-3 | extension 4-8 | mode 9 ("1" set, "2" cleared) | time 10-13 ("hhmm", "XXXX" unknown) |
/// date 14-17 ("ddmm", "----" none) | 14 blanks | ETX. A field that comes out shorter moves the later ones left.
/// "" for models that report no settings.
std::u16string GetComConvertSetClockRX(TypeCode type, std::u16string_view frame, const exchanges::Exchanges& exchanges,
                                       platform::CriticalMessage& message);

}  // namespace vintrel::server
