// Guest orders of every model: check-in, check-out and the name on the telephone.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "server/text.h"
#include "server/type_code.h"
#include "tx/driven_exchanges.h"

namespace vintrel::tx {

// Each answers the command for the host to send, or the verdict of an exchange that the server drives itself; "" for a
// model without such an order. ChangeNameEnabled 1 sets (check-in) or clears (check-out) the name as well.

std::u16string ComEventCheckInTX(server::TypeCode TypeX, std::int32_t UserX, std::u16string_view NameX,
                                 std::int16_t LanguageX, std::int16_t ChangeNameEnabled,
                                 server::CriticalMessage& message, DrivenExchanges& exchanges);

std::u16string ComEventCheckOutTX(server::TypeCode TypeX, std::int32_t UserX, std::int16_t ChangeNameEnabled,
                                  server::CriticalMessage& message, DrivenExchanges& exchanges);

/// On the Mitel hotel models a name that is empty, one blank or a number becomes "I" and the room, in the caller's
/// variable too.
std::u16string ComEventUserNameTX(server::TypeCode TypeX, std::int32_t UserX, server::InOutText& NameZ,
                                  server::CriticalMessage& message, DrivenExchanges& exchanges);

}  // namespace vintrel::tx
