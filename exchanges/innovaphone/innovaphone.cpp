#include "exchanges/innovaphone/innovaphone.h"

#include <optional>

#include "platform/operation_error.h"
#include "platform/pbx_access.h"
#include "platform/vintrel_ini.h"
#include "text/fields.h"
#include "text/numbers.h"

namespace vintrel::exchanges::innovaphone {

using namespace text;

// --- The model
// --------------------------------------------------------------------------------------------------------

namespace {

constexpr Model kModels[] = {{
    .code = u"TYPE10012",
    .name = u"Innovaphone - PBX V6 or higher",
    .make = Make<Innovaphone>,
    .services = {.room_state = 1,
                 .clock = 1,
                 .central = 1,
                 .call_list = 1,
                 .check_in_out = 1,
                 .name = 1,
                 .clock_date = 2,
                 .room_alarm = 1},
    .link = {.end_read = 1, .connection = 2, .winsock = 2, .check_in = 1, .ini = 1},
    .login = {.request = kDriven, .id_request2 = u"HTTP", .pw_request2 = u"HTTP"},
    .framing = {.length = 200, .acknowledge = kDriven},
    .pacing = {.wait_confirm = 1, .interval_with_wait = 10, .interval = 50},
    .transfer = {.milliseconds = 4000, .minutes = 1, .duration = 2},
    .raw_length = 9999,
}};

}  // namespace

std::span<const Model> Models() { return kModels; }

// --- Preparation
// ------------------------------------------------------------------------------------------------------

namespace {

// clang-format off
constexpr platform::IniRow<Numbers> kIniRows[] = {
    {u"CALL_INCOMING",                 u"src_if",   u"",      &Numbers::CallIncomingSrcIf,               platform::UpperCase},
    {u"CALL_INCOMING",                 u"dst_if",   u"",      &Numbers::CallIncomingDstIf,               platform::UpperCase},
    {u"CALL_OUTGOING",                 u"src_if",   u"",      &Numbers::CallOutgoingSrcIf,               platform::UpperCase},
    {u"CALL_OUTGOING",                 u"dst_if",   u"",      &Numbers::CallOutgoingDstIf,               platform::UpperCase},
    {u"ROOMSTATUS_CLEAN",              u"dst_cdpn", u"",      &Numbers::RoomStatusCleanCdpn,             platform::UpperCase},
    {u"ROOMSTATUS_CLEAN_OCCUPIED",     u"dst_cdpn", u"",      &Numbers::RoomStatusCleanOccupiedCdpn,     platform::UpperCase},
    {u"ROOMSTATUS_NOTCLEAN",           u"dst_cdpn", u"",      &Numbers::RoomStatusNotCleanCdpn,          platform::UpperCase},
    {u"ROOMSTATUS_NOTCLEAN_OCCUPIED",  u"dst_cdpn", u"",      &Numbers::RoomStatusNotCleanOccupiedCdpn,  platform::UpperCase},
    {u"ROOMSTATUS_ALARM",              u"dst_cdpn", u"",      &Numbers::RoomStatusAlarmCdpn,             platform::UpperCase},
    {u"ROOMSTATUS_INSPECTED_OCCUPIED", u"dst_cdpn", u"",      &Numbers::RoomStatusInspectedOccupiedCdpn, platform::UpperCase},
    {u"WAKEUP_RESPONSE",               u"h323",     u"Hotel", &Numbers::WakeupResponseH323},
    {u"WAKEUP_RESPONSE",               u"Fallback", u"",      &Numbers::WakeupResponseFallback},
};
// clang-format on

}  // namespace

void Innovaphone::Initialize() {
    constexpr std::int32_t kHighestPort = 65535;
    platform::Settings& settings = Server().settings;
    std::optional<platform::PbxAccess> access = ReadPbxAccess(settings, Server().files, Server().ansi);
    if (access && (access->port < 0 || access->port > kHighestPort))
        throw platform::OperationError(
            platform::kOverflow,
            u"The port of the exchange in Quindara.cfg is outside 0 to 65535: " + DecimalText(access->port));
    Numbers numbers;
    PrepareIni(kIniRows, numbers, settings, Server().files, Server().ini);

    numbers_ = std::move(numbers);
    if (access) std::move(*access).TakeOver(settings);
}

// --- Frames
// -----------------------------------------------------------------------------------------------------------

namespace {

/// "key=value&": the trimmed value, "" when the key is missing or no "&" follows it.
/// @param key  with its "=".
std::u16string_view Value(std::u16string_view frame, std::u16string_view key) {
    if (!Contains(frame, key)) return {};
    return Trim(GetTextBetween(frame, key, u"&"));
}

/// The number that a room has called to signal its state, "" unless a call to a number from a room ended.
std::u16string_view SignalledNumber(std::u16string_view frame) {
    if (Value(frame, u"event=") != u"A:Rel") return {};
    const std::u16string_view called = Trim(Left(Value(frame, u"dst_cdpn="), 16));
    if (!IsNumeric(called) || NumberValue(called) == 0) return {};
    const std::u16string_view room = Trim(Left(Value(frame, u"src_cgpn="), 5));
    return IsNumeric(room) && NumberValue(room) > 0 ? called : std::u16string_view{};
}

/// The calling room.
std::u16string_view RoomIn(std::u16string_view frame) { return Left(Value(frame, u"src_cgpn="), 5); }

/// Whether `mark` stands anywhere with `text` right behind it.
bool ContainsInSequence(std::u16string_view frame, std::u16string_view mark, std::u16string_view text) {
    for (std::size_t at = frame.find(mark); at != std::u16string_view::npos; at = frame.find(mark, at + 1))
        if (frame.substr(at + mark.size()).starts_with(text)) return true;
    return false;
}

/// Event log: the first extension (e164) of a call.
std::u16string_view EventExtension(std::u16string_view frame) {
    constexpr std::u16string_view kMark = u"e164=\"";
    return Contains(frame, kMark) ? Trim(GetTextBetween(frame, kMark, u"\"")) : std::u16string_view{};
}

}  // namespace

RoomState Innovaphone::RoomStateOf(std::u16string_view frame) const {
    const std::u16string_view called = SignalledNumber(frame);
    if (called.empty()) return {};
    if (called == numbers_.RoomStatusCleanCdpn) return {RoomState::Clean, RoomIn(frame)};
    if (called == numbers_.RoomStatusNotCleanCdpn) return {RoomState::NotClean, RoomIn(frame)};
    if (called == numbers_.RoomStatusCleanOccupiedCdpn) return {RoomState::Clean, RoomIn(frame)};
    if (called == numbers_.RoomStatusNotCleanOccupiedCdpn) return {RoomState::NotClean, RoomIn(frame)};
    if (called == numbers_.RoomStatusInspectedOccupiedCdpn) return {RoomState::Clean, RoomIn(frame)};
    return {};
}

RoomAlarm Innovaphone::RoomAlarmOf(std::u16string_view frame) const {
    const std::u16string_view called = SignalledNumber(frame);
    if (called.empty() || called != numbers_.RoomStatusAlarmCdpn) return {};
    return {RoomAlarm::Yes, RoomIn(frame)};
}

WakeUpResult Innovaphone::WakeUpResultOf(std::u16string_view frame) const {
    if (!ContainsInSequence(frame, u"h323=\"", numbers_.WakeupResponseH323)) return {};
    if (!Contains(frame, u"type=\"ext\"")) return {};
    const std::u16string_view extension = EventExtension(frame);
    if (extension.empty() || extension == numbers_.WakeupResponseFallback || !IsNumeric(extension)) return {};
    if (Contains(frame, u"e164=\"0")) return {};
    const bool answered = Contains(frame, u"<event msg=\"conn-from\"");
    if (!answered && !Contains(frame, u"<event msg=\"rel-to\"")) return {};
    return {WakeUpResult::Yes, answered ? WakeUpResult::Answered : WakeUpResult::NotAnswered, extension};
}

}  // namespace vintrel::exchanges::innovaphone
