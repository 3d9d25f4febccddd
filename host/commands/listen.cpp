// "listen": runs a link as a host application does, or replays a capture of one.
#include <string>

#include "host/calls/ask_call_layout.h"
#include "host/clock.h"
#include "host/commands/capture_command.h"
#include "host/commands/commands.h"
#include "host/commands/common_options.h"
#include "host/commands/wire_options.h"
#include "host/console.h"
#include "host/link/ask_link.h"
#include "host/link/running_link.h"
#include "host/server.h"
#include "host/text.h"

namespace vintrel::host {
namespace {

constexpr Option kOptions[] = {
    kModelOption,
    {"--connect", "HOST:PORT", "connects to the exchange, and again whenever the connection is lost"},
    {"--listen", "PORT", "waits for the exchange to connect, and keeps its connection when another one comes"},
    kAnyOption,
    kFromOption,
    kSerialOption,
    kLineOption,
    kHandshakeOption,
    {"--replay", "FILE", "no link: the events of a log again, just as they were, or those of any capture"},
    kReadableOption,
    {"--log", "FOLDER", "keeps the bytes of both directions, one file per link and day"},
    {"--show", "", "the bytes of both directions are events, too: <- from the exchange, -> to it"},
    {"--user", "NAME", "the login of exchanges that ask for one"},
    {"--password", "TEXT", "its password; it is shown nowhere"},
    {"--settings", "FOLDER", "folder of Quindara.cfg and Vintrel.ini"},
    {"--orders", "FILE", "orders to send once the link is up; see below"},
    {"--silent", "SECONDS", "says when nothing has come for so long, connected or not; 0 (default) never"},
    {"--status", "SECONDS", "says so often how much has passed; 0 (default) never. A console shows it below"},
    {"--retry", "SECONDS", "between two attempts to connect; what the server says when not given"},
    {"--once", "", "ends when the connection is lost"},
    {"--for", "SECONDS", "ends by itself; 0 (default) runs until Ctrl-C"},
    kFormatOption,
    kSeparatorOption,
    kValuesOption,
    kWidthOption,
};

constexpr unsigned kDay = 86'400;
constexpr std::uint64_t kSecond = 1000;

std::uint64_t Seconds(const Options& options, std::string_view name, unsigned most) {
    return kSecond * options.Number(name, 0, 0, most);
}

LinkJournal::Settings JournalSettings(const Options& options) {
    return {.presentation = PresentationOf(options), .values = ValuesOf(options), .show = options.Has("--show")};
}

/// Lets a log, or the bytes of another capture, pass through the protocol once more.
class Replay {
 public:
    Replay(const Server& server, const Model& model, const CallLayout& layout, LinkJournal& journal)
        : journal_(journal),
          session_(server, model, layout, {},
                   {.send = [](std::string_view, bool) {},
                    .note = [](const Moment&, const Event&) {},
                    .keep = [] { return true; },
                    .events = &journal.Events(),
                    .live = false}) {}

    void Take(const LogLine& line) {
        moment_ = line.moment;
        if (line.kind != LogLine::Kind::Note) journal_.Show(line.moment, line.kind, Readable(line.bytes));
        if (line.kind == LogLine::Kind::In) return session_.Received(line.moment, line.bytes);
        if (line.kind == LogLine::Kind::Out) return;
        if (line.event.name == kLost) session_.Disconnected(line.moment);
        if (line.event.name == kHalfFrame || line.event.name == kLogGap) session_.DropHalfFrame();
        journal_.Again(line.moment, line.event);
        if (line.event.name == kConnected) session_.Connected(line.moment);
        if (journal_.Lost()) journal_.Keep(line.moment);
    }

    /// What has become of it all. A frame that the end has cut is told, as any half frame is on a link.
    FrameCounts End() {
        session_.Disconnected(moment_);
        const LinkCounts& counts = session_.Counts();
        return {.frames = counts.frames,
                .used = counts.calls + counts.events,
                .malformed = counts.malformed,
                .loose = counts.loose};
    }

