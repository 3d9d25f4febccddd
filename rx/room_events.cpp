#include "rx/room_events.h"

#include "rx/frame.h"
#include "server/text.h"
#include "server/word.h"

namespace vintrel::rx {
namespace {

using namespace server;

constexpr std::u16string_view kClean = u"0011";
constexpr std::u16string_view kNotClean = u"0022";
constexpr std::u16string_view kAlarm = u"0033";
constexpr std::u16string_view kNone;

// Mitel hotel frames: field 7 and field 8. The codes for clean and not clean are those that the maid dials on these
// telephones (1 not cleaned, 2 cleaned); that the frame carries them unchanged is not public.
constexpr std::u16string_view kMitelRoomEvent = u"25";
constexpr std::u16string_view kMitelNotClean = u"1";
constexpr std::u16string_view kMitelClean = u"2";
constexpr std::u16string_view kMitelAlarm = u"9";

/// The code if it is a room state.
std::u16string_view StateOf(std::u16string_view code) { return code == kClean || code == kNotClean ? code : kNone; }

/// STX "08", five digits of extension, the code, "1", ETX; the length is not checked.
std::u16string_view IntegralCode(std::u16string_view frame) {
    return IsFramed(frame, u"08") && Right(frame, 2) == u"1\x03" ? Mid(frame, 9, 4) : kNone;
}

std::u16string_view MitelCode(std::u16string_view frame) {
    return HasMitelTrailer(frame) && MitelField(frame, 7) == kMitelRoomEvent ? MitelField(frame, 8) : kNone;
}

std::u16string_view MitelState(std::u16string_view frame) {
    const std::u16string_view code = MitelCode(frame);
    return code == kMitelClean ? kClean : code == kMitelNotClean ? kNotClean : kNone;
}

/// innovaphone: the number that a room has called to signal its state, "" unless a call to a number from a room ended.
std::u16string_view SignalledNumber(std::u16string_view frame) {
    if (QueryValue(frame, u"event=") != u"A:Rel") return {};
    const std::u16string_view called = Trim(Left(QueryValue(frame, u"dst_cdpn="), 16));
    if (!IsNumeric(called) || NumberValue(called) == 0) return {};
    const std::u16string_view room = Trim(Left(QueryValue(frame, u"src_cgpn="), 5));
    return IsNumeric(room) && NumberValue(room) > 0 ? called : kNone;
}

std::u16string_view InnovaphoneState(std::u16string_view frame, const Settings& settings) {
    const std::u16string_view called = SignalledNumber(frame);
    if (called.empty()) return kNone;
    if (called == settings.RoomStatusCleanCdpn) return kClean;
    if (called == settings.RoomStatusNotCleanCdpn) return kNotClean;
    if (called == settings.RoomStatusCleanOccupiedCdpn) return kClean;
    if (called == settings.RoomStatusNotCleanOccupiedCdpn) return kNotClean;
    if (called == settings.RoomStatusInspectedOccupiedCdpn) return kClean;
    return kNone;
}

bool IsInnovaphoneAlarm(std::u16string_view frame, const Settings& settings) {
    const std::u16string_view called = SignalledNumber(frame);
    return !called.empty() && called == settings.RoomStatusAlarmCdpn;
}

/// IP Office: an outgoing call ("O") whose account code ends in the room code.
std::u16string_view IpOfficeCode(std::u16string_view frame) {
    return GetCommaField(frame, 5) == u"O" ? Right(Trim(GetCommaField(frame, 8)), 4) : kNone;
}

std::u16string_view IpOfficeRoom(std::u16string_view frame) {
    const std::u16string_view device = Trim(GetCommaField(frame, 12));
    return device.starts_with(u'E') && IsDigits(device.substr(1)) ? device.substr(1) : GetCommaField(frame, 4);
}

std::u16string_view PanasonicState(std::u16string_view frame) {
    if (UpperContains<u"NOT CLEANED">(frame) || UpperContains<u"EXT777">(frame)) return kNotClean;
    if (UpperContains<u"CLEANED UP">(frame) || UpperContains<u"EXT776">(frame)) return kClean;
    return kNone;
}

/// Grandstream: the last two digits that the maid dialled after the hotel feature code.
std::u16string_view MaidDigits(std::u16string_view frame) {
    const bool maid_call =
        UpperContains<u"PMS-STATUS">(GetCommaField(frame, 5)) && UpperContains<u"READEXTEN">(GetCommaField(frame, 9));
    return maid_call ? Right(QuotedField(frame, 4), 2) : kNone;
}

std::u16string_view GrandstreamState(std::u16string_view frame) {
    const std::u16string_view digits = MaidDigits(frame);
    return digits == u"11" ? kClean : digits == u"22" ? kNotClean : kNone;
}

std::u16string_view FiasState(std::u16string_view frame) {
    if (!IsFramed(frame, u"RE|")) return kNone;
    if (Contains(frame, u"|RS3|")) return kClean;
    if (Contains(frame, u"|RS1|")) return kNotClean;
    return kNone;
}

/// kClean or kNotClean; kNone for a frame that is no room state.
std::u16string_view RoomState(Model model, std::u16string_view frame, const Settings& settings) {
    switch (model) {
        case Model::Type10001:
        case Model::Type10002:
        case Model::Type10007: return StateOf(IntegralCode(frame));
        case Model::Type10008:
        case Model::Type10014:
        case Model::Type10016: return MitelState(frame);
        case Model::Type10012: return InnovaphoneState(frame, settings);
        case Model::Type10017: return StateOf(IpOfficeCode(frame));
        case Model::Type10019: return PanasonicState(frame);
        case Model::Type10020: return GrandstreamState(frame);
        case Model::Type12000: return FiasState(frame);
        case Model::Type10003:
        case Model::Type10004:
        case Model::Type10005:
        case Model::Type10006:
        case Model::Type10009:
        case Model::Type10010:
        case Model::Type10011:
        case Model::Type10013:
        case Model::Type10015:
        case Model::Type10018: return kNone;
    }
    return kNone;
}

enum class Alarm : std::int16_t { No = 0, Yes = 1, OtherMitelFrame = 2 };

Alarm YesIf(bool alarm) { return alarm ? Alarm::Yes : Alarm::No; }

Alarm MitelAlarm(std::u16string_view frame) {
    if (MitelCode(frame) == kMitelAlarm) return Alarm::Yes;
    return HasMitelTrailer(frame) ? Alarm::OtherMitelFrame : Alarm::No;
}

Alarm RoomAlarm(Model model, std::u16string_view frame, const Settings& settings) {
    switch (model) {
        case Model::Type10001:
        case Model::Type10002:
        case Model::Type10007: return YesIf(IntegralCode(frame) == kAlarm);
        case Model::Type10008:
        case Model::Type10014:
        case Model::Type10016: return MitelAlarm(frame);
        case Model::Type10012: return YesIf(IsInnovaphoneAlarm(frame, settings));
        case Model::Type10017: return YesIf(IpOfficeCode(frame) == kAlarm);
        case Model::Type10019: return YesIf(UpperContains<u"ALARM">(frame) || UpperContains<u"EXT778">(frame));
        case Model::Type10020: return YesIf(MaidDigits(frame) == u"33");
        case Model::Type12000: return YesIf(IsFramed(frame, u"RE|") && Contains(frame, u"|RS5|"));
        case Model::Type10003:
        case Model::Type10004:
        case Model::Type10005:
        case Model::Type10006:
        case Model::Type10009:
        case Model::Type10010:
        case Model::Type10011:
        case Model::Type10013:
        case Model::Type10015:
        case Model::Type10018: return Alarm::No;
    }
    return Alarm::No;
}

/// A recognised frame in the host's form.
std::u16string HostFrame(Model model, std::u16string_view frame, std::u16string_view code) {
    switch (model) {
        case Model::Type10001:
        case Model::Type10002:
        case Model::Type10007: return std::u16string(frame);  // the host's form is theirs
        case Model::Type10008:
        case Model::Type10014:
        case Model::Type10016: return RoomFrame(MitelRoom(frame), code);
        case Model::Type10012: return RoomFrame(Left(QueryValue(frame, u"src_cgpn="), 5), code);
        case Model::Type10017: return RoomFrame(IpOfficeRoom(frame), code);
        case Model::Type10019: return RoomFrame(PanasonicExtension(frame), code);
        case Model::Type10020: return RoomFrame(QuotedField(frame, 3), code);
        case Model::Type12000: return RoomFrame(FiasValue(frame, u"|RN"), code);
        case Model::Type10003:
        case Model::Type10004:
        case Model::Type10005:
        case Model::Type10006:
        case Model::Type10009:
        case Model::Type10010:
        case Model::Type10011:
        case Model::Type10013:
        case Model::Type10015:
        case Model::Type10018: return {};
    }
    return {};
}

}  // namespace

std::int16_t GetComIsRoomState(TypeCode type, std::u16string_view frame, const Settings& settings) {
    const std::optional<Model> model = UpperAndFind(type);
    return !model || !RoomState(*model, frame, settings).empty() ? 1 : 0;
}

std::int16_t GetComIsRoomAlarm(TypeCode type, std::u16string_view frame, const Settings& settings) {
    const std::optional<Model> model = UpperAndFind(type);
    return static_cast<std::int16_t>(model ? RoomAlarm(*model, frame, settings) : Alarm::Yes);
}

std::u16string GetComConvertRoomStateRX(TypeCode type, std::u16string_view frame, const Settings& settings,
                                        CriticalMessage& message) {
    const std::optional<Model> model = UpperAndFind(type, u"GetComConvertRoomStateRX", message);
    const std::u16string_view state = model ? RoomState(*model, frame, settings) : kNone;
    return state.empty() ? std::u16string() : HostFrame(*model, frame, state);
}

std::u16string GetComConvertRoomAlarmRX(TypeCode type, std::u16string_view frame, const Settings& settings,
                                        CriticalMessage& message) {
    const std::optional<Model> model = UpperAndFind(type, u"GetComConvertRoomAlarmRX", message);
    const bool alarm = model && RoomAlarm(*model, frame, settings) == Alarm::Yes;
    return alarm ? HostFrame(*model, frame, kAlarm) : std::u16string();
}

}  // namespace vintrel::rx
