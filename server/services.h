// Which hotel services each model offers: the eight answers of ServiceEnabled. 1 = offered, 0 = not offered; 0 also for
// an unknown code, after the error report.
#pragma once

#include <cstdint>

#include "server/type_code.h"

namespace vintrel::server {

/// Messages of the room state (cleaned, not cleaned) come from the exchange.
std::int16_t GetRoomStateEnabled(TypeCode type, platform::CriticalMessage& message);
/// Wake-up calls can be set on the exchange.
std::int16_t GetClockEnabled(TypeCode type, platform::CriticalMessage& message);
/// The central wake-up flag.
std::int16_t GetClockCentral(TypeCode type, platform::CriticalMessage& message);
/// Call records are delivered.
std::int16_t GetCallListEnabled(TypeCode type, platform::CriticalMessage& message);
/// Check-in and check-out commands.
std::int16_t GetCheckInOutEnabled(TypeCode type, platform::CriticalMessage& message);
/// Changes of the guest's name.
std::int16_t GetModifyNameEnabled(TypeCode type, platform::CriticalMessage& message);
/// The wake-up date level: 0, 1 or 2.
std::int16_t GetClockDateEnabled(TypeCode type, platform::CriticalMessage& message);
/// Room alarm messages come from the exchange.
std::int16_t GetRoomAlarmEnabled(TypeCode type, platform::CriticalMessage& message);

}  // namespace vintrel::server
