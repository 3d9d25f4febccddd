// Wake-up orders of every model.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "server/type_code.h"
#include "tx/driven_exchanges.h"

namespace vintrel::tx {

/// The command that sets, repeats or cancels a wake-up call, for the host to send, or the verdict of an exchange that
/// the server drives itself. "" for a model without wake-up calls, and for a mode that the model does not know.
/// @param TimeX  "hhmm"; shorter text is used as it is.
/// @param DateX  "ddmm"; "----" is no date (FIAS).
/// @param WakeUpMode  0 single, 1 cancel, 2 repeating.
/// @param LanguageX  of the announcement (innovaphone): 0 German, 1 Italian, 2 English, 3 French, 4 Spanish.
std::u16string ComEventClockTX(server::TypeCode TypeX, std::int32_t UserX, std::u16string_view TimeX,
                               std::u16string_view DateX, std::int16_t WakeUpMode, std::int16_t LanguageX,
                               server::CriticalMessage& message, const server::Clock& clock,
                               DrivenExchanges& exchanges);

}  // namespace vintrel::tx
