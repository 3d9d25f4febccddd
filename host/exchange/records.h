// What an exchange of each model says on its link: sample call records and hotel frames, in the model's own form. The
// simulated exchange speaks with it; numbers and names are invented.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "host/clock.h"

namespace vintrel::host {

struct SampleCall {
    bool outgoing = true;
    unsigned room = 0;
    std::string number;
    unsigned seconds = 0;  ///< an incoming call of 0 seconds was not answered
    unsigned units = 0;
    unsigned line = 1;
};

enum class RoomReport : std::uint8_t { Clean, NotClean, Alarm };

class ExchangeRecords {
 public:
    /// @param code  in upper case. @throws Failure (Usage) for a model that it has no words for
    explicit ExchangeRecords(std::string_view code);

    // Frames with their framing characters; "" where the model has no such frame.
    std::string Call(const SampleCall& sample, const CivilTime& time);
    std::string Room(unsigned room, RoomReport report, const CivilTime& time);
    std::string WakeUpResult(unsigned room, bool answered, const CivilTime& time);
    /// A wake-up call that the guest sets on the telephone, @param hhmm; "" clears it.
    std::string WakeUpSetting(unsigned room, std::string_view hhmm, const CivilTime& time) const;
    std::string Guest(unsigned room, bool arrives, std::string_view name, const CivilTime& time) const;

 private:
    enum class Family : std::uint8_t {
        Integral,
        Integral2,
        Mitel,  ///< without hotel frames
        MitelHotel,
        Alcatel,
        Algoral,
        Innovaphone,
        Wildix,
        IpOffice,
        Panasonic,
        PanasonicCalls,  ///< the serial link, on which the server recognises no hotel events
        Grandstream,
        Fias
    };
    static Family FamilyOf(std::string_view code);

    Family family_;
    unsigned serial_ = 0;  ///< of the records, for models that number them
};

}  // namespace vintrel::host
