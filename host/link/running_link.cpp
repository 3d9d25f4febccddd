#include "host/link/running_link.h"

#include <algorithm>
#include <utility>

#include "host/capture/detection.h"
#include "host/text.h"

namespace vintrel::host {
namespace {

constexpr std::uint64_t kSecond = 1000;
// When to doubt the model: after so many frames of which none could be used, or bytes without any frame.
constexpr std::uint64_t kSomeFrames = 5;
constexpr std::uint64_t kSomeBytes = 500;
/// Bytes that are enough to say that no model reads them.
constexpr std::uint64_t kManyBytes = 1500;

}  // namespace

RunningLink::RunningLink(const Server& server, const Model& model, const CallLayout& layout, const Settings& settings,
                         LinkJournal& journal, OrderFile orders, std::unique_ptr<Wire> wire)
    : server_(server),
      code_(model.Code()),
      settings_(settings),
      journal_(journal),
      session_(server, model, layout, settings.credentials,
               {.send = [this](std::string_view bytes, bool secret) { Send(bytes, secret); },
                .note = [this](const Moment& moment, const Event& event) { journal_.Note(moment, event); },
                .keep = [this] { return journal_.Keep(moment_); },
                .events = &journal.Events(),
                .live = true}),
      orders_(std::move(orders)),
      wire_(std::move(wire)) {}

bool RunningLink::Run() {
    const StopSignal stop;
    while (!stop.Raised() && !(settings_.once && lost_) &&
           (settings_.duration == 0 || moment_.milliseconds - begin_ < settings_.duration)) {
        for (const WireNews& news : wire_->Poll(moment_.milliseconds)) Take(news);
        for (const Event& event : orders_.Feed(session_, moment_.milliseconds, connected_)) Note(event);
        session_.Tick(moment_);
        WatchSilence();
        WatchModel();
        ShowStatus();
        journal_.Keep(moment_);
        WaitAndPump(stop);
        moment_ = Now();
    }
    return End();
}

bool RunningLink::End() {
    session_.SayGoodbye();
    std::vector<Event> left = session_.OrdersLeft();
    const std::vector<Event> unsent = orders_.Left();
    left.insert(left.end(), unsent.begin(), unsent.end());
    for (const Event& event : left) Note(event);
    Note({"ended", "", session_.Counts().Text()});
    journal_.Keep(moment_);
    return ever_connected_ && left.empty() && !orders_.Failed() && !session_.OrderFailed() && !journal_.Lost();
}

/// Sleeps until there is something to do; the server's timers tick while messages are processed.
void RunningLink::WaitAndPump(const StopSignal& stop) const {
    constexpr DWORD kTurn = 50;
    constexpr DWORD kSerialTurn = 10;
    const HANDLE handles[] = {stop.Event(), wire_->Event()};
    const bool signals = handles[1] != nullptr;
    MsgWaitForMultipleObjects(signals ? 2 : 1, handles, FALSE, signals ? kTurn : kSerialTurn, QS_ALLINPUT);
    MSG message{};
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != 0) DispatchMessageW(&message);
}

void RunningLink::Take(const WireNews& news) {
    switch (news.kind) {
        case WireNews::Kind::Listening: return Note({"listening", "", "on " + news.text});
        case WireNews::Kind::Connected:
            refused_told_ = false;
            connected_ = true;
            ever_connected_ = true;
            Note({kConnected, "", news.text});
            return session_.Connected(moment_);
        case WireNews::Kind::Received:
            heard_at_ = moment_.milliseconds;
            if (std::exchange(silence_told_, false)) Note({"heard again", "", ""});
            session_.Counts().bytes_in += news.text.size();
            if (model_doubted_ && first_bytes_.size() < Capture::kHead) first_bytes_ += news.text;
            journal_.In(moment_, news.text);
            return session_.Received(moment_, news.text);
        case WireNews::Kind::Lost:
            connected_ = false;
            lost_ = true;
            session_.Disconnected(moment_);
            return Note({kLost, "", news.text});
        case WireNews::Kind::Refused:
            // Said once, not every few seconds all night.
            if (!std::exchange(refused_told_, true)) Note({"refused", "", news.text});
            return;
        case WireNews::Kind::Knocked: return TakeKnock(news.text);
    }
}

/// Who knocks every second is told of every ten.
void RunningLink::TakeKnock(const std::string& words) {
    const std::string who = words.substr(0, words.rfind(':', words.find(' ')));
    ++knocks_untold_;
    if (who == knocked_last_ && moment_.milliseconds - knocked_at_ < 10 * kSecond) return;
    knocked_at_ = moment_.milliseconds;
    knocked_last_ = who;
    const std::uint64_t times = std::exchange(knocks_untold_, 0);
    Note({"knock", "", times == 1 ? words : words + " (" + std::to_string(times) + " times)"});
}

void RunningLink::Send(std::string_view bytes, bool secret) {
    session_.Counts().bytes_out += bytes.size();
    journal_.Out(moment_, bytes, secret);
    wire_->Send(bytes);
}

void RunningLink::WatchSilence() {
    if (settings_.silent == 0 || silence_told_ || moment_.milliseconds - heard_at_ < settings_.silent) return;
    silence_told_ = true;
    Note({"silent", "",
          "nothing for " + std::to_string(settings_.silent / kSecond) + " seconds" +
              (connected_ ? "" : ", and no connection")});
}

/// The wrong model is the most frequent fault: when nothing of what comes can be used, the others read it. It is said
/// once; a model that rejects what it knows is not wrong for that, and is looked at again after more of it.
void RunningLink::WatchModel() {
    const LinkCounts& counts = session_.Counts();
    if (counts.calls + counts.events > 0) model_doubted_ = false;
    const bool enough = counts.frames >= kSomeFrames || (counts.frames == 0 && counts.bytes_in >= kSomeBytes);
    if (!model_doubted_ || !enough || counts.bytes_in < look_again_at_) return;
    if (moment_.milliseconds - heard_at_ < kSecond / 2) return;
    look_again_at_ = 4 * counts.bytes_in;
    const std::string guess = BestGuess(Detect(server_, first_bytes_, Capture::Form::Bytes, code_));
    if (guess.empty() && (counts.rejected > 0 || counts.bytes_in < kManyBytes)) return;
    model_doubted_ = false;
    Note({"wrong model", "", guess.empty() ? "nothing that comes can be used, and no other model reads it" : guess});
}

void RunningLink::ShowStatus() {
    if (moment_.milliseconds - status_line_at_ >= kSecond) {
        status_line_at_ = moment_.milliseconds;
        journal_.Status((connected_ ? "connected; " : "not connected; ") + session_.Counts().Text());
    }
    if (settings_.status == 0 || moment_.milliseconds - status_event_at_ < settings_.status) return;
    status_event_at_ = moment_.milliseconds;
    Note({"status", "", session_.Counts().Text()});
}

}  // namespace vintrel::host
