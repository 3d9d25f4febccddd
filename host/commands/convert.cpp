// "convert": a capture of call records becomes a table, a CSV file or JSON lines.
#include <array>
#include <cstdint>
#include <string>

#include "host/calls/ask_call_layout.h"
#include "host/calls/call_rows.h"
#include "host/commands/capture_command.h"
#include "host/commands/commands.h"
#include "host/commands/common_options.h"
#include "host/console.h"
#include "host/link/ask_link.h"
#include "host/link/interpreter.h"
#include "host/link/link_counts.h"
#include "host/link/link_reader.h"
#include "host/record_writer.h"
#include "host/server.h"
#include "host/text.h"

namespace vintrel::host {
namespace {

constexpr Option kOptions[] = {
    kModelOption,
    kFormatOption,
    kSeparatorOption,
    kValuesOption,
    kWidthOption,
    kReadableOption,
    {"--settings", "FOLDER", "folder of Quindara.cfg and Vintrel.ini, for exchanges whose records need them"},
    {"--verbose", "", "shows every frame that did not become a call, with the reason, on the error output"},
};

/// A capture may hold anything; a record beyond this is no record.
constexpr std::size_t kLongestFrame = 16 * 1024 * 1024;
constexpr std::array<std::string_view, 5> kKinds{"out", "in", "missed", "out+", "in+"};

struct Counts : FrameCounts {
    std::uint64_t calls = 0;
    std::uint64_t rejected = 0;  ///< by the server: headers, status lines, calls that are not charged
    std::array<std::uint64_t, kKinds.size()> kinds{};
};

class Progress {
 public:
    explicit Progress(std::uint64_t total) : total_(total), shown_(ConsoleWidth(Stream::Error) > 0) {}
    ~Progress() {
        if (written_) WriteErrorText("\r" + std::string(40, ' ') + "\r");
    }
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    void Show(std::uint64_t done, std::uint64_t frames) {
        constexpr DWORD kPause = 250;
        if (!shown_ || GetTickCount() - last_ < kPause) return;
        last_ = GetTickCount();
        written_ = true;
        const std::string share =
            total_ == 0 ? std::to_string(done / 1024) + " KB" : std::to_string(done * 100 / total_) + " %";
        WriteErrorText("\r" + share + ", " + std::to_string(frames) + " records ");
    }

 private:
    std::uint64_t total_;
    bool shown_;
    bool written_ = false;
    DWORD last_ = GetTickCount();
};

class Conversion {
 public:
    Conversion(const Server& server, const Model& model, const LinkAnswers& answers, const Options& options,
               Output& output)
        : layout_(AskCallLayout(server)),
          rows_(layout_, ValuesOf(options)),
          reader_(answers, "", ""),
          interpreter_(server, model, layout_),
          writer_(PresentationOf(options), rows_.Columns(), output),
          verbose_(options.Has("--verbose")) {
        writer_.Begin();
    }

    void Take(const LogLine& line) {
        if (Interrupts(line)) return Leave("half a frame");
        if (line.kind != LogLine::Kind::In) return;
        reader_.Push(line.bytes);
        while (const auto piece = reader_.Next()) Take(*piece);
    }

    /// Gives up what has come of a frame.
    void Leave(std::string_view reason) {
        const std::string half = reader_.DropHalfFrame();
        if (half.empty()) return;
        ++counts.incomplete;
        Tell(reason, half);
    }

    std::string LeftOut() const { return writer_.LeftOut(); }

    Counts counts;

 private:
    void Take(const LinkReader::Piece& piece) {
        switch (piece.kind) {
            case LinkReader::Kind::Frame: return Convert(piece.bytes);
            case LinkReader::Kind::Broken:
            case LinkReader::Kind::Overlong: ++counts.incomplete; return Tell("without an end", piece.bytes);
            case LinkReader::Kind::Loose: {
                const std::uint64_t loose = LooseBytes(piece.bytes);
                counts.loose += loose;
                return loose > 0 ? Tell("outside frames", piece.bytes) : void();
            }
            case LinkReader::Kind::Login:
            case LinkReader::Kind::Confirmed:
            case LinkReader::Kind::Refused:
            case LinkReader::Kind::Empty: return;
        }
    }

