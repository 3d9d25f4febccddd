// The law of received frames: an answer is one of its few numbers; a frame has a form for the host exactly when it is
// recognised; and that form, but for the Avaya Integral models whose frames stay as they are, is a frame of theirs of
// the same kind.
// Input: a letter, the model's place in the catalogue; then the frame. A byte above 127 is a character outside Latin-1.
#include <cstdint>
#include <cstdlib>
#include <string>

#include "pms/fias_link.h"
#include "rx/room_events.h"
#include "rx/set_clock.h"
#include "rx/wake_up_events.h"
#include "server/catalogue.h"
#include "server/control_characters.h"
#include "server/operation_error.h"
#include "tests/unit/fakes.h"

namespace {

using namespace vintrel;  // NOLINT(google-build-using-namespace): one file, one law

constexpr std::u16string_view kHostForm = u"TYPE10001";

void Demand(bool holds) {
    if (!holds) std::abort();
}

server::Settings HotelSettings() {
    server::Settings settings;
    settings.RoomStatusCleanCdpn = u"90";
    settings.RoomStatusNotCleanCdpn = u"91";
    settings.RoomStatusAlarmCdpn = u"95";
    settings.WakeupResponseH323 = u"Hotel";
    settings.WakeupResponseFallback = u"299";
    return settings;
}

/// The operations with the code and the frame in hand.
struct Exchange {
    const server::Settings& settings;
    std::u16string code;
    testing::FakeMessage message;
    testing::FakeClock clock;

    int RoomState(std::u16string_view frame) { return rx::GetComIsRoomState(code, frame, settings); }
    int RoomAlarm(std::u16string_view frame) { return rx::GetComIsRoomAlarm(code, frame, settings); }
    int Confirmation(std::u16string_view frame) { return rx::GetComIsConfirmClock(code, frame, settings); }
    int SetClock(std::u16string_view frame) { return rx::GetComIsSetClock(code, frame); }
};

void DemandForm(int recognised, std::u16string_view form, int recognised_as_form, std::size_t length, bool own_form) {
    Demand((recognised == 1) == !form.empty());
    if (form.empty() || own_form) return;
    Demand(form.size() == length && recognised_as_form == 1);
}

void JudgeFrame(server::Model model, std::u16string_view frame) {
    static const server::Settings settings = HotelSettings();
    Exchange exchange{settings, std::u16string(server::ModelCode(model)), {}, {}};
    Exchange host{settings, std::u16string(kHostForm), {}, {}};
    const bool own_form =
        model == server::Model::Type10001 || model == server::Model::Type10002 || model == server::Model::Type10007;

    const std::u16string state = rx::GetComConvertRoomStateRX(exchange.code, frame, settings, exchange.message);
    DemandForm(exchange.RoomState(frame), state, host.RoomState(state), 14, own_form);

    const std::u16string alarm = rx::GetComConvertRoomAlarmRX(exchange.code, frame, settings, exchange.message);
    DemandForm(exchange.RoomAlarm(frame), alarm, host.RoomAlarm(alarm), 14, own_form);

    const std::u16string confirmation =
        rx::GetComConvertConfirmClockRX(exchange.code, frame, settings, exchange.message);
    const int kind = exchange.Confirmation(frame);
    const bool started = kind == 2 && model == server::Model::Type10019;
    Demand(kind >= 0 && kind <= 2);
    DemandForm(started ? 1 : kind, confirmation, host.Confirmation(confirmation), 10, own_form);

    const std::u16string setting = rx::GetComConvertSetClockRX(exchange.code, frame, exchange.clock, exchange.message);
    const bool reports_settings = own_form || model == server::Model::Type12000;
    Demand(setting.empty() == !reports_settings && setting.size() <= 32);
    Demand(setting.empty() || (setting.front() == server::kStx && setting.back() == server::kEtx));
    Demand(exchange.SetClock(frame) == 0 || reports_settings);
    Demand(exchange.message.texts.empty());
}

void ReadFields(std::u16string_view text) {
    try {
        server::InOutText record(text);
        Demand(pms::GetPMS_PSConfirm(record).ends_with(u"|\x03"));
        Demand(pms::GetPMS_ColumnData(record, u"|RN").size() < text.size() + 1);
    } catch (const server::OperationError& error) {
        Demand(error.Result() == server::kInvalidArgument);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) return 0;
    const auto model =
        static_cast<server::Model>((data[0] + server::kModelCount - 'A' % server::kModelCount) % server::kModelCount);
    std::u16string frame;
    for (std::size_t i = 1; i < size; ++i) {
        const auto character = static_cast<char16_t>(data[i]);
        frame += character < 128 ? character : static_cast<char16_t>(character * 257);
    }
    JudgeFrame(model, frame);
    ReadFields(frame);
    return 0;
}
