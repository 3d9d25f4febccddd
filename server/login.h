// How an exchange opens the link: the strings by which the host recognises its login request and its confirmation. What
// the host answers is in server/pacing. An unknown code answers "", after the error report.
#pragma once

#include <string_view>

#include "server/type_code.h"

namespace vintrel::server {

/// The exchange's login request. "@" and "£" (U+00A3) mean that the model sends none, with "£" because the server
/// itself drives it over HTTP or SOAP.
std::u16string_view ComEventRequestLogInRX(TypeCode type, platform::CriticalMessage& message);
/// The exchange's login confirmation; "" = the model sends none.
std::u16string_view ComEventConfirmLogInRX(TypeCode type, platform::CriticalMessage& message);

}  // namespace vintrel::server
