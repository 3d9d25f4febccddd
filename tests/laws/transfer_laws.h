// The laws of transferred calls, which come as two records.
#pragma once

#include <cstdint>
#include <string>

namespace vintrel::laws {

/// Makes so many pairs of records, many of them nearly alike, and has each paired in either order:
/// - The order does not matter.
/// - Two records are a transfer exactly when all that the condition names agrees, within what the model allows, and
///   their directions differ.
/// @return the first law that does not hold, and for what; "" when all hold.
std::string BrokenTransferLaw(std::uint64_t pairs, std::uint64_t seed);

}  // namespace vintrel::laws
