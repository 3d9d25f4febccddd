// The fields of one comma-separated record whose values may stand in quotes, split once per record.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace vintrel::cdr {

/// How an exchange puts its values in quotes.
struct QuoteStyle {
    char16_t quote;
    bool doubled;  ///< a quote inside a value is written twice
};

class QuotedFields {
 public:
    static constexpr std::size_t kCapacity = 32;

    /// Line ends around the record are not part of it. A quote opens a value at its first character only, and closes
    /// it before a comma or the end only: any other quote is text, and so are commas and line breaks inside.
    /// @param wanted  columns to split, at most kCapacity; what stands behind them is not read.
    QuotedFields(std::u16string_view record, QuoteStyle style, std::size_t wanted);

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
    std::array<Field, kCapacity> fields_;  // written before they are read: `count_` of them count
    std::size_t count_ = 0;
};

}  // namespace vintrel::cdr
