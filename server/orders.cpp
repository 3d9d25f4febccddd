#include "server/orders.h"

namespace vintrel::server {

using exchanges::Exchange;

std::u16string ComEventClockTX(TypeCode TypeX, std::int32_t UserX, std::u16string_view TimeX, std::u16string_view DateX,
                               std::int16_t WakeUpMode, std::int16_t LanguageX, const exchanges::Exchanges& exchanges,
                               platform::CriticalMessage& message) {
    Exchange* const exchange = UpperAndFind(TypeX, exchanges, u"ComEventClockTX", message);
    if (!exchange) return {};
    return exchange->WakeUp({.room = UserX, .time = TimeX, .date = DateX, .mode = WakeUpMode, .language = LanguageX});
}

std::u16string ComEventCheckInTX(TypeCode TypeX, std::int32_t UserX, std::u16string_view NameX, std::int16_t LanguageX,
                                 std::int16_t ChangeNameEnabled, const exchanges::Exchanges& exchanges,
                                 platform::CriticalMessage& message) {
    Exchange* const exchange = UpperAndFind(TypeX, exchanges, u"ComEventCheckInTX", message);
    if (!exchange) return {};
    return exchange->CheckIn(
        {.room = UserX, .name = NameX, .language = LanguageX, .change_name = ChangeNameEnabled == 1});
}

std::u16string ComEventCheckOutTX(TypeCode TypeX, std::int32_t UserX, std::int16_t ChangeNameEnabled,
                                  const exchanges::Exchanges& exchanges, platform::CriticalMessage& message) {
    Exchange* const exchange = UpperAndFind(TypeX, exchanges, u"ComEventCheckOutTX", message);
    if (!exchange) return {};
    return exchange->CheckOut({.room = UserX, .change_name = ChangeNameEnabled == 1});
}

std::u16string ComEventUserNameTX(TypeCode TypeX, std::int32_t UserX, text::InOutText& NameZ,
                                  const exchanges::Exchanges& exchanges, platform::CriticalMessage& message) {
    Exchange* const exchange = UpperAndFind(TypeX, exchanges, u"ComEventUserNameTX", message);
    return exchange ? exchange->UserName(UserX, NameZ) : std::u16string();
}

}  // namespace vintrel::server
