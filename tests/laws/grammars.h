// What the exchanges send: the call records of every family, and the frames of those that tell of rooms.
#pragma once

#include <span>

#include "tests/laws/grammar.h"

namespace vintrel::laws {

std::span<const Grammar> RecordGrammars();

/// What a frame tells. Its claims are those of a record: the room is the user; its type stands for the code.
enum class FrameKind : std::uint8_t {
    Room,     ///< type "1" clean, "2" not clean, "3" alarm
    WakeUp,   ///< result of a wake-up call: the type is the status
    SetClock  ///< with a time: the type is the mode
};
struct FrameGrammar {
    FrameKind kind;
    Grammar grammar;
};
std::span<const FrameGrammar> FrameGrammars();

}  // namespace vintrel::laws
