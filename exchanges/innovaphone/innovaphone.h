// innovaphone: call records and events over HTTP; an order is a request to the administration pages of the exchange.
#pragma once

#include <string>
#include <string_view>

#include "exchanges/exchange.h"
#include "exchanges/innovaphone/reference_table.h"

namespace vintrel::exchanges::innovaphone {

/// From "Vintrel.ini": upper case, but for the two wake-up endpoints.
struct Numbers {
    std::u16string CallIncomingSrcIf;
    std::u16string CallIncomingDstIf;
    std::u16string CallOutgoingSrcIf;
    std::u16string CallOutgoingDstIf;
    std::u16string RoomStatusCleanCdpn;
    std::u16string RoomStatusNotCleanCdpn;
    std::u16string RoomStatusAlarmCdpn;
    std::u16string RoomStatusCleanOccupiedCdpn;
    std::u16string RoomStatusNotCleanOccupiedCdpn;
    std::u16string RoomStatusInspectedOccupiedCdpn;
    std::u16string WakeupResponseH323;
    std::u16string WakeupResponseFallback;
};

class Innovaphone final : public Exchange {
 public:
    using Exchange::Exchange;

    void Initialize() override;

    /// A mode other than 0 to 2 repeats the last request, whatever it was.
    std::u16string WakeUp(const WakeUpOrder& order) override;
    std::u16string CheckIn(const CheckInOrder& order) override;
    std::u16string CheckOut(const CheckOutOrder& order) override;
    std::u16string UserName(std::int32_t room, text::InOutText& name) override;

    RoomState RoomStateOf(std::u16string_view frame) const override;
    RoomAlarm RoomAlarmOf(std::u16string_view frame) const override;
    WakeUpResult WakeUpResultOf(std::u16string_view frame) const override;

    /// One event record. A call is charged by its legs: "A:X" and "B:X" end a leg by transfer, "A:Rel" ends the last
    /// one; every other event is rejected. The exchange reports UTC. Without interfaces of incoming and outgoing calls
    /// in the settings the interface's kind decides.
    records::Outcome ConvertCallRecord(text::InOutText& record, records::GdvRecord& gdv) override;

 private:
    std::u16string Submit(std::u16string request);
    bool FetchCurrent();

    Numbers numbers_;
    std::u16string request_;  ///< the current one; the next order replaces it
    ReferenceTable
        references_;  ///< calls of which a transferred leg has been converted: later legs are continued calls
};

}  // namespace vintrel::exchanges::innovaphone
