#include "server/error_report.h"

#include <string>

#include "text/numbers.h"
#include "text/text.h"

namespace vintrel::server {

void ErrorReport(platform::CriticalMessage& message, std::int32_t number, std::u16string_view procedure) {
    const std::u16string body = std::u16string(procedure) + u": FATAL ERROR !";
    const std::u16string title = u"QUINDARA PABX COM SERVER   " + text::DecimalText(number);
    message.Show(body, title);
}

}  // namespace vintrel::server
