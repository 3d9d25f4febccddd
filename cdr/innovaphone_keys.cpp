#include "cdr/innovaphone_keys.h"

#include <algorithm>

#include "server/control_characters.h"

namespace vintrel::cdr {
namespace {

// In the order of InnovaphoneKey.
constexpr std::array<std::u16string_view, 13> kNames{
    u"event",    u"ref",      u"src_if",       u"dst_if",    u"src_cgpn", u"src_dgpn", u"src_cdpn",
    u"dst_cgpn", u"dst_cdpn", u"connect_time", u"disc_time", u"date",     u"srv_id"};

bool BeginsKey(char16_t character) { return character == u'&' || character == server::kBlank; }

bool EndsValue(char16_t character) {
    return BeginsKey(character) || character == server::kCr || character == server::kLf;
}

}  // namespace

InnovaphoneKeys::InnovaphoneKeys(std::u16string_view record) {
    auto at = record.begin();
    const auto end = record.end();
    for (;;) {
        const auto value_end = std::find_if(at, end, EndsValue);
        Keep({at, value_end});
        at = std::find_if(value_end, end, BeginsKey);
        if (at == end) return;
        ++at;
    }
}

void InnovaphoneKeys::Keep(std::u16string_view pair) {
    const std::size_t equals = pair.find(u'=');
    if (equals == std::u16string_view::npos) return;
    const auto* const name = std::find(kNames.begin(), kNames.end(), pair.substr(0, equals));
    if (name == kNames.end()) return;
    std::u16string_view& value = values_[static_cast<std::size_t>(name - kNames.begin())];
    const bool first = value.data() == nullptr;
    if (first) value = pair.substr(equals + 1);
}

std::u16string_view InnovaphoneKeys::operator[](InnovaphoneKey key) const {
    const std::u16string_view value = values_[static_cast<std::size_t>(key)];
    const std::size_t first = value.find_first_not_of(u'+');
    if (first == std::u16string_view::npos) return {};
    return value.substr(first, value.find_last_not_of(u'+') - first + 1);
}

}  // namespace vintrel::cdr
