// Where all that happens on a link is kept: as events on the standard output, and in the log.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "host/clock.h"
#include "host/link/event.h"
#include "host/link/password_mask.h"
#include "host/link/patient_output.h"
#include "host/link/traffic_log.h"

namespace vintrel::host {

class LinkJournal {
 public:
    struct Settings {
        Presentation presentation;
        Values values = Values::Exchange;
        bool show = false;  ///< the bytes of both directions are events, too
    };
    LinkJournal(const CallLayout& layout, const Settings& settings, TrafficLog log);

    EventWriter& Events() { return events_; }
    void In(const Moment& moment, std::string_view bytes);
    /// @param secret  a password, which is not shown
    void Out(const Moment& moment, std::string_view bytes, bool secret);
    void Note(const Moment& moment, const Event& event);
    /// An event of a log, which is in a log already.
    void Again(const Moment& moment, const Event& event) { events_.Write(moment, event); }
    void Show(const Moment& moment, LogLine::Kind kind, std::string_view readable);

    /// Writes what has been told. @return whether it is where the user wants it: on the standard output, or in the log
    /// when nobody reads the output any more
    bool Keep(const Moment& moment);
    /// Whether events or lines of the log are lost, or wait with no end in sight.
    bool Lost() const;

    /// The line of counts at the bottom of a console, and none elsewhere.
    void Status(const std::string& text);

 private:
    void Log(const Moment& moment, const std::string& line);
    void TellOutput(const Moment& moment, PatientOutput::Fault before);
    void ClearStatus();

    PatientOutput patient_;
    Output output_;
    EventWriter events_;
    TrafficLog log_;
    PasswordMask mask_;
    bool show_;
    bool has_status_line_;
    std::size_t status_length_ = 0;
};

}  // namespace vintrel::host
