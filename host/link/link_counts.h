// How much has passed on a link, and what became of it.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace vintrel::host {

/// How many of the bytes between frames are to be told: all but the ends of lines, which a capture may have there.
std::uint64_t LooseBytes(std::string_view bytes);
/// "13 bytes outside frames"; "" for none.
std::string LooseText(std::uint64_t bytes);

struct LinkCounts {
    std::uint64_t bytes_in = 0;
    std::uint64_t bytes_out = 0;
    std::uint64_t frames = 0;
    std::uint64_t calls = 0;
    std::uint64_t events = 0;      ///< of the hotel, and records of the link
    std::uint64_t rejected = 0;    ///< known, and no calls
    std::uint64_t malformed = 0;   ///< call records that can be no calls
    std::uint64_t other = 0;       ///< frames that the model does not know
    std::uint64_t incomplete = 0;  ///< half frames and frames without an end
    std::uint64_t loose = 0;       ///< bytes that belong to no frame and to no login

    /// "340 bytes in, 12 out, 5 frames: 4 calls, 1 event, ..."
    std::string Text() const;
};

}  // namespace vintrel::host
