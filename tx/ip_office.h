// Avaya IP Office: an order is a user configuration, sent to the configuration service by SOAP on a TCP connection.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "tx/exchange_access.h"
#include "tx/orders.h"

namespace vintrel::tx {

class IpOffice {
 public:
    IpOffice(ExchangeAccess access, server::IniStore& ini, server::TcpClient& tcp)
        : access_(access), ini_(ini), tcp_(tcp) {}

    std::u16string_view CheckIn(const CheckInOrder& order);
    std::u16string_view CheckOut(const CheckOutOrder& order);
    std::u16string_view UserName(std::int32_t room, std::u16string_view name);

 private:
    std::u16string_view Configure(std::int32_t room, std::u16string_view rights, std::u16string_view name_element);
    std::int16_t SetUnitConfiguration(std::u16string_view document);

    ExchangeAccess access_;
    server::IniStore& ini_;
    server::TcpClient& tcp_;
};

}  // namespace vintrel::tx
