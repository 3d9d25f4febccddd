#include "host/link/link_journal.h"

#include <algorithm>
#include <utility>

#include "host/console.h"
#include "host/text.h"

namespace vintrel::host {

LinkJournal::LinkJournal(const CallLayout& layout, const Settings& settings, TrafficLog log)
    : patient_(TryWriteOut),
      output_([this](std::string_view lines) { patient_.Add(lines); }),
      events_(layout, settings.presentation, settings.values, output_),
      log_(std::move(log)),
      show_(settings.show),
      has_status_line_(ConsoleWidth(Stream::Error) > 1) {}

void LinkJournal::Show(const Moment& moment, LogLine::Kind kind, std::string_view readable) {
    if (show_) events_.Write(moment, {kind == LogLine::Kind::In ? "<-" : "->", "", std::string(readable)});
}

void LinkJournal::In(const Moment& moment, std::string_view bytes) {
    const std::string readable = mask_.Received(bytes);
    if (readable.empty()) return;  // the beginning of what may be a password
    Log(moment, InLine(moment, readable));
    Show(moment, LogLine::Kind::In, readable);
}

void LinkJournal::Out(const Moment& moment, std::string_view bytes, bool secret) {
    const std::string readable = secret ? mask_.Sent(bytes) : Readable(bytes);
    Log(moment, OutLine(moment, readable));
    Show(moment, LogLine::Kind::Out, readable);
}

void LinkJournal::Note(const Moment& moment, const Event& event) {
    Log(moment, NoteLine(moment, event));
    events_.Write(moment, event);
}

void LinkJournal::Log(const Moment& moment, const std::string& line) {
    if (const std::optional<Event> news = log_.Write(moment, line)) {
        events_.Write(moment, *news);
        WriteError(news->name + ": " + news->detail);
    }
}

bool LinkJournal::Keep(const Moment& moment) {
    const PatientOutput::Fault before = patient_.State();
    output_.Flush();
    if (!patient_.Empty()) ClearStatus();
    const bool written = patient_.Flush();
    if (patient_.State() != before) TellOutput(moment, before);
    if (patient_.State() == PatientOutput::Fault::Closed) return log_.Keeps();
    return written;
}

void LinkJournal::TellOutput(const Moment& moment, PatientOutput::Fault before) {
    Event event;
    switch (patient_.State()) {
        case PatientOutput::Fault::None:
            event = {"output again", "", std::to_string(patient_.Lost()) + " lines are lost"};
            break;
        case PatientOutput::Fault::Full: event = {"no output", "", "it takes no more; what happens waits"}; break;
        case PatientOutput::Fault::Closed: event = {"no output", "", "nobody reads it any more"}; break;
    }
    if (before == PatientOutput::Fault::None || patient_.State() != PatientOutput::Fault::Full) {
        Note(moment, event);
        WriteError(event.name + ": " + event.detail);
    }
}

bool LinkJournal::Lost() const { return patient_.Lost() > 0 || !patient_.Empty() || log_.Lost() > 0; }

void LinkJournal::Status(const std::string& text) {
    if (!has_status_line_) return;
    const std::size_t width = ConsoleWidth(Stream::Error) - 1;
    const std::string shown = text.substr(0, width);
    const std::size_t blanks = status_length_ - std::min(status_length_, shown.size());
    WriteErrorText("\r" + shown + std::string(blanks, ' '));
    status_length_ = shown.size();
}

void LinkJournal::ClearStatus() {
    if (status_length_ == 0) return;
    WriteErrorText("\r" + std::string(status_length_, ' ') + "\r");
    status_length_ = 0;
}

}  // namespace vintrel::host
