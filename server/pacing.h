// How the host paces what it sends to each model, and the control strings around it: ten answers of ComEventsTX. An
// unknown code answers 0 or "", after the error report.
#pragma once

#include <cstdint>
#include <string_view>

#include "server/type_code.h"

namespace vintrel::server {

/// 1 = wait for the exchange's confirmation after each command, before the next.
std::int16_t ComPortTxWaitConfirm(TypeCode type, platform::CriticalMessage& message);
/// The pacing interval while confirmations are awaited, in the host's unit.
std::int32_t ComPortTXIntervalWithWait(TypeCode type, platform::CriticalMessage& message);
/// The pacing interval between transmissions, in the host's unit.
std::int32_t ComPortTXInterval(TypeCode type, platform::CriticalMessage& message);
/// Sent to acknowledge a received record.
std::u16string_view ComEventConfirmDataRecordTX(TypeCode type, platform::CriticalMessage& message);
/// Sent to reject a received record.
std::u16string_view ComEventErrorHandleTX(TypeCode type, platform::CriticalMessage& message);
/// Sent to request a login.
std::u16string_view ComEventRequestLogInTX(TypeCode type, platform::CriticalMessage& message);
/// Sent to confirm the exchange's login prompt.
std::u16string_view ComEventConfirmLogInTX(TypeCode type, platform::CriticalMessage& message);
/// 1 = raise DTR and RTS on the serial port, 0 = leave them.
std::int16_t ComEventDtrRtsEnabled(TypeCode type, platform::CriticalMessage& message);
/// Sent before a command.
std::u16string_view ComEventPrimaryTX(TypeCode type, platform::CriticalMessage& message);
/// Sent after a command.
std::u16string_view ComEventAfterTX(TypeCode type, platform::CriticalMessage& message);

}  // namespace vintrel::server
