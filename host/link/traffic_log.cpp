#include "host/link/traffic_log.h"

#include <utility>

#include "host/failure.h"
#include "host/text.h"

namespace vintrel::host {
namespace {

constexpr std::size_t kDayLength = 10;

/// A part of a file's name.
std::string ForName(std::string_view text) {
    std::string name;
    for (const char c : text) {
        const bool plain = IsDigit(c) || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '.' || c == '-';
        name += plain ? c : '_';
    }
    return name;
}

}  // namespace

TrafficLog::TrafficLog(std::string folder, const LogHead& head, std::string link, const Moment& now)
    : folder_(std::move(folder)), head_(head), link_(std::move(link)) {
    if (folder_.empty()) return;
    if (!IsFolder(folder_)) throw Failure(ExitCode::Failed, "there is no folder " + folder_ + " for the log");
    if (!Open(now)) throw Failure(ExitCode::Failed, "the log cannot be written: " + SystemMessage(GetLastError()));
}

/// The file of the day. Nobody else may write to it, so two programs do not mix their lines.
bool TrafficLog::Open(const Moment& moment) {
    day_ = moment.stamp.substr(0, kDayLength);
    const std::string name = folder_ + "\\link-" + head_.code + "-" + ForName(link_) + "-" + day_ + ".log";
    file_ = Handle(CreateFileW(ToWide(name).c_str(), GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ, nullptr,
                               OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file_.Valid()) return false;
    LARGE_INTEGER size{};
    GetFileSizeEx(file_.Get(), &size);
    end_ = size.QuadPart;
    // A line that a failing computer has left half written stands by itself.
    char last = '\n';
    DWORD count = 0;
    LARGE_INTEGER place{};
    place.QuadPart = end_ - 1;
    if (end_ > 0 && SetFilePointerEx(file_.Get(), place, nullptr, FILE_BEGIN) != 0)
        ReadFile(file_.Get(), &last, 1, &count, nullptr);
    return (last == '\n' || Append("")) && Append(HeadLine(moment, head_));
}

/// Writes a line behind the last whole one: what is left of a line that did not fit is written over.
bool TrafficLog::Append(const std::string& line) {
    const std::string text = line + "\n";
    LARGE_INTEGER place{};
    place.QuadPart = end_;
    DWORD written = 0;
    if (SetFilePointerEx(file_.Get(), place, nullptr, FILE_BEGIN) == 0) return false;
    const bool good = WriteFile(file_.Get(), text.data(), static_cast<DWORD>(text.size()), &written, nullptr) != 0;
    if (good && written == text.size()) {
        end_ += written;
        return true;
    }
    const DWORD error = good ? ERROR_DISK_FULL : GetLastError();
    SetFilePointerEx(file_.Get(), place, nullptr, FILE_BEGIN);
    SetEndOfFile(file_.Get());
    SetLastError(error);
    return false;
}

std::optional<Event> TrafficLog::Fail(const Moment& moment) {
    ++lost_;
    if (missing_++ > 0) return std::nullopt;  // it is said once, not all night
    failed_at_ = moment.stamp;
    return Event{"no log", "", SystemMessage(GetLastError())};
}

std::optional<Event> TrafficLog::Write(const Moment& moment, const std::string& line) {
    if (folder_.empty()) return std::nullopt;
    const bool same_day = moment.stamp.compare(0, kDayLength, day_) == 0;
    if (!(same_day && file_.Valid()) && !Open(moment)) return Fail(moment);
    std::optional<Event> gap;
    if (missing_ > 0) {
        gap = Event{kLogGap, "",
                    std::to_string(missing_) + " lines are missing since " + failed_at_ + "; writing works again"};
        if (!Append(NoteLine(moment, *gap))) return Fail(moment);
        missing_ = 0;
    }
    if (!Append(line)) return Fail(moment);
    return gap;
}

}  // namespace vintrel::host
