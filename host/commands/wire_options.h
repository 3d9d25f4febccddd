// The options by which a command names its connection to the other side, and the one place that opens it.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <memory>
#include <string_view>

#include "host/link/wire.h"
#include "host/options.h"

namespace vintrel::host {

inline constexpr Option kAnyOption{"--any", "", "with --listen: other machines may connect too, not just this one"};
inline constexpr Option kSerialOption{"--serial", "PORT", "uses a serial port, such as COM1"};
inline constexpr Option kLineOption{"--line", "SETTINGS", "of the serial port; 9600,8,N,1 when not given"};

/// @throws Failure (Usage) unless exactly one of the options is given.
void RequireOneOf(const Options& options, std::initializer_list<std::string_view> ways);

/// Opens what --connect, --listen or --serial names.
/// @param raise_dtr_rts  what the server says for the model
/// @param pause  milliseconds between two attempts
std::unique_ptr<Wire> OpenWire(const Options& options, bool raise_dtr_rts, std::uint64_t pause);

}  // namespace vintrel::host
