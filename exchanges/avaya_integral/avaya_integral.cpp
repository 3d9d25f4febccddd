#include "exchanges/avaya_integral/avaya_integral.h"

#include "exchanges/frames.h"
#include "text/control_characters.h"
#include "text/numbers.h"

namespace vintrel::exchanges::avaya_integral {

using namespace text;

// --- Models
// -----------------------------------------------------------------------------------------------------------

namespace {

// clang-format off
//                             room  wake  cen-  call  check  guest  date  room
//                            state   -up  tral  list  inout   name  level alarm
constexpr Services kAll     {    1,    1,    0,    1,    1,     1,     1,    1};
constexpr Services kNoCalls {    1,    1,    0,    0,    1,     1,     1,    1};

//                                     port   DTR  end of   multi
//                                    ready  time    read  durat.
constexpr Link kFrames            {       0,    0,      1,      0};
constexpr Link kSeveralDurations  {       0,    0,      1,      1};
// clang-format on

constexpr std::u16string_view kStxEtx = u"\x02\x03";

// A login is confirmed with NAK, the same character that rejects a record.
constexpr Login kLogin{.request = kEnqText, .confirm = kAckText, .host_request = kStxEtx, .host_confirm = kNakText};
constexpr Framing kFraming{.length = 0,
                           .end = kEtxText,
                           .acknowledge = kAckText,
                           .repeat_error = 8,
                           .confirm_record = kAckText,
                           .reject_record = kNakText};
constexpr Pacing kPacing{.wait_confirm = 1, .interval_with_wait = 1, .interval = 50, .dtr_rts = 1};
constexpr TransferRule kTransfer{.milliseconds = 5000, .minutes = 1, .duration = 2};

constexpr auto kPlain = Make<AvayaIntegral, EmptyNames::Taken>;
constexpr auto kNewer = Make<AvayaIntegral, EmptyNames::Replaced>;

// clang-format off
constexpr Model kModels[] = {
    {u"TYPE10001", u"Avaya - Integral 1/3/5 SW xE3.xxx - xE5.xxx", kPlain, kAll,     kFrames,           kLogin, kFraming, kPacing, kTransfer, 14},
    {u"TYPE10002", u"Avaya - Integral 1/3/5 SW xE6.3xx or higher", kNewer, kAll,     kSeveralDurations, kLogin, kFraming, kPacing, kTransfer, 14},
    {u"TYPE10007", u"Avaya - Integral 3 SW x3.5xx - x9.5xx",       kPlain, kNoCalls, kFrames,           kLogin, kFraming, kPacing, kTransfer, 14},
};
// clang-format on

}  // namespace

std::span<const Model> Models() { return kModels; }

// --- Orders
// -----------------------------------------------------------------------------------------------------------

/// The same for every mode.
std::u16string AvayaIntegral::WakeUp(const WakeUpOrder& order) {
    return Command({kStx, u"07", PaddedRoom(order.room), order.time, u"1", kEtx});
}

namespace {

/// "11" opens the telephone, "22" bars it.
std::u16string RoomCommand(std::int32_t room, std::u16string_view state) {
    return Command({kStx, u"04", PaddedRoom(room), state, kEtx});
}

}  // namespace

std::u16string AvayaIntegral::CheckIn(const CheckInOrder& order) { return RoomCommand(order.room, u"11"); }

std::u16string AvayaIntegral::CheckOut(const CheckOutOrder& order) { return RoomCommand(order.room, u"22"); }

std::u16string AvayaIntegral::UserName(std::int32_t room, InOutText& name) {
    const std::u16string plain = Room(room);
    const bool replaced = empty_names_ == EmptyNames::Replaced && Trim(name.View()).empty();
    return Command({kStx, u"06", PaddedRoom(room), replaced ? plain : name.View(), kEtx});
}

// --- Frames
// -----------------------------------------------------------------------------------------------------------

namespace {

/// STX "08", five digits of extension, the code, "1", ETX; the length is not checked.
std::u16string_view RoomCode(std::u16string_view frame) {
    return IsFramed(frame, u"08") && Right(frame, 2) == u"1\x03" ? Mid(frame, 9, 4) : std::u16string_view{};
}

}  // namespace

RoomState AvayaIntegral::RoomStateOf(std::u16string_view frame) const {
    const std::u16string_view code = RoomCode(frame);
    return {code == u"0011" ? RoomState::Clean : code == u"0022" ? RoomState::NotClean : RoomState::None};
}

RoomAlarm AvayaIntegral::RoomAlarmOf(std::u16string_view frame) const {
    return {RoomCode(frame) == u"0033" ? RoomAlarm::Yes : RoomAlarm::No};
}

/// STX "07", five digits of extension, status, ETX.
WakeUpResult AvayaIntegral::WakeUpResultOf(std::u16string_view frame) const {
    return {frame.size() == 10 && IsFramed(frame, u"07") ? WakeUpResult::Yes : WakeUpResult::No};
}

/// STX "08", five digits of extension, "hhmm", mode, ETX. Room states and alarms have the same shape; "0011" and the
/// like in place of the time tell them apart.
bool AvayaIntegral::IsSetClock(std::u16string_view frame) const {
    const std::u16string_view time = Mid(frame, 9, 4);
    const bool room_event = time == u"0011" || time == u"0022" || time == u"0033";
    return frame.size() == 14 && !room_event && IsFramed(frame, u"08");
}

std::optional<SetClock> AvayaIntegral::SetClockOf(std::u16string_view frame) const {
    const std::u16string_view time = Mid(frame, 9, 4);
    const std::u16string_view mode = Mid(frame, 13, 1);
    SetClock fields;
    fields.command.Append(Mid(frame, 2, 7));
    fields.mode.Append(mode);
    fields.time.Append(time);
    if (NumberValue(mode) == 1) fields.date = NextDate(Left(time, 2), Right(time, 2), Server().clock);
    if (NumberValue(mode) == 2) fields.date.Append(kNoDate);
    return fields;
}

}  // namespace vintrel::exchanges::avaya_integral
