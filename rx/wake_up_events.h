// What the exchange says of wake-up calls: the result of one, and one that a guest has set on the telephone.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "server/platform.h"
#include "server/settings.h"
#include "server/type_code.h"

namespace vintrel::rx {

/// Whether a received frame, with its framing characters, is a wake-up confirmation: 1 yes, 0 no, 2 a wake-up message
/// of the second kind (other Mitel hotel frames; a Panasonic wake-up call that starts). An unknown code answers 1
/// without a report: hosts ask only with a known one.
std::int16_t GetComIsConfirmClock(server::TypeCode type, std::u16string_view frame, const server::Settings& settings);

/// Whether a received frame is a wake-up call set or cleared at the exchange: 1 yes, 0 no. An unknown code answers 1
/// without a report. rx/set_clock converts such a frame.
std::int16_t GetComIsSetClock(server::TypeCode type, std::u16string_view frame);

/// A wake-up confirmation in the form of the Avaya Integral family, 10 characters: STX "07" extension(5) status ETX;
/// those models' own frames come back unchanged. Status "1" answered, "2" not answered (no reply, busy, deleted,
/// failed), "0" started or to be repeated. "" for any other frame.
std::u16string GetComConvertConfirmClockRX(server::TypeCode type, std::u16string_view frame,
                                           const server::Settings& settings, server::CriticalMessage& message);

}  // namespace vintrel::rx
