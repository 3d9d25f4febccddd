// Mitel (Ascotel, IntelliGate, 400): PC4 call records over a serial line or TCP; some models take hotel commands, the
// hotel models also report what is dialled on a room's telephone.
#pragma once

#include "exchanges/exchange.h"

namespace vintrel::exchanges::mitel {

/// Which frames of wake-up calls a model sends.
enum class WakeUpFrames : std::uint8_t { None, Results, OtherKind, Both };

struct Abilities {
    bool orders = false;
    bool room_events = false;
    WakeUpFrames wake_up = WakeUpFrames::None;
};

class Mitel final : public Exchange {
 public:
    Mitel(const Model& model, const Surroundings& surroundings, const Abilities& abilities)
        : Exchange(model, surroundings), abilities_(abilities) {}

    std::u16string WakeUp(const WakeUpOrder& order) override;
    std::u16string CheckIn(const CheckInOrder& order) override;
    std::u16string CheckOut(const CheckOutOrder& order) override;
    std::u16string UserName(std::int32_t room, text::InOutText& name) override;

    RoomState RoomStateOf(std::u16string_view frame) const override;
    RoomAlarm RoomAlarmOf(std::u16string_view frame) const override;
    WakeUpResult WakeUpResultOf(std::u16string_view frame) const override;

    records::Outcome ConvertCallRecord(text::InOutText& record, records::GdvRecord& gdv) override;

 private:
    std::u16string RoomCommand(std::int32_t room, std::u16string_view state) const;

    Abilities abilities_;
};

}  // namespace vintrel::exchanges::mitel
