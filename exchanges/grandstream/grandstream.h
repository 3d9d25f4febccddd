// Grandstream UCM: call records and events over TCP; an order is a document in an HTTPS request to the PMS interface of
// the exchange.
#pragma once

#include <string>
#include <string_view>

#include "exchanges/exchange.h"
#include "text/dates.h"

namespace vintrel::exchanges::grandstream {

class Grandstream final : public Exchange {
 public:
    using Exchange::Exchange;

    void Initialize() override;

    // The exchange renames by checking in: there is no order of its own for the name.
    std::u16string WakeUp(const WakeUpOrder& order) override;
    std::u16string CheckIn(const CheckInOrder& order) override;
    /// The exchange clears by a fixed address: the room of the order is not sent.
    std::u16string CheckOut(const CheckOutOrder& order) override;

    RoomState RoomStateOf(std::u16string_view frame) const override;
    RoomAlarm RoomAlarmOf(std::u16string_view frame) const override;
    WakeUpResult WakeUpResultOf(std::u16string_view frame) const override;

    /// One row of the real-time call records.
    records::Outcome ConvertCallRecord(text::InOutText& record, records::GdvRecord& gdv) override;

 private:
    std::u16string Submit(std::u16string_view document);
    bool Confirmed(std::u16string_view document);

    std::u16string GsToken_;
    std::u16string GsBaseUrl_;
};

/// "yyyymmdd" of a wake-up call, this year or, when that day is over, the next. A date that does not exist, such as
/// "3002", keeps this year.
std::u16string WakeUpDate(const WakeUpOrder& order, const text::DateTime& today);

}  // namespace vintrel::exchanges::grandstream
