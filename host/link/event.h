// What happens on a link, as it is told to people and programs.
#pragma once

#include <string>
#include <string_view>

#include "host/calls/call_layout.h"
#include "host/calls/call_rows.h"
#include "host/clock.h"
#include "host/link/log_line.h"
#include "host/record_writer.h"

namespace vintrel::host {

class EventWriter {
 public:
    EventWriter(const CallLayout& layout, const Presentation& presentation, Values values, Output& output);

    void Write(const Moment& moment, const Event& event);
    /// @param record  a converted record that can be a call
    void WriteCall(const Moment& moment, std::u16string_view record);
    std::string LeftOut() const { return writer_.LeftOut(); }

 private:
    void Head(const Moment& moment, const Event& event);

    const CallLayout& layout_;
    Values values_;
    CallRows rows_;
    RecordWriter writer_;
};

/// The fields of a call that pair the legs of a transfer, and its room.
struct CallKey {
    std::string room;
    std::string date;  ///< dd.mm.yy
    std::string time;  ///< hh:mm
    long user = 0;
    long duration = 0;
    bool outgoing = false;
};
CallKey KeyOf(const CallLayout& layout, std::u16string_view record);

// The server's normal forms of hotel frames, in positions of the whole string from 1: the room stands in 4 to 8; then
// the state (9 to 12), the status of a wake-up call (9), or mode (9), time (10 to 13) and date (14 to 17) of a setting.
/// Nothing to tell (name "") when the server gave no normal form.
Event RoomEvent(std::u16string_view normal);
Event WakeUpResultEvent(std::u16string_view normal);
Event WakeUpSettingEvent(std::u16string_view normal);

}  // namespace vintrel::host
