// Options that several commands have.
#pragma once

#include "host/options.h"

namespace vintrel::host {

inline constexpr Option kModelOption{"--model", "CODE", "the exchange; \"vintrel-host models\" lists the codes"};
inline constexpr Option kFormatOption{"--format", "FORMAT", "table (default), csv or json (one object per line)"};

}  // namespace vintrel::host
