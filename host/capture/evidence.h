// How well a capture reads as the traffic of one model, and which model reads it best.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "host/clock.h"

namespace vintrel::host {

/// What one model has made of a capture.
struct Evidence {
    std::string code = {};
    std::string name = {};
    std::uint64_t calls = 0;
    std::uint64_t events = 0;     ///< of the hotel, and records of the link
    std::uint64_t rejected = 0;   ///< known, and no calls
    std::uint64_t malformed = 0;  ///< call records that can be no calls
    std::uint64_t other = 0;      ///< frames that the model does not know, and half frames
    std::uint64_t old_dates = 0;  ///< calls that were not made in the last ten years
    std::uint64_t bytes = 0;      ///< of the capture
    std::uint64_t used = 0;       ///< of them, in calls and events
    std::string first_why = {};   ///< what is wrong with the first malformed one
    std::size_t shortest = 0;     ///< frame that became a call
    std::size_t longest = 0;

    std::uint64_t Good() const { return calls + events; }
    std::uint64_t Bad() const { return malformed + other; }
};

/// Whether a call's date lies in the ten years up to tomorrow. @param year  two digits
bool IsRecent(unsigned day, unsigned month, unsigned year, const CivilTime& now);

/// From 0, the model makes nothing of it, to 100: every byte is a call of the last years or an event.
unsigned Fit(const Evidence& evidence);
/// Why, for people.
std::string Reasons(const Evidence& evidence);
/// The best first; models that read it equally well stand in the order of their codes.
void Rank(std::vector<Evidence>& models);
/// Whether the capture can be said to be this model's.
bool Convinces(const Evidence& evidence);

}  // namespace vintrel::host