 private:
    LinkJournal& journal_;
    Session session_;
    Moment moment_;
};

ExitCode RunReplay(const Options& options, const Server& server, const Model& model) {
    const LinkAnswers answers = AskAboutLink(server, model);
    const CallLayout layout = AskCallLayout(server);
    CaptureFile file(options.Get("--replay"), answers.framing, options);
    LinkJournal journal(layout, JournalSettings(options), {});
    Replay replay(server, model, layout, journal);
    for (LogLine line; file.Lines().Next(line);) replay.Take(line);
    const FrameCounts counts = replay.End();
    journal.Keep({});
    if (journal.Lost()) throw Failure(ExitCode::Failed, "the output cannot be written");
    if (file.Lines().ReadForm() != Capture::Form::Log) WriteError("Read as " + file.Lines().ReadAs() + ".");
    TellLeftOut(journal.Events().LeftOut());
    return JudgeCapture(server, model, answers.framing, file.Lines(), counts) ? ExitCode::Ok : ExitCode::Failed;
}

ExitCode RunLink(const Options& options, const Server& server, const Model& model) {
    const LinkAnswers answers = AskAboutLink(server, model);
    const CallLayout layout = AskCallLayout(server);
    const RunningLink::Settings settings{
        .credentials = {options.Get("--user"), options.Get("--password")},
        .once = options.Has("--once"),
        .silent = Seconds(options, "--silent", kDay),
        .status = Seconds(options, "--status", kDay),
        .duration = Seconds(options, "--for", 30 * kDay),
    };
    const std::uint64_t pause = options.Has("--retry") ? Seconds(options, "--retry", kDay) : answers.reconnect_pause;
    OrderFile orders(server, model, options.Get("--orders"));
    std::unique_ptr<Wire> wire = OpenWire(options, answers.raise_dtr_rts, pause);
    const std::string link = LinkName(options);
    const LogHead head{ToUtf8(model.Code()), ToUtf8(model.Name()) + ", " + link};
    LinkJournal journal(layout, JournalSettings(options), TrafficLog(options.Get("--log"), head, link, Now()));
    TellLeftOut(journal.Events().LeftOut());
    const bool well = RunningLink(server, model, layout, settings, journal, std::move(orders), std::move(wire)).Run();
    return well ? ExitCode::Ok : ExitCode::Failed;
}

ExitCode Run(const Options& options) {
    const std::string code = options.Require("--model");
    RequireOneWay(options, {"--connect", "--listen", "--serial", "--replay"});
    JournalSettings(options);
    const Server server;
    const Model model(server, code);
    Initialize(server, model, options.Get("--settings"));
    return options.Has("--replay") ? RunReplay(options, server, model) : RunLink(options, server, model);
}

}  // namespace

const Command kListenCommand{
    "listen",
    "runs the link to an exchange and tells what happens on it",
    "--model CODE (--connect HOST:PORT | --listen PORT | --serial PORT | --replay FILE) [OPTIONS]",
    "Runs the link as a hotel's host does: login, acknowledgements, signs of life and reconnection as the\n"
    "server says for the model. Calls, room states, alarms and wake-up results are written as they happen,\n"
    "and so is what becomes of the link: listening, connected, lost, refused, silent, unanswered, knock, and\n"
    "wrong model when nothing that comes can be used. What the server converts and can be no call is malformed.\n"
    "A record is acknowledged when it is written; an output that is full is waited for, and one that nobody\n"
    "reads any more does not end the link. Ctrl-C, a closed console, log-off and shutdown end it.\n"
    "\n"
    "An order file holds one order per line: \"wakeup ROOM HHMM [DDMM]\", \"cancel ROOM HHMM [DDMM]\",\n"
    "\"checkin ROOM [NAME]\", \"checkout ROOM\", \"name ROOM NAME\" or \"wait SECONDS\"; # begins a comment.\n"
    "A wake-up call without a day is meant for the next time that the clock shows. What became of each order\n"
    "is told: confirmed, sent (to an exchange that confirms nothing), no answer, not confirmed, not sent.\n"
    "\n"
    "Ends with 1 when the link was never connected, an order was not confirmed or never sent, or a line of the\n"
    "output or of the log is lost; with --replay, when nothing could be used or a record was malformed.",
    kOptions,
    "",
    Run,
};

}  // namespace vintrel::host
