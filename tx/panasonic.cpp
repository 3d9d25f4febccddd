#include "tx/panasonic.h"

#include <algorithm>
#include <span>

#include "server/control_characters.h"
#include "server/text.h"
#include "server/waits.h"

namespace vintrel::tx {
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
constexpr std::size_t kNameBytes = 25;

std::u16string_view BeforeNul(std::u16string_view text) { return text.substr(0, text.find(server::kNul)); }

std::uint32_t TwoDigitNumber(std::u16string_view text) {
    return static_cast<std::uint32_t>(server::RoundToInt32(server::NumberValue(text)).value_or(0));
}

}  // namespace

void DeviceBlock::SetWord(std::size_t position, std::uint32_t value) {
    for (std::size_t i = 0; i < 4; ++i) bytes_[position + i] = static_cast<std::byte>((value >> (8 * i)) & 0xFFU);
}

void DeviceBlock::SetRequest(Request request) {
    SetWord(0, kSize);
    SetWord(12, static_cast<std::uint32_t>(request));
}

void DeviceBlock::SetTime(std::uint32_t hours, std::uint32_t minutes) { SetWord(16, hours * 2048 + minutes * 32); }

void DeviceBlock::SetRepeat(bool repeat) { SetWord(24, repeat ? 1 : 0); }

void DeviceBlock::SetNameLength(std::uint32_t length) {
    SetWord(28, length);
    SetWord(32, length == 0 ? 0 : static_cast<std::uint32_t>(kSize) - length);
}

void DeviceBlock::SetNameBytes(std::string_view bytes) {
    const std::span<std::byte> name = std::span<std::byte>(bytes_).last(kNameBytes);
    std::fill(name.begin(), name.end(), std::byte{0});
    std::transform(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(std::min(bytes.size(), kNameBytes)),
                   name.begin(), [](char byte) { return static_cast<std::byte>(byte); });
}

template <typename Requests>
std::u16string_view Panasonic::OnLine(std::int32_t room, Requests requests) {
    if (!access_.settings.HotelEnabled) return kOk;
    if (!access_.settings.TapiReady) return kError;
    const OrderGuard::Turn turn(access_.guard);
    if (!turn) return kError;
    const std::optional<std::uint32_t> line = OpenLine(room);
    if (!line) return kError;
    const std::u16string_view verdict = requests(*line) ? kOk : kError;
    access_.loop.ProcessPending();
    telephony_.Close(*line);
    return verdict;
}

std::u16string_view Panasonic::WakeUp(const WakeUpOrder& order) {
    const std::uint32_t hours = TwoDigitNumber(order.Hours());
    const std::uint32_t minutes = TwoDigitNumber(order.Minutes());
    const std::int16_t mode = order.mode;
    if (mode > kSetRepeating && access_.settings.HotelEnabled && access_.settings.TapiReady) return {};
    return OnLine(order.room, [&](std::uint32_t line) {
        if (mode == kCancel) return Carry(line, DeviceBlock::Request::ClearWakeUp);
        block_.SetTime(hours, minutes);
        if (mode >= 0) block_.SetRepeat(mode == kSetRepeating);
        return Carry(line, DeviceBlock::Request::SetWakeUp);
    });
}

std::u16string_view Panasonic::CheckIn(const CheckInOrder& order) {
    // Made before the first wait: while messages are processed the host may change its own variables.
    const std::u16string_view name = server::Trim(order.name);
    const auto length = static_cast<std::uint32_t>(name.empty() ? 0 : name.size() + 1);
    const std::string bytes = ansi_.FromText(server::Left(name, kNameBytes));
    return OnLine(order.room, [&](std::uint32_t line) {
        if (!Carry(line, DeviceBlock::Request::CheckIn)) return false;
        if (length == 0) return ClearName(line);
        block_.SetNameLength(length);
        block_.SetNameBytes(bytes);
        return Carry(line, DeviceBlock::Request::SetName);
    });
}

std::u16string_view Panasonic::CheckOut(const CheckOutOrder& order) {
    const bool clear_name = order.change_name;
    return OnLine(order.room, [&](std::uint32_t line) {
        return Carry(line, DeviceBlock::Request::CheckOut) && (!clear_name || ClearName(line));
    });
}

std::u16string_view Panasonic::UserName(std::int32_t room) {
    return OnLine(room, [&](std::uint32_t line) { return ClearName(line); });
}

/// Both length words become 0; the bytes of the last name stay.
bool Panasonic::ClearName(std::uint32_t line) {
    block_.SetNameLength(0);
    return Carry(line, DeviceBlock::Request::SetName);
}

/// The first voice line with the name of the extension. One that does not answer is passed over.
std::optional<std::uint32_t> Panasonic::FindDevice(std::int32_t room) {
    const server::Settings& settings = access_.settings;
    const std::u16string wanted = Command({u"EXT", PaddedRoom(room)});
    for (std::uint32_t device = 0; device < settings.TapiLineCount; ++device) {
        const std::optional<std::uint32_t> version =
            telephony_.NegotiateVersion(settings.TapiLineApp, device, kLowestVersion, kHighestVersion);
        if (!version) continue;
        const auto capabilities = telephony_.Capabilities(settings.TapiLineApp, device, *version, kCapabilitiesSize);
        if (!capabilities || (capabilities->media_modes & kInteractiveVoice) == 0) continue;
        if (server::UpperEquals(server::Trim(BeforeNul(capabilities->name)), wanted)) return device;
    }
    return std::nullopt;
}

std::optional<std::uint32_t> Panasonic::OpenLine(std::int32_t room) {
    const std::optional<std::uint32_t> device = FindDevice(room);
    if (!device) return std::nullopt;
    const std::uint32_t application = access_.settings.TapiLineApp;
    const std::optional<std::uint32_t> version =
        telephony_.NegotiateVersion(application, *device, kLowestVersion, kHighestVersion);
    if (!version) return std::nullopt;
    return telephony_.Open(application, *device, *version,
                           {.extension_version = 0,
                            .callback_instance = kProgramTag,
                            .privileges = kOwnerAndMonitor,
                            .media_modes = kInteractiveVoice});
}

/// Sends the block with this request, and tells whether the exchange has replied to it.
bool Panasonic::Carry(std::uint32_t line, DeviceBlock::Request request) {
    server::Settings& settings = access_.settings;
    server::MessageLoop& loop = access_.loop;
    block_.SetRequest(request);
    settings.TapiLastReplyId = 0;
    const std::int32_t identifier = telephony_.DeviceSpecific(line, kProgramTag, kNoCall, block_.Bytes());
    if (identifier <= 0) return false;

    const auto replied = [&] { return settings.TapiLastReplyId == static_cast<std::uint32_t>(identifier); };
    const server::WaitScope scope(loop);
    loop.StartTimer(server::Timer::TspTimer, kReplyLimit, {});
    while (!replied() && loop.TimerRunning(server::Timer::TspTimer)) loop.WaitAndProcess(kReplyLimit);
    loop.StopTimer(server::Timer::TspTimer);
    // A belated reply to an earlier order, which may come in the pause, takes nothing back.
    const bool in_time = replied();
    server::WaitMilliseconds(loop, kPause);
    return in_time || replied();
}

}  // namespace vintrel::tx
