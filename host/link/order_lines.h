// Orders for the exchange as a text file holds them, one per line.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "host/clock.h"

namespace vintrel::host {

struct OrderLine {
    enum class Verb : std::uint8_t {
        Wait,      ///< wait SECONDS
        WakeUp,    ///< wakeup ROOM HHMM [DDMM]
        Cancel,    ///< cancel ROOM HHMM [DDMM]
        CheckIn,   ///< checkin ROOM [NAME]
        CheckOut,  ///< checkout ROOM
        Name,      ///< name ROOM NAME
    };
    Verb verb = Verb::Wait;
    std::string word;  ///< the verb as it stands
    unsigned seconds = 0;
    long room = 0;
    std::string name;  ///< "" leaves the name as it is
    std::string time;
    std::string date;  ///< "" is the day on which the clock next shows the time
};

/// For people: "checkin Rossi", "wakeup 0730".
std::string Described(const OrderLine& order);

/// @param file  its name, for messages. @throws Failure (Usage) with file and line of what is no order.
std::vector<OrderLine> ParseOrders(std::string_view text, const std::string& file, const CivilTime& now);

}  // namespace vintrel::host
