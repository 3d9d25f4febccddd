// How the host paces what it sends to each model, and the control strings around it: ten answers of ComEventsTX. An
// unknown code answers 0 or "", after the error report.
#pragma once

#include <cstdint>
#include <string_view>

#include "server/type_code.h"

namespace vintrel::tx {

/// 1 = wait for the exchange's confirmation after each command, before the next.
std::int16_t ComPortTxWaitConfirm(server::TypeCode type, server::CriticalMessage& message);
/// The pacing interval while confirmations are awaited, in the host's unit.
std::int32_t ComPortTXIntervalWithWait(server::TypeCode type, server::CriticalMessage& message);
/// The pacing interval between transmissions, in the host's unit.
std::int32_t ComPortTXInterval(server::TypeCode type, server::CriticalMessage& message);
/// Sent to acknowledge a received record.
std::u16string_view ComEventConfirmDataRecordTX(server::TypeCode type, server::CriticalMessage& message);
/// Sent to reject a received record.
std::u16string_view ComEventErrorHandleTX(server::TypeCode type, server::CriticalMessage& message);
/// Sent to request a login.
std::u16string_view ComEventRequestLogInTX(server::TypeCode type, server::CriticalMessage& message);
/// Sent to confirm the exchange's login prompt.
std::u16string_view ComEventConfirmLogInTX(server::TypeCode type, server::CriticalMessage& message);
/// 1 = raise DTR and RTS on the serial port, 0 = leave them.
std::int16_t ComEventDtrRtsEnabled(server::TypeCode type, server::CriticalMessage& message);
/// Sent before a command.
std::u16string_view ComEventPrimaryTX(server::TypeCode type, server::CriticalMessage& message);
/// Sent after a command.
std::u16string_view ComEventAfterTX(server::TypeCode type, server::CriticalMessage& message);

}  // namespace vintrel::tx
