#include "exchanges/ip_office/ip_office.h"

#include <optional>

#include "platform/operation_error.h"
#include "platform/pbx_access.h"
#include "platform/vintrel_ini.h"
#include "text/fields.h"
#include "text/numbers.h"

namespace vintrel::exchanges::ip_office {

using namespace text;

// --- The model
// --------------------------------------------------------------------------------------------------------

namespace {

constexpr Model kModels[] = {{
    .code = u"TYPE10017",
    .name = u"Avaya - IP Office",
    .make = Make<IpOffice>,
    .services = {.room_state = 1,  // all but wake-up calls
                 .central = 1,
                 .call_list = 1,
                 .check_in_out = 1,
                 .name = 1,
                 .room_alarm = 1},
    .link = {.connection = 2, .winsock = 2, .connect = 1, .check_in = 1, .ini = 1},
    .login = {.request = kDriven, .id_request2 = u"VINTREL", .pw_request2 = u"VINTREL"},
    .framing = {.length = 50, .acknowledge = kDriven},
    .pacing = {.interval_with_wait = 10, .interval = 50},
    .transfer = {.milliseconds = 4000, .minutes = 2, .duration = 3},
    .raw_length = 9999,
}};

}  // namespace

std::span<const Model> Models() { return kModels; }

// --- Preparation
// ------------------------------------------------------------------------------------------------------

namespace {

struct IniTexts {
    std::u16string host;
    std::u16string port;
};

constexpr platform::IniRow<IniTexts> kIniRows[] = {
    {u"IP_OFFICE", u"host", u"localhost", &IniTexts::host, platform::LowerCase},
    {u"IP_OFFICE", u"port", u"8085", &IniTexts::port},
    {u"IP_OFFICE", u"hotel_enabled", u"true"},
    {u"USERS", u"319", u"5b9e20c4f17a3d8e6c02b9f4a18d7e53"},
};

std::int32_t PortOf(std::u16string_view text, const std::u16string& path) {
    const std::optional<std::int32_t> port = RoundToInt32(NumberValue(text));
    if (!port)
        throw platform::OperationError(platform::kOverflow, u"The port in section IP_OFFICE of " + path +
                                                                u" is too large: " + std::u16string(text));
    return *port;
}

}  // namespace

void IpOffice::Initialize() {
    platform::Settings& settings = Server().settings;
    const std::u16string path = platform::IniPath(settings);
    std::optional<platform::PbxAccess> access = ReadPbxAccess(settings, Server().files, Server().ansi);
    IniTexts texts;
    PrepareIni(kIniRows, texts, settings, Server().files, Server().ini);

    port_ = PortOf(texts.port, path);
    host_ = texts.host;
    settings.HotelEnabled = platform::ReadHotelEnabled(Server().ini, path, u"IP_OFFICE");
    if (access) std::move(*access).TakeOver(settings);
}

/// The identifier of a user number in the section USERS of "Vintrel.ini"; "" for 0 and for a missing entry.
std::u16string IpOffice::GetIniUser(std::int32_t number) const {
    if (number == 0) return {};
    return platform::ReadIniValue(Server().ini, platform::IniPath(Server().settings), u"USERS", DecimalText(number));
}

// --- Frames
// -----------------------------------------------------------------------------------------------------------

namespace {

/// An outgoing call ("O") whose account code ends in the room code.
std::u16string_view RoomCode(std::u16string_view frame) {
    return GetCommaField(frame, 5) == u"O" ? Right(Trim(GetCommaField(frame, 8)), 4) : std::u16string_view{};
}

std::u16string_view RoomIn(std::u16string_view frame) {
    const std::u16string_view device = Trim(GetCommaField(frame, 12));
    return device.starts_with(u'E') && IsDigits(device.substr(1)) ? device.substr(1) : GetCommaField(frame, 4);
}

}  // namespace

RoomState IpOffice::RoomStateOf(std::u16string_view frame) const {
    const std::u16string_view code = RoomCode(frame);
    if (code == u"0011") return {RoomState::Clean, RoomIn(frame)};
    if (code == u"0022") return {RoomState::NotClean, RoomIn(frame)};
    return {};
}

RoomAlarm IpOffice::RoomAlarmOf(std::u16string_view frame) const {
    if (RoomCode(frame) != u"0033") return {};
    return {RoomAlarm::Yes, RoomIn(frame)};
}

}  // namespace vintrel::exchanges::ip_office
