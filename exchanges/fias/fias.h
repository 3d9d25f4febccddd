// FIAS: a property-management link of STX ETX records, fields "|KKvalue|".
#pragma once

#include "exchanges/exchange.h"

namespace vintrel::exchanges::fias {

class Fias final : public Exchange {
 public:
    using Exchange::Exchange;

    std::u16string WakeUp(const WakeUpOrder& order) override;
    std::u16string CheckIn(const CheckInOrder& order) override;
    std::u16string CheckOut(const CheckOutOrder& order) override;
    std::u16string UserName(std::int32_t room, text::InOutText& name) override;

    RoomState RoomStateOf(std::u16string_view frame) const override;
    RoomAlarm RoomAlarmOf(std::u16string_view frame) const override;
    WakeUpResult WakeUpResultOf(std::u16string_view frame) const override;
    bool IsSetClock(std::u16string_view frame) const override;
    std::optional<SetClock> SetClockOf(std::u16string_view frame) const override;

    /// A posting, "|RN102|DD...|"; link descriptions and link records are no calls.
    records::Outcome ConvertCallRecord(text::InOutText& record, records::GdvRecord& gdv) override;
};

}  // namespace vintrel::exchanges::fias
