// A call that an extension transfers to an outside line comes as two call records: this pairs them.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/clock.h"
#include "platform/message_loop.h"

namespace vintrel::server {

/// The record that waits for its other half: one per server. It expires when its time is over, whether or not the host
/// has processed messages meanwhile; while it does, the timer clears it.
class PendingLeg {
 public:
    std::u16string ExtTransferDirection;  ///< blank: no pending leg
    std::int32_t ExtTransferUser = 0;
    std::u16string ExtTransferDate;
    std::u16string ExtTransferTime;
    std::int32_t ExtTransferDuration = 0;

    std::uint64_t expires_at = 0;  ///< of Clock::Milliseconds

    void Clear() { *this = {}; }
};

/// 1 when this record and the pending leg form an external transfer; else 0, and this record becomes the pending leg
/// for 4 or 5 seconds, depending on the model.
/// @param time       "hh:mm"; minutes are compared within the day, so legs on both sides of midnight never match.
/// @param direction  any text; the legs of a transfer have different ones.
/// @param condition  four flags, "1" compares: user, date, time (within 1 or 2 minutes), duration (within 2 or 3).
/// @param type       compared as given; an unknown code never matches.
std::int16_t CheckExternalTransfert(std::int32_t user, std::u16string_view date, std::u16string_view time,
                                    std::int32_t duration, std::u16string_view direction, std::u16string_view condition,
                                    std::u16string_view type, PendingLeg& leg, const platform::Clock& clock,
                                    platform::MessageLoop& loop);

}  // namespace vintrel::server
