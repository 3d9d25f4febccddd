// The laws of received frames, whatever an exchange sends.
#pragma once

#include <cstdint>
#include <string>

namespace vintrel::laws {

/// Makes so many frames, and asks about each all that a host may ask:
/// - An answer is one of its few numbers; no known code is reported.
/// - A frame has a form for the host exactly when it is recognised, and that is a frame of the Avaya Integral family of
///   the same kind; frames of that family keep theirs.
/// - A frame as the exchange makes it is recognised as what it is, with its room, whatever the case of the code.
/// - The order of fields, and the case of words, change nothing where they do not matter.
/// @return the first law that does not hold, and for what; "" when all hold.
std::string BrokenFrameLaw(std::uint64_t frames, std::uint64_t seed);

}  // namespace vintrel::laws
