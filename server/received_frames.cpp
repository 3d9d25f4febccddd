#include "server/received_frames.h"

#include "text/control_characters.h"
#include "text/text.h"

namespace vintrel::server {
namespace {

using exchanges::Exchange;
using exchanges::RoomAlarm;
using exchanges::RoomState;
using exchanges::WakeUpResult;

constexpr std::u16string_view kClean = u"0011";
constexpr std::u16string_view kNotClean = u"0022";
constexpr std::u16string_view kAlarm = u"0033";

/// Five digits. Blanks around the room do not count. More than five digits: the last five; not only digits: "00000".
void AppendExtension(std::u16string& frame, std::u16string_view room) {
    constexpr std::size_t kWidth = 5;
    room = text::Trim(room);
    if (!text::IsDigits(room)) room = {};
    room = text::Right(room, kWidth);
    frame.append(kWidth - room.size(), u'0').append(room);
}

std::u16string RoomFrame(std::u16string_view room, std::u16string_view code) {
    std::u16string frame;
    frame.reserve(14);
    frame.append({text::kStx, u'0', u'8'});
    AppendExtension(frame, room);
    return frame.append(code).append({u'1', text::kEtx});
}

std::u16string ConfirmationFrame(std::u16string_view room, WakeUpResult::Status status) {
    std::u16string frame;
    frame.reserve(10);
    frame.append({text::kStx, u'0', u'7'});
    AppendExtension(frame, room);
    return frame.append({static_cast<char16_t>(status), text::kEtx});
}

std::u16string Joined(const exchanges::SetClock& fields) {
    constexpr std::size_t kFillerWidth = 14;
    std::u16string text;
    text.reserve(32);
    text += text::kStx;
    for (const std::u16string_view field :
         {fields.command.View(), fields.mode.View(), fields.time.View(), fields.date.View()})
        text += field;
    text.append(kFillerWidth, text::kBlank);
    text += text::kEtx;
    return text;
}

}  // namespace

std::int16_t GetComIsRoomState(TypeCode type, std::u16string_view frame, const exchanges::Exchanges& exchanges) {
    const Exchange* const exchange = UpperAndFind(type, exchanges);
    return !exchange || exchange->RoomStateOf(frame).kind != RoomState::None ? 1 : 0;
}

std::int16_t GetComIsRoomAlarm(TypeCode type, std::u16string_view frame, const exchanges::Exchanges& exchanges) {
    const Exchange* const exchange = UpperAndFind(type, exchanges);
    return exchange ? exchange->RoomAlarmOf(frame).kind : RoomAlarm::Yes;
}

std::int16_t GetComIsConfirmClock(TypeCode type, std::u16string_view frame, const exchanges::Exchanges& exchanges) {
    const Exchange* const exchange = UpperAndFind(type, exchanges);
    return exchange ? exchange->WakeUpResultOf(frame).kind : WakeUpResult::Yes;
}

std::int16_t GetComIsSetClock(TypeCode type, std::u16string_view frame, const exchanges::Exchanges& exchanges) {
    const Exchange* const exchange = UpperAndFind(type, exchanges);
    return !exchange || exchange->IsSetClock(frame) ? 1 : 0;
}

std::u16string GetComConvertRoomStateRX(TypeCode type, std::u16string_view frame, const exchanges::Exchanges& exchanges,
                                        platform::CriticalMessage& message) {
    const Exchange* const exchange = UpperAndFind(type, exchanges, u"GetComConvertRoomStateRX", message);
    const RoomState state = exchange ? exchange->RoomStateOf(frame) : RoomState{};
    if (state.kind == RoomState::None) return {};
    if (exchange->SpeaksTheHostsForm()) return std::u16string(frame);
    return RoomFrame(state.room, state.kind == RoomState::Clean ? kClean : kNotClean);
}

std::u16string GetComConvertRoomAlarmRX(TypeCode type, std::u16string_view frame, const exchanges::Exchanges& exchanges,
                                        platform::CriticalMessage& message) {
    const Exchange* const exchange = UpperAndFind(type, exchanges, u"GetComConvertRoomAlarmRX", message);
    const RoomAlarm alarm = exchange ? exchange->RoomAlarmOf(frame) : RoomAlarm{};
    if (alarm.kind != RoomAlarm::Yes) return {};
    return exchange->SpeaksTheHostsForm() ? std::u16string(frame) : RoomFrame(alarm.room, kAlarm);
}

std::u16string GetComConvertConfirmClockRX(TypeCode type, std::u16string_view frame,
                                           const exchanges::Exchanges& exchanges, platform::CriticalMessage& message) {
    const Exchange* const exchange = UpperAndFind(type, exchanges, u"GetComConvertConfirmClockRX", message);
    const WakeUpResult result = exchange ? exchange->WakeUpResultOf(frame) : WakeUpResult{};
    if (result.kind == WakeUpResult::No) return {};
    if (exchange->SpeaksTheHostsForm()) return std::u16string(frame);
    // A Mitel frame of the second kind says nothing of a room.
    return result.status == WakeUpResult::Nothing ? std::u16string() : ConfirmationFrame(result.room, result.status);
}

std::u16string GetComConvertSetClockRX(TypeCode type, std::u16string_view frame, const exchanges::Exchanges& exchanges,
                                       platform::CriticalMessage& message) {
    const Exchange* const exchange = UpperAndFind(type, exchanges, u"GetComConvertSetClockRX", message);
    const auto fields = exchange ? exchange->SetClockOf(frame) : std::nullopt;
    return fields ? Joined(*fields) : std::u16string();
}

}  // namespace vintrel::server
