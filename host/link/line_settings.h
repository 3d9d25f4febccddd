// How a serial port is set.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace vintrel::host {

enum class Handshake : std::uint8_t {
    None,
    Hardware,  ///< RTS and CTS
    Software,  ///< XON and XOFF
};
/// @throws Failure (Usage) for a word that is none of none, hardware, software.
Handshake ParseHandshake(std::string_view word);

struct LineSettings {
    unsigned baud = 9600;
    unsigned bits = 8;
    char parity = 'N';       ///< N, E, O, M or S
    std::string stop = "1";  ///< 1, 1.5 or 2
};
/// "9600,8,N,1"; what is left out at the end is as here. @throws Failure (Usage) for anything else
LineSettings ParseLine(std::string_view text);

}  // namespace vintrel::host
