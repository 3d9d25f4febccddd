// "listen": runs a link as a host application does, or replays the log of one.
#include <winsock2.h>

#include <windows.h>

#include <memory>
#include <string>

#include "host/call_record.h"
#include "host/clock.h"
#include "host/commands/commands.h"
#include "host/commands/common_options.h"
#include "host/commands/wire_options.h"
#include "host/console.h"
#include "host/input_file.h"
#include "host/link/event.h"
#include "host/link/order_file.h"
#include "host/link/session.h"
#include "host/link/traffic_log.h"
#include "host/link/wire.h"
#include "host/output.h"
#include "host/server.h"
#include "host/stop.h"

namespace vintrel::host {
namespace {

constexpr Option kOptions[] = {
    kModelOption,
    {"--connect", "HOST:PORT", "connects to the exchange, and again whenever the connection is lost"},
    {"--listen", "PORT", "waits for the exchange to connect"},
    kAnyOption,
    kSerialOption,
    kLineOption,
    {"--replay", "FILE", "no link: the events of a log file again, just as they were"},
    {"--log", "FOLDER", "keeps the bytes of both directions, one file a day"},
    {"--user", "NAME", "the login of exchanges that ask for one"},
    {"--password", "TEXT", "its password"},
    {"--settings", "FOLDER", "folder of Quindara.cfg and Vintrel.ini"},
    {"--orders", "FILE", "orders to send once the link is up; see below"},
    {"--silent", "SECONDS", "says when nothing has come for so long; 0 (default) never"},
    {"--retry", "SECONDS", "between two attempts to connect; what the server says when not given"},
    {"--once", "", "ends when the connection is lost"},
    {"--for", "SECONDS", "ends by itself; 0 (default) runs until Ctrl-C"},
    kFormatOption,
};

constexpr unsigned kDay = 86'400;
constexpr std::uint64_t kSecond = 1000;

class Listening {
 public:
    Listening(const Options& options, const Server& server, const Model& model)
        : layout_(server),
          output_(WriteOut),
          events_(layout_, ParseFormat(options.Get("--format", "table")), output_),
          log_(options.Get("--log")),
          session_(server, model, layout_, {options.Get("--user"), options.Get("--password")},
                   {[this](std::string_view bytes) { Send(bytes); },
                    [this](const Moment& moment, const Event& event) { Note(moment, event); }, &events_,
                    !options.Has("--replay")}),
          orders_(server, model, options.Get("--orders")),
          once_(options.Has("--once")),
          silent_(kSecond * options.Number("--silent", 0, 0, kDay)) {}

    void Run(std::unique_ptr<Wire> wire, std::uint64_t duration) {
        wire_ = std::move(wire);
        const StopSignal stop;
        const std::uint64_t begin = Now().milliseconds;
        output_.Flush();
        while (!stop.Raised() && !(once_ && lost_) && (duration == 0 || Now().milliseconds - begin < duration)) {
            WaitAndPump(stop);
            moment_ = Now();
            const Moment& moment = moment_;
            for (const WireNews& news : wire_->Poll(moment.milliseconds)) Take(moment, news);
            for (const Event& event : orders_.Feed(session_, moment.milliseconds, connected_)) Note(moment, event);
            session_.Tick(moment);
            WatchSilence(moment);
            output_.Flush();
        }
        session_.SayGoodbye();
        Note(Now(), {"ended", "", ""});
        output_.Flush();
    }

    void Replay(const std::string& name) {
        InputFile file(name);
        std::string text;
        for (std::string_view bytes = file.Read(); !bytes.empty(); bytes = file.Read()) {
            text.append(bytes);
            std::size_t begin = 0;
            for (std::size_t end = text.find('\n'); end != std::string::npos; end = text.find('\n', begin)) {
                if (const auto line = ParseLogLine(std::string_view(text).substr(begin, end - begin))) Again(*line);
                begin = end + 1;
            }
            text.erase(0, begin);
        }
        output_.Flush();
    }

    const LinkAnswers& Answers() const { return session_.Answers(); }

 private:
    /// Sleeps until there is something to do; the server's timers tick while messages are processed.
    void WaitAndPump(const StopSignal& stop) {
        constexpr DWORD kTurn = 50;
        constexpr DWORD kSerialTurn = 10;
        const HANDLE handles[] = {stop.Event(), wire_->Event()};
        const bool signals = handles[1] != nullptr;
        MsgWaitForMultipleObjects(signals ? 2 : 1, handles, FALSE, signals ? kTurn : kSerialTurn, QS_ALLINPUT);
        MSG message{};
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != 0) DispatchMessageW(&message);
    }

