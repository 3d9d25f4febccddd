// Panasonic KX-TDE: call records over a serial line; KX-TDE/NS: the same and hotel events over TCP. There an order is
// one or two device-specific requests on the telephony line of the extension.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "exchanges/exchange.h"
#include "exchanges/panasonic/device_block.h"

namespace vintrel::exchanges::panasonic {

class Panasonic : public Exchange {
 public:
    using Exchange::Exchange;

    records::Outcome ConvertCallRecord(text::InOutText& record, records::GdvRecord& gdv) final;
};

class PanasonicHotel final : public Panasonic {
 public:
    using Panasonic::Panasonic;

    void Initialize() override;
    /// Starts telephony when the hotel functions are on.
    void InitializeSec() override;
    void UnInitialize() override;
    bool InUse() const override { return tapi_.TapiLineApp != 0; }

    /// A mode above 2 does nothing and answers "".
    std::u16string WakeUp(const WakeUpOrder& order) override;
    std::u16string CheckIn(const CheckInOrder& order) override;
    std::u16string CheckOut(const CheckOutOrder& order) override;
    /// Names are changed by checking in: this clears the length of the name, whatever the new name is.
    std::u16string UserName(std::int32_t room, text::InOutText& name) override;

    RoomState RoomStateOf(std::u16string_view frame) const override;
    RoomAlarm RoomAlarmOf(std::u16string_view frame) const override;
    WakeUpResult WakeUpResultOf(std::u16string_view frame) const override;

 private:
    /// Opens the line of the room and carries the requests out, or answers without it.
    template <typename Requests>
    std::u16string OnLine(std::int32_t room, Requests requests);
    std::optional<std::uint32_t> FindDevice(std::int32_t room);
    std::optional<std::uint32_t> OpenLine(std::int32_t room);
    bool Carry(std::uint32_t line, DeviceBlock::Request request);
    bool ClearName(std::uint32_t line);
    void StoreLineReply(std::uint32_t first, std::int32_t second, std::int32_t third);

    struct Telephony {
        std::uint32_t TapiLineApp = 0;  ///< 0 when not started
        std::uint32_t TapiLineCount = 0;
        bool TapiReady = false;
        std::uint32_t TapiLastReplyId = 0;
    } tapi_;
    DeviceBlock block_;
};

}  // namespace vintrel::exchanges::panasonic
