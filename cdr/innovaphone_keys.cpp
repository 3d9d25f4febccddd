#include "cdr/innovaphone_keys.h"

#include <cstring>

#include "server/control_characters.h"
#include "server/scan.h"
#include "server/text.h"

namespace vintrel::cdr {
namespace {

using server::Pair;
using Key = InnovaphoneKey;

bool BeginsKey(char16_t character) { return character == u'&' || character == server::kBlank; }
bool EndsValue(char16_t character) {
    return BeginsKey(character) || character == server::kCr || character == server::kLf;
}

std::u16string_view WithoutBlanks(std::u16string_view value) {
    while (!value.empty() && value.front() == u'+') value.remove_prefix(1);
    while (!value.empty() && value.back() == u'+') value.remove_suffix(1);
    return value;
}

struct Name {
    Key key;
    std::size_t length = 0;  ///< with its "="; 0: none of the keys that call records are made of

    explicit operator bool() const { return length != 0; }
};

template <std::size_t Size>
Name Match(std::u16string_view text, Key key, const char16_t (&name)[Size]) {
    constexpr std::size_t kLength = Size - 1;  // without the NUL
    const bool same = text.size() >= kLength && std::memcmp(text.data(), name, kLength * sizeof(char16_t)) == 0;
    return {key, same ? kLength : 0};
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
        case Pair(u'd', u's'):
            if (const Name found = Match(text, Key::DstCdpn, u"dst_cdpn=")) return found;
            if (const Name found = Match(text, Key::DstCgpn, u"dst_cgpn=")) return found;
            return Match(text, Key::DstIf, u"dst_if=");
        case Pair(u's', u'r'):
            if (const Name found = Match(text, Key::SrcCdpn, u"src_cdpn=")) return found;
            if (const Name found = Match(text, Key::SrcCgpn, u"src_cgpn=")) return found;
            if (const Name found = Match(text, Key::SrcDgpn, u"src_dgpn=")) return found;
            if (const Name found = Match(text, Key::SrcIf, u"src_if=")) return found;
            return Match(text, Key::SrvId, u"srv_id=");
        default: return {};
    }
}

}  // namespace

InnovaphoneKeys::InnovaphoneKeys(std::u16string_view record) {
    const char16_t* const end = record.data() + record.size();
    Name open;
    const char16_t* value = nullptr;
    const auto open_at = [&](const char16_t* at) {
        open = NameAt({at, end});
        value = at + open.length;
    };
    const auto close_at = [&](const char16_t* at) {
        if (open.length == 0) return;
        std::u16string_view& kept = values_[static_cast<std::size_t>(open.key)];
        if (kept.data() == nullptr) kept = WithoutBlanks({value, at});  // the first of equal keys
        open.length = 0;
    };
    open_at(record.data());
    // The four characters that end a value are among the few up to "&".
    server::FindEach(record.data(), end, server::scan::IsAtMost{u'&'}, [&](const char16_t* at) {
        if (!EndsValue(*at)) return true;
        close_at(at);
        if (BeginsKey(*at)) open_at(at + 1);
        return true;
    });
    close_at(end);
}

}  // namespace vintrel::cdr
