#include "exchanges/innovaphone/record_keys.h"

#include <cstring>

#include "text/control_characters.h"
#include "text/scan.h"
#include "text/text.h"

namespace vintrel::exchanges::innovaphone {
namespace {

using text::Pair;
using Key = RecordKey;

constexpr std::u16string_view kEndOfLog = u"</cdr>";

/// Every place that may end a value or begin a key, and more: what lies below "&" is told apart afterwards.
constexpr auto kMark = [](auto c) { return (c <= u'&') | (c == kEndOfLog.front()); };

bool BeginsKey(char16_t character) { return character == u'&' || character == text::kBlank; }
bool EndsLine(char16_t character) { return character == text::kCr || character == text::kLf; }

std::u16string_view WithoutBlanks(std::u16string_view value) {
    while (!value.empty() && value.front() == u'+') value.remove_prefix(1);
    while (!value.empty() && value.back() == u'+') value.remove_suffix(1);
    return value;
}

struct Name {
    Key key;
    std::size_t length = 0;  ///< with its "="; 0: none of the keys that call records are made of
};

template <std::size_t Size>
Name Match(std::u16string_view text, Key key, const char16_t (&name)[Size]) {
    constexpr std::size_t kLength = Size - 1;  // without the NUL
    const bool same = text.size() >= kLength && std::memcmp(text.data(), name, kLength * sizeof(char16_t)) == 0;
    return {key, same ? kLength : 0};
}

// The keys of either side differ in what follows "dst_" and "src_".
Name DestinationAt(std::u16string_view text) {
    if (text.size() < 6) return {};
    switch (Pair(text[4], text[5])) {
        case Pair(u'c', u'd'): return Match(text, Key::DstCdpn, u"dst_cdpn=");
        case Pair(u'c', u'g'): return Match(text, Key::DstCgpn, u"dst_cgpn=");
        case Pair(u'i', u'f'): return Match(text, Key::DstIf, u"dst_if=");
        default: return {};
    }
}

Name SourceAt(std::u16string_view text) {
    if (text.size() < 6) return {};
    switch (Pair(text[4], text[5])) {
        case Pair(u'c', u'd'): return Match(text, Key::SrcCdpn, u"src_cdpn=");
        case Pair(u'c', u'g'): return Match(text, Key::SrcCgpn, u"src_cgpn=");
        case Pair(u'd', u'g'): return Match(text, Key::SrcDgpn, u"src_dgpn=");
        case Pair(u'i', u'f'): return Match(text, Key::SrcIf, u"src_if=");
        case Pair(u'i', u'd'): return Match(text, Key::SrvId, u"srv_id=");
        default: return {};
    }
}

/// The key that a text begins with.
Name NameAt(std::u16string_view text) {
    if (text.size() < 2) return {};
    switch (Pair(text[0], text[1])) {
        case Pair(u'r', u'e'): return Match(text, Key::Ref, u"ref=");
        case Pair(u'e', u'v'): return Match(text, Key::Event, u"event=");
        case Pair(u'c', u'o'): return Match(text, Key::ConnectTime, u"connect_time=");
        case Pair(u'd', u'i'): return Match(text, Key::DiscTime, u"disc_time=");
        case Pair(u'd', u'a'): return Match(text, Key::Date, u"date=");
        case Pair(u'd', u's'): return DestinationAt(text);
        case Pair(u's', u'r'): return SourceAt(text);
        default: return {};
    }
}

/// Keeps the value of a pair of key and value, unless its key has come before. Not inline: the search around it has no
/// register to spare.
[[gnu::noinline]] void Keep(std::u16string_view* values, const char16_t* pair, const char16_t* end) {
    const Name name = NameAt({pair, end});
    if (name.length == 0) return;
    std::u16string_view& kept = values[static_cast<std::size_t>(name.key)];
    if (kept.data() == nullptr) kept = WithoutBlanks({pair + name.length, end});
}

}  // namespace

RecordKeys::RecordKeys(std::u16string_view record) {
    const char16_t* const end = record.data() + record.size();
    const char16_t* pair = record.data();  // null between a line's end and the next key
    const auto close_at = [&](const char16_t* at) {
        if (pair != nullptr) Keep(values_.data(), pair, at);
    };
    text::FindEach(record.data(), end, kMark, [&](const char16_t* at) {
        if (BeginsKey(*at)) {
            close_at(at);
            pair = at + 1;
        } else if (EndsLine(*at)) {
            close_at(at);
            pair = nullptr;
        } else if (*at == kEndOfLog.front()) {
            of_the_log_stream_ = of_the_log_stream_ || std::u16string_view(at, end).starts_with(kEndOfLog);
        }
        return true;
    });
    close_at(end);
}

}  // namespace vintrel::exchanges::innovaphone
