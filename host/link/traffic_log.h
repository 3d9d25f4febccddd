// The raw traffic of a link on disk: one file per link and day, a line per piece as it came or went, so that a
// technician can read the night and a program can replay it (see log_line.h).
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "host/console.h"
#include "host/link/log_line.h"

namespace vintrel::host {

class TrafficLog {
 public:
    /// Keeps nothing.
    TrafficLog() = default;
    /// @param link  what the link is to: it stands in the name of the file
    /// @throws Failure when the folder is not there, or its file cannot be written.
    TrafficLog(std::string folder, const LogHead& head, std::string link, const Moment& now);

    /// @return what there is to tell: that writing has failed, or works again
    std::optional<Event> Write(const Moment& moment, const std::string& line);

    bool Keeps() const { return file_.Valid() && missing_ == 0; }
    /// Lines of the whole run that are not there.
    std::uint64_t Lost() const { return lost_; }

 private:
    bool Open(const Moment& moment);
    bool Append(const std::string& line);
    std::optional<Event> Fail(const Moment& moment);

    std::string folder_;
    LogHead head_;
    std::string link_;
    std::string day_;
    Handle file_;
    LONGLONG end_ = 0;           ///< of the last whole line
    std::uint64_t missing_ = 0;  ///< lines, since writing failed
    std::uint64_t lost_ = 0;
    std::string failed_at_;
};

}  // namespace vintrel::host
