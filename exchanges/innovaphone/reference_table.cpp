#include "exchanges/innovaphone/reference_table.h"

#include <algorithm>
#include <utility>

#include "text/text.h"

namespace vintrel::exchanges::innovaphone {

bool ReferenceTable::Add(std::u16string_view reference) {
    if (text::Trim(reference).empty() || held_.size() == kSlots) return false;
    held_.push_back({std::hash<std::u16string_view>{}(reference), std::u16string(reference)});
    return true;
}

bool ReferenceTable::Remove(std::u16string_view reference) {
    const std::size_t position = Position(reference);
    if (position == held_.size()) return false;
    std::swap(held_[position], held_.back());
    held_.pop_back();
    return true;
}

std::size_t ReferenceTable::Position(std::u16string_view reference) const {
    if (held_.empty()) return 0;
    const std::size_t hash = std::hash<std::u16string_view>{}(reference);
    const auto found = std::find_if(held_.begin(), held_.end(),
                                    [&](const Held& held) { return held.hash == hash && held.reference == reference; });
    return static_cast<std::size_t>(found - held_.begin());
}

}  // namespace vintrel::exchanges::innovaphone
