#include "exchanges/fias/link_records.h"

#include "platform/operation_error.h"
#include "text/control_characters.h"
#include "text/fields.h"
#include "text/numbers.h"

namespace vintrel::exchanges::fias {
namespace {

using namespace platform;
using namespace text;

/// The date and the time are two reads of the clock: around midnight the new time may stand with the old date.
std::u16string LinkRecord(std::u16string_view type, const Clock& clock) {
    const DateTime date = clock.LocalNow();
    const DateTime time = clock.LocalNow();
    std::u16string record(1, kStx);
    record.append(type).append(u"|DA");
    record.append(TwoDigits(date.year)).append(TwoDigits(date.month)).append(TwoDigits(date.day)).append(u"|TI");
    record.append(TwoDigits(time.hour)).append(TwoDigits(time.minute)).append(TwoDigits(time.second));
    return record.append({u'|', kEtx});
}

std::u16string_view Field(InOutText& record, std::u16string_view key) {
    std::u16string_view text = record.View();
    const auto value = GetPipeValue(text, key);
    record.Narrow(text);
    if (!value)
        throw OperationError(kInvalidArgument, u"No \"|\" follows \"" + std::u16string(key) + u"\" in the record.");
    return *value;
}

}  // namespace

std::u16string GetPMS_LS_String(const platform::Clock& clock) { return LinkRecord(u"LS", clock); }
std::u16string GetPMS_LA_String(const platform::Clock& clock) { return LinkRecord(u"LA", clock); }
std::u16string GetPMS_LE_String(const platform::Clock& clock) { return LinkRecord(u"LE", clock); }
std::u16string GetPMS_DE_String(const platform::Clock& clock) { return LinkRecord(u"DE", clock); }

std::u16string GetPMS_ColumnData(text::InOutText& record, std::u16string_view column) {
    return std::u16string(Field(record, column));
}

std::u16string GetPMS_PSConfirm(text::InOutText& record) {
    const std::u16string_view room = Field(record, u"RN");
    const std::u16string_view date = Field(record, u"DA");
    const std::u16string_view time = Field(record, u"TI");
    const std::u16string_view number = Field(record, u"P#");
    std::u16string answer(1, kStx);
    answer.append(u"PA|RN").append(room).append(u"|ASOK|DA").append(date).append(u"|TI").append(time);
    return answer.append(u"|P#").append(number).append({u'|', kEtx});
}

}  // namespace vintrel::exchanges::fias
