// The fields of one comma-separated record whose values may stand in quotes, split once per record.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

#include "text/control_characters.h"
#include "text/scan.h"

namespace vintrel::text {

/// How an exchange puts its values in quotes.
struct QuoteStyle {
    char16_t quote;
    bool doubled;  ///< a quote inside a value is written twice
};

/// The first `Wanted` fields of a record; what stands behind them is not read.
template <QuoteStyle Style, std::size_t Wanted>
class QuotedFields {
 public:
    /// Line ends around the record are not part of it. A quote opens a value at its first character only, and closes
    /// it before a comma or the end only: any other quote is text, and so are commas and line breaks inside.
    explicit QuotedFields(std::u16string_view record) {
        record = WithoutLineEnds(record);
        const char16_t* at = record.data();
        const char16_t* const end = at + record.size();
        Field* next = fields_.data();
        Field* const last = next + Wanted;
        while (next != last) {
            if (at == end || *at != Style.quote) {
                const char16_t* const comma = FindFirst(at, end, kComma);
                *next++ = {at, comma};
                if (comma == end) break;
                at = comma + 1;
                continue;
            }
            const char16_t* value = at + 1;
            bool open = true;
            FindEach(value, end, kComma, [&](const char16_t* comma) {
                if (!Closes(value, comma)) return true;
                *next++ = {value, comma - 1};
                at = comma + 1;
                value = comma + 2;
                open = next != last && at != end && *at == Style.quote;
                return open;
            });
            if (!open) continue;
            *next++ = {value, Closes(value, end) ? end - 1 : end};
            break;
        }
        count_ = static_cast<std::size_t>(next - fields_.data());
    }

    std::size_t Count() const { return count_; }

    /// The value of a column, counted from 1, without its quotes; "" behind the last. Doubled quotes inside stay
    /// doubled, for the value is a view of the record.
    std::u16string_view operator[](std::size_t column) const {
        if (column < 1 || column > count_) return {};
        const Field& field = fields_[column - 1];
        return {field.begin, field.end};
    }

 private:
    struct Field {
        const char16_t* begin;
        const char16_t* end;
    };
    static constexpr auto kComma = scan::Is(u',');

    static bool IsLineEnd(char16_t character) { return character == kCr || character == kLf; }
    static std::u16string_view WithoutLineEnds(std::u16string_view record) {
        while (!record.empty() && IsLineEnd(record.front())) record.remove_prefix(1);
        while (!record.empty() && IsLineEnd(record.back())) record.remove_suffix(1);
        return record;
    }
    /// Whether a quote in front of a place closes the value. Doubled quotes in front of it belong to the value.
    static bool Closes(const char16_t* value, const char16_t* at) {
        if (at <= value || at[-1] != Style.quote) return false;
        const char16_t* quote = at - 1;
        if (Style.doubled)
            while (quote > value && quote[-1] == Style.quote) --quote;
        return (at - quote) % 2 != 0;
    }

    std::array<Field, Wanted> fields_;  // written before they are read: `count_` of them count
    std::size_t count_ = 0;
};

}  // namespace vintrel::text
