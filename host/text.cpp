#include "host/text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>

namespace vintrel::host {
namespace {

constexpr std::array<std::string_view, 32> kControlNames{
    "NUL", "SOH", "STX", "ETX", "EOT", "ENQ", "ACK", "BEL", "BS",  "TAB", "LF",  "VT",  "FF", "CR", "SO", "SI",
    "DLE", "DC1", "DC2", "DC3", "DC4", "NAK", "SYN", "ETB", "CAN", "EM",  "SUB", "ESC", "FS", "GS", "RS", "US"};

char16_t CodeOf(char byte) { return static_cast<unsigned char>(byte); }

/// The byte that a name between "<" and ">" stands for.
std::optional<char> NamedByte(std::string_view name) {
    const std::string upper = Upper(name);
    if (upper == "LT") return '<';
    if (upper == "DEL") return '\x7f';
    for (std::size_t code = 0; code < kControlNames.size(); ++code)
        if (kControlNames[code] == upper) return static_cast<char>(code);
    unsigned value = 0;
    if (upper.size() == 3 && upper[0] == 'X') {
        const char* const end = upper.data() + upper.size();
        if (std::from_chars(upper.data() + 1, end, value, 16).ptr == end) return static_cast<char>(value);
    }
    return std::nullopt;
}

/// The byte and the length of the name that stands at the beginning of the text.
struct Named {
    char byte;
    std::size_t length;
};
std::optional<Named> NameAtFront(std::string_view text) {
    constexpr std::size_t kLongest = 5;
    const std::size_t close = text.substr(0, kLongest).find('>');
    if (text.empty() || text[0] != '<' || close == std::string_view::npos) return std::nullopt;
    const std::optional<char> byte = NamedByte(text.substr(1, close - 1));
    if (!byte) return std::nullopt;
    return Named{*byte, close + 1};
}

/// The code point at the front of UTF-8 text; malformed bytes stand for themselves.
struct CodePoint {
    char32_t value;
    std::size_t length;
};
CodePoint CodePointAtFront(std::string_view utf8) {
    const auto lead = static_cast<unsigned char>(utf8[0]);
    const std::size_t length = lead < 0xC0 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    if (length == 1 || length > utf8.size()) return {lead, 1};
    char32_t value = lead & (0x7FU >> length);
    for (std::size_t i = 1; i < length; ++i) {
        const auto next = static_cast<unsigned char>(utf8[i]);
        if ((next & 0xC0U) != 0x80U) return {lead, 1};
        value = value << 6U | (next & 0x3FU);
    }
    return {value, length};
}

void AppendCodePoint(std::string& out, char32_t value) {
    const auto tail = [&](unsigned shift) { out += static_cast<char>(0x80U | (value >> shift & 0x3FU)); };
    if (value < 0x80) {
        out += static_cast<char>(value);
    } else if (value < 0x800) {
        out += static_cast<char>(0xC0U | value >> 6U);
        tail(0);
    } else if (value < 0x10000) {
        out += static_cast<char>(0xE0U | value >> 12U);
        tail(6);
        tail(0);
    } else {
        out += static_cast<char>(0xF0U | value >> 18U);
        tail(12);
        tail(6);
        tail(0);
    }
}

bool IsHighSurrogate(char16_t unit) { return unit >= 0xD800 && unit < 0xDC00; }
bool IsLowSurrogate(char16_t unit) { return unit >= 0xDC00 && unit < 0xE000; }

}  // namespace

std::u16string FromBytes(std::string_view bytes) {
    std::u16string text;
    text.reserve(bytes.size());
    for (const char byte : bytes) text += CodeOf(byte);
    return text;
}

std::string ToBytes(std::u16string_view text) {
    std::string bytes;
    bytes.reserve(text.size());
    for (const char16_t character : text) bytes += character < 256 ? static_cast<char>(character) : '?';
    return bytes;
}

void AppendUtf8(std::string& out, char16_t character) { AppendCodePoint(out, character); }

std::string ToUtf8(std::u16string_view text) {
    std::string out;
    out.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (IsHighSurrogate(text[i]) && i + 1 < text.size() && IsLowSurrogate(text[i + 1])) {
            AppendCodePoint(out, 0x10000U + ((text[i] - 0xD800U) << 10U) + (text[i + 1] - 0xDC00U));
            ++i;
        } else {
            AppendCodePoint(out, text[i]);
        }
    }
    return out;
}

std::u16string FromUtf8(std::string_view utf8) {
    std::u16string text;
    while (!utf8.empty()) {
        const CodePoint point = CodePointAtFront(utf8);
        utf8.remove_prefix(point.length);
        if (point.value < 0x10000) {
            text += static_cast<char16_t>(point.value);
        } else {
            text += static_cast<char16_t>(0xD7C0U + (point.value >> 10U));
            text += static_cast<char16_t>(0xDC00U + (point.value & 0x3FFU));
        }
    }
    return text;
}

std::string Readable(std::string_view bytes) {
    constexpr std::string_view kHex = "0123456789ABCDEF";
    std::string out;
    out.reserve(bytes.size() + bytes.size() / 8);
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        const char16_t code = CodeOf(bytes[i]);
        if (code < kControlNames.size()) {
            ((out += '<') += kControlNames[code]) += '>';
        } else if (code == 0x7F) {
            out += "<DEL>";
        } else if (code >= 0x80 && code < 0xA0) {
            (((out += "<x") += kHex[code >> 4U]) += kHex[code & 15U]) += '>';
        } else if (NameAtFront(bytes.substr(i))) {
            out += "<LT>";
        } else {
            AppendUtf8(out, code);
        }
    }
    return out;
}

std::string FromReadable(std::string_view utf8) {
    std::string bytes;
    bytes.reserve(utf8.size());
    while (!utf8.empty()) {
        if (const std::optional<Named> named = NameAtFront(utf8)) {
            bytes += named->byte;
            utf8.remove_prefix(named->length);
            continue;
        }
        const CodePoint point = CodePointAtFront(utf8);
        bytes += point.value < 256 ? static_cast<char>(point.value) : '?';
        utf8.remove_prefix(point.length);
    }
    return bytes;
}

std::string Upper(std::string_view ascii) {
    std::string upper(ascii);
    for (char& character : upper)
        if (character >= 'a' && character <= 'z') character = static_cast<char>(character - 'a' + 'A');
    return upper;
}

std::string_view Trimmed(std::string_view text) {
    while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
    while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
    return text;
}

std::vector<std::string_view> Lines(std::string_view text) {
    std::vector<std::string_view> lines;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find_first_of("\r\n"), text.size());
        lines.push_back(text.substr(0, end));
        text.remove_prefix(end);
        text.remove_prefix(text.starts_with("\r\n") ? 2 : text.empty() ? 0 : 1);
    }
    return lines;
}

std::string Digits(unsigned long value, std::size_t width) {
    std::string digits = std::to_string(value);
    if (digits.size() < width) digits.insert(0, width - digits.size(), '0');
    return digits;
}

std::optional<unsigned> ParseNumber(std::string_view text) {
    unsigned value = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value);
    if (text.empty() || stop != end || error != std::errc()) return std::nullopt;
    return value;
}

}  // namespace vintrel::host
