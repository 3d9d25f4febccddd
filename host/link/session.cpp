#include "host/link/session.h"

#include <utility>

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
/// How long the answer to ours may take.
constexpr std::uint64_t kAnswerPatience = 10'000;
/// A peer that stops in the middle of a frame for so long will not end it: what comes then is a new frame.
constexpr std::uint64_t kHalfFramePatience = 3000;

}  // namespace

Session::Session(const Server& server, const Model& model, const CallLayout& layout, const Credentials& credentials,
                 Outside outside)
    : server_(server),
      answers_(AskAboutLink(server, model)),
      layout_(layout),
      outside_(std::move(outside)),
      interpreter_(server, model, layout),
      reader_(answers_, credentials.user, credentials.password),
      sender_(
          answers_, [this](std::string_view bytes) { outside_.send(bytes, false); },
          [this](const QueuedOrder& order, Sender::Fate fate) { TellFate(order, fate); }),
      type_(model.Code()) {}

void Session::Connected(const Moment& moment) {
    moment_ = moment;
    connected_ = true;
    connected_at_ = moment.milliseconds;
    logged_in_ = answers_.login_request.empty() && answers_.exchange_request.empty() && answers_.user_prompt.empty() &&
                 answers_.password_prompt.empty();
    login_told_ = logged_in_;
    sender_.SendNow(reader_.Begin());
    if (answers_.fias) SendFias(&_PMSEvents::GetPMS_LS_String, "link start");
}

void Session::Disconnected(const Moment& moment) {
    moment_ = moment;
    connected_ = false;
    unanswered_ = nullptr;
    unanswered_told_ = false;
    sender_.Disconnected();
    if (const std::string half = DropHalfFrame(); !half.empty()) Write({kHalfFrame, "", Readable(half)});
}

std::string Session::DropHalfFrame() {
    std::string half = reader_.DropHalfFrame();
    if (!half.empty()) ++counts_.incomplete;
    return half;
}

void Session::Received(const Moment& moment, std::string_view bytes) {
    moment_ = moment;
    received_at_ = moment.milliseconds;
    reader_.Push(bytes);
    while (const auto piece = reader_.Next()) TakePiece(*piece);
}

void Session::TakePiece(const LinkReader::Piece& piece) {
    // Where the exchange has no confirmation of its own, whatever line it sends after an order is one.
    const bool line = piece.kind == LinkReader::Kind::Frame || piece.kind == LinkReader::Kind::Empty;
    if (line && answers_.login_confirmed.empty()) sender_.Confirmed();
    switch (piece.kind) {
        case LinkReader::Kind::Frame: return TakeFrame(piece.bytes);
        case LinkReader::Kind::Empty: return;
        case LinkReader::Kind::Login: return TakeLogin(reader_.Reply());
        case LinkReader::Kind::Confirmed: return sender_.Confirmed();
        case LinkReader::Kind::Refused: return sender_.Refused();
        case LinkReader::Kind::Loose: counts_.loose += LooseBytes(piece.bytes); return;
        case LinkReader::Kind::Broken: ++counts_.incomplete; return Write({kHalfFrame, "", Readable(piece.bytes)});
        case LinkReader::Kind::Overlong:
            ++counts_.incomplete;
            return Write({"no end", "", Readable(piece.bytes.substr(0, 80)) + " ..."});
    }
}

void Session::TakeLogin(const Login::Reply& reply) {
    if (reply.finished) {
        Write({"login", "", reply.answer.empty() ? "confirmed" : "answered"});
        logged_in_ = true;
        login_told_ = true;
        if (reply.answer.empty()) sender_.Confirmed();
    }
    if (!reply.answer.empty()) outside_.send(reply.answer, reply.secret);
}

void Session::TakeFrame(std::string_view bytes) {
    Heard();
    ++counts_.frames;
    const bool again = !unkept_.empty() && unkept_ == bytes;
    const Reading reading = interpreter_.Read(bytes);
    const bool told = again || Tell(reading, bytes);
    // What is written nowhere stays with the exchange, which repeats it.
    if (told && !outside_.keep()) {
        unkept_ = bytes;
        return;
    }
    unkept_.clear();
    Answer(reading);
}

/// @return whether there was anything to tell
bool Session::Tell(const Reading& reading, std::string_view bytes) {
    Event event;
    switch (reading.meaning) {
        case Meaning::Call:
            ++counts_.calls;
            outside_.events->WriteCall(moment_, reading.form);
            if (outside_.live) CheckTransfer(reading.form);
            return true;
        case Meaning::Rejected: ++counts_.rejected; return false;
        case Meaning::Malformed:
            ++counts_.malformed;
            event = {"malformed", "", Readable(bytes) + " (" + std::string(reading.why) + ")"};
            break;
        case Meaning::Record: ++counts_.events; return TellRecord(reading.kind);
        case Meaning::Event:
            ++counts_.events;
            event = reading.kind == FrameKind::WakeUpResult    ? WakeUpResultEvent(reading.form)
                    : reading.kind == FrameKind::WakeUpSetting ? WakeUpSettingEvent(reading.form)
                                                               : RoomEvent(reading.form);
            break;
        case Meaning::Other: ++counts_.other; break;
    }
    if (event.name.empty()) event = {"other", "", Readable(bytes)};
    Write(event);
    return true;
}

