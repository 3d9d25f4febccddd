// Avaya IP Office: call records of legs over TCP; an order is a user configuration, sent to the configuration service
// of the exchange by SOAP on a connection of the server's own.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "exchanges/exchange.h"
#include "exchanges/ip_office/continuation_table.h"

namespace vintrel::exchanges::ip_office {

class IpOffice final : public Exchange {
 public:
    using Exchange::Exchange;

    void Initialize() override;

    std::u16string CheckIn(const CheckInOrder& order) override;
    std::u16string CheckOut(const CheckOutOrder& order) override;
    std::u16string UserName(std::int32_t room, text::InOutText& name) override;

    RoomState RoomStateOf(std::u16string_view frame) const override;
    RoomAlarm RoomAlarmOf(std::u16string_view frame) const override;

    records::Outcome ConvertCallRecord(text::InOutText& record, records::GdvRecord& gdv) override;

 private:
    std::u16string Configure(std::int32_t room, std::u16string_view rights, std::u16string_view name_element);
    std::u16string GetIniUser(std::int32_t number) const;
    std::int16_t SetUnitConfiguration(std::u16string_view document);
    std::string Body(std::u16string_view document) const;
    std::string Header(std::size_t body_size) const;

    // From "Vintrel.ini".
    std::u16string host_;  ///< lower case
    std::int32_t port_ = 0;

    ContinuationTable continuation_;
};

}  // namespace vintrel::exchanges::ip_office
