#include "rx/set_clock.h"

#include <chrono>
#include <optional>

#include "rx/time_of_day.h"
#include "server/control_characters.h"
#include "server/text.h"

namespace vintrel::rx {
namespace {

using namespace server;

constexpr std::u16string_view kNoDate = u"----";
constexpr std::u16string_view kUnknownTime = u"XXXX";

/// The fields of the host's string, joined in this order.
struct SetClock {
    std::u16string command;  // with the extension
    std::u16string mode;
    std::u16string time;
    std::u16string date;
};

std::u16string Join(const SetClock& fields) {
    constexpr std::size_t kFillerWidth = 14;
    std::u16string text;
    text.reserve(32);
    text += kStx;
    text += fields.command;
    text += fields.mode;
    text += fields.time;
    text += fields.date;
    text.append(kFillerWidth, kBlank);
    text += kEtx;
    return text;
}

/// The date at which the clock next shows this time: today, also when it is that time now, or tomorrow.
std::optional<std::chrono::year_month_day> NextOccurrence(std::u16string_view hours, std::u16string_view minutes,
                                                          const Clock& clock) {
    const std::optional<int> given = MinuteOfDay(hours, minutes);
    if (!given) return std::nullopt;
    const DateTime now = clock.LocalNow();
    const std::chrono::year_month_day today(std::chrono::year(now.year),
                                            std::chrono::month(static_cast<unsigned>(now.month)),
                                            std::chrono::day(static_cast<unsigned>(now.day)));
    const bool passed = *given < now.hour * 60 + now.minute;
    return std::chrono::sys_days(today) + std::chrono::days(passed ? 1 : 0);
}

/// "ddmm" of the next occurrence; the day and the month each read the clock, as hosts have always had it.
std::optional<std::u16string> NextDate(std::u16string_view hours, std::u16string_view minutes, const Clock& clock) {
    const auto first = NextOccurrence(hours, minutes, clock);
    const auto second = NextOccurrence(hours, minutes, clock);
    if (!first || !second) return std::nullopt;
    return TwoDigits(static_cast<int>(static_cast<unsigned>(first->day()))) +
           TwoDigits(static_cast<int>(static_cast<unsigned>(second->month())));
}

/// STX "08", five digits of extension, "hhmm", mode, ETX.
std::u16string FromIntegral(std::u16string_view frame, const Clock& clock) {
    const std::u16string_view time = Mid(frame, 9, 4);
    const std::u16string_view mode = Mid(frame, 13, 1);
    SetClock fields;
    fields.command = Mid(frame, 2, 7);
    fields.mode = mode;
    fields.time = time;
    if (NumberValue(mode) == 1) fields.date = NextDate(Left(time, 2), Right(time, 2), clock).value_or(u"");
    if (NumberValue(mode) == 2) fields.date = kNoDate;
    return Join(fields);
}

/// "ddmm" of a date field "yymmdd", or "" when the field has no end.
std::u16string FiasDate(std::u16string_view record) {
    const std::u16string_view date = GetPipeValue(record, u"|DA").value_or(u"");
    std::u16string day_month(Right(date, 2));
    return day_month.append(Mid(date, 3, 2));
}

/// FIAS: STX "WR|RN123|DA261115|TI073000|" ETX sets, STX "WC|..." ETX clears; a time and a date may be missing.
std::u16string FromFias(std::u16string_view record, const Clock& clock) {
    const bool set = Contains(record, u"WR|");
    const bool clear = Contains(record, u"WC|");
    SetClock fields;

    if (set || clear) fields.command = u"08";
    const std::u16string_view room = GetPipeValue(record, u"|RN").value_or(u"");
    const std::u16string number = DecimalText(IsNumeric(room) ? NumberValue(room) : 0);
    if (const auto extension = ZeroPad(number, 5)) fields.command += extension->str();

    if (set) fields.mode = u"1";
    if (clear) fields.mode = u"2";

    fields.time = Contains(record, u"|TI") ? Left(GetPipeValue(record, u"|TI").value_or(u""), 4) : kUnknownTime;

    if (Contains(record, u"|DA")) {
        if (set || clear) fields.date = FiasDate(record);
    } else if (clear) {
        // Minutes first: hosts know the date of a cleared call without one in this form.
        fields.date = NextDate(Right(fields.time, 2), Left(fields.time, 2), clock).value_or(u"");
    } else if (set) {
        fields.date = kNoDate;
    }
    return Join(fields);
}

}  // namespace

std::u16string GetComConvertSetClockRX(TypeCode type, std::u16string_view frame, const Clock& clock,
                                       CriticalMessage& message) {
    const std::optional<Model> model = UpperAndFind(type, u"GetComConvertSetClockRX", message);
    if (!model) return {};
    switch (*model) {
        case Model::Type10001:
        case Model::Type10002:
        case Model::Type10007: return FromIntegral(frame, clock);
        case Model::Type12000: return FromFias(frame, clock);
        case Model::Type10003:
        case Model::Type10004:
        case Model::Type10005:
        case Model::Type10006:
        case Model::Type10008:
        case Model::Type10009:
        case Model::Type10010:
        case Model::Type10011:
        case Model::Type10012:
        case Model::Type10013:
        case Model::Type10014:
        case Model::Type10015:
        case Model::Type10016:
        case Model::Type10017:
        case Model::Type10018:
        case Model::Type10019:
        case Model::Type10020: return {};
    }
    return {};
}

}  // namespace vintrel::rx
