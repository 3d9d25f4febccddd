// What the commands that read a capture have in common: how they open it, how it ends, and what they say when nothing
// of it could be used.
#pragma once

#include <cstdint>
#include <string>

#include "host/capture/capture.h"
#include "host/input_file.h"
#include "host/link/link_answers.h"
#include "host/options.h"
#include "host/server.h"

namespace vintrel::host {

inline constexpr Option kReadableOption{
    "--readable", "",
    "control characters stand in the capture by name, such as <STX>, and line ends are no data;\n"
    "recognised without it where a frame shows its end"};

/// A capture in a file, and how much of it has been read.
class CaptureFile {
 public:
    /// @throws Failure when it cannot be opened.
    CaptureFile(const std::string& name, const Framing& framing, const Options& options);
    Capture& Lines() { return capture_; }
    std::uint64_t Size() const { return file_.Size(); }
    std::uint64_t Done() const { return done_; }

 private:
    InputFile file_;
    std::uint64_t done_ = 0;
    Capture capture_;
};

/// Whether a line of a log says that what has come of a frame will not go on.
bool Interrupts(const LogLine& line);

/// What has become of the frames of a capture.
struct FrameCounts {
    std::uint64_t frames = 0;
    std::uint64_t used = 0;        ///< calls, events of the hotel, records of the link
    std::uint64_t malformed = 0;   ///< call records that can be no calls
    std::uint64_t incomplete = 0;  ///< half frames and frames without an end
    std::uint64_t loose = 0;       ///< bytes that belong to no frame and to no login
};

/// Says so when a log names another model.
void TellOtherModel(const std::string& code, const Capture& capture);

/// Says what is wrong with a capture of which nothing, or little, could be used: how frames of the model look, and
/// which model would read it. @return whether it was good
bool JudgeCapture(const Server& server, const Model& model, const Framing& framing, const Capture& capture,
                  const FrameCounts& counts);

}  // namespace vintrel::host
