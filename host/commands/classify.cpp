// "classify": which kind each frame of a capture is, and its normalised form.
#include <array>
#include <cstdint>
#include <string>
#include <vector>

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
    {"--settings", "FOLDER", "folder of Quindara.cfg and Vintrel.ini, for exchanges whose frames need them"},
};

/// The server's conversion of a kind of frame into its normalised form.
using Conversion = HRESULT (STDMETHODCALLTYPE _ComEventsRX::*)(BSTR*, BSTR*, BSTR*);

struct Kind {
    std::string_view name;
    Conversion conversion;  ///< none where the bytes are all there is
};
enum KindIndex : std::uint8_t { kRoomState, kRoomAlarm, kConfirmation, kSetClock, kLogin, kCallRecord, kOther };
constexpr std::array<Kind, 7> kKinds{{
    {"room state", &_ComEventsRX::GetComConvertRoomStateRX},
    {"room alarm", &_ComEventsRX::GetComConvertRoomAlarmRX},
    {"wake-up confirmation", &_ComEventsRX::GetComConvertConfirmClockRX},
    {"set-clock", &_ComEventsRX::GetComConvertSetClockRX},
    {"login", nullptr},
    {"call record", &_ComEventsRX::GetComConvertStringRX},
    {"other", nullptr},
}};

KindIndex IndexOf(FrameKind kind) {
    switch (kind) {
        case FrameKind::RoomState: return kRoomState;
        case FrameKind::RoomAlarm: return kRoomAlarm;
        case FrameKind::WakeUpResult: return kConfirmation;
        case FrameKind::WakeUpSetting: return kSetClock;
        case FrameKind::CallRecord: return kCallRecord;
        case FrameKind::Other: return kOther;
    }
    return kOther;
}

class Classification {
 public:
    Classification(const Server& server, const Model& model, Format format, Output& output)
        : server_(server),
          recognition_(server, model),
          no_call_(server.Text(server.link, &_ComProgramSet::GetComDLERx)),
          end_length_(FramingOf(server, model).end.size()),
          type_(model.Code()),
          shown_(format == Format::Table ? 200 : std::string_view::npos),
          writer_(format, {{"Frame", 5}, {"Kind", 20}, {"Form", 40}, {"Received", 8}}, output) {
        AddLogin(model.Text(server.rx, &_ComEventsRX::ComEventRequestLogInRX));
        AddLogin(model.Text(server.rx, &_ComEventsRX::ComEventConfirmLogInRX));
        writer_.Begin();
    }

    void Take(const FrameCutter::Piece& piece) {
        std::string_view bytes = piece.bytes;
        switch (piece.kind) {
            case FrameCutter::Kind::Frame:
                while (TakeLogin(bytes)) {
                }
                if (bytes.size() > end_length_) TakeFrame(bytes);  // an empty line is no frame
                return;
            case FrameCutter::Kind::Loose:  // acknowledgements, check characters, noise
                while (!bytes.empty())
                    if (!TakeLogin(bytes)) bytes.remove_prefix(1);
                return;
            case FrameCutter::Kind::Broken:
            case FrameCutter::Kind::Overlong: TakeBroken(bytes); return;
        }
    }

    void Leave(std::string_view rest) {
        while (TakeLogin(rest)) {
        }
        if (!rest.empty()) TakeBroken(rest);
    }

    std::string Summary() const {
        std::string text = std::to_string(frames_) + " frames";
        std::string_view separator = ": ";
        for (std::size_t i = 0; i < kKinds.size(); ++i) {
            if (counts_[i] == 0) continue;
            text.append(separator).append(std::to_string(counts_[i])).append(" ").append(kKinds[i].name);
            separator = ", ";
        }
        if (broken_ > 0) text += ", " + std::to_string(broken_) + " of them incomplete";
        return text;
    }
    bool Empty() const { return frames_ == 0; }
    bool Complete() const { return broken_ == 0; }

