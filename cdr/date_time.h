// Civil dates as seconds, for the exchanges that report instants or continued calls.
#pragma once

#include <cstdint>
#include <optional>

#include "server/platform.h"

namespace vintrel::cdr {

/// Seconds since 1970-01-01 00:00:00 of the same time zone; nothing for a date or time that does not exist.
std::optional<std::int64_t> SecondsOf(const server::DateTime& date_time);

/// The date and time that many seconds after 1970-01-01 00:00:00; nothing outside the years 1 to 9999.
std::optional<server::DateTime> DateTimeOf(std::int64_t seconds);

}  // namespace vintrel::cdr
