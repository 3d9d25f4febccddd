// The one error report that the server shows.
#pragma once

#include <cstdint>
#include <string_view>

#include "platform/desktop.h"

namespace vintrel::server {

/// Shows "procedure: FATAL ERROR !" under the title "QUINDARA PABX COM SERVER   number" and returns when the operator
/// has closed the box.
void ErrorReport(platform::CriticalMessage& message, std::int32_t number, std::u16string_view procedure);

}  // namespace vintrel::server
