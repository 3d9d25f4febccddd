// "classify": which kind each frame of a capture is, and its normalised form.
#include <array>
#include <cstdint>
#include <string>

#include "host/calls/ask_call_layout.h"
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
    kWidthOption,
    kReadableOption,
    {"--settings", "FOLDER", "folder of Quindara.cfg and Vintrel.ini, for exchanges whose frames need them"},
};

constexpr std::array<std::string_view, 8> kNames{
    "room state", "room alarm", "wake-up confirmation", "set-clock", "login", "call record", "malformed", "other"};
enum NameIndex : std::uint8_t {
    kRoomState,
    kRoomAlarm,
    kConfirmation,
    kSetClock,
    kLogin,
    kCallRecord,
    kMalformed,
    kOther
};

NameIndex IndexOf(const Reading& reading) {
    if (reading.meaning == Meaning::Malformed) return kMalformed;
    if (reading.meaning != Meaning::Call && reading.meaning != Meaning::Event) return kOther;
    switch (reading.kind) {
        case FrameKind::RoomState: return kRoomState;
        case FrameKind::RoomAlarm: return kRoomAlarm;
        case FrameKind::WakeUpResult: return kConfirmation;
        case FrameKind::WakeUpSetting: return kSetClock;
        case FrameKind::CallRecord: return kCallRecord;
        case FrameKind::LinkRecord:
        case FrameKind::GuestRecord:
        case FrameKind::Other: break;
    }
    return kOther;
}

class Classification {
 public:
    Classification(const Server& server, const Model& model, const LinkAnswers& answers,
                   const Presentation& presentation, Output& output)
        : layout_(AskCallLayout(server)),
          reader_(answers, "", ""),
          interpreter_(server, model, layout_),
          shown_(ShownBytes(presentation)),
          writer_(presentation,
                  {{.title = "Frame", .width = kNumberWidth},
                   {.title = "Kind", .width = kKindWidth},
                   {.title = "Form", .width = kFormWidth},
                   {.title = "Received", .width = 8}},
                  output) {
        writer_.Begin();
    }

    void Take(const LogLine& line) {
        if (Interrupts(line)) return Leave();
        if (line.kind != LogLine::Kind::In) return;
        reader_.Push(line.bytes);
        while (const auto piece = reader_.Next()) Take(*piece);
    }

    void Leave() {
        const std::string half = reader_.DropHalfFrame();
        if (!half.empty()) TakeBroken(half);
    }

    std::string Summary() const {
        std::string text = std::to_string(rows_) + " frames";
        std::string_view separator = ": ";
        for (std::size_t i = 0; i < kNames.size(); ++i) {
            if (named_[i] == 0) continue;
            text.append(separator).append(std::to_string(named_[i])).append(" ").append(kNames[i]);
            separator = ", ";
        }
        if (counts.incomplete > 0) text += ", " + std::to_string(counts.incomplete) + " of them incomplete";
        if (counts.loose > 0) text += ", " + LooseText(counts.loose);
        return text;
    }

    FrameCounts counts;

 private:
    static constexpr std::size_t kNumberWidth = 5;
    static constexpr std::size_t kKindWidth = 20;
    static constexpr std::size_t kFormWidth = 40;

    /// How much of a frame a table shows.
    static std::size_t ShownBytes(const Presentation& presentation) {
        constexpr std::size_t kMost = 200;
        constexpr std::size_t kFewest = 20;
        constexpr std::size_t kBefore = kNumberWidth + kKindWidth + kFormWidth + 9;  // gaps, and dots behind
        if (presentation.format != Format::Table) return std::string_view::npos;
        if (presentation.width == 0) return kMost;
        return presentation.width > kBefore + kFewest ? presentation.width - kBefore : kFewest;
    }

    void Take(const LinkReader::Piece& piece) {
        switch (piece.kind) {
            case LinkReader::Kind::Frame: return TakeFrame(piece.bytes);
            case LinkReader::Kind::Login:
            case LinkReader::Kind::Confirmed: return Write(kLogin, {}, piece.bytes);
            case LinkReader::Kind::Broken:
            case LinkReader::Kind::Overlong: return TakeBroken(piece.bytes);
            case LinkReader::Kind::Loose: counts.loose += LooseBytes(piece.bytes); return;
            case LinkReader::Kind::Refused:
            case LinkReader::Kind::Empty: return;
        }
    }

    void TakeFrame(std::string_view bytes) {
        ++counts.frames;
        const Reading reading = interpreter_.Read(bytes);
        const bool used =
            reading.meaning == Meaning::Call || reading.meaning == Meaning::Event || reading.meaning == Meaning::Record;
        counts.used += used ? 1 : 0;
        counts.malformed += reading.meaning == Meaning::Malformed ? 1 : 0;
        Write(IndexOf(reading), reading.form, bytes);
    }

    void TakeBroken(std::string_view bytes) {
        ++counts.incomplete;
        Write(kOther, {}, bytes);
    }

    void Write(NameIndex name, std::u16string_view form, std::string_view bytes) {
        ++named_[name];
        writer_.Cell(std::string_view(std::to_string(++rows_)));
        writer_.Cell(kNames[name]);
        writer_.Cell(std::string_view(Readable(ToBytes(form))));
        writer_.Cell(std::string_view(Readable(bytes.substr(0, shown_)) + (bytes.size() > shown_ ? "..." : "")));
        writer_.EndRecord();
    }

    CallLayout layout_;
    LinkReader reader_;
    Interpreter interpreter_;
    std::size_t shown_;  ///< bytes of a frame
    RecordWriter writer_;
    std::uint64_t rows_ = 0;
    std::array<std::uint64_t, kNames.size()> named_{};
};

ExitCode Run(const Options& options) {
    const std::string code = options.Require("--model");
    const Presentation presentation = PresentationOf(options);
    const Server server;
    const Model model(server, code);
    Initialize(server, model, options.Get("--settings"));
    const LinkAnswers answers = AskAboutLink(server, model);
    CaptureFile file(options.Word(), answers.framing, options);

    Output output = StandardOutput();
    Classification classification(server, model, answers, presentation, output);
    for (LogLine line; file.Lines().Next(line);) classification.Take(line);
    classification.Leave();
    output.Flush();
    WriteError("Read as " + file.Lines().ReadAs() + ".");
    WriteError(classification.Summary());
    const bool good = JudgeCapture(server, model, answers.framing, file.Lines(), classification.counts);
    return good ? ExitCode::Ok : ExitCode::Failed;
}

}  // namespace

const Command kClassifyCommand{
    "classify",
    "names the kind of every frame of a capture",
    "--model CODE [OPTIONS] FILE|-",
    "Cuts the capture into frames as the server says for the model, asks the server of which kind each is, and\n"
    "writes its normalised form: room state, room alarm, wake-up confirmation, set-clock, login, call record,\n"
    "malformed (a call record that can be no call), or other, which has no form. Between frames only login\n"
    "characters count. The capture may have any of the forms that \"convert\" reads. As what it was read, and\n"
    "the counts, are written to the error output.\n"
    "Exit code 1 when a frame was malformed or incomplete, and when nothing in the capture could be used.",
    kOptions,
    kCaptureWord,
    Run,
};

}  // namespace vintrel::host
