// The options by which a command names its connection to the other side, and the one place that opens it.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>

#include "host/link/wire.h"
#include "host/options.h"

namespace vintrel::host {

inline constexpr Option kAnyOption{"--any", "",
                                   "with --listen: other machines may connect too; without it only this one"};
inline constexpr Option kFromOption{"--from", "ADDRESS", "with --listen: this machine may connect, and no other"};
inline constexpr Option kSerialOption{"--serial", "PORT", "uses a serial port, such as COM1"};
inline constexpr Option kLineOption{"--line", "SETTINGS", "of the serial port; 9600,8,N,1 when not given"};
inline constexpr Option kHandshakeOption{"--handshake", "KIND",
                                         "of the serial port: none (default), hardware (RTS and CTS) or\n"
                                         "software (XON and XOFF)"};

/// @throws Failure (Usage) unless exactly one of the options is given, or for one that belongs to another way.
void RequireOneWay(const Options& options, std::initializer_list<std::string_view> ways);

/// What the link is to, for the name of a log: "192.0.2.7:5010", "port-5010", "COM1".
std::string LinkName(const Options& options);

/// Opens what --connect, --listen or --serial names. @throws Failure (Usage)
/// @param raise_dtr_rts  what the server says for the model
/// @param pause  milliseconds between two attempts
std::unique_ptr<Wire> OpenWire(const Options& options, bool raise_dtr_rts, std::uint64_t pause);

}  // namespace vintrel::host
