#include "exchanges/panasonic/panasonic.h"

#include "platform/vintrel_ini.h"
#include "text/word.h"

namespace vintrel::exchanges::panasonic {

using namespace text;

// --- Models
// -----------------------------------------------------------------------------------------------------------

namespace {

constexpr Services kRecords{.central = 1, .call_list = 1};
constexpr Services kHotel{.room_state = 1,
                          .clock = 1,
                          .central = 1,
                          .call_list = 1,
                          .check_in_out = 1,
                          .name = 1,
                          .clock_date = 2,
                          .room_alarm = 1};

constexpr Link kSerial{.read_buffer = 1};  // the only one that reads through a buffer
constexpr Link kTcp{.connection = 2,
                    .direction = 1,
                    .reconnect = 65500,  // odd, and meant so
                    .check_in = 1,
                    .ini = 1};

constexpr Login kNoLogin{};
constexpr Login kPassword{
    .host_request = u"\r\n", .id_request = u"-", .pw_request = u"Enter Password:", .pw_confirm = u"*\r"};

constexpr Framing kLines{.length = 80};

constexpr Pacing kNoCommands{.interval_with_wait = 1, .interval = 0};
constexpr Pacing kTelephony{.interval_with_wait = 30, .interval = 30};

constexpr TransferRule kSlow{.milliseconds = 5000, .minutes = 2, .duration = 3};
constexpr TransferRule kQuick{.milliseconds = 4000, .minutes = 2, .duration = 3};

// clang-format off
constexpr Model kModels[] = {
    // code        name                                                         services  link     login      framing pacing       transfer raw length
    {u"TYPE10018", u"Panasonic - KX-TDE RS232",     Make<Panasonic>,      kRecords, kSerial, kNoLogin,  kLines, kNoCommands, kSlow,      0},
    {u"TYPE10019", u"Panasonic - KX-TDE/NS TCP/IP", Make<PanasonicHotel>, kHotel,   kTcp,    kPassword, kLines, kTelephony,  kQuick,  9999},
};
// clang-format on

}  // namespace

std::span<const Model> Models() { return kModels; }

// --- Preparation
// ------------------------------------------------------------------------------------------------------

namespace {

struct NoTexts {};
constexpr platform::IniRow<NoTexts> kIniRows[] = {{u"PANASONIC", u"hotel_enabled", u"true"}};

}  // namespace

void PanasonicHotel::Initialize() {
    platform::Settings& settings = Server().settings;
    NoTexts texts;
    PrepareIni(kIniRows, texts, settings, Server().files, Server().ini);
    settings.HotelEnabled = platform::ReadHotelEnabled(Server().ini, platform::IniPath(settings), u"PANASONIC");
}

void PanasonicHotel::InitializeSec() {
    if (!Server().settings.HotelEnabled || tapi_.TapiLineApp != 0) return;
    tapi_.TapiReady = false;
    Server().loop.ProcessPending();
    if (tapi_.TapiLineApp != 0) return;  // the host called again meanwhile
    const auto line = Server().telephony.Initialize(
        u"Vintrel",
        [this](std::uint32_t first, std::int32_t second, std::int32_t third) { StoreLineReply(first, second, third); });
    if (line.result != 0) return;
    tapi_.TapiLineApp = line.handle;
    tapi_.TapiLineCount = line.line_count;
    tapi_.TapiReady = true;
}

/// The reply to a request of the line: only its identifier is kept, whatever the kind of the event.
void PanasonicHotel::StoreLineReply(std::uint32_t first, std::int32_t second, std::int32_t third) {
    const auto identifier = static_cast<std::int32_t>(first);
    if (identifier > 1 && second == 0 && third < 0) tapi_.TapiLastReplyId = first;
}

void PanasonicHotel::UnInitialize() {
    if (!Server().settings.HotelEnabled || tapi_.TapiLineApp == 0) return;
    Server().telephony.Shutdown(tapi_.TapiLineApp);
    tapi_.TapiLineApp = 0;
}

// --- Frames
// -----------------------------------------------------------------------------------------------------------

namespace {

/// The extension in columns 18 to 22.
std::u16string_view Extension(std::u16string_view frame) { return Mid(frame, 18, 5); }

}  // namespace

RoomState PanasonicHotel::RoomStateOf(std::u16string_view frame) const {
    if (UpperContains<u"NOT CLEANED">(frame) || UpperContains<u"EXT777">(frame))
        return {RoomState::NotClean, Extension(frame)};
    if (UpperContains<u"CLEANED UP">(frame) || UpperContains<u"EXT776">(frame))
        return {RoomState::Clean, Extension(frame)};
    return {};
}

RoomAlarm PanasonicHotel::RoomAlarmOf(std::u16string_view frame) const {
    if (!UpperContains<u"ALARM">(frame) && !UpperContains<u"EXT778">(frame)) return {};
    return {RoomAlarm::Yes, Extension(frame)};
}

/// "Timed Reminder/Start", "/Answer" and "/No Answer" in the column of the dialled number.
WakeUpResult PanasonicHotel::WakeUpResultOf(std::u16string_view frame) const {
    using Result = WakeUpResult;
    if (UpperContains<u"TIMED REMINDER/NO ANSWER">(frame)) return {Result::Yes, Result::NotAnswered, Extension(frame)};
    if (UpperContains<u"TIMED REMINDER/ANSWER">(frame)) return {Result::Yes, Result::Answered, Extension(frame)};
    if (UpperContains<u"TIMED REMINDER/START">(frame)) return {Result::SecondKind, Result::Started, Extension(frame)};
    return {};
}

}  // namespace vintrel::exchanges::panasonic
