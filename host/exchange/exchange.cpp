#include "host/exchange/exchange.h"

#include <algorithm>
#include <utility>

#include "host/text.h"

namespace vintrel::host {
namespace {

constexpr std::uint64_t kLoginPatience = 2000;
constexpr std::uint64_t kAcknowledgementPatience = 2000;
constexpr std::uint64_t kOrderPatience = 30'000;
constexpr double kSecond = 1000;
/// Nothing in it is a frame, a login or an acknowledgement of any model; where lines are frames it is a line.
constexpr std::string_view kNoise = "\x1B\x7F#~ noise ~#\x1B";
/// Hosts give a half frame up when nothing follows for some seconds.
constexpr std::uint64_t kAfterHalf = 5000;

/// Hosts send orders between start and end characters, or as lines that end with a carriage return.
Framing HostFraming(const LinkAnswers& answers) {
    Framing framing = answers.framing;
    if (framing.start.empty()) framing.end = "\r";
    return framing;
}

}  // namespace

Exchange::Exchange(std::string_view code, const LinkAnswers& answers, std::vector<Step> steps, std::uint64_t pause,
                   Outside outside)
    : answers_(answers),
      records_(code),
      steps_(std::move(steps)),
      pause_(pause),
      outside_(std::move(outside)),
      cutter_(HostFraming(answers)) {}

void Exchange::Connected(std::uint64_t now) {
    connected_ = true;
    connected_at_ = now;
    due_ = 0;
    unacknowledged_ = false;
    cutter_ = FrameCutter(HostFraming(answers_));
    const bool asks =
        !answers_.exchange_request.empty() || !answers_.user_prompt.empty() || !answers_.login_request.empty();
    login_ = asks || answers_.fias ? Login::Open : Login::Done;
    if (!answers_.exchange_request.empty()) outside_.send(answers_.exchange_request);
}

void Exchange::Received(std::string_view bytes) {
    cutter_.Push(bytes);
    TakeTyped();
    while (const auto piece = cutter_.Next()) {
        if (piece->kind == FrameCutter::Kind::Frame) TakeFrame(piece->bytes);
        const bool loose = piece->kind == FrameCutter::Kind::Loose;
        if (loose && !answers_.acknowledge.empty() && piece->bytes.find(answers_.acknowledge) != std::string_view::npos)
            unacknowledged_ = false;
    }
    TakeTyped();
}

/// What ends with no carriage return: the answer to a negotiation, and the line feed behind a typed line.
void Exchange::TakeTyped() {
    if (!answers_.framing.start.empty()) return;
    const std::string_view rest = cutter_.Rest();
    if (rest.starts_with('\n')) cutter_.Take(1);
    if (login_ != Login::Open || answers_.confirm_exchange.empty() || !rest.starts_with(answers_.confirm_exchange))
        return;
    cutter_.Take(answers_.confirm_exchange.size());
    outside_.send(answers_.user_prompt);
    login_ = Login::User;
}

void Exchange::TakeFrame(std::string_view frame) {
    while (frame.starts_with('\n')) frame.remove_prefix(1);
    const bool marked = !answers_.framing.start.empty();
    if (login_ == Login::Open && !answers_.login_request.empty() &&
        (marked ? frame == answers_.login_request : frame == "\r")) {
        if (!answers_.login_confirmed.empty()) outside_.send(answers_.login_confirmed);
        if (!answers_.user_prompt.empty()) outside_.send("\r\n" + answers_.user_prompt);
        login_ = answers_.user_prompt.empty() ? Login::Done : Login::User;
        return;
    }
    if (login_ == Login::User) {
        outside_.send(std::string(frame) + "\n" + answers_.password_prompt);  // a terminal echoes what is typed
        login_ = Login::Password;
        return;
    }
    if (login_ == Login::Password) {
        outside_.send(std::string(frame.size() - 1, '*') + "\r\n");
        login_ = Login::Done;
        outside_.tell("logged in");
        return;
    }
    if (!marked && frame == answers_.acknowledge.substr(0, frame.size())) {  // an acknowledgement is a line end itself
        unacknowledged_ = false;
        return;
    }
    Order(frame);
}

void Exchange::Order(std::string_view bytes) {
    outside_.send(answers_.login_confirmed.empty() ? std::string_view("\r\n")
                                                   : std::string_view(answers_.login_confirmed));
    if (answers_.fias) {
        const std::string_view kind = bytes.substr(1, 2);
        login_ = Login::Done;
        if (kind == "LS") outside_.send("\2LA|DA260101|TI000000|\3");
        if (kind == "LS" || kind == "LA" || kind == "LE" || kind == "PA") return;
    }
    outside_.tell("order " + Readable(bytes));
    awaiting_order_ = false;
}

bool Exchange::Busy(std::uint64_t now) {
    if (login_ != Login::Done && now - connected_at_ < kLoginPatience) return true;
    if (unacknowledged_ && now - sent_at_ < kAcknowledgementPatience) return true;
    if (std::exchange(unacknowledged_, false)) outside_.tell("not acknowledged");
    if (awaiting_order_ && now - sent_at_ < kOrderPatience) return true;
    if (std::exchange(awaiting_order_, false)) outside_.tell("no order came");
    return now < due_;
}

void Exchange::Tick(std::uint64_t now) {
    if (!connected_ || Busy(now) || next_ == steps_.size()) return;
    due_ = now + pause_;
    Play(steps_[next_++], now);
}

std::string Exchange::BytesOf(const Step& step) {
    const CivilTime time = outside_.time();
    switch (step.kind) {
        case Step::Kind::Call: {
            constexpr unsigned kLines = 4;
            return records_.Call(
                {step.outgoing, step.room, step.text, step.duration, step.units, 1 + step.room % kLines}, time);
        }
        case Step::Kind::Room:
            return records_.Room(step.room,
                                 step.text == "clean"   ? RoomReport::Clean
                                 : step.text == "alarm" ? RoomReport::Alarm
                                                        : RoomReport::NotClean,
                                 time);
        case Step::Kind::WakeUp: return records_.WakeUpResult(step.room, step.text == "answered", time);
        case Step::Kind::SetWakeUp:
            return records_.WakeUpSetting(step.room, step.text == "clear" ? "" : step.text, time);
        case Step::Kind::CheckIn: return records_.Guest(step.room, true, step.text, time);
        case Step::Kind::CheckOut: return records_.Guest(step.room, false, "", time);
        case Step::Kind::Send: return FromReadable(step.text);
        case Step::Kind::Garbage:
            return std::string(kNoise) + (answers_.framing.start.empty() ? answers_.framing.end : "");
        case Step::Kind::Half: {
            const std::string whole = records_.Call({true, 201, "0041448001122", 60, 4, 1}, time);
            return whole.substr(0, whole.size() / 2);
        }
        case Step::Kind::Wait:
        case Step::Kind::Await:
        case Step::Kind::Disconnect: break;
    }
    return {};
}

void Exchange::Play(const Step& step, std::uint64_t now) {
    const std::string bytes = BytesOf(step);
    if (step.kind == Step::Kind::Wait) {
        due_ = now + static_cast<std::uint64_t>(step.seconds * kSecond);
    } else if (step.kind == Step::Kind::Await) {
        awaiting_order_ = true;
        sent_at_ = now;
    } else if (step.kind == Step::Kind::Disconnect) {
        outside_.tell("disconnects");
        connected_ = false;
        outside_.disconnect();
    } else if (step.kind == Step::Kind::Half || step.kind == Step::Kind::Garbage) {
        outside_.send(bytes);
        if (step.kind == Step::Kind::Half) due_ = now + kAfterHalf;
    } else if (bytes.empty()) {
        due_ = now;  // this model cannot say it
    } else {
        SendFrame(bytes, now);
    }
}

void Exchange::SendFrame(const std::string& bytes, std::uint64_t now) {
    outside_.send(bytes);
    sent_at_ = now;
    unacknowledged_ = !answers_.acknowledge.empty();
}

}  // namespace vintrel::host
