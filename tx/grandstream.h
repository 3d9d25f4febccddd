// Grandstream UCM: an order is a document in a request to the PMS interface of the exchange.
#pragma once

#include <string>
#include <string_view>

#include "tx/exchange_access.h"
#include "tx/orders.h"

namespace vintrel::tx {

class Grandstream {
 public:
    Grandstream(ExchangeAccess access, server::RequestEngine& engine) : access_(access), engine_(engine) {}

    std::u16string_view WakeUp(const WakeUpOrder& order);
    std::u16string_view CheckIn(const CheckInOrder& order);
    /// The exchange clears by a fixed address: the room of the order is not sent.
    std::u16string_view CheckOut();

 private:
    std::u16string_view Submit(std::u16string document);
    bool Confirmed();

    ExchangeAccess access_;
    server::RequestEngine& engine_;
    std::u16string request_;  ///< the last document sent
};

/// "yyyymmdd" of a wake-up call, this year or, when that day is over, the next. A date that does not exist, such as
/// "3002", keeps this year.
std::u16string WakeUpDate(const WakeUpOrder& order, const server::DateTime& today);

}  // namespace vintrel::tx
