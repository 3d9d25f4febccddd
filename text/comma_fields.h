// The fields of a comma-separated record, cut once.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

#include "text/scan.h"

namespace vintrel::text {

/// The first `Count` fields, numbered from 1, as GetCommaField finds them: quotes mean nothing, and a number
/// beyond the last field gives the last field.
template <std::size_t Count>
class CommaFields {
 public:
    explicit CommaFields(std::u16string_view text) {
        std::size_t count = 0;
        const char16_t* start = text.data();
        const char16_t* const end = start + text.size();
        FindEach(start, end, scan::Is(u','), [&](const char16_t* comma) {
            fields_[count++] = std::u16string_view(start, comma);
            start = comma + 1;
            return count < Count;
        });
        if (count < Count) fields_[count++] = std::u16string_view(start, end);
        last_ = count - 1;
    }

    template <std::size_t Number>
    std::u16string_view Field() const {
        static_assert(Number >= 1 && Number <= Count);
        return fields_[std::min(Number - 1, last_)];
    }

 private:
    std::array<std::u16string_view, Count> fields_;
    std::size_t last_ = 0;  ///< counted from 0; there is always one field
};

}  // namespace vintrel::text
