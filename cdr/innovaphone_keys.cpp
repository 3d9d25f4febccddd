#include "cdr/innovaphone_keys.h"

#include <cstring>

#include "server/control_characters.h"
#include "server/scan.h"

namespace vintrel::cdr {
namespace {

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

constexpr std::uint32_t Pair(char16_t first, char16_t second) { return std::uint32_t{first} << 16 | second; }

struct Name {
    Key key;
    std::size_t length = 0;  ///< with its "="; 0: none of the keys that call records are made of
};

/// The key that a text begins with.
Name NameAt(std::u16string_view text) {
    const auto is = [&]<std::size_t Size>(const char16_t(&name)[Size]) {
        return text.size() >= Size - 1 && std::memcmp(text.data(), name, (Size - 1) * sizeof(char16_t)) == 0;
    };
    if (text.size() < 2) return {};
    switch (Pair(text[0], text[1])) {
        case Pair(u'r', u'e'): return is(u"ref=") ? Name{Key::Ref, 4} : Name{};
        case Pair(u'e', u'v'): return is(u"event=") ? Name{Key::Event, 6} : Name{};
        case Pair(u'c', u'o'): return is(u"connect_time=") ? Name{Key::ConnectTime, 13} : Name{};
        case Pair(u'd', u'i'): return is(u"disc_time=") ? Name{Key::DiscTime, 10} : Name{};
        case Pair(u'd', u'a'): return is(u"date=") ? Name{Key::Date, 5} : Name{};
        case Pair(u'd', u's'):
            if (is(u"dst_cdpn=")) return {Key::DstCdpn, 9};
            if (is(u"dst_cgpn=")) return {Key::DstCgpn, 9};
            return is(u"dst_if=") ? Name{Key::DstIf, 7} : Name{};
        case Pair(u's', u'r'):
            if (is(u"src_cdpn=")) return {Key::SrcCdpn, 9};
            if (is(u"src_cgpn=")) return {Key::SrcCgpn, 9};
            if (is(u"src_dgpn=")) return {Key::SrcDgpn, 9};
            if (is(u"src_if=")) return {Key::SrcIf, 7};
            return is(u"srv_id=") ? Name{Key::SrvId, 7} : Name{};
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
