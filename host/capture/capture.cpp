#include "host/capture/capture.h"

#include <algorithm>
#include <utility>

#include "host/text.h"

namespace vintrel::host {
namespace {

constexpr std::string_view kLineEnds = "\r\n";

/// Without the controls that any text file has.
bool HasControls(std::string_view text) {
    return std::any_of(text.begin(), text.end(),
                       [](char c) { return c >= 0 && c < ' ' && c != '\r' && c != '\n' && c != '\t'; });
}

bool ShowsAny(std::string_view text, std::initializer_list<std::string_view> names) {
    return std::any_of(names.begin(), names.end(),
                       [&](std::string_view name) { return text.find(name) != std::string_view::npos; });
}

}  // namespace

Capture::Capture(Source source, const Framing& framing, std::optional<Form> form)
    : source_(std::move(source)), framing_(framing), given_(form) {
    ReadHead();
    encoding_ = EncodingOf(head_);
    decoder_ = Decoder(encoding_);
    const std::string text = Decoder(encoding_).Decode(head_);
    form_ = form ? *form : FormOf(text);
    if (form_ == Form::Readable)
        line_ends_are_data_ = !form && !ShowsAny(Upper(text), {"<CR>", "<LF>", "<ETX>", "<X0D>", "<X0A>"});
    const bool has_lines = form_ == Form::Bytes || (form_ == Form::Readable && line_ends_are_data_);
    if (has_lines) ends_ = EndsOf(text);
}

void Capture::ReadHead() {
    head_.resize(kHead);
    std::size_t length = 0;
    while (length < kHead) {
        const std::size_t count = source_(head_.data() + length, kHead - length);
        if (count == 0) break;
        length += count;
    }
    head_.resize(length);
}

Capture::Form Capture::FormOf(std::string_view text) const {
    constexpr std::size_t kLookedAt = 20;
    std::size_t looked_at = 0;
    for (const std::string_view line : Lines(text.substr(0, 64 * 1024))) {
        if (ParseLogLine(line) || ParseLogHead(line)) return Form::Log;
        if (++looked_at == kLookedAt) break;
    }
    const bool shows = ShowsAny(Upper(text), {"<STX>", "<ETX>", "<CR>", "<LF>", "<ENQ>", "<ACK>", "<FF>", "<TAB>"});
    return shows && !HasControls(text) ? Form::Readable : Form::Bytes;
}

Capture::Ends Capture::EndsOf(std::string_view bytes) const {
    const auto has = [&](std::string_view text) { return bytes.find(text) != std::string_view::npos; };
    if (!framing_.start.empty()) return has(framing_.start) || has(framing_.end) ? Ends::Own : Ends::NoFraming;
    if (framing_.end == "\n") return !has("\n") && has("\r") ? Ends::Return : Ends::Own;
    if (framing_.end != "\r\n") return Ends::Own;
    const auto feeds = static_cast<std::size_t>(std::count(bytes.begin(), bytes.end(), '\n'));
    std::size_t own = 0;
    for (std::size_t at = bytes.find("\r\n"); at != std::string_view::npos; at = bytes.find("\r\n", at + 2)) ++own;
    // A few line feeds within longer frames are data: an event of some exchanges has several lines.
    if (feeds > 2 * own) return Ends::LineFeed;
    return feeds == 0 && has("\r") ? Ends::Return : Ends::Own;
}

bool Capture::Fill() {
    if (!std::exchange(head_taken_, true)) {
        text_ += decoder_.Decode(head_);
        return true;
    }
    if (ended_) return false;
    piece_.resize(kHead);
    piece_.resize(source_(piece_.data(), piece_.size()));
    ended_ = piece_.empty();
    if (text_.empty() && encoding_ == Encoding::Bytes)
        text_.swap(piece_);
    else
        text_ += decoder_.Decode(piece_);
    return !ended_;
}

bool Capture::Next(LogLine& line) {
    line.kind = LogLine::Kind::In;
    line.bytes.clear();
    if (form_ != Form::Bytes) return NextLine(line);
    while (text_.empty())
        if (!Fill()) return false;
    if (encoding_ == Encoding::Bytes && ends_ == Ends::Own) {
        line.bytes.swap(text_);
        return true;
    }
    AppendLinkBytes(std::exchange(text_, {}), line.bytes);
    return true;
}

std::optional<std::string_view> Capture::NextTextLine() {
    std::size_t end = text_.find_first_of(kLineEnds, at_);
    while (end == std::string::npos) {
        const std::size_t looked_at = text_.size() - at_;
        text_.erase(0, at_);
        at_ = 0;
        if (!Fill()) break;
        end = text_.find_first_of(kLineEnds, looked_at);
    }
    if (at_ == text_.size()) return std::nullopt;
    const std::string_view line = std::string_view(text_).substr(at_, end - at_);
    at_ = std::min(end, text_.size() - 1) + 1;
    return line;
}

bool Capture::NextLine(LogLine& line) {
    while (const std::optional<std::string_view> text = NextTextLine()) {
        if (text->empty()) continue;
        if (form_ == Form::Readable) {
            AppendLinkBytes(line_ends_are_data_ ? FromReadable(*text) + "\n" : FromReadable(*text), line.bytes);
            return true;
        }
        if (std::optional<LogLine> parsed = ParseLogLine(*text)) {
            line = *std::move(parsed);
            return true;
        }
        if (const std::optional<LogHead> head = ParseLogHead(*text)) log_code_ = head->code;
    }
    return false;
}

void Capture::AppendLinkBytes(std::string text, std::string& out) {
    // An encoded file holds characters; a byte of the link is the character of its code.
    if (encoding_ != Encoding::Bytes && form_ == Form::Bytes) text = ToBytes(FromUtf8(text));
    if (ends_ == Ends::Own)
        out += text;
    else
        AppendWithOwnEnds(text, out);
}

void Capture::AppendWithOwnEnds(std::string_view bytes, std::string& out) {
    for (const char byte : bytes) {
        const bool ends = kLineEnds.find(byte) != std::string_view::npos;
        if (ends_ == Ends::NoFraming) {
            if (in_line_ == ends) out += ends ? framing_.end : framing_.start;
            in_line_ = !ends;
            if (!ends) out += byte;
        } else if (byte == '\n' && last_ == '\r') {  // half of its end has been given out, or all of it
            if (ends_ == Ends::LineFeed) out += byte;
        } else if (byte == (ends_ == Ends::Return ? '\r' : '\n')) {
            out += framing_.end;
        } else {
            out += byte;
        }
        last_ = byte;
    }
}

std::string Capture::ReadAs() const {
    std::string text;
    const auto say = [&](std::string_view words) { text.append(text.empty() ? "" : ", ").append(words); };
    switch (encoding_) {
        case Encoding::Bytes: break;
        case Encoding::Utf8: say("UTF-8 text"); break;
        case Encoding::Utf16LittleEndian:
        case Encoding::Utf16BigEndian: say("UTF-16 text"); break;
    }
    if (form_ == Form::Log) say("the log of a link");
    if (form_ == Form::Readable) say("control characters by name");
    switch (ends_) {
        case Ends::Own: break;
        case Ends::LineFeed: say("lines that end with <LF>"); break;
        case Ends::Return: say("lines that end with <CR>"); break;
        case Ends::NoFraming: say("lines without their framing characters"); break;
    }
    return text.empty() ? "plain bytes" : text;
}

}  // namespace vintrel::host
