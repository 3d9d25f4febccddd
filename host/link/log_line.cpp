#include "host/link/log_line.h"

#include <algorithm>

#include "host/text.h"

namespace vintrel::host {
namespace {

constexpr std::size_t kStampLength = 23;  // 2026-11-15 06:00:00.123
constexpr std::string_view kIn = " <- ";
constexpr std::string_view kOut = " -> ";
constexpr std::string_view kNote = " -- ";
constexpr std::string_view kHead = " == ";

/// A point in time and a mark behind it.
bool HasStamp(std::string_view text) {
    constexpr std::string_view kForm = "0000-00-00 00:00:00.000";
    if (text.size() < kStampLength + kNote.size()) return false;
    for (std::size_t i = 0; i < kForm.size(); ++i)
        if (kForm[i] == '0' ? !IsDigit(text[i]) : text[i] != kForm[i]) return false;
    return true;
}

std::string Line(const Moment& moment, std::string_view mark, std::string_view rest) {
    return moment.stamp + std::string(mark) + std::string(rest);
}

}  // namespace

std::optional<LogHead> ParseLogHead(std::string_view line) {
    if (!HasStamp(line) || line.substr(kStampLength, kHead.size()) != kHead) return std::nullopt;
    line.remove_prefix(kStampLength + kHead.size());
    const std::size_t blank = std::min(line.find(' '), line.size());
    return LogHead{std::string(line.substr(0, blank)), std::string(Trimmed(line.substr(blank)))};
}

std::string HeadLine(const Moment& moment, const LogHead& head) {
    return Line(moment, kHead, head.code + " " + head.words);
}

std::optional<LogLine> ParseLogLine(std::string_view line) {
    while (!line.empty() && (line.back() == '\r' || line.back() == '\n')) line.remove_suffix(1);
    if (!HasStamp(line)) return std::nullopt;
    const std::string_view mark = line.substr(kStampLength, kNote.size());
    const std::string_view rest = line.substr(kStampLength + kNote.size());
    LogLine result;
    result.moment.stamp = line.substr(0, kStampLength);
    if (mark == kIn || mark == kOut) {
        result.kind = mark == kIn ? LogLine::Kind::In : LogLine::Kind::Out;
        result.bytes = FromReadable(rest);
        return result;
    }
    const std::size_t first = rest.find('|');
    const std::size_t second = first == std::string_view::npos ? first : rest.find('|', first + 1);
    if (mark != kNote || second == std::string_view::npos) return std::nullopt;
    result.event = {std::string(rest.substr(0, first)), std::string(rest.substr(first + 1, second - first - 1)),
                    std::string(rest.substr(second + 1))};
    return result;
}

std::string InLine(const Moment& moment, std::string_view readable) { return Line(moment, kIn, readable); }
std::string OutLine(const Moment& moment, std::string_view readable) { return Line(moment, kOut, readable); }
std::string NoteLine(const Moment& moment, const Event& event) {
    return Line(moment, kNote, event.name + "|" + event.room + "|" + event.detail);
}

}  // namespace vintrel::host
