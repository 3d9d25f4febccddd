#include "host/capture/encoding.h"

#include <algorithm>

#include "host/text.h"

namespace vintrel::host {
namespace {

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
constexpr char16_t kMark = 0xFEFF;

/// Of the bytes at even or odd places, how many are zero.
std::size_t Zeros(std::string_view text, std::size_t first) {
    std::size_t count = 0;
    for (std::size_t i = first; i < text.size(); i += 2) count += text[i] == '\0' ? 1U : 0U;
    return count;
}

/// Where the last character of UTF-8 text begins that the end has cut.
std::size_t CutCharacter(std::string_view utf8) {
    const std::size_t most = std::min<std::size_t>(utf8.size(), 3);
    for (std::size_t back = 1; back <= most; ++back) {
        const auto byte = static_cast<unsigned char>(utf8[utf8.size() - back]);
        if ((byte & 0xC0U) == 0x80U) continue;
        const std::size_t length = byte < 0xC0 ? 1 : byte < 0xE0 ? 2 : byte < 0xF0 ? 3 : 4;
        return length > back ? utf8.size() - back : utf8.size();
    }
    return utf8.size();
}

}  // namespace

Encoding EncodingOf(std::string_view head) {
    if (head.starts_with(kUtf8Mark)) return Encoding::Utf8;
    if (head.starts_with("\xFF\xFE")) return Encoding::Utf16LittleEndian;
    if (head.starts_with("\xFE\xFF")) return Encoding::Utf16BigEndian;
    // Text of western letters has a zero in every second place, and a capture of bytes has hardly any.
    constexpr std::size_t kFewest = 8;
    const std::size_t units = head.size() / 2;
    if (units < kFewest) return Encoding::Bytes;
    const std::size_t even = Zeros(head.substr(0, 2 * units), 0);
    const std::size_t odd = Zeros(head.substr(0, 2 * units), 1);
    const auto nearly_all = [&](std::size_t zeros) { return zeros * 10 >= units * 9; };
    if (nearly_all(odd) && even * 10 <= units) return Encoding::Utf16LittleEndian;
    if (nearly_all(even) && odd * 10 <= units) return Encoding::Utf16BigEndian;
    return Encoding::Bytes;
}

std::string Decoder::Decode(std::string_view piece) {
    if (encoding_ == Encoding::Bytes) return std::string(piece);
    rest_.append(piece);
    if (encoding_ == Encoding::Utf8) {
        if (at_start_ && rest_.size() < kUtf8Mark.size()) return {};
        if (at_start_) rest_.erase(0, kUtf8Mark.size());
        at_start_ = false;
        std::string text = rest_.substr(0, CutCharacter(rest_));
        rest_.erase(0, text.size());
        return text;
    }
    std::u16string text;
    std::size_t at = 0;
    for (; at + 1 < rest_.size(); at += 2) {
        const bool big = encoding_ == Encoding::Utf16BigEndian;
        const auto high = static_cast<unsigned char>(rest_[big ? at : at + 1]);
        const auto low = static_cast<unsigned char>(rest_[big ? at + 1 : at]);
        const auto unit = static_cast<char16_t>(high << 8U | low);
        if (!at_start_ || unit != kMark) text += unit;
        at_start_ = false;
    }
    const bool cut = !text.empty() && text.back() >= 0xD800 && text.back() < 0xDC00;  // half of a pair
    if (cut) {
        text.pop_back();
        at -= 2;
    }
    rest_.erase(0, at);
    return ToUtf8(text);
}

std::string DecodedText(std::string_view file) { return Decoder(EncodingOf(file)).Decode(file); }

}  // namespace vintrel::host
