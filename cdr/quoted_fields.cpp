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

/// Whether a quote at the end of a value closes it. Doubled quotes in front of it belong to the value.
bool Closes(const char16_t* value, const char16_t* quote, QuoteStyle style) {
    if (!style.doubled) return true;
    const char16_t* first = quote;
    while (first != value && first[-1] == style.quote) --first;
    return (quote - first) % 2 == 0;
}

}  // namespace

QuotedFields::QuotedFields(std::u16string_view record, QuoteStyle style, std::size_t wanted) {
    record = WithoutLineEnds(record);
    wanted = std::min(wanted, kCapacity);
    const char16_t* const end = record.data() + record.size();
    const char16_t* value = nullptr;  // of the quoted field that is open
    const auto keep = [&](const char16_t* field, const char16_t* field_end) {
        fields_[count_++] = {field, field_end};
        return count_ < wanted;
    };
    // Keeps the fields without quotes that begin here. Whether a quoted one follows.
    const auto open_at = [&](const char16_t* at) {
        while (at == end || *at != style.quote) {
            const char16_t* const comma = server::FindFirst(at, end, server::scan::Is{kComma});
            if (!keep(at, comma) || comma == end) return false;
            at = comma + 1;
        }
        value = at + 1;
        return true;
    };
    bool open = open_at(record.data());
    if (open) {
        server::FindEachPair(value, end, style.quote, kComma, [&](const char16_t* quote) {
            if (quote < value || !Closes(value, quote, style)) return true;
            open = keep(value, quote) && open_at(quote + 2);
            return open;
        });
    }
    if (!open) return;
    const bool closed = value != end && end[-1] == style.quote && Closes(value, end - 1, style);
    keep(value, closed ? end - 1 : end);
}

}  // namespace vintrel::cdr
