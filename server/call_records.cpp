#include "server/call_records.h"

#include "server/error_report.h"

namespace vintrel::server {

records::GdvRecord GetComConvertStringRX(std::u16string_view type, text::InOutText& record,
                                         const exchanges::Exchanges& exchanges, platform::CriticalMessage& message) {
    records::GdvRecord gdv;
    exchanges::Exchange* const exchange = exchanges.Find(type);
    if (!exchange) {
        ErrorReport(message, 0, u"GetComConvertStringRX");
        return gdv;
    }
    if (exchange->ConvertCallRecord(record, gdv) == records::Outcome::Call)
        gdv.Assemble();
    else
        gdv.Reject();
    return gdv;
}

}  // namespace vintrel::server
