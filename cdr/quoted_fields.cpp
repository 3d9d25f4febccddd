#include "cdr/quoted_fields.h"

#include <algorithm>

#include "server/control_characters.h"
#include "server/scan.h"
#include "server/text.h"

namespace vintrel::cdr {
namespace {

constexpr char16_t kComma = u',';

std::u16string_view WithoutLineEnds(std::u16string_view record) {
    constexpr std::u16string_view kLineEnds = u"\r\n";
    const std::size_t first = record.find_first_not_of(kLineEnds);
    if (first == std::u16string_view::npos) return {};
    return record.substr(first, record.find_last_not_of(kLineEnds) - first + 1);
}

/// The quote that closes a value, or `end` when none does.
const char16_t* ClosingQuote(const char16_t* at, const char16_t* end, QuoteStyle style) {
    for (;;) {
        at = server::FindCharacter(at, end, style.quote);
        if (at == end) return end;
        const char16_t* const next = at + 1;
        if (next == end) return at;
        if (style.doubled && *next == style.quote) {
            at = next + 1;
        } else if (*next == kComma) {
            return at;
        } else {
            at = next;
        }
    }
}

}  // namespace

QuotedFields::QuotedFields(std::u16string_view record, QuoteStyle style, std::size_t wanted) {
    record = WithoutLineEnds(record);
    wanted = std::min(wanted, kCapacity);
    const char16_t* at = record.data();
    const char16_t* const end = at + record.size();
    while (count_ < wanted) {
        const bool quoted = at != end && *at == style.quote;
        const char16_t* const value = quoted ? at + 1 : at;
        const char16_t* const value_end =
            quoted ? ClosingQuote(value, end, style) : server::FindCharacter(at, end, kComma);
        fields_[count_++] = {value, value_end};
        const char16_t* const comma = quoted && value_end != end ? value_end + 1 : value_end;
        if (comma == end) break;
        at = comma + 1;
    }
}

}  // namespace vintrel::cdr
