#include "exchanges/panasonic/panasonic.h"
#include "platform/waits.h"
#include "text/control_characters.h"
#include "text/numbers.h"

namespace vintrel::exchanges::panasonic {

using namespace text;

namespace {

constexpr std::uint32_t kLowestVersion = 0x10003;
constexpr std::uint32_t kHighestVersion = 0x30000;
constexpr std::size_t kCapabilitiesSize = 2301;
constexpr std::uint32_t kInteractiveVoice = 4;
constexpr std::uint32_t kOwnerAndMonitor = 6;
/// Marks this program's requests: callback instance and address identifier.
constexpr std::uint32_t kProgramTag = 0x544E4956;
constexpr std::uint32_t kNoCall = 0;
constexpr std::int32_t kReplyLimit = 3000;
constexpr std::int32_t kPause = 200;

std::u16string_view BeforeNul(std::u16string_view text) { return text.substr(0, text.find(kNul)); }

std::uint32_t TwoDigitNumber(std::u16string_view text) {
    return static_cast<std::uint32_t>(RoundToInt32(NumberValue(text)).value_or(0));
}

}  // namespace

template <typename Requests>
std::u16string PanasonicHotel::OnLine(std::int32_t room, Requests requests) {
    if (!Server().settings.HotelEnabled) return Verdict(true);
    if (!tapi_.TapiReady) return Verdict(false);
    const OrderGuard::Turn turn(Server().guard);
    if (!turn) return Verdict(false);
    const std::optional<std::uint32_t> line = OpenLine(room);
    if (!line) return Verdict(false);
    const bool carried_out = requests(*line);
    Server().loop.ProcessPending();
    Server().telephony.Close(*line);
    return Verdict(carried_out);
}

std::u16string PanasonicHotel::WakeUp(const WakeUpOrder& order) {
    const std::uint32_t hours = TwoDigitNumber(order.Hours());
    const std::uint32_t minutes = TwoDigitNumber(order.Minutes());
    const std::int16_t mode = order.mode;
    if (mode > kSetRepeating && Server().settings.HotelEnabled && tapi_.TapiReady) return {};
    return OnLine(order.room, [&](std::uint32_t line) {
        if (mode == kCancel) return Carry(line, DeviceBlock::Request::ClearWakeUp);
        block_.SetTime(hours, minutes);
        if (mode >= 0) block_.SetRepeat(mode == kSetRepeating);
        return Carry(line, DeviceBlock::Request::SetWakeUp);
    });
}

std::u16string PanasonicHotel::CheckIn(const CheckInOrder& order) {
    // Made before the first wait: while messages are processed the host may change its own variables.
    const std::u16string_view name = Trim(order.name);
    const auto length = static_cast<std::uint32_t>(name.empty() ? 0 : name.size() + 1);
    const std::string bytes = Server().ansi.FromText(Left(name, DeviceBlock::kNameBytes));
    return OnLine(order.room, [&](std::uint32_t line) {
        if (!Carry(line, DeviceBlock::Request::CheckIn)) return false;
        if (length == 0) return ClearName(line);
        block_.SetNameLength(length);
        block_.SetNameBytes(bytes);
        return Carry(line, DeviceBlock::Request::SetName);
    });
}

std::u16string PanasonicHotel::CheckOut(const CheckOutOrder& order) {
    const bool clear_name = order.change_name;
    return OnLine(order.room, [&](std::uint32_t line) {
        return Carry(line, DeviceBlock::Request::CheckOut) && (!clear_name || ClearName(line));
    });
}

std::u16string PanasonicHotel::UserName(std::int32_t room, InOutText& /*name*/) {
    return OnLine(room, [&](std::uint32_t line) { return ClearName(line); });
}

/// Both length words become 0; the bytes of the last name stay.
bool PanasonicHotel::ClearName(std::uint32_t line) {
    block_.SetNameLength(0);
    return Carry(line, DeviceBlock::Request::SetName);
}

/// The first voice line with the name of the extension. One that does not answer is passed over.
std::optional<std::uint32_t> PanasonicHotel::FindDevice(std::int32_t room) {
    const std::u16string wanted = Command({u"EXT", PaddedRoom(room)});
    for (std::uint32_t device = 0; device < tapi_.TapiLineCount; ++device) {
        const std::optional<std::uint32_t> version =
            Server().telephony.NegotiateVersion(tapi_.TapiLineApp, device, kLowestVersion, kHighestVersion);
        if (!version) continue;
        const auto capabilities =
            Server().telephony.Capabilities(tapi_.TapiLineApp, device, *version, kCapabilitiesSize);
        if (!capabilities || (capabilities->media_modes & kInteractiveVoice) == 0) continue;
        if (UpperEquals(Trim(BeforeNul(capabilities->name)), wanted)) return device;
    }
    return std::nullopt;
}

std::optional<std::uint32_t> PanasonicHotel::OpenLine(std::int32_t room) {
    const std::optional<std::uint32_t> device = FindDevice(room);
    if (!device) return std::nullopt;
    const std::uint32_t application = tapi_.TapiLineApp;
    const std::optional<std::uint32_t> version =
        Server().telephony.NegotiateVersion(application, *device, kLowestVersion, kHighestVersion);
    if (!version) return std::nullopt;
    return Server().telephony.Open(application, *device, *version,
                                   {.extension_version = 0,
                                    .callback_instance = kProgramTag,
                                    .privileges = kOwnerAndMonitor,
                                    .media_modes = kInteractiveVoice});
}

/// Sends the block with this request, and tells whether the exchange has replied to it.
bool PanasonicHotel::Carry(std::uint32_t line, DeviceBlock::Request request) {
    platform::MessageLoop& loop = Server().loop;
    block_.SetRequest(request);
    tapi_.TapiLastReplyId = 0;
    const std::int32_t identifier = Server().telephony.DeviceSpecific(line, kProgramTag, kNoCall, block_.Bytes());
    if (identifier <= 0) return false;

    const auto replied = [&] { return tapi_.TapiLastReplyId == static_cast<std::uint32_t>(identifier); };
    const platform::WaitScope scope(loop);
    loop.StartTimer(platform::Timer::TspTimer, kReplyLimit, {});
    while (!replied() && loop.TimerRunning(platform::Timer::TspTimer)) loop.WaitAndProcess(kReplyLimit);
    loop.StopTimer(platform::Timer::TspTimer);
    // A belated reply to an earlier order, which may come in the pause, takes nothing back.
    const bool in_time = replied();
    platform::WaitMilliseconds(loop, kPause);
    return in_time || replied();
}

}  // namespace vintrel::exchanges::panasonic
