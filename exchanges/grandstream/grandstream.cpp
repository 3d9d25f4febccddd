#include "exchanges/grandstream/grandstream.h"

#include <optional>
#include <span>

#include "platform/operation_error.h"
#include "platform/pbx_access.h"
#include "text/fields.h"
#include "text/numbers.h"
#include "text/word.h"

namespace vintrel::exchanges::grandstream {

using namespace text;

// --- The model
// --------------------------------------------------------------------------------------------------------

namespace {

constexpr Model kModels[] = {{
    .code = u"TYPE10020",
    .name = u"Grandstream - UCM6300 Series",
    .make = Make<Grandstream>,
    .services = {.room_state = 1,  // no name changes, and date level 1
                 .clock = 1,
                 .central = 1,
                 .call_list = 1,
                 .check_in_out = 1,
                 .clock_date = 1,
                 .room_alarm = 1},
    .link = {.end_read = 1, .connection = 2, .winsock = 2, .connect = 1},
    .login = {.request = kDriven, .id_request2 = u"HTTP", .pw_request2 = u"HTTP"},
    .framing = {.length = 100, .end = kLfText, .acknowledge = kDriven},
    .pacing = {.interval_with_wait = 1, .interval = 1},
    .transfer = {.milliseconds = 4000, .minutes = 2, .duration = 3},
    .raw_length = 9999,
}};

}  // namespace

std::span<const Model> Models() { return kModels; }

// --- Preparation
// ------------------------------------------------------------------------------------------------------

/// The exchange's token is the digest of the account name directly followed by the password.
void Grandstream::Initialize() {
    platform::Settings& settings = Server().settings;
    std::optional<platform::PbxAccess> access = ReadPbxAccess(settings, Server().files, Server().ansi);
    std::u16string token = GsToken_;
    if (access) {
        const std::string account = Server().ansi.FromText(access->user + access->password);
        token = Server().md5.HashBytes(std::as_bytes(std::span(account)));
    }
    if (!Server().request_engine.Prepare())
        throw platform::OperationError(platform::kCannotCreateObject,
                                       u"The system's HTTP request engine cannot be prepared.");

    platform::Settings fresh = settings;
    if (access) std::move(*access).TakeOver(fresh);
    GsBaseUrl_ = Command(
        {u"https://", fresh.PbxHost, u":", DecimalText(fresh.PbxPort), u"/pmsapi?token=", token, u"&format=xml&data="});
    GsToken_ = std::move(token);
    settings = std::move(fresh);
}

// --- Frames: call records of feature codes and wake-up calls
// --------------------------------------------------------------

namespace {

/// What stands between the first two single quotes of a comma-separated field.
std::u16string_view QuotedField(std::u16string_view frame, std::int16_t index) {
    return GetTextBetween(GetCommaField(frame, index), u"'", u"'");
}

/// The last two digits that the maid dialled after the hotel feature code.
std::u16string_view MaidDigits(std::u16string_view frame) {
    const bool maid_call =
        UpperContains<u"PMS-STATUS">(GetCommaField(frame, 5)) && UpperContains<u"READEXTEN">(GetCommaField(frame, 9));
    return maid_call ? Right(QuotedField(frame, 4), 2) : std::u16string_view{};
}

std::u16string_view CallingRoom(std::u16string_view frame) { return QuotedField(frame, 3); }

}  // namespace

RoomState Grandstream::RoomStateOf(std::u16string_view frame) const {
    const std::u16string_view digits = MaidDigits(frame);
    if (digits == u"11") return {RoomState::Clean, CallingRoom(frame)};
    if (digits == u"22") return {RoomState::NotClean, CallingRoom(frame)};
    return {};
}

RoomAlarm Grandstream::RoomAlarmOf(std::u16string_view frame) const {
    if (MaidDigits(frame) != u"33") return {};
    return {RoomAlarm::Yes, CallingRoom(frame)};
}

/// The record of a call by "Wake Up Call"; field 18 of it, as it is split at every comma, is the result.
WakeUpResult Grandstream::WakeUpResultOf(std::u16string_view frame) const {
    if (!UpperContains<u"WAKE UP CALL">(GetCommaField(frame, 6))) return {};
    const std::u16string_view result = GetCommaField(frame, 18);
    const bool missed = UpperContains<u"NO ANSWER">(result) || UpperContains<u"BUSY">(result);
    if (!missed && !UpperContains<u"ANSWERED">(result)) return {};
    const std::u16string_view called = QuotedField(frame, 4);
    return {WakeUpResult::Yes, missed ? WakeUpResult::NotAnswered : WakeUpResult::Answered,
            IsDigits(Trim(called)) ? called : CallingRoom(frame)};
}

}  // namespace vintrel::exchanges::grandstream
