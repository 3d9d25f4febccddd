// Room states and room alarms that are dialled on a room's telephone.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "server/platform.h"
#include "server/settings.h"
#include "server/type_code.h"

namespace vintrel::rx {

/// Whether a received frame, with its framing characters, is a room-state message: 1 yes, 0 no. An unknown code answers
/// 1 without a report: hosts ask only with a known one.
std::int16_t GetComIsRoomState(server::TypeCode type, std::u16string_view frame, const server::Settings& settings);

/// Whether a received frame is a room-alarm message: 1 yes, 0 no, 2 a Mitel hotel frame of another kind. An unknown
/// code answers 1 without a report.
std::int16_t GetComIsRoomAlarm(server::TypeCode type, std::u16string_view frame, const server::Settings& settings);

/// A room-state message in the form of the Avaya Integral family, 14 characters: STX "08" extension(5) "0011" (clean)
/// or "0022" (not clean) "1" ETX; those models' own frames come back unchanged. "" for a frame that is no room state.
std::u16string GetComConvertRoomStateRX(server::TypeCode type, std::u16string_view frame,
                                        const server::Settings& settings, server::CriticalMessage& message);

/// The same for a room-alarm message, with "0033". "" also for what GetComIsRoomAlarm answers 2.
std::u16string GetComConvertRoomAlarmRX(server::TypeCode type, std::u16string_view frame,
                                        const server::Settings& settings, server::CriticalMessage& message);

}  // namespace vintrel::rx
