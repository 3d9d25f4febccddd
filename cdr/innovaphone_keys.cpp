#include "cdr/innovaphone_keys.h"

#include <algorithm>

#include "server/control_characters.h"
#include "server/scan.h"

namespace vintrel::cdr {
namespace {

// In the order of InnovaphoneKey.
constexpr std::array<std::u16string_view, 13> kNames{
    u"ref",      u"date",     u"event",    u"src_if",   u"dst_if",    u"srv_id",      u"src_cgpn",
    u"src_dgpn", u"src_cdpn", u"dst_cgpn", u"dst_cdpn", u"disc_time", u"connect_time"};
constexpr std::size_t kLongest = kNames.back().size();

/// How many names are shorter than each length.
constexpr auto kShorter = [] {
    std::array<std::uint8_t, kLongest + 2> shorter{};
    for (const std::u16string_view name : kNames)
        for (std::size_t length = name.size() + 1; length < shorter.size(); ++length) ++shorter[length];
    return shorter;
}();
static_assert(std::is_sorted(kNames.begin(), kNames.end(), [](auto a, auto b) { return a.size() < b.size(); }));

bool BeginsKey(char16_t character) { return character == u'&' || character == server::kBlank; }

/// Where the value ends that stands at `at`.
const char16_t* EndOfValue(const char16_t* at, const char16_t* end) {
    // The four characters that end a value are among the few up to "&".
    for (;; ++at) {
        at = server::FindAtMost(at, end, u'&');
        if (at == end || BeginsKey(*at) || *at == server::kCr || *at == server::kLf) return at;
    }
}

}  // namespace

InnovaphoneKeys::InnovaphoneKeys(std::u16string_view record) {
    const char16_t* at = record.data();
    const char16_t* const end = at + record.size();
    const char16_t* equals = at;
    for (;;) {
        const char16_t* const value_end = EndOfValue(at, end);
        if (equals <= at) equals = server::FindCharacter(at, end, u'=');
        if (equals == end) return;
        if (equals < value_end) Keep({at, equals}, {equals + 1, value_end});
        at = std::find_if(value_end, end, BeginsKey);
        if (at == end) return;
        ++at;
    }
}

void InnovaphoneKeys::Keep(std::u16string_view name, std::u16string_view value) {
    if (name.size() > kLongest) return;
    for (std::size_t key = kShorter[name.size()]; key < kShorter[name.size() + 1]; ++key) {
        if (kNames[key] != name) continue;
        const bool first = values_[key].data() == nullptr;
        if (first) values_[key] = value;
        return;
    }
}

std::u16string_view InnovaphoneKeys::operator[](InnovaphoneKey key) const {
    const std::u16string_view value = values_[static_cast<std::size_t>(key)];
    const std::size_t first = value.find_first_not_of(u'+');
    if (first == std::u16string_view::npos) return {};
    return value.substr(first, value.find_last_not_of(u'+') - first + 1);
}

}  // namespace vintrel::cdr
