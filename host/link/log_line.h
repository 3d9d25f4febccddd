// A line of the log of a link: what came, what went, and what happened besides.
//
//     2026-11-15 06:00:00.123 <- <STX>0700123<ETX>        from the exchange
//     2026-11-15 06:00:00.124 -> <ACK>                    to the exchange
//     2026-11-15 06:00:09.000 -- lost||closed by the peer  what happened besides: event, room and detail
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "host/clock.h"

namespace vintrel::host {

struct Event {
    std::string name;    ///< call, transfer, room, alarm, wakeup, wakeup-set, connected, lost, silent, ...
    std::string room;    ///< digits; "" where the event has none
    std::string detail;  ///< UTF-8
};

// Events that tell a replay what to do besides showing them.
inline constexpr const char* kConnected = "connected";
inline constexpr const char* kLost = "lost";
inline constexpr const char* kHalfFrame = "half frame";
inline constexpr const char* kLogGap = "log gap";

struct LogLine {
    enum class Kind : std::uint8_t { In, Out, Note };
    Moment moment;
    Kind kind = Kind::Note;
    std::string bytes = {};  ///< of In and Out
    Event event = {};        ///< of Note
};

/// The first line of a log, and of every run that goes on with it.
//     2026-11-15 06:00:00.000 == TYPE10001 Avaya - Integral, COM1
struct LogHead {
    std::string code;
    std::string words;  ///< the model's name and what the link is to
};
std::optional<LogHead> ParseLogHead(std::string_view line);
std::string HeadLine(const Moment& moment, const LogHead& head);

/// Nothing for a line of another form.
std::optional<LogLine> ParseLogLine(std::string_view line);

/// Lines as the log keeps them, without their end. @param readable  the bytes, control characters by name
std::string InLine(const Moment& moment, std::string_view readable);
std::string OutLine(const Moment& moment, std::string_view readable);
std::string NoteLine(const Moment& moment, const Event& event);

}  // namespace vintrel::host