    void Convert(std::string_view bytes) {
        ++counts.frames;
        const Reading reading = interpreter_.Read(bytes);
        switch (reading.meaning) {
            case Meaning::Call: return WriteCall(reading.form);
            case Meaning::Event:
            case Meaning::Record: ++counts.used; return Tell("no call record", bytes);
            case Meaning::Other: return Tell("no call record", bytes);
            case Meaning::Rejected: ++counts.rejected; return Tell("rejected", bytes);
            case Meaning::Malformed: ++counts.malformed; return Tell("malformed", bytes, reading.why);
        }
    }

    void WriteCall(std::u16string_view record) {
        ++counts.used;
        ++counts.calls;
        const std::string_view kind = CallKind(layout_.Cut(record, CallField::Type));
        for (std::size_t i = 0; i < kKinds.size(); ++i)
            if (kKinds[i] == kind) ++counts.kinds[i];
        rows_.Write(record, writer_);
        writer_.EndRecord();
    }

    void Tell(std::string_view reason, std::string_view bytes, std::string_view why = {}) const {
        constexpr std::size_t kShown = 400;
        if (!verbose_) return;
        std::string line = std::string(reason) + ": " + Readable(bytes.substr(0, kShown));
        if (!why.empty()) line.append(" (").append(why).append(")");
        WriteError(line);
    }

    CallLayout layout_;
    CallRows rows_;
    LinkReader reader_;
    Interpreter interpreter_;
    RecordWriter writer_;
    bool verbose_;
};

std::string Summary(const Counts& counts) {
    std::string text = std::to_string(counts.frames) + " records: " + std::to_string(counts.calls) + " calls";
    std::string kinds;
    for (std::size_t i = 0; i < kKinds.size(); ++i)
        if (counts.kinds[i] > 0)
            kinds += (kinds.empty() ? "" : ", ") + std::to_string(counts.kinds[i]) + " " + std::string(kKinds[i]);
    if (!kinds.empty()) text += " (" + kinds + ")";
    text += ", " + std::to_string(counts.rejected) + " rejected, " + std::to_string(counts.malformed) + " malformed, " +
            std::to_string(counts.frames - counts.calls - counts.rejected - counts.malformed) + " not call records";
    if (counts.incomplete > 0) text += ", " + std::to_string(counts.incomplete) + " incomplete";
    if (counts.loose > 0) text += ", " + LooseText(counts.loose);
    return text;
}

ExitCode Run(const Options& options) {
    const std::string code = options.Require("--model");
    PresentationOf(options);
    ValuesOf(options);
    const Server server;
    const Model model(server, code);
    Initialize(server, model, options.Get("--settings"));
    LinkAnswers answers = AskAboutLink(server, model);
    answers.framing.limit = kLongestFrame;
    CaptureFile file(options.Word(), answers.framing, options);

    Output output = StandardOutput();
    Conversion conversion(server, model, answers, options, output);
    {
        Progress progress(file.Size());
        for (LogLine line; file.Lines().Next(line);) {
            conversion.Take(line);
            progress.Show(file.Done(), conversion.counts.frames);
        }
    }
    conversion.Leave("half a frame at the end");
    output.Flush();

    WriteError("Read as " + file.Lines().ReadAs() + ".");
    WriteError(Summary(conversion.counts));
    TellLeftOut(conversion.LeftOut());
    const bool good = JudgeCapture(server, model, answers.framing, file.Lines(), conversion.counts);
    return good ? ExitCode::Ok : ExitCode::Failed;
}

}  // namespace

const Command kConvertCommand{
    "convert",
    "converts a capture of call records",
    "--model CODE [OPTIONS] FILE|-",
    "Cuts the capture into frames as the server says for the model, converts every call record and writes\n"
    "its fields. Hotel events and link records on the same link are recognised and counted.\n"
    "The capture may be the bytes as they came, saved by an editor in UTF-8 or UTF-16, with any line ends, shown\n"
    "with control characters by name, or the log of \"listen\": what it was read as is said at the end, on the\n"
    "error output, with the counts. \"Rejected\" are lines that the server knows to be no call; \"malformed\"\n"
    "are records that can be no calls: too short, or with a date, time or number that is none.\n"
    "Exit code 1 when a record was malformed or incomplete, and when nothing in the capture could be used; then\n"
    "the model that would read it is named.",
    kOptions,
    kCaptureWord,
    Run,
};

}  // namespace vintrel::host
