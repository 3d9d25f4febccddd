// The laws of call records, whatever an exchange sends.
#pragma once

#include <cstdint>
#include <string>

namespace vintrel::laws {

/// Makes so many records and converts each in the company of others:
/// - The answer is the reject marker, or at most 87 characters from STX to ETX, and no unknown code is reported.
/// - Only TYPE10003 and TYPE10010 touch the caller's text.
/// - A record as the exchange makes it converts, with every field in its columns.
/// - The order of fields, and the case of words, change nothing where they do not matter.
/// - The records of other calls change nothing.
/// @return the first law that does not hold, and for what; "" when all hold.
std::string BrokenRecordLaw(std::uint64_t records, std::uint64_t seed);

}  // namespace vintrel::laws
