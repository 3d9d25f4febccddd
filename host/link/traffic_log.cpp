#include "host/link/traffic_log.h"

#include <utility>

#include "host/failure.h"
#include "host/text.h"

namespace vintrel::host {
namespace {

constexpr std::size_t kStampLength = 23;  // 2026-11-15 06:00:00.123
constexpr std::size_t kDayLength = 10;
constexpr std::size_t kMarkLength = 4;  // " <- "

}  // namespace

std::optional<LogLine> ParseLogLine(std::string_view line) {
    while (!line.empty() && (line.back() == '\r' || line.back() == '\n')) line.remove_suffix(1);
    if (line.size() < kStampLength + kMarkLength) return std::nullopt;
    const std::string_view mark = line.substr(kStampLength, kMarkLength);
    const std::string_view rest = line.substr(kStampLength + kMarkLength);
    LogLine result;
    result.moment.stamp = line.substr(0, kStampLength);
    if (mark == " <- " || mark == " -> ") {
        result.kind = mark == " <- " ? LogLine::Kind::In : LogLine::Kind::Out;
        result.bytes = FromReadable(rest);
        return result;
    }
    const std::size_t first = rest.find('|');
    const std::size_t second = first == std::string_view::npos ? first : rest.find('|', first + 1);
    if (mark != " -- " || second == std::string_view::npos) return std::nullopt;
    result.event = {std::string(rest.substr(0, first)), std::string(rest.substr(first + 1, second - first - 1)),
                    std::string(rest.substr(second + 1))};
    return result;
}

TrafficLog::TrafficLog(std::string folder) : folder_(std::move(folder)) {
    if (!folder_.empty() && !IsFolder(folder_))
        throw Failure(ExitCode::Failed, "there is no folder " + folder_ + " for the log");
}

void TrafficLog::Note(const Moment& moment, const Event& event) {
    WriteLine(moment, "-- " + event.name + "|" + event.room + "|" + event.detail);
}

void TrafficLog::Write(const Moment& moment, std::string_view mark, std::string_view bytes) {
    WriteLine(moment, std::string(mark) + Readable(bytes));
}

void TrafficLog::WriteLine(const Moment& moment, const std::string& text) {
    if (folder_.empty()) return;
    const std::string day = moment.stamp.substr(0, kDayLength);
    if (day != day_ || !file_.Valid()) {
        day_ = day;
        const std::string name = folder_ + "\\link-" + day + ".log";
        file_ = Handle(CreateFileW(ToWide(name).c_str(), FILE_APPEND_DATA, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                   OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
    }
    const std::string line = moment.stamp + " " + text + "\n";
    DWORD written = 0;
    const bool good =
        file_.Valid() && WriteFile(file_.Get(), line.data(), static_cast<DWORD>(line.size()), &written, nullptr) != 0;
    // A full disk must not stop the hotel's calls: it is said once, and the next line is tried again.
    if (!good && !std::exchange(failed_, true))
        WriteError("the log cannot be written: " + SystemMessage(GetLastError()));
    if (good) failed_ = false;
}

}  // namespace vintrel::host
