// "simulate": the exchange's side of a link, so that a host can be tried without an exchange.
#include <winsock2.h>

#include <windows.h>

#include <cstdio>
#include <memory>
#include <string>

#include "host/clock.h"
#include "host/commands/commands.h"
#include "host/commands/common_options.h"
#include "host/commands/wire_options.h"
#include "host/console.h"
#include "host/exchange/exchange.h"
#include "host/input_file.h"
#include "host/link/ask_link.h"
#include "host/link/event.h"
#include "host/link/wire.h"
#include "host/server.h"
#include "host/stop.h"
#include "host/text.h"

namespace vintrel::host {
namespace {

constexpr Option kOptions[] = {
    kModelOption,
    {"--listen", "PORT", "waits for the host to connect"},
    kAnyOption,
    {"--connect", "HOST:PORT", "connects to the host, as exchanges do that deliver their records"},
    kFromOption,
    kSerialOption,
    kLineOption,
    kHandshakeOption,
    {"--scenario", "FILE", "what to play instead of the built-in day; see below"},
    {"--pace", "MS", "milliseconds between two steps; 1000 when not given"},
    {"--fault", "FAULT", "in the middle of the day: half, garbage, silence or disconnect"},
    {"--repeat", "", "plays the day again and again"},
    {"--print", "", "no link: the bytes of the day on the standard output, as a capture"},
};

constexpr std::uint64_t kSecond = 1000;

std::vector<Step> Steps(const Options& options) {
    const std::string name = options.Get("--scenario");
    std::vector<Step> steps = options.Has("--scenario") ? ParseScenario(ReadTextFile(name), name)
                                                        : ParseScenario(BuiltInDay(), "the built-in day");
    const std::string fault = options.Get("--fault");
    if (fault.empty()) return steps;
    if (fault != "half" && fault != "garbage" && fault != "silence" && fault != "disconnect")
        throw Failure(ExitCode::Usage, "--fault is half, garbage, silence or disconnect, not \"" + fault + "\"");
    const std::vector<Step> inserted = ParseScenario(fault == "silence" ? "wait 10" : fault, "--fault");
    const auto middle = steps.begin() + static_cast<std::ptrdiff_t>(steps.size() / 2);
    steps.insert(middle, inserted.begin(), inserted.end());
    return steps;
}

void Tell(std::string_view mark, std::string_view text) {
    WriteOut(Now().stamp + " " + std::string(mark) + " " + std::string(text) + "\n");
}

class Simulation {
 public:
    Simulation(const Options& options, std::string_view code, const LinkAnswers& answers, std::unique_ptr<Wire> wire)
        : wire_(std::move(wire)),
          repeat_(options.Has("--repeat")),
          exchange_(code, answers, Steps(options), options.Number("--pace", 1000, 0, 3'600'000),
                    {[this](std::string_view bytes) { Send(bytes); }, [this] { HangUp(); },
                     [](std::string_view text) { Tell("--", text); }, LocalTime}) {}

    void Run() {
        const StopSignal stop;
        std::uint64_t finished_at = 0;
        while (!stop.Raised()) {
            Wait(stop);
            const std::uint64_t now = Now().milliseconds;
            for (const WireNews& news : wire_->Poll(now)) Take(news, now);
            exchange_.Tick(now);
            if (!exchange_.Finished()) continue;
            if (repeat_) {
                exchange_.Restart();
                continue;
            }
            // The host may still have something to answer.
            if (finished_at == 0) finished_at = now;
            if (now - finished_at >= kSecond) return;
        }
    }

 private:
    void Wait(const StopSignal& stop) const {
        constexpr DWORD kTurn = 20;
        const HANDLE handles[] = {stop.Event(), wire_->Event()};
        WaitForMultipleObjects(handles[1] ? 2 : 1, handles, FALSE, kTurn);
    }

    void Take(const WireNews& news, std::uint64_t now) {
        switch (news.kind) {
            case WireNews::Kind::Listening: return Tell("--", "listening on " + news.text);
            case WireNews::Kind::Knocked: return Tell("--", "knock: " + news.text);
            case WireNews::Kind::Connected: Tell("--", "connected " + news.text); return exchange_.Connected(now);
            case WireNews::Kind::Received: Tell("<-", Readable(news.text)); return exchange_.Received(news.text);
            case WireNews::Kind::Lost: exchange_.Disconnected(); return Tell("--", "lost: " + news.text);
            case WireNews::Kind::Refused: return Tell("--", "refused: " + news.text);
        }
    }

    void Send(std::string_view bytes) {
        Tell("->", Readable(bytes));
        wire_->Send(bytes);
    }
    void HangUp() { wire_->Drop(); }

    std::unique_ptr<Wire> wire_;
    bool repeat_;
    Exchange exchange_;
};

/// The day as a capture: every step some minutes after the one before.
void Print(const Options& options, std::string_view code, const LinkAnswers& answers) {
    CivilTime time{.year = 2026, .month = 6, .day = 15, .hour = 6, .minute = 30, .second = 0};
    std::vector<Step> steps = Steps(options);
    Exchange exchange(code, answers, {}, 0,
                      {[](std::string_view) {}, [] {}, [](std::string_view) {}, [&] { return time; }});
    for (const Step& step : steps) {
        constexpr unsigned kMinutes = 37;
        time.minute += kMinutes;
        time.hour += time.minute / 60;
        time.minute %= 60;
        time.hour %= 24;
        WriteOut(exchange.BytesOf(step));
    }
}

ExitCode Run(const Options& options) {
    const std::string code = options.Require("--model");
    RequireOneWay(options, {"--listen", "--connect", "--serial", "--print"});
    const Server server;
    const Model model(server, code);
    const LinkAnswers answers = AskAboutLink(server, model);
    const std::string upper = ToUtf8(model.Code());
    if (options.Has("--print"))
        Print(options, upper, answers);
    else
        Simulation(options, upper, answers, OpenWire(options, answers.raise_dtr_rts, kSecond)).Run();
    return ExitCode::Ok;
}

}  // namespace

const Command kSimulateCommand{
    "simulate",
    "plays an exchange, to try a host without one",
    "--model CODE (--listen PORT | --connect HOST:PORT | --serial PORT | --print) [OPTIONS]",
    "Answers the login and the orders of a host as the model does and plays a day of a hotel: calls, room\n"
    "states, an alarm, wake-up results. Everything sent (->) and received (<-) is shown. It ends when the\n"
    "day is over.\n"
    "\n"
    "A scenario file holds one step per line; # begins a comment:\n"
    "  call out ROOM NUMBER SECONDS UNITS     call in ROOM NUMBER SECONDS (0: not answered)\n"
    "  room ROOM clean|notclean|alarm         wakeup ROOM answered|unanswered\n"
    "  setwakeup ROOM HHMM|clear              checkin ROOM NAME, checkout ROOM\n"
    "  wait SECONDS                           await (an order of the host)\n"
    "  send BYTES, such as <STX>LA|<ETX>      half, garbage, disconnect (faults)",
    kOptions,
    "",
    Run,
};

}  // namespace vintrel::host
