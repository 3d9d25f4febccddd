#include "records/gdv_record.h"

#include <utility>

#include "text/control_characters.h"

namespace vintrel::records {
void GdvRecord::Assemble() {
    const auto full = [&]<std::size_t... I>(std::index_sequence<I...>) {
        return (... && (sizes_[I] == kGdvFields[I].Width()));
    };
    char16_t* end = At(kMacAddress) + kMacAddress.length;
    if (!full(std::make_index_sequence<kCount>())) {
        end = At(kLine);
        for (std::size_t i = 0; i < kCount;
             ++i) {  // each moves to the left or stays: none is overwritten before its turn
            const char16_t* const slot = At(kGdvFields[i]);
            end = std::copy(slot, slot + sizes_[i], end);
        }
    }
    characters_.front() = text::kStx;
    *end++ = text::kEtx;
    size_ = static_cast<std::size_t>(end - characters_.data());
}

void GdvRecord::Reject() {
    characters_.front() = text::kDle;
    size_ = 1;
}

}  // namespace vintrel::records
