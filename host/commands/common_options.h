// Options that several commands have.
#pragma once

#include <string_view>

#include "host/options.h"

namespace vintrel::host {

inline constexpr Option kModelOption{"--model", "CODE", "the exchange; \"vintrel-host models\" lists the codes"};
inline constexpr Option kFormatOption{"--format", "FORMAT", "table (default), csv or json (one object per line)"};

/// What commands that read a capture call it.
inline constexpr std::string_view kCaptureWord = "the capture (a file, or - for the standard input)";

}  // namespace vintrel::host
