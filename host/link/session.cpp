#include "host/link/session.h"

#include <utility>

#include "host/console.h"
#include "host/link/ask_link.h"
#include "host/text.h"

namespace vintrel::host {
namespace {

/// How long a prompt may keep orders waiting.
constexpr std::uint64_t kLoginPatience = 5000;
/// The sign of life of a PMS link.
constexpr std::uint64_t kAliveInterval = 60'000;
/// A sign of life that comes this soon after ours is the answer to it.
constexpr std::uint64_t kAliveEcho = 5000;
/// A peer that stops in the middle of a frame for so long will not end it: what comes then is a new frame.
constexpr std::uint64_t kHalfFramePatience = 3000;

}  // namespace

Session::Session(const Server& server, const Model& model, const CallLayout& layout, const Credentials& credentials,
                 Outside outside)
    : server_(server),
      answers_(AskAboutLink(server, model)),
      layout_(layout),
      outside_(std::move(outside)),
      recognition_(server, model),
      cutter_(answers_.framing),
      login_(answers_, credentials.user, credentials.password),
      sender_(answers_, outside_.send),
      dle_(server.Text(server.link, &_ComProgramSet::GetComDLERx)),
      type_(model.Code()) {}

void Session::Connected(const Moment& moment) {
    moment_ = moment;
    connected_ = true;
    connected_at_ = moment.milliseconds;
    logged_in_ = answers_.login_request.empty() && answers_.exchange_request.empty() && answers_.user_prompt.empty() &&
                 answers_.password_prompt.empty();
    cutter_ = FrameCutter(answers_.framing);
    sender_.SendNow(login_.Begin());
    if (answers_.fias) SendFias(&_PMSEvents::GetPMS_LS_String);
}

void Session::Disconnected(const Moment& moment) {
    moment_ = moment;
    connected_ = false;
    sender_.Disconnected();
    if (const std::string half = DropHalfFrame(); !half.empty()) Tell({kHalfFrame, "", Readable(half)});
}

std::string Session::DropHalfFrame() {
    std::string half(cutter_.Rest());
    cutter_ = FrameCutter(answers_.framing);
    // A start character alone is the check character of the frame before.
    return half == answers_.framing.start ? std::string() : half;
}

void Session::Received(const Moment& moment, std::string_view bytes) {
    moment_ = moment;
    received_at_ = moment.milliseconds;
    cutter_.Push(bytes);
    while (const auto piece = cutter_.Next()) TakePiece(*piece);
    // A prompt has no end; what follows a Telnet negotiation may be complete again.
    while (!cutter_.Rest().empty()) {
        const auto reply = login_.Hear(cutter_.Rest());
        if (!reply) return;
        cutter_.Take(reply->taken);
        sender_.SendNow(reply->answer);
        logged_in_ = logged_in_ || reply->finished;
        if (reply->finished) Tell({"login", "", "answered"});
        while (const auto piece = cutter_.Next()) TakePiece(*piece);
    }
}

void Session::TakePiece(const FrameCutter::Piece& piece) {
    switch (piece.kind) {
        case FrameCutter::Kind::Frame: return TakeFrame(piece.bytes);
        case FrameCutter::Kind::Loose: return TakeLoose(piece.bytes);
        case FrameCutter::Kind::Broken: return Tell({kHalfFrame, "", Readable(piece.bytes)});
        case FrameCutter::Kind::Overlong: return Tell({"no end", "", Readable(piece.bytes.substr(0, 80)) + " ..."});
    }
}

void Session::TakeLoose(std::string_view bytes) {
    while (!bytes.empty()) {
        if (const auto reply = login_.Hear(bytes)) {
            bytes.remove_prefix(reply->taken);
            sender_.SendNow(reply->answer);
            if (reply->finished) Tell({"login", "", "confirmed"});
            logged_in_ = logged_in_ || reply->finished;
            sender_.Confirmed();
            continue;
        }
        if (!answers_.login_confirmed.empty() && bytes.starts_with(answers_.login_confirmed)) sender_.Confirmed();
        if (!answers_.reject.empty() && bytes.starts_with(answers_.reject)) sender_.Refused();
        bytes.remove_prefix(1);
    }
}

void Session::TakeFrame(std::string_view bytes) {
    // Where the exchange has no confirmation of its own, whatever it says after an order is one.
    if (answers_.login_confirmed.empty()) sender_.Confirmed();
    if (bytes.size() <= answers_.framing.end.size() || login_.IsEcho(bytes)) return;
    frame_.AssignBytes(bytes);
    if (answers_.fias && TakeFiasRecord()) return;
    const FrameKind kind = recognition_.Of(frame_);
    if (kind == FrameKind::CallRecord) return TakeCall(bytes);
    TakeOther(kind, bytes);
    Acknowledge(true);
}

void Session::TakeCall(std::string_view bytes) {
    const std::u16string record = Converted(&_ComEventsRX::GetComConvertStringRX);
    const bool good = record == dle_ || record.size() == layout_.RecordLength();
    Acknowledge(good);
    if (record == dle_) return;
    if (!good) return Tell({"malformed", "", Readable(bytes)});
    outside_.events->WriteCall(moment_, record);
    if (outside_.live) CheckTransfer(record);
    if (answers_.fias) AnswerPosting();
}

void Session::TakeOther(FrameKind kind, std::string_view bytes) {
    Event event;
    switch (kind) {
        case FrameKind::RoomState: event = RoomEvent(Converted(&_ComEventsRX::GetComConvertRoomStateRX)); break;
        case FrameKind::RoomAlarm: event = RoomEvent(Converted(&_ComEventsRX::GetComConvertRoomAlarmRX)); break;
        case FrameKind::WakeUpResult:
            event = WakeUpResultEvent(Converted(&_ComEventsRX::GetComConvertConfirmClockRX));
            break;
        case FrameKind::WakeUpSetting:
            event = WakeUpSettingEvent(Converted(&_ComEventsRX::GetComConvertSetClockRX));
            break;
        case FrameKind::CallRecord:
        case FrameKind::Other: break;
    }
    if (event.name.empty()) event = {"other", "", Readable(bytes)};
    Tell(event);
}

/// The exchange repeats a damaged record when it is asked to, but not for ever.
void Session::Acknowledge(bool good) {
    if (!good && !answers_.reject.empty() && damaged_ < answers_.repeat_errors) {
        ++damaged_;
        return sender_.SendNow(answers_.reject);
    }
    damaged_ = 0;
    sender_.SendNow(answers_.acknowledge);
}

std::u16string Session::Converted(HRESULT (STDMETHODCALLTYPE _ComEventsRX::*conversion)(BSTR*, BSTR*, BSTR*)) {
    return server_.Text(server_.rx, conversion, type_.InOut(), frame_.InOut());
}

void Session::CheckTransfer(std::u16string_view record) {
    const CallKey key = KeyOf(layout_, record);
    long user = key.user;
    long duration = key.duration;
    Bstr date(FromUtf8(key.date));
    Bstr time(FromUtf8(key.time));
    Bstr direction(key.outgoing ? u"out" : u"in");
    Bstr condition(u"1111");  // user, date, time and duration must all agree
    short pair = 0;
    CheckCall(server_.rx->CheckExternalTransfert(&user, date.InOut(), time.InOut(), &duration, direction.InOut(),
                                                 condition.InOut(), type_.InOut(), &pair));
    if (pair == 1) outside_.note(moment_, {"transfer", key.room, "two legs of one call"});
}

// --- The PMS link
// -----------------------------------------------------------------------------------------------------

std::string Session::FiasField(std::u16string_view key) {
    Bstr column(key);
    Bstr value;
    const HRESULT result = server_.pms->GetPMS_ColumnData(frame_.InOut(), column.InOut(), value.Out());
    return SUCCEEDED(result) ? ToUtf8(value.View()) : std::string();
}

void Session::SendFias(HRESULT (STDMETHODCALLTYPE _PMSEvents::*record)(BSTR*)) {
    sender_.SendNow(ToBytes(server_.Text(server_.pms, record)));
    alive_at_ = moment_.milliseconds;
}

/// Records about the link and the guests. @return whether it was one
bool Session::TakeFiasRecord() {
    const std::string kind = ToUtf8(frame_.View().substr(1, 2));
    if (kind == "LS" || kind == "LA" || kind == "LE" || kind == "LD" || kind == "LR" || kind == "DR" || kind == "DS" ||
        kind == "DE") {
        Acknowledge(true);
        if (kind == "LS") Tell({"link-start", "", ""});
        if (kind == "LE") Tell({"link-end", "", ""});
        // A sign of life that answers ours needs none: two ends would answer each other for ever.
        if (kind == "LS" || (kind == "LA" && moment_.milliseconds - alive_at_ > kAliveEcho))
            SendFias(&_PMSEvents::GetPMS_LA_String);
        if (kind == "DR") SendFias(&_PMSEvents::GetPMS_DE_String);  // this host keeps no guests to send
        return true;
    }
    if (kind != "GI" && kind != "GO" && kind != "GC") return false;
    Acknowledge(true);
    Tell({kind == "GI" ? "check-in" : kind == "GO" ? "check-out" : "guest", FiasField(u"|RN"), FiasField(u"|GN")});
    return true;
}

void Session::AnswerPosting() {
    Bstr answer;
    const HRESULT result = server_.pms->GetPMS_PSConfirm(frame_.InOut(), answer.Out());
    if (FAILED(result)) return Tell({"malformed", "", "a posting that cannot be answered"});
    sender_.SendNow(ToBytes(answer.View()));
}

void Session::Tick(const Moment& moment) {
    moment_ = moment;
    if (!connected_) return;
    const bool patient = !logged_in_ && moment.milliseconds - connected_at_ < kLoginPatience;
    if (!patient) {
        const std::string lost = sender_.Tick(moment.milliseconds);
        if (!lost.empty()) outside_.note(moment, {"no answer", "", Readable(lost)});
    }
    if (!cutter_.Rest().empty() && moment.milliseconds - received_at_ >= kHalfFramePatience)
        if (const std::string half = DropHalfFrame(); !half.empty())
            outside_.note(moment, {kHalfFrame, "", Readable(half)});
    if (answers_.fias && moment.milliseconds - alive_at_ >= kAliveInterval) SendFias(&_PMSEvents::GetPMS_LA_String);
}

void Session::SayGoodbye() {
    if (connected_ && answers_.fias) SendFias(&_PMSEvents::GetPMS_LE_String);
}

}  // namespace vintrel::host
