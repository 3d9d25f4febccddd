// innovaphone: an order is a request to the administration pages of the exchange.
#pragma once

#include <string>
#include <string_view>

#include "tx/exchange_access.h"
#include "tx/orders.h"

namespace vintrel::tx {

class Innovaphone {
 public:
    Innovaphone(ExchangeAccess access, server::RequestEngine& engine) : access_(access), engine_(engine) {}

    /// A mode other than 0 to 2 repeats the last request, whatever it was.
    std::u16string_view WakeUp(const WakeUpOrder& order);
    std::u16string_view CheckIn(const CheckInOrder& order);
    std::u16string_view CheckOut(const CheckOutOrder& order);
    std::u16string_view UserName(std::int32_t room, std::u16string_view name);

 private:
    std::u16string_view Submit(std::u16string request);
    std::u16string_view FetchCurrent();

    ExchangeAccess access_;
    server::RequestEngine& engine_;
    std::u16string request_;  ///< the current request; the next order replaces it
};

}  // namespace vintrel::tx
