// "convert": a capture of call records becomes a table, a CSV file or JSON lines.
#include <array>
#include <cstdint>
#include <string>

#include "host/call_record.h"
#include "host/commands/commands.h"
#include "host/commands/common_options.h"
#include "host/console.h"
#include "host/input_file.h"
#include "host/link/ask_link.h"
#include "host/link/frames.h"
#include "host/link/recognition.h"
#include "host/output.h"
#include "host/server.h"
#include "host/text.h"

namespace vintrel::host {
namespace {

constexpr Option kOptions[] = {
    kModelOption,
    kFormatOption,
    {"--readable", "", "in the capture control characters stand by name, such as <STX>, and line ends are no data"},
    {"--settings", "FOLDER", "folder of Quindara.cfg and Vintrel.ini, for exchanges whose records need them"},
    {"--verbose", "", "shows every frame that did not become a call, with the reason, on the error output"},
};

/// A capture may hold anything; a record beyond this is no record.
constexpr std::size_t kLongestFrame = 16 * 1024 * 1024;
constexpr std::array<std::string_view, 6> kKinds{"out", "in", "missed", "out+", "in+", "other"};

struct Counts {
    std::uint64_t frames = 0;
    std::uint64_t calls = 0;
    std::uint64_t rejected = 0;   ///< by the server: headers, status lines, calls that are not charged
    std::uint64_t malformed = 0;  ///< the server's answer has not the length of a record
    std::uint64_t events = 0;     ///< room states, alarms, wake-up calls and link records
    std::uint64_t broken = 0;     ///< half frames and frames without an end
    std::array<std::uint64_t, kKinds.size()> kinds{};
};

class Progress {
 public:
    explicit Progress(std::uint64_t total) : total_(total), shown_(ErrorOutputIsTerminal()) {}
    ~Progress() {
        if (written_) WriteErrorText("\r" + std::string(40, ' ') + "\r");
    }
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    void Add(std::size_t bytes, std::uint64_t frames) {
        constexpr DWORD kPause = 250;
        done_ += bytes;
        if (!shown_ || GetTickCount() - last_ < kPause) return;
        last_ = GetTickCount();
        written_ = true;
        const std::string share =
            total_ == 0 ? std::to_string(done_ / 1024) + " KB" : std::to_string(done_ * 100 / total_) + " %";
        WriteErrorText("\r" + share + ", " + std::to_string(frames) + " records ");
    }

 private:
    std::uint64_t total_;
    std::uint64_t done_ = 0;
    bool shown_;
    bool written_ = false;
    DWORD last_ = GetTickCount();
};

class Conversion {
 public:
    Conversion(const Server& server, const Model& model, Format format, bool verbose, Output& output)
        : server_(server),
          layout_(server),
          recognition_(server, model),
          dle_(server.Text(server.link, &_ComProgramSet::GetComDLERx)),
          end_length_(FramingOf(server, model).end.size()),
          writer_(format, layout_.Columns(), output),
          type_(model.Code()),
          verbose_(verbose) {
        writer_.Begin();
    }

    void Take(const FrameCutter::Piece& piece) {
        if (piece.kind == FrameCutter::Kind::Loose) return;
        if (piece.kind == FrameCutter::Kind::Frame) {
            if (piece.bytes.size() > end_length_) Convert(piece.bytes);  // an empty line is no record
            return;
        }
        ++counts.broken;
        Tell("without an end", piece.bytes);
    }

    void Leave(std::string_view rest) {
        if (rest.empty()) return;
        ++counts.broken;
        Tell("half a frame at the end", rest);
    }

    Counts counts;

 private:
    void Convert(std::string_view bytes) {
        ++counts.frames;
        frame_.AssignBytes(bytes);
        if (recognition_.Of(frame_) != FrameKind::CallRecord) {
            ++counts.events;
            return Tell("no call record", bytes);
        }
        CheckCall(server_.rx->GetComConvertStringRX(type_.InOut(), frame_.InOut(), record_.Out()));
        const std::u16string_view record = record_.View();
        if (record == dle_) {
            ++counts.rejected;
            return Tell("rejected", bytes);
        }
        if (record.size() != layout_.RecordLength()) {
            ++counts.malformed;
            return Tell("malformed", bytes);
        }
        ++counts.calls;
        CountKind(CallKind(layout_.Cut(record, CallField::Type)));
        WriteCall(layout_, record, writer_);
        writer_.EndRecord();
    }

    void CountKind(std::string_view kind) {
        for (std::size_t i = 0; i < kKinds.size(); ++i)
            if (kKinds[i] == kind) ++counts.kinds[i];
    }

    void Tell(std::string_view reason, std::string_view bytes) const {
        constexpr std::size_t kShown = 400;
        if (verbose_) WriteError(std::string(reason) + ": " + Readable(bytes.substr(0, kShown)));
    }

    const Server& server_;
    CallLayout layout_;
    Recognition recognition_;
    std::u16string dle_;
    std::size_t end_length_;
    RecordWriter writer_;
    Bstr type_;
    Bstr frame_;
    Bstr record_;
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
            std::to_string(counts.events) + " not call records";
    if (counts.broken > 0) text += ", " + std::to_string(counts.broken) + " incomplete";
    return text;
}

ExitCode Run(const Options& options) {
    const std::string code = options.Require("--model");
    const std::string& name = options.Word();
    const Format format = ParseFormat(options.Get("--format", "table"));
    InputFile input(name, options.Has("--readable") ? InputFile::Form::Readable : InputFile::Form::Bytes);
    const Server server;
    const Model model(server, code);
    Initialize(server, model, options.Get("--settings"));

    Framing framing = FramingOf(server, model);
    framing.limit = kLongestFrame;
    FrameCutter cutter(framing);
    Output output = StandardOutput();
    Conversion conversion(server, model, format, options.Has("--verbose"), output);
    {
        Progress progress(input.Size());
        const auto fill = [&] { return input.ReadTo(cutter.Room(InputFile::kPiece), InputFile::kPiece); };
        for (std::size_t count = fill(); count > 0; count = fill()) {
            cutter.Filled(count);
            while (const auto piece = cutter.Next()) conversion.Take(*piece);
            progress.Add(count, conversion.counts.frames);
        }
    }
    conversion.Leave(cutter.Rest());
    output.Flush();

    WriteError(Summary(conversion.counts));
    if (conversion.counts.frames == 0 && conversion.counts.broken > 0)
        WriteError("No record has an end: on this link one ends with " + Readable(framing.end));
    return conversion.counts.malformed + conversion.counts.broken > 0 ? ExitCode::Failed : ExitCode::Ok;
}

}  // namespace

const Command kConvertCommand{
    "convert",
    "converts a capture of call records",
    "--model CODE [OPTIONS] FILE|-",
    "Cuts the capture into frames as the server says for the model, converts every call record and writes\n"
    "its fields. Hotel events and link records on the same link are recognised and counted.\n"
    "At the end the counts are written to the error output. \"Rejected\" are lines that the server knows\n"
    "to be no call; \"malformed\" are records that do not have the model's layout.\n"
    "Exit code 1 when a record was malformed or incomplete.",
    kOptions,
    kCaptureWord,
    Run,
};

}  // namespace vintrel::host