    void Take(const Moment& moment, const WireNews& news) {
        heard_ = moment.milliseconds;
        switch (news.kind) {
            case WireNews::Kind::Connected:
                refused_ = false;
                Note(moment, {"connected", "", news.text});
                connected_ = true;
                return session_.Connected(moment);
            case WireNews::Kind::Received:
                if (silent_told_) Note(moment, {"heard again", "", ""});
                silent_told_ = false;
                log_.In(moment, news.text);
                return session_.Received(moment, news.text);
            case WireNews::Kind::Lost:
                connected_ = false;
                lost_ = true;
                session_.Disconnected(moment);
                return Note(moment, {"lost", "", news.text});
            case WireNews::Kind::Refused:
                // Said once, not every few seconds all night.
                if (!refused_) Note(moment, {"refused", "", news.text});
                refused_ = true;
                return;
        }
    }

    void WatchSilence(const Moment& moment) {
        if (silent_ == 0 || silent_told_ || !connected_ || moment.milliseconds - heard_ < silent_) return;
        silent_told_ = true;
        Note(moment, {"silent", "", "nothing for " + std::to_string(silent_ / kSecond) + " seconds"});
    }

    void Again(const LogLine& line) {
        if (line.kind == LogLine::Kind::In) return session_.Received(line.moment, line.bytes);
        if (line.kind == LogLine::Kind::Out) return;
        if (line.event.name == "lost") session_.Disconnected(line.moment);
        if (line.event.name == kHalfFrame) session_.DropHalfFrame();
        events_.Write(line.moment, line.event);
        if (line.event.name == "connected") session_.Connected(line.moment);
    }

    void Send(std::string_view bytes) {
        if (!wire_) return;
        log_.Out(moment_, bytes);
        wire_->Send(bytes);
    }

    void Note(const Moment& moment, const Event& event) {
        log_.Note(moment, event);
        events_.Write(moment, event);
    }

    CallLayout layout_;
    Output output_;
    EventWriter events_;
    TrafficLog log_;
    Session session_;
    OrderFile orders_;
    std::unique_ptr<Wire> wire_;
    Moment moment_;  ///< of this turn: what comes of one piece of news happens at one time
    bool once_;
    bool lost_ = false;
    std::uint64_t silent_;
    std::uint64_t heard_ = 0;
    bool silent_told_ = false;
    bool connected_ = false;
    bool refused_ = false;
};

ExitCode Run(const Options& options) {
    const std::string code = options.Require("--model");
    RequireOneOf(options, {"--connect", "--listen", "--serial", "--replay"});
    const Server server;
    const Model model(server, code);
    Initialize(server, model, options.Get("--settings"));
    Listening listening(options, server, model);
    if (options.Has("--replay")) {
        listening.Replay(options.Get("--replay"));
        return ExitCode::Ok;
    }
    const LinkAnswers& answers = listening.Answers();
    const std::uint64_t pause =
        options.Has("--retry") ? kSecond * options.Number("--retry", 0, 0, kDay) : answers.reconnect_pause;
    listening.Run(OpenWire(options, answers.raise_dtr_rts, pause), kSecond * options.Number("--for", 0, 0, 30 * kDay));
    return ExitCode::Ok;
}

}  // namespace

const Command kListenCommand{
    "listen",
    "runs the link to an exchange and tells what happens on it",
    "--model CODE (--connect HOST:PORT | --listen PORT | --serial PORT | --replay FILE) [OPTIONS]",
    "Runs the link as a hotel's host does: login, acknowledgements, signs of life and reconnection as the\n"
    "server says for the model. Calls, room states, alarms and wake-up results are written as they happen,\n"
    "and so is what becomes of the link: connected, lost, refused, silent. Ctrl-C ends it.\n"
    "\n"
    "An order file holds one order per line: \"wakeup ROOM HHMM [DDMM]\", \"cancel ROOM HHMM [DDMM]\",\n"
    "\"checkin ROOM [NAME]\", \"checkout ROOM\", \"name ROOM NAME\" or \"wait SECONDS\"; # begins a comment.\n"
    "A wake-up call without a day is meant for the next time that the clock shows.",
    kOptions,
    "",
    Run,
};

}  // namespace vintrel::host
