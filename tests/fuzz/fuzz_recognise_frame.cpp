// The law of received frames: an answer is one of its few numbers; a frame has a form for the host exactly when it is
// recognised; and that form, but for the Avaya Integral models whose frames stay as they are, is a frame of theirs of
// the same kind.
// Input: the five digits of the model's code; then the frame. A byte above 127 is a character outside Latin-1.
#include <cstdint>
#include <cstdlib>
#include <string>

#include "exchanges/fias/link_records.h"
#include "platform/operation_error.h"
#include "server/received_frames.h"
#include "tests/fuzz/model_of_input.h"
#include "tests/unit/test_server.h"

namespace {

using namespace vintrel;  // NOLINT(google-build-using-namespace): one file, one law

void Demand(bool holds) {
    if (!holds) std::abort();
}

/// The code is upper-cased in place by every operation: each asks with its own.
struct Code : std::u16string {
    explicit Code(std::u16string code) : std::u16string(std::move(code)) {}
    operator server::TypeCode() { return {data(), size()}; }
};

void DemandForm(bool recognised, std::u16string_view form, std::size_t length, bool of_the_same_kind) {
    Demand(recognised == !form.empty());
    Demand(form.empty() || (form.size() == length && of_the_same_kind));
}

void JudgeFrame(const exchanges::Model& model, std::u16string_view frame, testing::TestServer& server) {
    using namespace vintrel::server;  // NOLINT(google-build-using-namespace): the operations
    Code code{std::u16string(model.code)};
    Code host(u"TYPE10001");
    const exchanges::Exchanges& all = server.exchanges;
    platform::CriticalMessage& message = server.message;
    const bool integral = all.Find(model.code)->SpeaksTheHostsForm();

    const auto state = GetComConvertRoomStateRX(code, frame, all, message);
    DemandForm(GetComIsRoomState(code, frame, all) == 1, state, integral ? state.size() : 14,
               GetComIsRoomState(host, state, all) == 1);

    const auto alarm = GetComConvertRoomAlarmRX(code, frame, all, message);
    DemandForm(GetComIsRoomAlarm(code, frame, all) == 1, alarm, integral ? alarm.size() : 14,
               GetComIsRoomAlarm(host, alarm, all) == 1);

    const auto confirmation = GetComConvertConfirmClockRX(code, frame, all, message);
    const int kind = GetComIsConfirmClock(code, frame, all);
    DemandForm(kind == 1 || (kind == 2 && model.code == u"TYPE10019"), confirmation, 10,
               GetComIsConfirmClock(host, confirmation, all) == 1);

    const auto setting = GetComConvertSetClockRX(code, frame, all, message);
    const bool reports_settings = integral || model.code == u"TYPE12000";
    Demand(setting.empty() != reports_settings && setting.size() <= 32);
    Demand(reports_settings || GetComIsSetClock(code, frame, all) == 0);
    Demand(server.message.texts.empty());
}

void ReadFields(std::u16string_view text) {
    try {
        text::InOutText record(text);
        Demand(exchanges::fias::GetPMS_PSConfirm(record).ends_with(u"|\x03"));
        Demand(exchanges::fias::GetPMS_ColumnData(record, u"|RN").size() < text.size() + 1);
    } catch (const platform::OperationError& error) {
        Demand(error.Result() == platform::kInvalidArgument);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const exchanges::Model* const model = fuzz::ModelOf(data, size);
    if (!model) return fuzz::kNotForAModel;
    std::u16string frame;
    for (std::size_t i = fuzz::kDigits; i < size; ++i) {
        const auto character = static_cast<char16_t>(data[i]);
        frame += character < 128 ? character : static_cast<char16_t>(character * 257);
    }
    testing::TestServer server;
    server.Ini(u"ROOMSTATUS_CLEAN", u"dst_cdpn") = u"90";
    server.Ini(u"ROOMSTATUS_NOTCLEAN", u"dst_cdpn") = u"91";
    server.Ini(u"ROOMSTATUS_ALARM", u"dst_cdpn") = u"95";
    server.Ini(u"WAKEUP_RESPONSE", u"h323") = u"Hotel";
    server.Initialize(u"TYPE10012");
    JudgeFrame(*model, frame, server);
    ReadFields(frame);
    return 0;
}
