#include "server/error_report.h"

#include <string>

#include "server/text.h"

namespace vintrel::server {

void ErrorReport(CriticalMessage& message, std::int32_t number, std::u16string_view procedure) {
    const std::u16string text = std::u16string(procedure) + u": FATAL ERROR !";
    const std::u16string title = u"QUINDARA PABX COM SERVER   " + DecimalText(number);
    message.Show(text, title);
}

}  // namespace vintrel::server
