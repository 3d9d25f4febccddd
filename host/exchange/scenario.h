// What the simulated exchange does, step by step: a text file with one step per line.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace vintrel::host {

struct Step {
    enum class Kind : std::uint8_t {
        Wait,        ///< wait SECONDS
        Call,        ///< call out ROOM NUMBER SECONDS UNITS, call in ROOM NUMBER SECONDS
        Room,        ///< room ROOM clean|notclean|alarm
        WakeUp,      ///< wakeup ROOM answered|unanswered
        SetWakeUp,   ///< setwakeup ROOM HHMM|clear
        CheckIn,     ///< checkin ROOM NAME
        CheckOut,    ///< checkout ROOM
        Send,        ///< send BYTES, control characters by name
        Await,       ///< await: until the host has sent an order, 30 seconds at most
        Half,        ///< half: the first half of a call record, and no more of it
        Garbage,     ///< garbage: noise between frames
        Disconnect,  ///< disconnect
    };
    Kind kind = Kind::Wait;
    double seconds = 0;  ///< of Wait
    unsigned room = 0;
    std::string text = {};  ///< number, state, result, time, name or bytes
    bool outgoing = true;   ///< of Call
    unsigned duration = 0;  ///< of Call
    unsigned units = 0;     ///< of Call
};

/// @param file  its name, for messages. @throws Failure (Usage) with file and line of what is no step.
std::vector<Step> ParseScenario(std::string_view text, const std::string& file);

/// A day of a hotel, for every model; an exchange leaves out what it cannot say.
std::string_view BuiltInDay();

}  // namespace vintrel::host
