// Avaya Integral 1/3/5 and 3: a serial line of STX ETX frames, in the form that the host has made its own.
#pragma once

#include "exchanges/exchange.h"

namespace vintrel::exchanges::avaya_integral {

enum class EmptyNames : std::uint8_t { Taken, Replaced };

class AvayaIntegral final : public Exchange {
 public:
    AvayaIntegral(const Model& model, const Surroundings& surroundings, EmptyNames empty_names)
        : Exchange(model, surroundings), empty_names_(empty_names) {}

    std::u16string WakeUp(const WakeUpOrder& order) override;
    std::u16string CheckIn(const CheckInOrder& order) override;
    std::u16string CheckOut(const CheckOutOrder& order) override;
    std::u16string UserName(std::int32_t room, text::InOutText& name) override;

    RoomState RoomStateOf(std::u16string_view frame) const override;
    RoomAlarm RoomAlarmOf(std::u16string_view frame) const override;
    WakeUpResult WakeUpResultOf(std::u16string_view frame) const override;
    bool IsSetClock(std::u16string_view frame) const override;
    std::optional<SetClock> SetClockOf(std::u16string_view frame) const override;
    bool SpeaksTheHostsForm() const override { return true; }

    records::Outcome ConvertCallRecord(text::InOutText& record, records::GdvRecord& gdv) override;

 private:
    EmptyNames empty_names_;
};

}  // namespace vintrel::exchanges::avaya_integral
