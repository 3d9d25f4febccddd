// The fields of a comma-separated record, cut once.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

namespace vintrel::cdr {

/// The first `Count` fields, numbered from 1, as server::GetCommaField finds them: quotes mean nothing, and a number
/// beyond the last field gives the last field.
template <std::size_t Count>
class CommaFields {
 public:
    explicit CommaFields(std::u16string_view text) {
        std::size_t start = 0;
        while (count_ < Count) {
            const std::size_t end = std::min(text.find(u',', start), text.size());
            fields_[count_++] = text.substr(start, end - start);
            if (end == text.size()) break;
            start = end + 1;
        }
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
