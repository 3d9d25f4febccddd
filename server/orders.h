// The orders of the host: wake-up calls, and guests. Each answers the command for the host to send, or the verdict of
// an exchange that the server drives itself; "" for a model without such an order. Unknown codes are reported and give
// "".
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "server/type_code.h"
#include "text/text.h"

namespace vintrel::server {

/// Sets, repeats or cancels a wake-up call. "" also for a mode that the model does not know.
/// @param TimeX  "hhmm"; shorter text is used as it is.
/// @param DateX  "ddmm"; "----" is no date (FIAS).
/// @param WakeUpMode  0 single, 1 cancel, 2 repeating.
/// @param LanguageX  of the announcement (innovaphone): 0 German, 1 Italian, 2 English, 3 French, 4 Spanish.
std::u16string ComEventClockTX(TypeCode TypeX, std::int32_t UserX, std::u16string_view TimeX, std::u16string_view DateX,
                               std::int16_t WakeUpMode, std::int16_t LanguageX, const exchanges::Exchanges& exchanges,
                               platform::CriticalMessage& message);

/// @param ChangeNameEnabled  1 sets the name as well; in a check-out it clears it.
std::u16string ComEventCheckInTX(TypeCode TypeX, std::int32_t UserX, std::u16string_view NameX, std::int16_t LanguageX,
                                 std::int16_t ChangeNameEnabled, const exchanges::Exchanges& exchanges,
                                 platform::CriticalMessage& message);

std::u16string ComEventCheckOutTX(TypeCode TypeX, std::int32_t UserX, std::int16_t ChangeNameEnabled,
                                  const exchanges::Exchanges& exchanges, platform::CriticalMessage& message);

/// The name on the telephone. On the Mitel hotel models a name that is empty, one blank or a number becomes "I" and the
/// room, in the caller's variable too.
std::u16string ComEventUserNameTX(TypeCode TypeX, std::int32_t UserX, text::InOutText& NameZ,
                                  const exchanges::Exchanges& exchanges, platform::CriticalMessage& message);

}  // namespace vintrel::server