 private:
    /// A login string of one character that links do not carry says that the model has none.
    void AddLogin(std::u16string_view login) {
        if (!login.empty() && login != u"@" && login != u"\u00A3") logins_.push_back(ToBytes(login));
    }

    /// Login strings end with no end string: they stand in front of the next frame, or between frames.
    bool TakeLogin(std::string_view& bytes) {
        for (const std::string& login : logins_) {
            if (!bytes.starts_with(login)) continue;
            Write(kLogin, {}, login);
            bytes.remove_prefix(login.size());
            return true;
        }
        return false;
    }

    void TakeFrame(std::string_view bytes) {
        frame_.AssignBytes(bytes);
        const KindIndex kind = IndexOf(recognition_.Of(frame_));
        const Conversion conversion = kKinds[kind].conversion;
        if (!conversion) return Write(kOther, {}, bytes);
        CheckCall((server_.rx.Get()->*conversion)(type_.InOut(), frame_.InOut(), form_.Out()));
        // What looks like a kind but has no form, such as the heading of a list of calls, is none of that kind.
        const bool has_form = !form_.View().empty() && form_.View() != no_call_;
        if (!has_form) return Write(kOther, {}, bytes);
        Write(kind, form_.View(), bytes);
    }

    void TakeBroken(std::string_view bytes) {
        ++broken_;
        Write(kOther, {}, bytes);
    }

    void Write(KindIndex kind, std::u16string_view form, std::string_view bytes) {
        ++counts_[kind];
        writer_.Cell(std::string_view(std::to_string(++frames_)));
        writer_.Cell(kKinds[kind].name);
        writer_.Cell(std::string_view(Readable(ToBytes(form))));
        writer_.Cell(std::string_view(Readable(bytes.substr(0, shown_)) + (bytes.size() > shown_ ? "..." : "")));
        writer_.EndRecord();
    }

    const Server& server_;
    Recognition recognition_;
    std::vector<std::string> logins_;
    std::u16string no_call_;
    std::size_t end_length_;
    Bstr type_;
    Bstr frame_;
    Bstr form_;
    std::size_t shown_;  ///< bytes of a frame
    RecordWriter writer_;
    std::uint64_t frames_ = 0;
    std::uint64_t broken_ = 0;
    std::array<std::uint64_t, kKinds.size()> counts_{};
};

ExitCode Run(const Options& options) {
    const std::string code = options.Require("--model");
    const std::string& name = options.Word();
    const Format format = ParseFormat(options.Get("--format", "table"));
    InputFile input(name, options.Has("--readable") ? InputFile::Form::Readable : InputFile::Form::Bytes);
    const Server server;
    const Model model(server, code);
    Initialize(server, model, options.Get("--settings"));

    const Framing framing = FramingOf(server, model);
    FrameCutter cutter(framing);
    Output output = StandardOutput();
    Classification classification(server, model, format, output);
    for (std::string_view bytes = input.Read(); !bytes.empty(); bytes = input.Read()) {
        cutter.Push(bytes);
        while (const auto piece = cutter.Next()) classification.Take(*piece);
    }
    classification.Leave(cutter.Rest());
    output.Flush();
    WriteError(classification.Summary());
    if (classification.Empty())
        WriteError("On this link a frame begins with " +
                   (framing.start.empty() ? "anything" : Readable(framing.start)) + " and ends with " +
                   Readable(framing.end));
    return classification.Complete() ? ExitCode::Ok : ExitCode::Failed;
}

}  // namespace

const Command kClassifyCommand{
    "classify",
    "names the kind of every frame of a capture",
    "--model CODE [OPTIONS] FILE|-",
    "Cuts the capture into frames as the server says for the model, asks the server of which kind each is, and\n"
    "writes its normalised form: room state, room alarm, wake-up confirmation, set-clock, login, call record,\n"
    "or other, which has none. Between frames only login characters count. The counts are written to the error "
    "output.\n"
    "Exit code 1 when a frame was incomplete.",
    kOptions,
    kCaptureWord,
    Run,
};

}  // namespace vintrel::host
