// The fields of a comma-separated record, cut once.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

#include "server/scan.h"

namespace vintrel::cdr {

/// The first `Count` fields, numbered from 1, as server::GetCommaField finds them: quotes mean nothing, and a number
/// beyond the last field gives the last field.
template <std::size_t Count>
class CommaFields {
 public:
    explicit CommaFields(std::u16string_view text) {
        const char16_t* start = text.data();
        const char16_t* const end = start + text.size();
        server::EachCharacter(start, end, u',', [&](const char16_t* comma) {
            fields_[count_++] = std::u16string_view(start, comma);
            start = comma + 1;
            return count_ < Count;
        });
        if (count_ < Count) fields_[count_++] = std::u16string_view(start, end);
    }

    template <std::size_t Number>
    std::u16string_view Field() const {
        static_assert(Number >= 1 && Number <= Count);
        return fields_[std::min(Number, count_) - 1];
    }

 private:
    std::array<std::u16string_view, Count> fields_;
    std::size_t count_ = 0;
};

}  // namespace vintrel::cdr
