#include "host/link/patient_output.h"

#include <algorithm>

namespace vintrel::host {
namespace {

std::uint64_t LinesIn(std::string_view text) {
    return static_cast<std::uint64_t>(std::count(text.begin(), text.end(), '\n'));
}

}  // namespace

void PatientOutput::Lose(std::string_view lines) { lost_ += LinesIn(lines); }

void PatientOutput::Add(std::string_view lines) {
    if (fault_ == Fault::Closed || waiting_.size() + lines.size() > most_waiting_)
        Lose(lines);
    else
        waiting_.append(lines);
}

bool PatientOutput::Flush() {
    if (fault_ == Fault::Closed) return false;
    if (waiting_.empty()) return true;
    const Written written = write_(waiting_);
    waiting_.erase(0, written.length);
    fault_ = written.fault;
    if (fault_ == Fault::Closed) {
        Lose(waiting_);
        waiting_.clear();
    }
    return waiting_.empty() && fault_ == Fault::None;
}

}  // namespace vintrel::host
