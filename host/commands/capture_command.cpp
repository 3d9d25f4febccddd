#include "host/commands/capture_command.h"

#include <optional>

#include "host/capture/detection.h"
#include "host/console.h"
#include "host/text.h"

namespace vintrel::host {

CaptureFile::CaptureFile(const std::string& name, const Framing& framing, const Options& options)
    : file_(name),
      capture_(
          [this](char* buffer, std::size_t count) {
              const std::size_t length = file_.ReadTo(buffer, count);
              done_ += length;
              return length;
          },
          framing, options.Has("--readable") ? std::optional(Capture::Form::Readable) : std::nullopt) {}

bool Interrupts(const LogLine& line) {
    return line.kind == LogLine::Kind::Note && (line.event.name == kConnected || line.event.name == kLost ||
                                                line.event.name == kHalfFrame || line.event.name == kLogGap);
}

void TellOtherModel(const std::string& code, const Capture& capture) {
    const std::string& other = capture.LogCode();
    if (!other.empty() && other != code) WriteError("This is the log of a link to " + other + ", not to " + code + ".");
}

bool JudgeCapture(const Server& server, const Model& model, const Framing& framing, const Capture& capture,
                  const FrameCounts& counts) {
    const std::string code = ToUtf8(model.Code());
    if (capture.Head().empty()) {
        WriteError("The capture is empty.");
        return false;
    }
    TellOtherModel(code, capture);
    if (counts.frames == 0)
        WriteError("There is no frame of " + code + " in it: one " +
                   (framing.start.empty() ? "" : "begins with " + Readable(framing.start) + " and ") + "ends with " +
                   Readable(framing.end) + ".");
    constexpr std::uint64_t kFewBad = 3;
    const bool doubtful = counts.used == 0 || (counts.malformed >= kFewBad && counts.malformed > counts.used);
    if (doubtful) {
        if (counts.used == 0 && counts.frames > 0) WriteError("Nothing in it can be used as " + code + ".");
        const std::string guess = BestGuess(Detect(server, capture.Head(), capture.GivenForm(), model.Code()));
        WriteError(guess.empty() ? "No other model reads it; \"vintrel-host detect\" tells why."
                                 : guess + " \"vintrel-host detect\" compares all models.");
    }
    return counts.used > 0 && counts.malformed + counts.incomplete == 0;
}

}  // namespace vintrel::host
