// Times, days, rooms and names as people give them: nothing goes to an exchange that is none.
#pragma once

#include <string>
#include <string_view>

#include "host/clock.h"

namespace vintrel::host {

bool IsDay(unsigned day, unsigned month, unsigned year);

// Each answers what it was given. @throws Failure (Usage) that says what is expected.
/// "hhmm", 0000 to 2359.
std::string CheckedTime(std::string_view text);
/// "ddmm", a day of the year that begins now; "----" for none.
std::string CheckedDate(std::string_view text, const CivilTime& now);
/// An extension, 1 to 99999: the exchanges' own frames have five digits for it.
long CheckedRoom(std::string_view text);
/// A name has no control characters: an exchange would take them for its own.
std::string CheckedName(std::string_view text);

/// The day, "ddmm", on which the clock next shows a time "hhmm": tomorrow when it shows it now or has done so today.
std::string NextDayAt(std::string_view hhmm, const CivilTime& now);

}  // namespace vintrel::host
