#include "exchanges/mitel/mitel.h"

#include "text/control_characters.h"
#include "text/fields.h"
#include "text/numbers.h"

namespace vintrel::exchanges::mitel {

using namespace text;

// --- Models
// -----------------------------------------------------------------------------------------------------------

namespace {

constexpr auto kPrinter = Make<Mitel, Abilities{}>;
constexpr auto kOthers = Make<Mitel, Abilities{.wake_up = WakeUpFrames::OtherKind}>;
constexpr auto kI4 = Make<Mitel, Abilities{.orders = true, .wake_up = WakeUpFrames::OtherKind}>;
constexpr auto kI5 = Make<Mitel, Abilities{.orders = true, .wake_up = WakeUpFrames::Both}>;  // the only one with both
constexpr auto kHotel = Make<Mitel, Abilities{.orders = true, .room_events = true, .wake_up = WakeUpFrames::Results}>;

// clang-format off
//                             room  wake  cen-  call  check  guest  date  room
//                            state   -up  tral  list  inout   name  level alarm
constexpr Services kRecords {    0,    0,    1,    1,    0,     0,     0,    0};
constexpr Services kAlarms  {    0,    0,    1,    1,    0,     0,     0,    1};
constexpr Services kOrders  {    0,    1,    1,    1,    1,     1,     2,    0};
constexpr Services kAll     {    1,    1,    1,    1,    1,     1,     2,    1};
// clang-format on

constexpr Link kSerial{};
constexpr Link kTcp{.connection = 2, .winsock = 0, .connect = 1, .reconnect = 1};
constexpr Link kHotelTcp{.connection = 2, .winsock = 1, .connect = 1, .reconnect = 1};

// Telnet negotiations, one character per byte.
constexpr std::u16string_view kWillSga = u"\xFF\xFB\x03";  // IAC WILL SUPPRESS-GO-AHEAD
constexpr std::u16string_view kIacDoEcho = u"\xFF\xFD\x01";

constexpr Login kNoLogin{};
constexpr Login kI3Mode{.host_request = u"\ri3mode\r\r\r"};
constexpr Login kTelnet{.request = kWillSga,
                        .host_confirm = kIacDoEcho,
                        .id_request2 = u"Username: ",
                        .pw_request2 = u"Password: ",
                        .pw_confirm2 = u"I"};

constexpr Framing kPc4{.length = 50, .acknowledge = kCrLf};
constexpr Framing kAscotel{.length = 80, .acknowledge = kCrLf};
constexpr Framing kSilent{.length = 50, .acknowledge = kNoMessage};

// clang-format off
//                           wait    while  inter-  DTR
//                          conf.     wait     val  RTS     before      after
constexpr Pacing kHH      {     1,      10,    130,   0, u"h\rh\r",  u"h\r"};
constexpr Pacing kRH      {     1,      10,    130,   0,   u"\rh",   u"h\r"};
constexpr Pacing kPrint   {     0,       1,      0,   0,   u"\rh",   u"h\r"};
constexpr Pacing kStream  {     0,      10,     50,   0};
constexpr Pacing kOrderly {     1,      10,     50,   0};
// clang-format on

constexpr TransferRule kSlow{.milliseconds = 5000, .minutes = 2, .duration = 3};
constexpr TransferRule kQuick{.milliseconds = 4000, .minutes = 2, .duration = 3};

// clang-format off
constexpr Model kModels[] = {
    //                                                                                                                            trans-   raw
    // code        name                                            is        services  link       login     framing   pacing      fer     length
    {u"TYPE10004", u"Mitel - I4 - 2030/2050/2060 (PC4)",           kI4,      kOrders,  kSerial,   kNoLogin, kPc4,     kHH,        kSlow,    70},
    {u"TYPE10005", u"Mitel - Ascotel 200 (PC4)",                   kPrinter, kRecords, kSerial,   kNoLogin, kAscotel, kPrint,     kSlow,     0},
    {u"TYPE10006", u"Mitel - I5 - 2025/2045/2065 (PC4)",           kI5,      kOrders,  kSerial,   kI3Mode,  kPc4,     kRH,        kSlow,    70},
    {u"TYPE10008", u"Mitel - I6/I7 - 2025/2045/2065 (PC4)",        kHotel,   kAll,     kSerial,   kNoLogin, kPc4,     kHH,        kSlow,    70},
    {u"TYPE10011", u"Mitel - IntelliGate TCP/IP (PC4)",            kOthers,  kAlarms,  kTcp,      kNoLogin, kSilent,  kStream,    kQuick,   70},
    {u"TYPE10014", u"Mitel - IntelliGate 7.9 TCP/IP Hotel (PC4)",  kHotel,   kAll,     kHotelTcp, kTelnet,  kPc4,     kOrderly,   kQuick,   70},
    {u"TYPE10015", u"Mitel - 400 TCP/IP (PC4)",                    kOthers,  kAlarms,  kTcp,      kNoLogin, kSilent,  kStream,    kQuick,   70},
    {u"TYPE10016", u"Mitel - 400 TCP/IP (PC4) V1-V2 Hotel",        kHotel,   kAll,     kHotelTcp, kTelnet,  kPc4,     kOrderly,   kQuick,   70},
};
// clang-format on

}  // namespace

std::span<const Model> Models() { return kModels; }

// --- Orders
// -----------------------------------------------------------------------------------------------------------

std::u16string Mitel::WakeUp(const WakeUpOrder& order) {
    std::u16string_view mode;
    if (order.mode == kSetOnce) mode = u"1";
    if (order.mode == kCancel) mode = u"0";
    if (order.mode == kSetRepeating) mode = u"2";
    if (!abilities_.orders || mode.empty()) return {};
    return Command({u"h6", kTab, Room(order.room), kTab, mode, kTab, order.time, kCr});
}

std::u16string Mitel::RoomCommand(std::int32_t room, std::u16string_view state) const {
    return abilities_.orders ? Command({u"h5", kTab, Room(room), kTab, state, kCr}) : std::u16string();
}

std::u16string Mitel::CheckIn(const CheckInOrder& order) { return RoomCommand(order.room, u"1"); }

std::u16string Mitel::CheckOut(const CheckOutOrder& order) { return RoomCommand(order.room, u"0"); }

/// A name that is empty, one blank or a number becomes "I" and the room, in the caller's variable too.
std::u16string Mitel::UserName(std::int32_t room, InOutText& name) {
    if (!abilities_.orders) return {};
    if (name.View().empty() || name.View() == u" " || IsNumeric(name.View())) name.Replace(Command({u"I", Room(room)}));
    return Command({u"h4", kTab, Room(room), kTab, name.View(), kCr});
}

// --- Frames: fields separated by FF; FF VT ETX CR LF at the end
// ---------------------------------------------------------

namespace {

constexpr std::u16string_view kTrailer = u"\x0C\x0B\x03\x0D\x0A";

// Fields 7 and 8. The codes for clean and not clean are those that the maid dials on these telephones (1 not cleaned, 2
// cleaned); that the frame carries them unchanged is not public.
constexpr std::u16string_view kWakeUpEvent = u"7";
constexpr std::u16string_view kRoomEvent = u"25";
constexpr std::u16string_view kNotClean = u"1";
constexpr std::u16string_view kClean = u"2";
constexpr std::u16string_view kAlarm = u"9";

// Which field holds the room is not public: the first of these that looks like one is taken. The frame's own number
// stands in front, so that field comes last.
constexpr std::int16_t kRoomFields[] = {2, 3, 4, 5, 6, 1};

bool HasTrailer(std::u16string_view frame) { return frame.ends_with(kTrailer); }

std::u16string_view Field(std::u16string_view frame, std::int16_t index) {
    return GetSeparatedField(frame, kFf, index);
}

/// "" when no field can be a room.
std::u16string_view RoomIn(std::u16string_view frame) {
    constexpr std::size_t kLongest = 5;
    for (const std::int16_t index : kRoomFields) {
        const std::u16string_view field = Trim(Field(frame, index));
        if (IsDigits(field) && field.size() <= kLongest) return field;
    }
    return {};
}

std::u16string_view RoomCode(std::u16string_view frame) {
    return HasTrailer(frame) && Field(frame, 7) == kRoomEvent ? Field(frame, 8) : std::u16string_view{};
}

}  // namespace

RoomState Mitel::RoomStateOf(std::u16string_view frame) const {
    if (!abilities_.room_events) return {};
    const std::u16string_view code = RoomCode(frame);
    if (code == kClean) return {RoomState::Clean, RoomIn(frame)};
    if (code == kNotClean) return {RoomState::NotClean, RoomIn(frame)};
    return {};
}

RoomAlarm Mitel::RoomAlarmOf(std::u16string_view frame) const {
    if (!abilities_.room_events) return {};
    if (RoomCode(frame) == kAlarm) return {RoomAlarm::Yes, RoomIn(frame)};
    return {HasTrailer(frame) ? RoomAlarm::OtherFrame : RoomAlarm::No};
}

WakeUpResult Mitel::WakeUpResultOf(std::u16string_view frame) const {
    if (abilities_.wake_up == WakeUpFrames::None || !HasTrailer(frame)) return {};
    if (abilities_.wake_up != WakeUpFrames::OtherKind && Field(frame, 7) == kWakeUpEvent)
        return {WakeUpResult::Yes, WakeUpResult::Answered, RoomIn(frame)};
    return {abilities_.wake_up == WakeUpFrames::Results ? WakeUpResult::No : WakeUpResult::SecondKind};
}

}  // namespace vintrel::exchanges::mitel
