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
#include "platform/operation_error.h"
#include "tests/unit/fakes.h"

namespace {

using namespace vintrel;  // NOLINT(google-build-using-namespace): one file, one law

void Demand(bool holds) {
    if (!holds) std::abort();
}

/// The code is upper-cased in place by every operation: each asks with its own.
struct Code : std::u16string {
    using std::u16string::u16string;
    operator server::TypeCode() { return {data(), size()}; }
};

void DemandForm(bool recognised, std::u16string_view form, std::size_t length, bool of_the_same_kind) {
    Demand(recognised == !form.empty());
    Demand(form.empty() || (form.size() == length && of_the_same_kind));
}

void JudgeFrame(server::Model model, std::u16string_view frame, const platform::Settings& settings) {
    Code code(server::ModelCode(model));
    Code host(u"TYPE10001");
    const bool integral =
        model == server::Model::Type10001 || model == server::Model::Type10002 || model == server::Model::Type10007;
    const testing::FakeClock clock;
    testing::FakeMessage message;

    const auto state = rx::GetComConvertRoomStateRX(code, frame, settings, message);
    DemandForm(rx::GetComIsRoomState(code, frame, settings) == 1, state, integral ? state.size() : 14,
               rx::GetComIsRoomState(host, state, settings) == 1);

    const auto alarm = rx::GetComConvertRoomAlarmRX(code, frame, settings, message);
    DemandForm(rx::GetComIsRoomAlarm(code, frame, settings) == 1, alarm, integral ? alarm.size() : 14,
               rx::GetComIsRoomAlarm(host, alarm, settings) == 1);

    const auto confirmation = rx::GetComConvertConfirmClockRX(code, frame, settings, message);
    const int kind = rx::GetComIsConfirmClock(code, frame, settings);
    DemandForm(kind == 1 || (kind == 2 && model == server::Model::Type10019), confirmation, 10,
               rx::GetComIsConfirmClock(host, confirmation, settings) == 1);

    const auto setting = rx::GetComConvertSetClockRX(code, frame, clock, message);
    const bool reports_settings = integral || model == server::Model::Type12000;
    Demand(setting.empty() != reports_settings && setting.size() <= 32);
    Demand(reports_settings || rx::GetComIsSetClock(code, frame) == 0);
    Demand(message.texts.empty());
}

void ReadFields(std::u16string_view text) {
    try {
        text::InOutText record(text);
        Demand(pms::GetPMS_PSConfirm(record).ends_with(u"|\x03"));
        Demand(pms::GetPMS_ColumnData(record, u"|RN").size() < text.size() + 1);
    } catch (const platform::OperationError& error) {
        Demand(error.Result() == platform::kInvalidArgument);
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
    platform::Settings settings;
    settings.RoomStatusCleanCdpn = u"90";
    settings.RoomStatusNotCleanCdpn = u"91";
    settings.RoomStatusAlarmCdpn = u"95";
    settings.WakeupResponseH323 = u"Hotel";
    JudgeFrame(model, frame, settings);
    ReadFields(frame);
    return 0;
}
