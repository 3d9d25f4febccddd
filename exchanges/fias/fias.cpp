#include "exchanges/fias/fias.h"

#include <array>

#include "exchanges/frames.h"
#include "text/control_characters.h"
#include "text/fields.h"
#include "text/numbers.h"

namespace vintrel::exchanges::fias {

using namespace text;

// --- The model
// --------------------------------------------------------------------------------------------------------

namespace {

constexpr Model kModels[] = {{
    .code = u"TYPE12000",
    .name = u"FIAS - PMS",
    .make = Make<Fias>,
    .services = {.room_state = 1,
                 .clock = 1,
                 .central = 1,
                 .call_list = 1,
                 .check_in_out = 1,
                 .name = 1,
                 .clock_date = 1,
                 .room_alarm = 1},
    .link = {.end_read = 1, .connection = 2, .winsock = 1, .connect = 1, .check_in = 1},
    .login = {.request = kNoMessage, .confirm = kAckText},
    .framing = {.length = 0, .end = kEtxText, .acknowledge = kAckText, .confirm_record = kAckText},
    .pacing = {.wait_confirm = 1, .interval_with_wait = 10, .interval = 50},
    .transfer = {.milliseconds = 5000, .minutes = 1, .duration = 2},
    .raw_length = 14,
}};

}  // namespace

std::span<const Model> Models() { return kModels; }

// --- Orders
// -----------------------------------------------------------------------------------------------------------

namespace {

constexpr std::array<std::u16string_view, 5> kLanguages{u"GLGE|", u"GLIT|", u"GLEA|", u"GLFR|", u"GLSP|"};

}  // namespace

/// There is no repeating call, and the date is always of this year.
std::u16string Fias::WakeUp(const WakeUpOrder& order) {
    if (order.mode != kSetOnce && order.mode != kCancel) return {};
    std::u16string date;
    if (order.date != kNoDate)
        date = Command({u"|DA", TwoDigits(Server().clock.LocalNow().year), order.Month(), order.Day()});
    return Command(
        {kStx, order.mode == kSetOnce ? u"WR|RN" : u"WC|RN", Room(order.room), date, u"|TI", order.time, u"00|", kEtx});
}

std::u16string Fias::CheckIn(const CheckInOrder& order) {
    const std::u16string_view name = Trim(order.name);
    const std::u16string name_part = name.empty() ? std::u16string() : Command({u"GN", name, u"|"});
    return Command(
        {kStx, u"GI|RN", Room(order.room), u"|", name_part, LanguageWord(kLanguages, order.language, u""), kEtx});
}

std::u16string Fias::CheckOut(const CheckOutOrder& order) {
    return Command({kStx, u"GO|RN", Room(order.room), u"|", kEtx});
}

std::u16string Fias::UserName(std::int32_t room, InOutText& name) {
    return Command({kStx, u"GC|RN", Room(room), u"|GN", Trim(name.View()), u"|", kEtx});
}

// --- Frames
// -----------------------------------------------------------------------------------------------------------

namespace {

/// A field of a record by its key ("|RN"), "" when it is missing or no "|" follows it.
std::u16string_view Value(std::u16string_view record, std::u16string_view key) {
    return GetPipeValue(record, key).value_or(std::u16string_view{});
}

}  // namespace

RoomState Fias::RoomStateOf(std::u16string_view frame) const {
    if (!IsFramed(frame, u"RE|")) return {};
    if (Contains(frame, u"|RS3|")) return {RoomState::Clean, Value(frame, u"|RN")};
    if (Contains(frame, u"|RS1|")) return {RoomState::NotClean, Value(frame, u"|RN")};
    return {};
}

RoomAlarm Fias::RoomAlarmOf(std::u16string_view frame) const {
    if (!IsFramed(frame, u"RE|") || !Contains(frame, u"|RS5|")) return {};
    return {RoomAlarm::Yes, Value(frame, u"|RN")};
}

WakeUpResult Fias::WakeUpResultOf(std::u16string_view frame) const {
    if (!IsFramed(frame, u"WA|")) return {};
    const std::u16string_view answer = Value(frame, u"|AS");
    const auto status = answer == u"OK"   ? WakeUpResult::Answered
                        : answer == u"RY" ? WakeUpResult::Started
                                          : WakeUpResult::NotAnswered;
    return {WakeUpResult::Yes, status, Value(frame, u"|RN")};
}

bool Fias::IsSetClock(std::u16string_view frame) const { return IsFramed(frame, u"WR|") || IsFramed(frame, u"WC|"); }

/// STX "WR|RN123|DA261115|TI073000|" ETX sets, STX "WC|..." ETX clears; a time and a date may be missing.
std::optional<SetClock> Fias::SetClockOf(std::u16string_view record) const {
    constexpr std::u16string_view kUnknownTime = u"XXXX";
    const bool set = Contains(record, u"WR|");
    const bool clear = Contains(record, u"WC|");
    SetClock fields;

    if (set || clear) fields.command.Append(u"08");
    const std::u16string_view room = Value(record, u"|RN");
    const std::u16string number = DecimalText(IsNumeric(room) ? NumberValue(room) : 0);
    if (const auto extension = ZeroPad(number, 5)) fields.command.Append(extension->str());

    if (set || clear) fields.mode.Append(clear ? u"2" : u"1");

    fields.time.Append(Contains(record, u"|TI") ? Left(Value(record, u"|TI"), 4) : kUnknownTime);

    if (Contains(record, u"|DA")) {
        const std::u16string_view date = Value(record, u"|DA");  // "yymmdd"
        if (set || clear) fields.date = InlineText<4>(Right(date, 2), Mid(date, 3, 2));
    } else if (clear) {
        // Minutes first: hosts know the date of a cleared call without one in this form.
        fields.date = NextDate(Right(fields.time, 2), Left(fields.time, 2), Server().clock);
    } else if (set) {
        fields.date.Append(kNoDate);
    }
    return fields;
}

}  // namespace vintrel::exchanges::fias
