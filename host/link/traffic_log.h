// The raw traffic of a link on disk: one file a day, a line per piece as it came or went, so that a technician can read
// the night and a program can replay it.
//
//     2026-11-15 06:00:00.123 <- <STX>0700123<ETX>        from the exchange
//     2026-11-15 06:00:00.124 -> <ACK>                    to the exchange
//     2026-11-15 06:00:09.000 -- lost||closed by the peer  what happened besides: event, room and detail
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "host/console.h"
#include "host/link/event.h"

namespace vintrel::host {

struct LogLine {
    enum class Kind : char { In = '<', Out = '>', Note = '-' };
    Moment moment;
    Kind kind = Kind::Note;
    std::string bytes;  ///< of In and Out
    Event event;        ///< of Note
};

/// Nothing for a line of another form.
std::optional<LogLine> ParseLogLine(std::string_view line);

class TrafficLog {
 public:
    /// @param folder  "" keeps no log. @throws Failure when the folder is not there.
    explicit TrafficLog(std::string folder);

    void In(const Moment& moment, std::string_view bytes) { Write(moment, "<- ", bytes); }
    void Out(const Moment& moment, std::string_view bytes) { Write(moment, "-> ", bytes); }
    void Note(const Moment& moment, const Event& event);

 private:
    void Write(const Moment& moment, std::string_view mark, std::string_view bytes);
    void WriteLine(const Moment& moment, const std::string& text);

    std::string folder_;
    std::string day_;
    Handle file_;
    bool failed_ = false;
};

}  // namespace vintrel::host
