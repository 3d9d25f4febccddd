#include "host/link/frames.h"

#include <algorithm>
#include <utility>

namespace vintrel::host {
namespace {

constexpr std::size_t kNone = std::string::npos;

/// std::string_view::find for one byte. The C library of Windows looks at one byte after the other; the compiler makes
/// the inner loop look at all of a block at once.
std::size_t FindByte(std::string_view text, char byte, std::size_t from) {
    constexpr std::size_t kBlock = 16;
    for (; from + kBlock <= text.size(); from += kBlock) {
        bool hit = false;
        for (std::size_t i = 0; i < kBlock; ++i) hit |= text[from + i] == byte;
        if (hit) break;
    }
    while (from < text.size() && text[from] != byte) ++from;
    return from < text.size() ? from : kNone;
}

/// The position behind the first `mark` at or after `from`.
std::size_t Behind(std::string_view text, std::string_view mark, std::size_t from) {
    if (mark.empty()) return kNone;
    // The last character is looked for: it is the rarer one of CR LF, and a single one in all other models.
    std::size_t at = from + mark.size() - 1;
    while ((at = FindByte(text, mark.back(), at)) != kNone) {
        ++at;
        if (text.substr(at - mark.size(), mark.size()) == mark) return at;
    }
    return kNone;
}

}  // namespace

FrameCutter::FrameCutter(Framing framing) : framing_(std::move(framing)) {}

char* FrameCutter::Room(std::size_t count) {
    std::copy(buffer_.data() + begin_, buffer_.data() + end_, buffer_.data());
    end_ -= begin_;
    scanned_ -= begin_;
    begin_ = 0;
    if (buffer_.size() < end_ + count) buffer_.resize(end_ + count);
    return buffer_.data() + end_;
}

void FrameCutter::Push(std::string_view bytes) {
    std::copy(bytes.begin(), bytes.end(), Room(bytes.size()));
    Filled(bytes.size());
}

void FrameCutter::Take(std::size_t count) {
    begin_ = std::min(begin_ + count, end_);
    scanned_ = begin_;
}

std::size_t FrameCutter::FindEnd(std::size_t from) const {
    const std::size_t first = Behind(Text(), framing_.end, from);
    const std::size_t second = Behind(Text(), framing_.end2, from);
    return std::min(first, second);
}

FrameCutter::Piece FrameCutter::Cut(Kind kind, std::size_t end) {
    const Piece piece{kind, Text().substr(begin_, end - begin_)};
    begin_ = end;
    scanned_ = end;
    return piece;
}

std::optional<FrameCutter::Piece> FrameCutter::Next() {
    while (begin_ < end_) {
        if (!framing_.start.empty()) return NextBetweenMarks();
        const std::size_t end = FindEnd(scanned_);
        if (end != kNone) {
            const Piece piece = Cut(Kind::Frame, end);
            if (!std::exchange(skipping_, false)) return piece;
            continue;
        }
        const std::size_t overlap = std::max(framing_.end.size(), framing_.end2.size());
        scanned_ = std::max(begin_, end_ - std::min(overlap, end_));
        if (end_ - begin_ <= framing_.limit) return std::nullopt;
        const Piece piece = Cut(Kind::Overlong, scanned_);
        if (!std::exchange(skipping_, true)) return piece;
    }
    return std::nullopt;
}

std::optional<FrameCutter::Piece> FrameCutter::NextBetweenMarks() {
    const std::size_t start = Text().find(framing_.start, begin_);
    if (start != begin_) return Cut(Kind::Loose, std::min(start, end_));
    const std::size_t end = FindEnd(std::max(scanned_, begin_));
    const std::size_t again = Text().find(framing_.start, begin_ + framing_.start.size());
    if (again < std::min(end, end_)) {
        // A check character that happens to be the start character is noise, not a frame that broke.
        return Cut(again == begin_ + framing_.start.size() ? Kind::Loose : Kind::Broken, again);
    }
    if (end != kNone) return Cut(Kind::Frame, end);
    scanned_ = std::max(begin_, end_ - std::min(framing_.end.size(), end_));
    if (end_ - begin_ <= framing_.limit) return std::nullopt;
    return Cut(Kind::Overlong, end_);
}

}  // namespace vintrel::host