void Session::Answer(const Reading& reading) {
    Acknowledge(reading.meaning != Meaning::Malformed);
    if (reading.kind == FrameKind::LinkRecord) AnswerLinkRecord();
    if (answers_.fias && reading.meaning == Meaning::Call) AnswerPosting();
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

std::vector<Event> Session::OrdersLeft() const {
    std::vector<Event> events;
    for (const QueuedOrder& order : sender_.Unsent()) {
        const bool under_way = events.empty() && sender_.UnderWay();
        events.push_back({under_way ? "not confirmed" : "not sent", order.room, order.words});
    }
    return events;
}

void Session::TellFate(const QueuedOrder& order, Sender::Fate fate) {
    order_failed_ = order_failed_ || fate == Sender::Fate::GivenUp;
    const char* const name = fate == Sender::Fate::Confirmed ? "confirmed"
                             : fate == Sender::Fate::Sent    ? "sent"
                                                             : "no answer";
    std::string detail = order.words;
    if (fate == Sender::Fate::GivenUp) detail += ": " + Readable(order.bytes);
    outside_.note(moment_, {name, order.room, detail});
}

// --- The PMS link
// -----------------------------------------------------------------------------------------------------

std::string Session::FiasType() { return ToUtf8(interpreter_.Frame().View().substr(1, 2)); }

std::string Session::FiasField(std::u16string_view key) {
    Bstr column(key);
    Bstr value;
    const HRESULT result = server_.pms->GetPMS_ColumnData(interpreter_.Frame().InOut(), column.InOut(), value.Out());
    return SUCCEEDED(result) ? ToUtf8(value.View()) : std::string();
}

void Session::SendFias(HRESULT (STDMETHODCALLTYPE _PMSEvents::*record)(BSTR*), const char* expects_answer) {
    sender_.SendNow(ToBytes(server_.Text(server_.pms, record)));
    alive_at_ = moment_.milliseconds;
    if (!expects_answer || unanswered_) return;
    unanswered_ = expects_answer;
    unanswered_since_ = moment_.milliseconds;
}

bool Session::TellRecord(FrameKind kind) {
    const std::string type = FiasType();
    if (kind == FrameKind::GuestRecord)
        Write({type == "GI" ? "check-in" : type == "GO" ? "check-out" : "guest", FiasField(u"|RN"), FiasField(u"|GN")});
    else if (type == "LS" || type == "LE")
        Write({type == "LS" ? "link-start" : "link-end", "", ""});
    else
        return false;
    return true;
}

void Session::AnswerLinkRecord() {
    const std::string type = FiasType();
    // A sign of life that answers ours needs none: two ends would answer each other for ever.
    if (type == "LS" || (type == "LA" && moment_.milliseconds - alive_at_ > kAliveEcho))
        SendFias(&_PMSEvents::GetPMS_LA_String);
    if (type == "DR") SendFias(&_PMSEvents::GetPMS_DE_String);  // this host keeps no guests to send
}

void Session::AnswerPosting() {
    Bstr answer;
    const HRESULT result = server_.pms->GetPMS_PSConfirm(interpreter_.Frame().InOut(), answer.Out());
    if (FAILED(result)) return Write({"malformed", "", "a posting that cannot be answered"});
    sender_.SendNow(ToBytes(answer.View()));
}

void Session::Heard() {
    if (std::exchange(unanswered_told_, false)) outside_.note(moment_, {"answered", "", "the other side is there"});
    unanswered_ = nullptr;
}

void Session::WatchSigns() {
    if (unanswered_ && !unanswered_told_ && moment_.milliseconds - unanswered_since_ >= kAnswerPatience) {
        unanswered_told_ = true;
        outside_.note(moment_, {"unanswered", "", "the " + std::string(unanswered_) + " had no answer for 10 seconds"});
    }
    if (!login_told_ && moment_.milliseconds - connected_at_ >= kLoginPatience) {
        login_told_ = true;
        outside_.note(moment_, {"no login", "", "the exchange neither asked nor answered for 5 seconds"});
    }
}

void Session::Tick(const Moment& moment) {
    moment_ = moment;
    if (!connected_) return;
    const bool patient = !logged_in_ && moment.milliseconds - connected_at_ < kLoginPatience;
    if (!patient) sender_.Tick(moment.milliseconds);
    if (reader_.Waiting() && moment.milliseconds - received_at_ >= kHalfFramePatience)
        if (const std::string half = DropHalfFrame(); !half.empty())
            outside_.note(moment, {kHalfFrame, "", Readable(half)});
    if (answers_.fias && moment.milliseconds - alive_at_ >= kAliveInterval)
        SendFias(&_PMSEvents::GetPMS_LA_String, "sign of life");
    WatchSigns();
}

void Session::SayGoodbye() {
    if (connected_ && answers_.fias) SendFias(&_PMSEvents::GetPMS_LE_String);
}

}  // namespace vintrel::host
